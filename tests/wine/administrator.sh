#!/usr/bin/env bash
# administrator.sh PREFIX GENERATOR SCHEMA CLIENT: the verbs of the console client as a Windows program, over the
# registered libraries. Its close runs in a process of its own.
source "$(dirname "$0")/sample_company.sh"
source "$repository/scripts/demo/checks.sh"

client=$4
status=0
said=
client() {
  status=0
  said=$(wine_run "$client" --db "$connection" --user ADMIN "$@" 2>&1) || status=$?
}

client check 2024/01/31
check "the check of January has no error" "$status" 0
client close 2024/01/15 --yes
check "the middle of a month is refused" "$status $(grep -c 'because of: not-month-end' <<<"$said")" "1 1"
client close 2024/01/31 --yes
check "January is closed" "$status" 0
check "and the summary has the company" "$(grep -c '^company ' <<<"$said")" 1
check "the record tells who has made it" "$(query "SELECT MAKEBY,STATUSSN FROM STKCLOSEHD" | tr '|' ' ')" "ADMIN 0"
check "the lock is given back" "$(query "SELECT count(*) FROM TALLYRALOCK")" 0
client verify 2024/01/31
check "January is right" "$status" 0
client close 2024/02/29 --yes
check "February is refused as long as January is not approved" \
  "$status $(grep -c 'because of: previous-unapproved' <<<"$said")" "1 1"
client approve 2024/01/31
check "January is approved" "$status $(query "SELECT STATUSSN FROM STKCLOSEHD")" "0 1"
client status --json
check "the status says so" "$(grep -c '"state": "approved"' <<<"$said")" 1
client close 2024/02/29 --yes --backup
check "a copy is refused with the way to make one" "$status $(grep -c 'run this without --backup' <<<"$said")" "1 1"
client reopen 2024/01/31 --yes
check "January is reopened" "$status $(query "SELECT count(*) FROM STKCLOSEHD")" "0 0"
client log --csv
check "the journal has it all" "$(grep -c '^20../../.*,\(close\|approve\|reopen\),' <<<"$said")" 4
[ "$failed_checks" = 0 ] || { echo "$said"; exit 1; }

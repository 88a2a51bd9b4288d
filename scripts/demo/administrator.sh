#!/usr/bin/env bash
# administrator.sh FOLDER: what an administrator does with the company that the story has left in the folder: looks at
# February, approves it, takes stock in March with a sheet, and closes March, each by one verb of the console client.
source "$(dirname "$0")/../setup.sh"
folder=$1 database=$1/company.db
source "$repository/scripts/demo/checks.sh"
export TALLYRA_DB=$database TALLYRA_USER=ADMIN
unset TALLYRA_CONFIG TALLYRA_KIND TALLYRA_LANGUAGE

# Says the words of the verb and carries it out.
verb() {
  say "tallyra-client $*"
  "$repository/build/release/bin/tallyra-client" "$@" 2>&1
}
# refused_by WORDS...: what it ends with.
refused_by() {
  "$repository/build/release/bin/tallyra-client" "$@" >"$folder/refused.txt" 2>&1 && echo 0 || echo $?
}

verb status
verb verify 2024/02/29
check "March is not closed while February is unapproved" "$(refused_by close 2024/03/31 --yes)" 1
verb approve 2024/02/29 --yes

# Two more than the books have of one part, one more of another.
"$repository/build/release/bin/tallyra-client" count sheet 30 2024/03/15 --csv --quiet >"$folder/sheet.csv"
awk -F, -v OFS=, 'NR == 2 {$7 = $6 + 2} NR == 3 {$7 = $6 + 1} {print}' "$folder/sheet.csv" >"$folder/counted.csv"
verb count import "$folder/counted.csv" --number MARCH --yes
verb count approve MARCH --yes
check "two counted parts are posted" \
  "$(query "SELECT count(*) FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
            WHERE H.TRANTYPE='STKCHECKISS' AND H.REFERENCE='MARCH'")" 2
check "a stocktaking is approved once" "$(refused_by count approve MARCH --yes)" 1

verb check 2024/03/31
verb close 2024/03/31 --yes
verb verify 2024/03/31
verb log --limit 10
check "March is closed" "$(query "SELECT count(*) FROM STKCLOSEHD WHERE CLOSEDT='2024-03-31 00:00:00'")" 1
if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed"
  exit 1
fi

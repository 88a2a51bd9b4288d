#!/usr/bin/env bash
# evening.sh PREFIX GENERATOR SCHEMA CLIENT: from an empty database to the report of a month with the verbs of the
# console client as a Windows program over the registered libraries, and a close that Ctrl-C ends.
source "$(dirname "$0")/sample_company.sh"
source "$repository/scripts/demo/checks.sh"

client=$4
# on DATABASE WORDS...: what the program prints is in $folder/out, what it tells in $folder/told, with what it ends in
# $status.
on() {
  local database=$1
  shift
  status=0
  wine_run "$client" --db "$database" --user ADMIN "$@" >"$folder/raw" 2>"$folder/raw_told" || status=$?
  tr -d '\r' <"$folder/raw" >"$folder/out"
  tr -d '\r' <"$folder/raw_told" >"$folder/told"
}
# ends NAME STATUS [TEXT]: with that status, and with the text in what it prints or tells.
ends() {
  check "$1" "$status" "$2"
  [ -z "${3:-}" ] || check "and says '$3'" "$(grep -qF -- "$3" "$folder/out" "$folder/told" && echo yes)" yes
}

# A fresh database, by the path that Windows has for it.
fresh=$(windows_path "$folder/fresh.db")
on "$fresh" status
ends "a database that is not there is refused" 2 "no such file"
check "and no file is made" "$(find "$folder" -name 'fresh.db*' | wc -l)" 0
on "$fresh" init --yes
ends "a database is made" 0 "grant"
on "$fresh" init --yes
ends "but not in the place of another one" 1
on "$fresh" doctor
ends "nobody may do anything in it" 1 "rights"
on "$fresh" grant ADMIN '*' all
ends "rights are granted" 0
on "$fresh" rights ADMIN --csv
ends "and shown" 0 "insert"
on "$fresh" doctor
ends "all is well then" 0
on "$fresh" check 2024/01/31
ends "the empty company has no finding" 0

# The month of a company.
on "$connection" check 2024/01/31
ends "January can be closed" 0
on "$connection" close 2024/01/31 --yes
ends "January is closed" 0 "company"
on "$connection" verify 2024/01/31
ends "January is right" 0 "is right"
on "$connection" approve 2024/01/31 --yes
ends "January is approved" 0
on "$connection" status --csv
ends "the status says so" 0 "2024/01/31,approved,"
on "$connection" list CTranHead --type STK027CLOSE --csv
ends "its documents are listed" 0 ",STK027CLOSE,2024/02/01,"
document=$(sed -n 2p "$folder/out" | cut -d, -f1)
on "$connection" show "$document" --json
ends "and shown with their lines" 0 '"lines"'

on "$connection" count sheet 10 2024/02/15 --csv --quiet
ends "a sheet to count with is printed" 0 "department,date,part,name,unit,book,counted"
awk -F, -v OFS=, 'NR == 2 {$7 = $6 + 2} NR == 3 {$7 = $6 + 1.5} {print}' "$folder/out" >"$folder/counted.csv"
on "$connection" count import "$(windows_path "$folder/counted.csv")" --number CK1 --yes
ends "the counted sheet is entered" 0
on "$connection" count approve CK1 --yes --csv
ends "its approval is stored" 0 "it is stored, with 2 parts posted"
check "two differences are posted" \
  "$(query "SELECT group_concat(L.QTY) FROM (SELECT QTY FROM STKTRANDT D JOIN STKTRANHD H ON H.TRANNO=D.TRANNO
            WHERE H.TRANTYPE='STKCHECKISS' AND H.REFERENCE='CK1' ORDER BY QTY) L")" "1.5,2.0"
on "$connection" count approve CK1 --yes
ends "it is approved once" 1 "is approved already"
on "$connection" CRevAddr Update NONE ADDRNM=x
ends "updating what does not exist is told" 1 "no such row"
on "$connection" CCheckDetail Update CK1 x QTY=1,5
ends "a doubtful number is refused" 2 "is no number"

on "$connection" report 2024/01/31 --language DE --output "$(windows_path "$folder/report.html")"
ends "the report is written" 0
check "in German" "$(grep -c '<html lang="de">' "$folder/report.html")" 1
check "with its charts" "$(grep -c '<svg' "$folder/report.html")" 3
printf '%s\n' '{"class":"CTranHead","member":"ValidCloseDT","arguments":["d:2024/05/01"]}' 'x' >"$folder/calls.jsonl"
on "$connection" batch "$(windows_path "$folder/calls.jsonl")"
ends "calls are answered line by line" 1 '{"line":1,"class":"Tallyra.CTranHead"'
on "$connection" log --csv
ends "the journal has it all" 0 ",count approve,CK1,done,"

# A close that takes long enough to be interrupted, and is: Wine takes the signal for Ctrl-C.
large=$folder/large.db
wine_run "$2" --db "$large" --schema "$3" --departments 20 --parts 3000 --lines 100000 >/dev/null

# client_below PROCESS: the client itself among what that process has started.
client_below() {
  local child
  for child in $(pgrep -P "$1"); do
    if tr '\0' ' ' <"/proc/$child/cmdline" | grep -q "^[^ ]*$(basename "$client") "; then echo "$child"
    else client_below "$child"; fi
  done
}
# comes TEXT: waits until the close has said it, at most a minute.
comes() {
  for _ in $(seq 600); do
    ! tr '\r' '\n' <"$folder/interrupted" | grep -q -- "$1" || return 0
    sleep 0.1
  done
  return 1
}
(
  status=0
  wine_run "$client" --db "$large" --user ADMIN close 2024/01/31 --yes --progress >"$folder/interrupted" 2>&1 ||
    status=$?
  echo "ends with $status" >>"$folder/interrupted"
) &
shells=$!
comes ' [1-9][0-9]* of 20 departments' || check "the close gets on" no yes
kill -INT "$(client_below $shells)"
comes 'The close goes on' || check "the first Ctrl-C lets the close go on" no yes
kill -INT "$(client_below $shells)"
wait $shells
check "the second Ctrl-C ends it" "$(grep -c '^ends with 130' "$folder/interrupted")" 1
check "and it says what is left" "$(grep -c 'left in the database: .*document' "$folder/interrupted")" 1
on "$large" status
ends "the status tells it too" 0 "A close did not come to its end"
on "$large" close 2024/01/31 --yes --quiet
ends "the next close mends it" 0
on "$large" verify 2024/01/31
ends "and is right" 0 "is right: 21 documents"
[ "$failed_checks" = 0 ] || { cat "$folder/interrupted" && exit 1; }

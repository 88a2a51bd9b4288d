#!/usr/bin/env bash
# two_writers.sh PREFIX GENERATOR SCHEMA CLIENT: a native process and one under Wine write to one database file at once.
# The one reaches it by the engine's library, the other through the ODBC driver, which is a library of the machine and
# locks the file as native processes do.
source "$(dirname "$0")/sample_company.sh"
source "$repository/scripts/demo/checks.sh"

client=$4
native=$repository/build/release/bin/tallyra-client
[ -x "$native" ] || (cd "$repository" && build release tallyra-client | tail -n 1)
notes=300

# calls_of LETTER: inserts, changes and deletes notes of its own; of three one is left unchanged, one changed, one gone.
calls_of() {
  local i
  for ((i = 0; i < notes; i++)); do
    echo "{\"class\":\"CStkShipNote\",\"member\":\"Insert\",\"arguments\":[\"$1$i\",\
{\"TRANNO\":\"$1$i\",\"TRANTYPE\":\"STK030SHIPN\",\"NOTES\":\"new\"}]}"
    case $((i % 3)) in
      1) echo "{\"class\":\"CStkShipNote\",\"member\":\"Update\",\"arguments\":[\"$1$i\",{\"NOTES\":\"changed\"}]}" ;;
      2) echo "{\"class\":\"CStkShipNote\",\"member\":\"Delete\",\"arguments\":[\"$1$i\"]}" ;;
    esac
  done
}
# left_of LETTER: how many of its notes are there, and how many of them are changed.
left_of() {
  query "SELECT count(*)||' '||coalesce(sum(NOTES='changed'),0) FROM STKSHIPNOTE WHERE TRANNO LIKE '$1%'"
}

for letter in N W; do calls_of $letter >"$folder/$letter.jsonl"; done
# The program under Wine is the slower one to start: the native one begins when it has answered its first calls.
wine_run "$client" batch --db "$connection" --user ADMIN <"$folder/W.jsonl" >"$folder/W.answers" &
wine_process=$!
until [ -s "$folder/W.answers" ] || ! kill -0 $wine_process 2>/dev/null; do sleep 0.02; done
"$native" batch --db "$connection" --user ADMIN <"$folder/N.jsonl" >"$folder/N.answers" &
native_process=$!
status=0
wait $native_process || status=$?
check "every call of the native process succeeded" "$status $(grep -vc '"success":true' "$folder/N.answers")" "0 0"
status=0
wait $wine_process || status=$?
check "every call under Wine succeeded" "$status $(grep -vc '"success":true' "$folder/W.answers")" "0 0"
check "nothing of the native process is lost" "$(left_of N)" "$((notes / 3 * 2)) $((notes / 3))"
check "nothing of the one under Wine is lost" "$(left_of W)" "$((notes / 3 * 2)) $((notes / 3))"
# In the order in which they were stored the notes of both take turns, or nothing was written at once.
check "they wrote at once" \
  "$(query "WITH STORED AS (SELECT substr(TRANNO,1,1) AS WRITER, lag(substr(TRANNO,1,1)) OVER (ORDER BY rowid) AS BEFORE
                            FROM STKSHIPNOTE WHERE TRANNO GLOB '[NW][0-9]*')
            SELECT sum(WRITER<>BEFORE)>10 FROM STORED")" 1
check "the file is whole" "$(query "PRAGMA integrity_check")" ok
[ "$failed_checks" = 0 ] || { tail -n 3 "$folder"/?.answers; exit 1; }

#!/usr/bin/env bash
# A company closes two consecutive months on an embedded database through the real classes. Shows the documents that
# come out and checks them with SQL of its own on the database. Ends with an error when a check fails.
source "$(dirname "$0")/setup.sh"

folder=$repository/build/demo
database=$folder/company.db
month_1=2024/01/31 month_2=2024/02/29
# Close documents are dated the day after the close date; this is how the database stores days.
end_1='2024-01-31 00:00:00' end_2='2024-02-29 00:00:00'
documents_1='2024-02-01 00:00:00' documents_2='2024-03-01 00:00:00'

setup_native
say "Building"
build release tallyra-client tallyra-company | tail -n 1
mkdir -p "$folder"
cd "$repository"

query() { sqlite3 -readonly "${2:-$database}" "$1"; }
table() { sqlite3 -readonly -header -column "$database" "$1"; }
client() { build/release/bin/tallyra-client --db "$database" --user ADMIN "$@"; }

failed_checks=0
# check NAME ACTUAL EXPECTED
check() {
  if [ "$2" = "$3" ]; then
    printf '  ok      %s\n' "$1"
  else
    printf '  FAILED  %s: %s instead of %s\n' "$1" "$2" "$3"
    failed_checks=$((failed_checks + 1))
  fi
}

# Everything that a close writes, in an order of its own.
close_state() {
  query "SELECT TRANNO,TRANTYPE,TRANDT,STATUSSN,DEPTNOFR FROM STKTRANHD ORDER BY 1,2,3;
         SELECT TRANNO,SN,PARTNO,QTY,UPRICE FROM STKTRANDT ORDER BY 1,2,3,4,5;
         SELECT * FROM STKCLOSEHD ORDER BY 1" "${1:-$database}" | sha256sum
}

say "A company of 6 departments, 300 parts and 20,000 movement lines in three months"
build/release/bin/tallyra-company --db "$database" --schema samples/schema/sqlite.sql --force

say "Closing $month_1"
client CStockClose Insert $month_1 CLOSEDT=$month_1 STATUSSN=i:0 MAKEBY=ADMIN
say "Approving it"
client CStockClose Update $month_1 STATUSSN=i:1 STATUS=APPROVED APPROVED

before_month_2=$(close_state)
say "Closing $month_2"
client CStockClose Insert $month_2 CLOSEDT=$month_2 STATUSSN=i:0 MAKEBY=ADMIN

say "The close record of $month_2"
client CStockClose Read $month_2

say "Close documents of $month_2"
table "SELECT H.TRANNO AS document, H.TRANTYPE AS type, coalesce(D.DEPTNM, 'whole company') AS department,
              H.STATUSSN AS status, count(L.PARTNO) AS lines, round(sum(L.QTY), 2) AS quantity
       FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO LEFT JOIN DEPARTS D ON D.DEPTNO=H.DEPTNOFR
       WHERE H.TRANDT='$documents_2' AND H.TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')
       GROUP BY H.TRANNO ORDER BY H.TRANTYPE, H.DEPTNOFR"

say "The ten most valuable lines of the company document"
table "SELECT L.PARTNO AS part, P.PARTNM AS name, round(L.QTY, 2) AS quantity, round(L.UPRICE, 4) AS cost,
              round(L.QTY*L.UPRICE, 2) AS value
       FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO JOIN PARTS P ON P.PARTNO=L.PARTNO
       WHERE H.TRANDT='$documents_2' AND H.TRANTYPE='STKCLOSEALL'
       ORDER BY L.QTY*L.UPRICE DESC LIMIT 10"

say "Checks on the database itself"
check "every department has a document of $month_2" \
  "$(query "SELECT count(*) FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE' AND TRANDT='$documents_2'")" \
  "$(query "SELECT count(*) FROM DEPARTS")"
check "the documents of $month_1 are approved, those of $month_2 are not" \
  "$(query "SELECT group_concat(DISTINCT TRANDT||'='||STATUSSN) FROM
            (SELECT * FROM STKTRANHD WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL') ORDER BY TRANDT)")" \
  "$documents_1=1,$documents_2=0"

company_against_departments="
  WITH DEPARTMENTS AS (SELECT L.PARTNO, sum(L.QTY) AS QTY FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
                       WHERE H.TRANTYPE='STK027CLOSE' AND H.TRANDT='$documents_2' GROUP BY L.PARTNO),
       COMPANY AS (SELECT L.PARTNO, L.QTY FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
                   WHERE H.TRANTYPE='STKCLOSEALL' AND H.TRANDT='$documents_2')"
parts_closed=$(query "$company_against_departments SELECT count(*) FROM DEPARTMENTS")
check "the company document has a line for each of the $parts_closed parts of the departments, with their sum" \
  "$(query "$company_against_departments
            SELECT count(*) FROM DEPARTMENTS D JOIN COMPANY C ON C.PARTNO=D.PARTNO AND abs(C.QTY-D.QTY)<1e-6")" \
  "$parts_closed"
check "and no other lines" "$(query "$company_against_departments SELECT count(*) FROM COMPANY")" "$parts_closed"
check "each line of the company document has a cost that is no less than 0" \
  "$(query "SELECT count(*) FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
            WHERE H.TRANTYPE='STKCLOSEALL' AND (L.UPRICE IS NULL OR L.UPRICE<0)")" 0

# What moved in February, from the documents themselves, and the lines of January's close as the opening.
expected_lines="
  WITH MOVED AS (
    SELECT rtrim(H.DEPTNOFR) AS DEPT, L.PARTNO, L.QTY, H.TRANTYPE='STK027CLOSE' AS OPENING
      FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
      WHERE H.TRANDT>'$end_1' AND H.TRANDT<='$end_2' AND H.TRANTYPE<>'STKCLOSEALL' AND H.DEPTNOFR IS NOT NULL
    UNION ALL
    SELECT rtrim(H.DEPTNOTO), L.PARTNO, L.QTY, 0
      FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
      WHERE H.TRANDT>'$end_1' AND H.TRANDT<='$end_2' AND H.TRANTYPE='STK024MRPL'),
  EXPECTED AS (SELECT M.DEPT, M.PARTNO, sum(M.QTY) AS QTY, sum(M.QTY*M.OPENING) AS OPENING
               FROM MOVED M JOIN DEPARTS D ON D.DEPTNO=M.DEPT GROUP BY M.DEPT, M.PARTNO),
  WRITTEN AS (SELECT rtrim(H.DEPTNOFR) AS DEPT, L.PARTNO, L.QTY FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
              WHERE H.TRANTYPE='STK027CLOSE' AND H.TRANDT='$documents_2')"
lines_written=$(query "$expected_lines SELECT count(*) FROM WRITTEN")
check "each of the $lines_written department lines is February's movement plus January's close document" \
  "$(query "$expected_lines SELECT count(*) FROM WRITTEN W JOIN EXPECTED E
            ON E.DEPT=W.DEPT AND E.PARTNO=W.PARTNO AND abs(E.QTY-W.QTY)<1e-6")" "$lines_written"
check "no movement is without a line" "$(query "$expected_lines SELECT count(*) FROM EXPECTED")" "$lines_written"
check "January's close document is a part of most of them" \
  "$(query "$expected_lines SELECT 2*count(*)>$lines_written FROM EXPECTED WHERE OPENING<>0")" 1

second_run=$(client --json CStockClose Insert $month_2 CLOSEDT=$month_2 STATUSSN=i:0 || true)
check "a second run of $month_2 is refused" \
  "$(sed -n 's/.*"errNumber": *\([0-9.]*\).*/\1/Ip' <<<"$second_run" | head -n 1)" 10000004

after_month_2=$(close_state)
sqlite3 "$database" ".backup '$folder/undone.db'"
database=$folder/undone.db client CStockClose Delete $month_2 >/dev/null
check "deleting the close of $month_2 restores the state before it" \
  "$(close_state "$folder/undone.db")" "$before_month_2"
check "which is another state than after it" "$([ "$after_month_2" != "$before_month_2" ] && echo yes)" yes

if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed"
  exit 1
fi
say "All checks passed. The database stays in build/demo/company.db; try"
echo "   build/release/bin/tallyra-client --db build/demo/company.db --user ADMIN CStockClose Read $month_2"

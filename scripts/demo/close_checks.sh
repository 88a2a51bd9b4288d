#!/usr/bin/env bash
# What the close of February has to be. To be sourced after month_end.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

# Everything that a close writes, in an order of its own.
close_state() {
  query "SELECT TRANNO,TRANTYPE,TRANDT,STATUSSN,DEPTNOFR FROM STKTRANHD ORDER BY 1,2,3;
         SELECT TRANNO,SN,PARTNO,QTY,UPRICE FROM STKTRANDT ORDER BY 1,2,3,4,5;
         SELECT * FROM STKCLOSEHD ORDER BY 1" "${1:-$database}" | sha256sum
}

check_close_documents() {
  check "every department has a document of $month_2" \
    "$(query "SELECT count(*) FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE' AND TRANDT='$documents_2'")" \
    "$(query "SELECT count(*) FROM DEPARTS")"
  check "the documents of $month_1 are approved, those of $month_2 are not" \
    "$(query "SELECT group_concat(DISTINCT TRANDT||'='||STATUSSN) FROM
              (SELECT * FROM STKTRANHD WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL') ORDER BY TRANDT)")" \
    "$documents_1=1,$documents_2=0"
}

# The company document against those of the departments.
check_company_document() {
  local company_against_departments parts_closed
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
}

# What moved in February, from the documents themselves, and the lines of January's close as the opening.
check_department_lines() {
  local expected_lines lines_written
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
}

check_second_run() {
  check "a second run of $month_2 is refused" \
    "$(verb close $month_2 | grep -c "$month_2 is not closed, because of: ")" 1
}

# check_undoing STATE-BEFORE: on a copy of the database.
check_undoing() {
  local after
  after=$(close_state)
  if [ "$engine" = postgresql ]; then
    on_server -d postgres -c 'CREATE DATABASE undone TEMPLATE stock'
    place=$(connection_to undone) verb reopen $month_2
    mirror undone "$folder/undone.db"
  else
    sqlite3 "$database" ".backup '$folder/undone.db'"
    database=$folder/undone.db verb reopen $month_2
  fi
  check "reopening $month_2 restores the state before it" "$(close_state "$folder/undone.db")" "$1"
  check "which is another state than after it" "$([ "$after" != "$1" ] && echo yes)" yes
}

#!/usr/bin/env bash
# A company closes two consecutive months on an embedded database through the real classes, with a stock document's
# life and a stocktaking between them. Shows the documents that come out and checks them with SQL of its own on the
# database. Ends with an error when a check fails.
#
# With --dll the classes are those of Tallyra.dll under Wine and a VBScript client closes the months. The database
# must then be the same, row by row, as after the demo without it, which runs first.
source "$(dirname "$0")/setup.sh"

case "${1:-}" in
  '') through_dll=no folder=$repository/build/demo ;;
  --dll) through_dll=yes folder=$repository/build/demo-dll ;;
  *)
    echo "usage: demo.sh [--dll]" >&2
    exit 2
    ;;
esac
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
if [ "$through_dll" = yes ]; then
  say "The same demo with the native classes, to compare with"
  "$repository/scripts/demo.sh" >"$folder/native.txt" || { cat "$folder/native.txt"; exit 1; }
  "$repository/scripts/build-windows.sh" >"$folder/build.txt" || { cat "$folder/build.txt"; exit 1; }
  TALLYRA_WINE_PREFIX=$repository/build/wine/demo-prefix
  source "$repository/scripts/wine.sh"
  say "Registering Tallyra.dll and what it works with under Wine"
  make_wine_prefix "$TALLYRA_WINE_PREFIX"
  start_wine
  trap stop_wine EXIT
  register_dll build/windows/bin/{Tallyra,adodb,lexbank,corvane}.dll
fi

query() { sqlite3 -readonly "${2:-$database}" "$1"; }
table() { sqlite3 -readonly -header -column "$database" "$1"; }
client() {
  if [ "$through_dll" = yes ]; then
    wine_run build/windows/bin/tallyra-client.exe --db "$database" --user ADMIN "$@" | tr -d '\r'
  else
    build/release/bin/tallyra-client --db "$database" --user ADMIN "$@"
  fi
}

# month_end close|approve DATE by the VBScript client, whose last line tells that it came through.
month_end() {
  local output
  output=$(wine_run cscript //nologo "$(windows_path samples/vbscript/month_end.vbs)" \
    "DRIVER={SQLite3};Database=$database" ADMIN "$@" | tr -d '\r') || true
  sed '/^script reached its end$/d' <<<"$output"
  [ "$(tail -n 1 <<<"$output")" = "script reached its end" ]
}
close_month() {
  if [ "$through_dll" = yes ]; then month_end close "$1"
  else client CStockClose Insert "$1" CLOSEDT="$1" STATUSSN=i:0 MAKEBY=ADMIN; fi
}
approve_month() {
  if [ "$through_dll" = yes ]; then month_end approve "$1"
  else client CStockClose Update "$1" STATUSSN=i:1 STATUS=APPROVED APPROVED; fi
}

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
close_month $month_1
say "Approving it"
approve_month $month_1

# Asks the closing-date guard, and only behind it does what the other arguments say.
dated() {
  local date=$1
  shift
  client CTranHead ValidCloseDT "d:$date" >"$folder/guard.txt" || { cat "$folder/guard.txt"; return 1; }
  client "$@" >"$folder/answer.txt" || { cat "$folder/answer.txt"; return 1; }
}
answer() { sed -n "s/^$1 *//p" "$folder/answer.txt"; }

say "One stock document's life: a material issue of February"
order=$(query "SELECT H.CONO FROM COHD H JOIN CODETAIL D ON D.CONO=H.CONO JOIN PARTS P ON P.PARTNO=D.PARTNO
               WHERE H.STATUSSN=1 AND P.MTYPESN=1 GROUP BY H.CONO HAVING count(*)>1 ORDER BY 1 LIMIT 1")
part=$(query "SELECT PARTNO FROM CODETAIL WHERE CONO='$order' ORDER BY PARTNO LIMIT 1")
document() { table "SELECT H.TRANNO AS document, H.TRANTYPE AS type, date(H.TRANDT) AS dated, H.STATUSSN AS status,
                           L.SN AS line, L.PARTNO AS part, L.QTY AS quantity
                    FROM STKTRANHD H LEFT JOIN STKTRANDT L ON L.TRANNO=H.TRANNO
                    WHERE H.TRANNO LIKE 'DEMO-%' ORDER BY 1, 5"; }
header=(TRANTYPE=STK020MISS DEPTNOFR=10 STATUSSN=i:0 ADDBY=ADMIN)
in_january=$(dated 2024/01/15 CTranHead Insert DEMO-1 STK020MISS TRANNO=DEMO-1 TRANDT=2024/01/15 "${header[@]}" || true)
dated 2024/02/12 CTranHead Insert DEMO-1 STK020MISS TRANNO=DEMO-1 TRANDT=2024/02/12 "${header[@]}"
client CTranDetail GetMRPQty "$order" "$part" STK020MISS >"$folder/answer.txt"
required=$(answer Result)
client CTranDetail IssuedOrRtnQty DEMO-1 "$order" "$part" STK020MISS >"$folder/answer.txt"
issued=$(answer Result)
echo "order $order requires $required of part $part; $issued issued by other documents"
dated 2024/02/12 CTranDetail Insert DEMO-1 STK020MISS "$order" "$part" \
  TRANNO=DEMO-1 "REFERENCE=$order" SN=i:1 "PARTNO=$part" QTY=n:-3 VQTY=n:0 UPRICE=n:0 ADDBY=ADMIN i:1
dated 2024/02/12 CTranDetail Update DEMO-1 STK020MISS "$order" "$part" QTY=n:-2 i:1
dated 2024/02/12 CTranHead Update DEMO-1 STK020MISS STATUSSN=i:1 STATUS=APPROVED APPROVED
dated 2024/02/13 CTranHead Insert DEMO-2 STK020MISS TRANNO=DEMO-2 TRANDT=2024/02/13 "${header[@]}" DEMO-1
document
copied=$(query "SELECT count(*) FROM STKTRANDT WHERE TRANNO='DEMO-2' AND SN=1 AND QTY=-2 AND PARTNO='$part'")
client CTranDetail IssuedOrRtnQty NONE "$order" "$part" STK020MISS >"$folder/answer.txt"
issued_after=$(answer Result)
dated 2024/02/13 CTranHead Delete DEMO-2 STK020MISS
dated 2024/02/12 CTranHead Update DEMO-1 STK020MISS STATUSSN=i:0 STATUS=OPEN UNAPPROVED
unapproved=$(query "SELECT STATUSSN FROM STKTRANHD WHERE TRANNO='DEMO-1'")
dated 2024/02/12 CTranHead Update DEMO-1 STK020MISS STATUSSN=i:1 STATUS=APPROVED APPROVED

say "A stocktaking of department 20: counted sheet in, adjustment document out"
check_no=$(query "SELECT CHECKNO FROM STKCHECKHD LIMIT 1")
# The book quantity is what moved since January's close, as the documents themselves tell it.
sheet="
  WITH HEAD AS (SELECT * FROM STKCHECKHD WHERE CHECKNO='$check_no'),
  SUMS AS (
    SELECT C.PARTNO, C.QTY AS COUNTED,
      (SELECT sum(L.QTY) FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO, HEAD K WHERE L.PARTNO=C.PARTNO
         AND H.DEPTNOFR=K.DEPTNO AND H.TRANDT>'$end_1' AND H.TRANDT<=K.CHECKDT AND H.TRANTYPE<>'STKCHECKISS') AS OUTGOING,
      (SELECT sum(L.QTY) FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO, HEAD K WHERE L.PARTNO=C.PARTNO
         AND H.DEPTNOTO=K.DEPTNO AND H.TRANTYPE='STK024MRPL' AND H.TRANDT>'$end_1' AND H.TRANDT<=K.CHECKDT) AS INCOMING
    FROM STKCHECKDT C WHERE C.CHECKNO='$check_no'),
  SHEET AS (SELECT PARTNO, max(0, coalesce(OUTGOING,0)) + max(0, coalesce(INCOMING,0)) AS BOOK, COUNTED FROM SUMS)"
counted_lines=$(query "$sheet SELECT count(*) FROM SHEET")
differing=$(query "$sheet SELECT count(*) FROM SHEET WHERE COUNTED<>BOOK")
approval=$(client CCheckHead Update "$check_no" STATUSSN=i:1 STATUS=APPROVED APPROVED || true)
printf '%s\n' "$approval"
echo "The posting commits by itself, so the commit behind it is told as an error; the stored posting is the success."
adjustments="SELECT L.PARTNO, L.QTY FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
             WHERE H.TRANTYPE='STKCHECKISS' AND H.REFERENCE='$check_no'"
table "$sheet SELECT S.PARTNO AS part, S.BOOK AS book, S.COUNTED AS counted, A.QTY AS adjustment
       FROM SHEET S LEFT JOIN ($adjustments) A ON A.PARTNO=S.PARTNO
       ORDER BY A.QTY IS NULL, S.PARTNO LIMIT 12"
echo "($counted_lines parts counted, $differing of them differ)"

before_month_2=$(close_state)
say "Closing $month_2"
close_month $month_2

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
check "a document of January is refused after its close" \
  "$(sed -n 's/^ErrNumber *//p' <<<"$in_january")" 10000112
check "and nothing of it is stored" "$(query "SELECT count(*) FROM STKTRANHD WHERE TRANNO='DEMO-1' AND TRANDT<'2024-02-01'")" 0
check "the copy has the line of its original" "$copied" 1
check "original and copy count as issued" "$issued_after" "$(query "SELECT $issued + 4")"
check "the deleted copy leaves neither header nor lines" \
  "$(query "SELECT (SELECT count(*) FROM STKTRANHD WHERE TRANNO='DEMO-2') + (SELECT count(*) FROM STKTRANDT WHERE TRANNO='DEMO-2')")" 0
check "the document was un-approved and approved again" \
  "$unapproved $(query "SELECT STATUSSN FROM STKTRANHD WHERE TRANNO='DEMO-1'")" "0 1"
check "the stocktaking posted one line for each of the $differing differing parts" \
  "$(query "$sheet SELECT count(*) FROM SHEET S JOIN ($adjustments) A ON A.PARTNO=S.PARTNO
            AND abs(A.QTY-(S.COUNTED-S.BOOK))<1e-6")" "$differing"
check "and no other lines" "$(query "SELECT count(*) FROM ($adjustments)")" "$differing"
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

# Every row of a table in an order of its own, without the moments at which it was written.
written_rows() {
  local table=$1 file=$2 columns
  columns=$(query "SELECT group_concat(name) FROM pragma_table_info('$table')
                   WHERE name NOT IN ('ADDDT','EDITDT','STATUSDT')" "$file")
  sqlite3 -readonly -quote "$file" "SELECT $columns FROM $table ORDER BY $columns"
}
if [ "$through_dll" = yes ]; then
  say "The database against that of the native classes"
  for table in STKTRANHD STKTRANDT STKCLOSEHD; do
    written_rows $table "$repository/build/demo/company.db" >"$folder/$table.native"
    written_rows $table "$repository/build/demo-dll/company.db" >"$folder/$table.dll"
    check "$table is the same in all of its $(wc -l <"$folder/$table.native") rows" \
      "$(diff "$folder/$table.native" "$folder/$table.dll" >"$folder/$table.diff" && echo same)" same
  done
fi

if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed"
  exit 1
fi
say "All checks passed. The database stays in ${database#"$repository/"}; try"
echo "   build/release/bin/tallyra-client --db ${database#"$repository/"} --user ADMIN CStockClose Read $month_2"

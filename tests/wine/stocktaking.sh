#!/usr/bin/env bash
# stocktaking.sh PREFIX GENERATOR SCHEMA: the sample client that takes stock enters what was counted, and its approvals
# post the differences once.
source "$(dirname "$0")/sample_company.sh"
source "$repository/scripts/demo/checks.sh"
source "$repository/scripts/demo/stocktaking.sh"

samples=$repository/samples/vbscript
take_stock() { wine_client "$samples/stocktaking.vbs" "$connection" ADMIN $counted_check "$@"; }
wine_client "$samples/month_end.vbs" "$connection" ADMIN close 2024/01/31 approve 2024/01/31
choose_counts
steps=(open $counted_on $counted_department)
while IFS='|' read -r part quantity price; do steps+=(count "$part" "$quantity" "$price"); done <<<"$counts"
take_stock "${steps[@]}"
shown=$(take_stock show)
values_of() { sed -n "s/^  $1 = //p" <<<"$shown"; }
check "shown is the header" "$(values_of DEPTNO)" $counted_department
# The script shows numbers as its user writes them.
check "shown are the counted quantities" "$(values_of QTY | tr , .)" \
  "$(query "SELECT printf('%.15g',QTY) FROM STKCHECKDT WHERE CHECKNO='$counted_check' ORDER BY PARTNO")"
check "and what the master data tells of the parts" "$(values_of UNITNM)" \
  "$(query "SELECT UNITNM FROM STKCHECKDT C JOIN PARTS P ON P.PARTNO=C.PARTNO WHERE CHECKNO='$counted_check'
            ORDER BY C.PARTNO")"
take_stock approve
check_counted_stocktaking
take_stock unapprove
check "un-approved it has no posting" "$(query "$(sheet_of $counted_check) SELECT count(*) FROM POSTED")" 0
check "and no header of one" "$(query "SELECT count(*) FROM STKTRANHD WHERE REFERENCE='$counted_check'")" 0
# Over a data source, whose name tells neither the engine nor the file.
printf '[stock]\nDriver=SQLite3\nDatabase=%s\n' "$database" >"$folder/odbc.ini"
connection="DSN=stock" ODBCINI=$folder/odbc.ini take_stock approve
check "approved over a data source its posting has a number" \
  "$(query "SELECT count(*) FROM STKTRANHD WHERE REFERENCE='$counted_check' AND TRANNO LIKE 'CHECKISS%'")" 1
check_counted_stocktaking

# What an earlier approval has left must not pass for a second one that fails.
check "a second approval without the right is told as refused" \
  "$(wine_client "$samples/stocktaking.vbs" "$connection" CLERK $counted_check approve |
    grep -c "^approving $counted_check: refused: result 0, error 10000016 ")" 1
coproc writer { sqlite3 "$database"; }
writing=$writer_PID
echo "BEGIN IMMEDIATE; SELECT 'holds the lock';" >&"${writer[1]}"
read -r _ <&"${writer[0]}"
check "a second approval while another program writes is told as failed" \
  "$(wine_client "$samples/stocktaking.vbs" "$connection;Timeout=500" ADMIN $counted_check approve |
    grep -c "^approving $counted_check: not approved: result 0, error -")" 1
exec {writer[1]}>&-
wait "$writing"
check_counted_stocktaking

# The trigger stands for a time in which no number is issued.
take_stock unapprove
sqlite3 "$database" "CREATE TRIGGER NO_NUMBER AFTER INSERT ON STKTRANHD WHEN NEW.TRANNO<>''
                     BEGIN UPDATE STKTRANHD SET TRANNO='' WHERE TRANNO=NEW.TRANNO; END"
no_number="the posting of stocktaking $counted_check has no number"
check "an approval that got no number is told" \
  "$(take_stock approve | grep -c "^approving $counted_check: $no_number")" 1
sqlite3 "$database" "DROP TRIGGER NO_NUMBER"
take_stock unapprove
take_stock approve
check_counted_stocktaking

check "a number that is taken is not entered again" \
  "$(take_stock open $counted_on $counted_department |
    grep -c "^opening stocktaking $counted_check: the number is taken")" 1
wine_client "$samples/month_end.vbs" "$connection" ADMIN close 2024/02/29
check "after the close the script stops at the guard" \
  "$(take_stock unapprove | grep -c "^un-approving $counted_check: error 10000112 ")" 1
check_counted_stocktaking
[ "$failed_checks" = 0 ]

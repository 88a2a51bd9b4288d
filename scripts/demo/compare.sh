#!/usr/bin/env bash
# compare.sh NATIVE-FOLDER DLL-FOLDER: whether the demo through Tallyra.dll printed and stored what it did with the
# native classes, and whether February comes out the same when VBScript clients enter its documents, take stock and
# close it. Works in the Wine prefix that the demo has set up.
source "$(dirname "$0")/../setup.sh"
native=$1 folder=$2 database=$2/documents.db
source "$repository/scripts/wine.sh"
for part in checks classes documents stocktaking counting month_end; do source "$repository/scripts/demo/$part.sh"; done
cd "$repository"

source "$repository/scripts/demo/same_rows.sh"
# Under Wine SQLite stays behind its ODBC driver, which hands a fraction over as a text of fifteen digits.
digits=12

same_story

# same_february TABLE WHAT CONDITION: those of its rows, against the native ones.
same_february() {
  written_rows "$1" "$native/company.db" "$3" >"$folder/february.native"
  written_rows "$1" "$database" "$3" >"$folder/february.other"
  same "$2: $(wc -l <"$folder/february.native") rows in $1 are the same" february
}

say "February once more, led through by the VBScript clients: its documents"
sqlite3 "$folder/before_documents.db" ".backup '$database'"
choose_orders
sample stock_document $document_prefix "$document_date" $document_department "$production_order" "$purchase_order" \
  >"$folder/documents.txt"
check_documents
for table in STKTRANHD STKTRANDT; do same_february $table "the documents" "TRANNO LIKE '$document_prefix-%'"; done

say "Its stocktakings"
choose_counts
steps=(open $counted_on $counted_department)
while IFS='|' read -r part quantity price; do steps+=(count "$part" "$quantity" "$price"); done <<<"$counts"
sample stocktaking $counted_check "${steps[@]}" show >"$folder/shown.txt"
sample stocktaking $counted_check approve
check_counted_stocktaking
large=$(large_stocktaking)
sample stocktaking "$large" approve
check_posting "$large"

say "Its close"
sample month_end close $month_2
of_close="TRANNO IN (SELECT TRANNO FROM STKTRANHD WHERE TRANDT='$documents_2'
          AND TRANTYPE IN ('STK027CLOSE','STKCLOSEALL'))"
for table in STKTRANHD STKTRANDT; do same_february $table "the close" "$of_close"; done
if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed; see $folder/*.diff"
  exit 1
fi

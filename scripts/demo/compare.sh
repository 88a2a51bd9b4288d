#!/usr/bin/env bash
# compare.sh NATIVE-FOLDER DLL-FOLDER: whether the demo through Tallyra.dll printed and stored what it did with the
# native classes, and whether the documents are the same when a VBScript client leads their life. Works in the Wine
# prefix that the demo has set up.
source "$(dirname "$0")/../setup.sh"
native=$1 folder=$2 database=$2/documents.db
source "$repository/scripts/wine.sh"
for part in checks classes documents; do source "$repository/scripts/demo/$part.sh"; done
cd "$repository"

source "$repository/scripts/demo/same_rows.sh"
# Under Wine SQLite stays behind its ODBC driver, which hands a fraction over as a text of fifteen digits.
digits=12

same_story

say "The documents once more, led through their life by the VBScript client"
sqlite3 "$folder/before_documents.db" ".backup '$database'"
choose_orders
sample stock_document $document_prefix "$document_date" $document_department "$production_order" "$purchase_order" \
  >"$folder/documents.txt"
check_documents
for table in STKTRANHD STKTRANDT; do
  written_rows $table "$native/company.db" "TRANNO LIKE '$document_prefix-%'" >"$folder/documents.native"
  written_rows $table "$database" "TRANNO LIKE '$document_prefix-%'" >"$folder/documents.other"
  same "their $(wc -l <"$folder/documents.native") rows in $table are the same" documents
done
if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed; see $folder/*.diff"
  exit 1
fi

#!/usr/bin/env bash
# compare.sh NATIVE-FOLDER DLL-FOLDER: whether the demo through Tallyra.dll printed and stored what it did with the
# native classes, and whether the documents are the same when a VBScript client leads their life. Works in the Wine
# prefix that the demo has set up.
source "$(dirname "$0")/../setup.sh"
native=$1 folder=$2 database=$2/documents.db
source "$repository/scripts/wine.sh"
for part in checks classes documents; do source "$repository/scripts/demo/$part.sh"; done
cd "$repository"

# Every row of a table in an order of its own. Of the moments at which it was written only whether there are any.
written_rows() {
  local columns
  columns=$(query "SELECT group_concat(CASE WHEN name IN ('ADDDT','EDITDT','STATUSDT')
                                            THEN name||' IS NULL' ELSE name END)
                   FROM pragma_table_info('$1')" "$2")
  sqlite3 -readonly -quote "$2" "SELECT $columns FROM $1 WHERE ${3:-1} ORDER BY $columns"
}
# same WHAT NAME: whether both files that are called so are the same.
same() {
  check "$1" "$(diff "$folder/$2.native" "$folder/$2.dll" >"$folder/$2.diff" && echo same)" same
}

say "What was printed and stored, against the native classes"
cp "$native/printed.txt" "$folder/printed.native"
cp "$folder/printed.txt" "$folder/printed.dll"
same "each of the $(wc -l <"$native/printed.txt") printed lines is the same" printed
for table in $(query "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%' ORDER BY name" \
  "$native/company.db"); do
  written_rows $table "$native/company.db" >"$folder/$table.native"
  written_rows $table "$folder/company.db" >"$folder/$table.dll"
  same "$table is the same in all of its $(wc -l <"$folder/$table.native") rows" $table
done

say "The documents once more, led through their life by the VBScript client"
sqlite3 "$folder/before_documents.db" ".backup '$database'"
choose_orders
sample stock_document $document_prefix "$document_date" $document_department "$production_order" "$purchase_order" \
  >"$folder/documents.txt"
check_documents
for table in STKTRANHD STKTRANDT; do
  written_rows $table "$native/company.db" "TRANNO LIKE '$document_prefix-%'" >"$folder/documents.native"
  written_rows $table "$database" "TRANNO LIKE '$document_prefix-%'" >"$folder/documents.dll"
  same "their $(wc -l <"$folder/documents.native") rows in $table are the same" documents
done
if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed; see $folder/*.diff"
  exit 1
fi

#!/usr/bin/env bash
# Holds what a demo printed and stored in $folder against what the demo with the native classes on SQLite left in
# $native. To be sourced after checks.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

# Every row of a table in an order of its own. Of the moments at which it was written only whether there are any; of
# numbers with a fraction as many digits as $digits says, all when it says nothing.
written_rows() {
  local columns
  columns=$(query "SELECT group_concat(CASE WHEN name IN ('ADDDT','EDITDT','STATUSDT')
                                            THEN name||' IS NULL'
                                            WHEN type='DOUBLE' AND '${digits:-}'<>''
                                            THEN 'iif('||name||' IS NULL,NULL,'
                                                 ||'printf(''%.${digits:-}g'','||name||'))' ELSE name END)
                   FROM pragma_table_info('$1')" "$2")
  sqlite3 -readonly -quote "$2" "SELECT $columns FROM $1 WHERE ${3:-1} ORDER BY $columns"
}
# same WHAT NAME: whether both files that are called so are the same.
same() {
  check "$1" "$(diff "$folder/$2.native" "$folder/$2.other" >"$folder/$2.diff" && echo same)" same
}

same_story() {
  local table
  say "What was printed and stored, against the native classes on SQLite"
  cp "$native/printed.txt" "$folder/printed.native"
  cp "$folder/printed.txt" "$folder/printed.other"
  same "each of the $(wc -l <"$native/printed.txt") printed lines is the same" printed
  # The client's own tables tell of moments, hosts and processes, which are others each time.
  for table in $(query "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%'
                        AND name NOT IN ('TALLYRALOCK','TALLYRAJOURNAL') ORDER BY name" "$native/company.db"); do
    written_rows "$table" "$native/company.db" >"$folder/$table.native"
    written_rows "$table" "$folder/company.db" >"$folder/$table.other"
    same "$table is the same in all of its $(wc -l <"$folder/$table.native") rows" "$table"
  done
}

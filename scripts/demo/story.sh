#!/usr/bin/env bash
# story.sh native|dll sqlite|postgresql FOLDER: what the demo shows by the verbs of the console client, with the native
# classes or those of Tallyra.dll, on a database that it makes in the folder or on the server that runs. Prints the same
# with each.
source "$(dirname "$0")/../setup.sh"
classes=$1 engine=$2 folder=$3 database=$3/company.db
source "$repository/scripts/wine.sh"
source "$repository/scripts/demo/server.sh"
for chapter in checks classes documents issue purchase_return stocktaking counting month_end close_checks; do
  source "$repository/scripts/demo/$chapter.sh"
done
cd "$repository"

say "A company of 6 departments, 300 parts and 20,000 movement lines in three months"
build/release/bin/tallyra-company --db "$database" --schema schema/sqlite.sql --force
if [ "$engine" = postgresql ]; then
  place=$(connection_to stock)
  on_server -d postgres -c "CREATE DATABASE stock TEMPLATE template0"
  build/release/bin/tallyra-company --copy "$database" "$place" >"$folder/copied.txt"
  touch "$folder/called"
fi

say "The month end of January"
close_month $month_1
approve_month $month_1

choose_orders
renew_mirror
sqlite3 "$database" ".backup '$folder/before_documents.db'"
say "A stock document's life: a material issue for production order $production_order and a copy of it"
show_issue
say "A purchase return of order $purchase_order, whose lines are renumbered"
show_return
say "The documents of February that are left"
show_documents $issue $copy $return
check_documents

say "A stocktaking of department $counted_department: counted sheet in, posting out"
show_counting
say "The stocktaking at the end of the month"
show_large_stocktaking

before_month_2=$(close_state)
say "The month end of February"
close_month $month_2
show_close
say "Checks of the close on the database itself"
check_close_documents
check_company_document
check_department_lines
check_second_run
check_undoing "$before_month_2"

if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed"
  exit 1
fi

#!/usr/bin/env bash
# A company closes two consecutive months on an embedded database through the real classes, with the life of stock
# documents and stocktakings between them. Shows the documents that come out and checks them with SQL of its own on
# the database. Then an administrator approves the second month, takes stock and closes a third one by the verbs of the
# console client. Ends with an error when a check fails.
#
# With --dll the same happens twice, with the native classes and with those of Tallyra.dll under Wine, where VBScript
# clients close the months and take stock. Both have to print the same and to leave the same database.
#
# With --postgres it happens twice too, on the embedded database and on a PostgreSQL server of the demo's own, which
# runs in a temporary folder and is gone afterwards. Both have to print the same and to store the same rows.
source "$(dirname "$0")/setup.sh"

case "${1:-}" in
  '') through_dll=no folder=$repository/build/demo ;;
  --dll) through_dll=yes folder=$repository/build/demo-dll ;;
  --postgres) through_dll=no folder=$repository/build/demo-postgres ;;
  *)
    echo "usage: demo.sh [--dll|--postgres]" >&2
    exit 2
    ;;
esac
mkdir -p "$folder"
cd "$repository"

# story native|dll|server FOLDER, see demo/story.sh
story() {
  mkdir -p "$2"
  "$repository/scripts/demo/story.sh" "$1" "$2" 2>&1 | tee "$2/printed.txt"
}

setup_native
say "Building"
build release tallyra-client tallyra-company | tail -n 1

tell_native_story() {
  say "The same demo with the native classes on the embedded database, to compare with"
  story native "$repository/build/demo" >"$folder/native.txt" || { cat "$folder/native.txt" && exit 1; }
}

if [ "${1:-}" = --postgres ]; then
  tell_native_story
  source "$repository/scripts/demo/server.sh"
  say "Starting a PostgreSQL server"
  trap stop_server EXIT
  start_server
  story server "$folder"
  "$repository/scripts/demo/compare_server.sh" "$repository/build/demo" "$folder"
  say "All checks passed. The server is stopped and removed"
  exit
elif [ "$through_dll" = no ]; then
  story native "$folder"
  "$repository/scripts/demo/administrator.sh" "$folder"
else
  tell_native_story
  "$repository/scripts/build-windows.sh" >"$folder/build.txt" || { cat "$folder/build.txt" && exit 1; }
  export TALLYRA_WINE_PREFIX=$repository/build/wine/demo-prefix
  source "$repository/scripts/wine.sh"
  say "Registering Tallyra.dll and what it works with under Wine"
  make_wine_prefix "$TALLYRA_WINE_PREFIX"
  start_wine
  trap stop_wine EXIT
  register_dll build/windows/bin/{Tallyra,adodb,lexbank,corvane}.dll
  story dll "$folder"
  "$repository/scripts/demo/compare.sh" "$repository/build/demo" "$folder"
fi
database=${folder#"$repository/"}/company.db
say "All checks passed. The database stays in $database; try"
echo "   build/release/bin/tallyra-client --db $database --user ADMIN status"

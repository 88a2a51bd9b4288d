#!/usr/bin/env bash
# A company closes two consecutive months on an embedded database through the real classes, with the life of stock
# documents and stocktakings between them. Shows the documents that come out and checks them with SQL of its own on
# the database. Ends with an error when a check fails.
#
# With --dll the same happens twice, with the native classes and with those of Tallyra.dll under Wine, where VBScript
# clients close the months and take stock. Both have to print the same and to leave the same database.
source "$(dirname "$0")/setup.sh"

case "${1:-}" in
  '') through_dll=no folder=$repository/build/demo ;;
  --dll) through_dll=yes folder=$repository/build/demo-dll ;;
  *)
    echo "usage: demo.sh [--dll]" >&2
    exit 2
    ;;
esac
mkdir -p "$folder"
cd "$repository"

# story native|dll FOLDER, see demo/story.sh
story() {
  mkdir -p "$2"
  "$repository/scripts/demo/story.sh" "$1" "$2" 2>&1 | tee "$2/printed.txt"
}

setup_native
say "Building"
build release tallyra-client tallyra-company | tail -n 1
if [ "$through_dll" = no ]; then
  story native "$folder"
else
  say "The same demo with the native classes, to compare with"
  story native "$repository/build/demo" >"$folder/native.txt" || { cat "$folder/native.txt" && exit 1; }
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
echo "   build/release/bin/tallyra-client --db $database --user ADMIN CStockClose Read 2024/02/29"

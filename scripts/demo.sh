#!/usr/bin/env bash
# A company closes two consecutive months on an embedded database by the verbs of the console client, with the life of
# stock documents and stocktakings between them. Shows the documents that come out and checks them with SQL of its own
# on the database. Then an administrator approves the second month, takes stock with a sheet and closes a third one.
# Ends with an error when a check fails.
#
# With --dll the same happens twice, with the native classes and with those of Tallyra.dll under Wine. Both have to
# print the same and to leave the same database. Then VBScript clients lead a copy through the second month, whose
# documents have to be the same again.
#
# With --postgres it happens twice too, on the embedded database and on a PostgreSQL server of the demo's own, which
# runs in a temporary folder and is gone afterwards. Both have to print the same and to store the same rows.
#
# With both, the second time is Tallyra.dll on that server, through the ODBC driver.
source "$(dirname "$0")/setup.sh"

classes=native engine=sqlite
for option in "$@"; do
  case $option in
    --dll) classes=dll ;;
    --postgres) engine=postgresql ;;
    *)
      echo "usage: demo.sh [--dll] [--postgres]" >&2
      exit 2
      ;;
  esac
done
first=$repository/build/demo folder=$repository/build/demo
[ "$classes" = native ] || folder+=-dll
[ "$engine" = sqlite ] || folder+=-postgres
mkdir -p "$folder"
cd "$repository"

# story CLASSES ENGINE FOLDER, see demo/story.sh
story() {
  mkdir -p "$3"
  "$repository/scripts/demo/story.sh" "$@" 2>&1 | tee "$3/printed.txt"
}

prepare_dll() {
  "$repository/scripts/build-windows.sh" Tallyra tallyra_{ado,lexbank,corvane}_dll tallyra-client \
    >"$folder/build.txt" || { cat "$folder/build.txt" && exit 1; }
  export TALLYRA_WINE_PREFIX=$repository/build/wine/demo-prefix
  source "$repository/scripts/wine.sh"
  say "Registering Tallyra.dll and what it works with under Wine"
  make_wine_prefix "$TALLYRA_WINE_PREFIX"
  start_wine
  register_dll build/windows/bin/{Tallyra,adodb,lexbank,corvane}.dll
}

# What was started last ends first.
clean_up() {
  [ -z "${server_folder:-}" ] || stop_server
  [ "$classes" = native ] || [ -z "${wine_root:-}" ] || stop_wine
}

setup_native
say "Building"
build release tallyra-client tallyra-company | tail -n 1

if [ "$folder" != "$first" ]; then
  say "The same demo with the native classes on the embedded database, to compare with"
  story native sqlite "$first" >"$folder/native.txt" || { cat "$folder/native.txt" && exit 1; }
  trap clean_up EXIT
fi
[ "$classes" = native ] || prepare_dll
if [ "$engine" = postgresql ]; then
  source "$repository/scripts/demo/server.sh"
  say "Starting a PostgreSQL server"
  start_server
fi

story "$classes" "$engine" "$folder"
if [ "$engine" = postgresql ]; then
  "$repository/scripts/demo/compare_server.sh" "$first" "$folder"
  say "All checks passed. The server is stopped and removed"
  exit
fi
if [ "$classes" = dll ]; then "$repository/scripts/demo/compare.sh" "$first" "$folder"
else "$repository/scripts/demo/administrator.sh" "$folder"; fi
database=${folder#"$repository/"}/company.db
say "All checks passed. The database stays in $database; try"
echo "   build/release/bin/tallyra-client --db $database --user ADMIN status"

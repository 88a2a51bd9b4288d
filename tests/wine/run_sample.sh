#!/usr/bin/env bash
# run_sample.sh PREFIX GENERATOR SCHEMA PROGRAM ARGUMENTS...: a sample client, a script or a program, on a company
# database made for it. The client gets the connection string as its first argument and passes only if its last line
# is "script reached its end".
source "$(dirname "$0")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1 generator=$2 schema=$3 program=$4 status=0
shift 4
source "$repository/scripts/wine.sh"
mkdir -p "$repository/build/wine"
folder=$(mktemp -d "$repository/build/wine/sample.XXXXXX")
trap 'rm -rf "$folder"' EXIT
wine_run "$generator" --db "$folder/company.db" --schema "$schema" --parts 60 --lines 1500
connection="DRIVER={SQLite3};Database=$folder/company.db"
case $program in
  *.vbs | *.js) command=(cscript //nologo "$(windows_path "$program")") ;;
  *) command=("$program") ;;
esac
output=$(wine_run "${command[@]}" "$connection" "$@") || status=$?
output=${output//$'\r'/}
printf '%s\n' "$output"
[ "$status" = 0 ] && [ "$(tail -n 1 <<<"$output")" = "script reached its end" ]

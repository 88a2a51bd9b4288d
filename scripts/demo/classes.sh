#!/usr/bin/env bash
# How the demo reaches the classes: by the console client natively, or through Tallyra.dll under Wine, as $classes says
# (native or dll). To be sourced after wine.sh; works in $folder, on the file $database, or on the server that $place
# leads to.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

client() {
  touch "$folder/called"
  if [ "$classes" = dll ]; then
    wine_run build/windows/bin/tallyra-client.exe --db "${place:-$database}" --user ADMIN "$@" | tr -d '\r'
  else
    build/release/bin/tallyra-client --db "${place:-$database}" --user ADMIN "$@"
  fi
}

# Calls a method and keeps what it answers; a failure is shown.
call() { client call "$@" >"$folder/answer.txt" || { cat "$folder/answer.txt" >&2 && return 1; }; }

# Carries out another verb, keeps what it answers, and shows what it tells beside that, but for the time that it took.
verb() {
  local status=0
  client "$@" --yes >"$folder/answer.txt" 2>"$folder/told.txt" || status=$?
  tr -d '\r' <"$folder/told.txt" | sed 's/ in [0-9.]* seconds//'
  return $status
}

# One line of what was answered last, by its name; one value that came back, by its column or argument number.
answer() { sed -n "s/^$1 *//p" "$folder/answer.txt"; }
returned() { sed -n "s/^$1  *[a-z0-9]*  *//p" "$folder/answer.txt"; }

# dated DATE CLASS MEMBER ARGUMENTS...: asks the closing-date guard, and calls the method only behind it.
dated() {
  local date=$1
  shift
  call CTranHead ValidCloseDT "d:$date" && call "$@"
}

# sample NAME ARGUMENTS...: one of the VBScript clients. What it prints is shown without its last line.
sample() {
  local script=samples/vbscript/$1.vbs connection=${place:-}
  [ -n "$connection" ] || connection="DRIVER={SQLite3};Database=$database"
  shift
  touch "$folder/called"
  wine_client "$script" "$connection" ADMIN "$@" >"$folder/script.txt" ||
    { cat "$folder/script.txt" >&2 && return 1; }
  sed '$d' "$folder/script.txt"
}

#!/usr/bin/env bash
# What the demo and the tests of the sample clients look at a company database with: queries of their own, and checks
# whose failures are counted. To be sourced; works on $database. When the company is on a server, $engine is
# "postgresql" and $database a mirror of it, renewed when something was called since.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

renew_mirror() {
  [ "${engine:-sqlite}" = postgresql ] && [ -e "$folder/called" ] || return 0
  rm -f "$folder/called"
  mirror stock "$folder/company.db"
}
query() { renew_mirror && sqlite3 -readonly "${2:-$database}" "$1"; }
table() { renew_mirror && sqlite3 -readonly -header -column "$database" "$1"; }

failed_checks=0
# check NAME ACTUAL EXPECTED
check() {
  if [ "$2" = "$3" ]; then
    printf '  ok      %s\n' "$1"
  else
    printf '  FAILED  %s: %s instead of %s\n' "$1" "$2" "$3"
    failed_checks=$((failed_checks + 1))
  fi
}

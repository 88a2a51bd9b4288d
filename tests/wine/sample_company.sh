#!/usr/bin/env bash
# sample_company.sh PREFIX GENERATOR SCHEMA: a company database for a sample client, which works on it in a Wine prefix.
# To be sourced with these arguments by the tests of the sample clients; sets $database and $connection.
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1
source "$repository/scripts/wine.sh"
mkdir -p "$repository/build/wine"
folder=$(mktemp -d "$repository/build/wine/sample.XXXXXX")
trap 'rm -rf "$folder"' EXIT
database=$folder/company.db
# shellcheck disable=SC2034  # for who sources this
connection="DRIVER={SQLite3};Database=$database"
wine_run "$2" --db "$database" --schema "$3" --parts 60 --lines 1500

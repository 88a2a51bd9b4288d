#!/usr/bin/env bash
# run.sh PREFIX PROGRAM ARGUMENTS...: a program of the Windows build in a Wine prefix. CTest puts it
# before each program.
source "$(dirname "$0")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1
shift
source "$repository/scripts/wine.sh"

# Where tests make their databases: a path that the program and the database driver understand alike.
mkdir -p "$repository/build/wine"
TALLYRA_TEST_FOLDER=$(mktemp -d "$repository/build/wine/test.XXXXXX")
export TALLYRA_TEST_FOLDER
# The data sources that tests define; the driver, a library of the machine, knows no variable that is set later.
export ODBCINI=$TALLYRA_TEST_FOLDER/odbc.ini
trap 'rm -rf "$TALLYRA_TEST_FOLDER"' EXIT
wine_run "$@"

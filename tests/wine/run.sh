#!/usr/bin/env bash
# run.sh PREFIX PROGRAM ARGUMENTS...: a program of the Windows build in a Wine prefix. CTest puts it
# before each program.
source "$(dirname "$0")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1
shift
source "$repository/scripts/wine.sh"
wine_run "$@"

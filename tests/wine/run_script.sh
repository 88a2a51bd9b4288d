#!/usr/bin/env bash
# run_script.sh PREFIX SCRIPT ARGUMENTS...: a script in Wine's script host.
source "$(dirname "$0")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1
source "$repository/scripts/wine.sh"
wine_client "${@:2}"

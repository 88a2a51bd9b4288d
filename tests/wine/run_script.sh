#!/usr/bin/env bash
# run_script.sh PREFIX SCRIPT ARGUMENTS...: a script in Wine's script host. Wine hides a failed script behind
# the exit code 0, so a script counts as passed only if its last line is "script reached its end".
source "$(dirname "$0")/../../scripts/setup.sh"
TALLYRA_WINE_PREFIX=$1 script=$2 status=0
shift 2
source "$repository/scripts/wine.sh"
output=$(wine_run cscript //nologo "$(windows_path "$script")" "$@") || status=$?
output=${output//$'\r'/}
printf '%s\n' "$output"
[ "$status" = 0 ] && [ "$(tail -n 1 <<<"$output")" = "script reached its end" ]

#!/usr/bin/env bash
# administration.sh PAGE PROGRAMS: runs every command of the page, in its order and in a folder of its own, and holds
# each to the status that the page says. A command is an indented line; one in a comment "run:" sets the stage.
set -uo pipefail
page=$(realpath "$1")
PATH=$(realpath "$2"):$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
unset TALLYRA_DB TALLYRA_USER TALLYRA_LANGUAGE TALLYRA_KIND TALLYRA_CONFIG
export XDG_CONFIG_HOME=$folder
commands=0 failed=0

# run COMMAND STATUS: in this shell, so that what it exports holds for the rest.
run() {
  local status
  eval "$1" >printed.txt 2>&1 </dev/null
  status=$?
  commands=$((commands + 1))
  [ "$status" = "$2" ] && return
  failed=$((failed + 1))
  printf 'ends with %s, not %s: %s\n' "$status" "$2" "$1"
  sed 's/^/    /' printed.txt
}

while IFS= read -r line; do
  if [[ $line =~ ^'<!-- run: '(.*)' -->'$ ]]; then
    run "${BASH_REMATCH[1]}" 0
  elif [[ $line =~ ^\ {4,}([^ ].*)$ ]]; then
    command=${BASH_REMATCH[1]} expected=0
    [[ $command =~ ^(.*[^ ])\ +'# ends with '([0-9]+)$ ]] && command=${BASH_REMATCH[1]} expected=${BASH_REMATCH[2]}
    run "$command" "$expected"
  fi
done <"$page"
echo "$commands commands, $failed of them failed"
[ "$failed" = 0 ] && [ "$commands" -gt 40 ]

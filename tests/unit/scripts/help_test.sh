#!/usr/bin/env bash
# Every script tells by --help what it is for, and does nothing else.
source "$(dirname "$0")/machine.sh"

count=0
for script in $(cd "$scripts" && find . -name '*.sh' | sort); do
  count=$((count + 1))
  status=0
  help=$(bash "$scripts/$script" --help 2>&1) || status=$?
  check "$script ends well" "$status" 0
  check "$script tells what stands at its head" "$(head -n 1 <<<"$help")" "$(sed -n '2s/^# //p' "$scripts/$script")"
  check "$script tells it whole" "$(wc -l <<<"$help")" "$(sed -n '2,$p' "$scripts/$script" | grep -n -m 1 -v '^#' |
    sed 's/:.*//' | awk '{print $1 - 1}')"
done
check "there are scripts" "$((count >= 18))" 1
check "nothing is called" "$(cat "$calls")" ""
check "nothing is made" "$(ls "$machine/copy")" scripts
[ "$failed_checks" = 0 ]

#!/usr/bin/env bash
# What must not compile does not, and for the reason that is meant: each file of tests/compile_fail tells in its first
# line what the compiler says of it, and compiles as soon as the mistake is mended (MENDED). Ends with 1 when one is
# accepted, is refused for another reason, or is not mended.
#
#   refused.sh [FILE...]
source "$(dirname "$0")/../setup.sh"
cd "$repository"

compiler=(env LC_ALL=C "${CXX:-g++}" -std=c++20 -fsyntax-only -Wall -Wextra -Werror -I .)
findings=0

finding() {
  echo "$1: $2"
  sed 's/^/    /' <<<"$3" | head -n 10
  findings=$((findings + 1))
}

check_case() {
  local file=$1 reason output
  reason=$(sed -n '1s,^// refused: ,,p' "$file")
  if [ -z "$reason" ]; then
    finding "$file" "the first line does not tell why it is refused" ""
  elif output=$("${compiler[@]}" "$file" 2>&1); then
    finding "$file" "compiles" ""
  elif ! grep -qF -- "$reason" <<<"$output"; then
    finding "$file" "is refused for another reason than \"$reason\"" "$output"
  elif ! output=$("${compiler[@]}" -DMENDED "$file" 2>&1); then
    finding "$file" "does not compile when it is mended" "$output"
  fi
}

[ "$#" != 0 ] || set -- tests/compile_fail/*.cpp
for file in "$@"; do check_case "$file"; done
echo "$# mistakes tried, $findings not refused as they should be"
[ "$findings" = 0 ]

#!/usr/bin/env bash
# The checks of the gate find what they are for: each runs in a small project that keeps every rule but one.
#
#   checks_test.sh SCRATCH_FOLDER
set -euo pipefail

checks=$(cd "$(dirname "$0")/../../../../scripts/check" && pwd)
project=$1
failures=0

# A project that keeps every rule.
fresh_project() {
  rm -rf "$project"
  mkdir -p "$project"/{docs,frame,tests/unit/frame}
  cd "$project"
  cp "$checks/../../.editorconfig" .
  echo 'int sql() { return 1; }' >frame/sql.cpp
  echo '// Tests.' >tests/unit/frame/sql_test.cpp
  printf '# A `head`, and more\n\n[code](../frame/sql.cpp) [here](#a-head-and-more) `frame/sql.cpp` `frame/*.cpp`\n' \
    >docs/page.md
}

# expect OUTPUT COMMAND...: the command finds that and nothing else; with an empty OUTPUT it finds nothing.
expect() {
  local wanted=$1 output status=0
  shift
  output=$("$@" 2>&1) || status=$?
  # The figures of counts.pl come after what it finds.
  output=$(sed '/ files, the longest has /d' <<<"$output")
  if [ "$output" != "$wanted" ] || [ "$((status == 0))" != "$([ -z "$wanted" ] && echo 1 || echo 0)" ]; then
    printf '%s\n' "$* ended with $status and told" "$output" "instead of" "$wanted"
    failures=$((failures + 1))
  fi
}
text() { perl "$checks/text.pl" "$@"; }
links() { perl "$checks/links.pl" docs/page.md; }
counts() { find . -name '*.cpp' -printf '%P\n' | sort | xargs perl "$checks/counts.pl"; }

fresh_project
expect '' text frame/sql.cpp docs/page.md
expect '' links
expect '' counts

printf 'a \n\tb\n' >frame/sql.cpp
expect 'frame/sql.cpp:1: blanks at the end
frame/sql.cpp:2: indented with a tab' text frame/sql.cpp
printf 'a\r\nb' >frame/sql.cpp
expect 'frame/sql.cpp: the last line has no end
frame/sql.cpp:1: ends with CR LF' text frame/sql.cpp
printf 'a\n' >frame/client.vbs
expect 'frame/client.vbs:1: does not end with CR LF' text frame/client.vbs
printf '\377\n' >frame/sql.cpp
expect 'frame/sql.cpp: is not UTF-8' text frame/sql.cpp
printf '%0121d\n' 0 >frame/sql.cpp
expect 'frame/sql.cpp:1: 121 characters, 120 fit' text frame/sql.cpp
# Characters count, not bytes.
printf '%0118d\303\274\303\274\n' 0 >frame/sql.cpp
expect '' text frame/sql.cpp
printf '\211PNG' >docs/picture.png
expect '' text docs/picture.png
printf 'a  \n' >tests/unit/frame/kept.txt
expect '' text tests/unit/frame/kept.txt
echo 'tab_width = 8' >>.editorconfig
expect ".editorconfig:$(wc -l <.editorconfig): text.pl does not hold files to this line" text frame/sql.cpp

fresh_project
printf '[a](../frame/gone.cpp) [b](#gone) [c](https://example.com/) ![d](gone.svg) `frame/gone.h` `gone/there.h`\n' \
  >docs/page.md
expect 'docs/page.md:1: the link ../frame/gone.cpp leads nowhere
docs/page.md:1: the link #gone names no heading of docs/page.md
docs/page.md:1: the link gone.svg leads nowhere
docs/page.md:1: frame/gone.h is not there' links
printf 'Do\n\n    scripts/gone.sh --quick\n' >docs/page.md
mkdir scripts
expect 'docs/page.md:3: scripts/gone.sh is not there' links

fresh_project
printf '%s\n' 'int sql() {' "$(printf '  // work\n%.0s' {1..44})" '}' >frame/sql.cpp
expect 'frame/sql.cpp:1: sql has 46 lines, 45 are the limit
0.0 % of the functions are below 25 lines, 90.0 % are wanted' counts
printf '%s\n' 'int sql() { return 1; }' "$(printf '// work\n%.0s' {1..230})" >frame/sql.cpp
expect 'frame/sql.cpp: 231 lines, 230 are the limit' counts
sed -i '1i// This is generated from the description.' frame/sql.cpp
echo 'int call() { return 1; }' >frame/call.cpp
echo '// Tests.' >tests/unit/frame/call_of_test.cpp
expect '' counts
mv tests/unit/frame/call_of_test.cpp tests/unit/call_of_test.cpp
expect 'no test by name: frame/call
0.0 % of the sources have a test one finds by name, 80.0 % are wanted' counts

# The same source for two systems is found once, by the name that both have; what starts a program needs no test.
fresh_project
echo 'int main() { return 1; }' >frame/main.cpp
echo 'int call() { return 1; }' | tee frame/call_posix.cpp >frame/call_windows.cpp
expect 'no test by name: frame/call
50.0 % of the sources have a test one finds by name, 80.0 % are wanted' counts
echo '// Tests.' >tests/unit/frame/call_test.cpp
expect '' counts

# A list needs no test unless it is more than a list.
fresh_project
mkdir client
echo 'void make_classes_available() { call("a?"); }  // if (there are any)' >client/native_classes.cpp
expect '' counts
echo 'void make_classes_available() { if (sql()) call(); }' >client/native_classes.cpp
expect 'client/native_classes.cpp: decides something, so it is no mere list' counts

[ "$failures" = 0 ]

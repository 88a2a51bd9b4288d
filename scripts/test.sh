#!/usr/bin/env bash
# Sets up, builds and runs every test: the release build, and the same tests under the address and undefined-behaviour
# sanitizers. The last line is "N passed, N failed".
source "$(dirname "$0")/setup.sh"

setup_native

passed=0
failed=0

# run_level NAME PRESET: builds, runs the tests that CTest knows and adds their numbers up.
run_level() {
  local name=$1 preset=$2 log
  log="$repository/build/test-$preset.log"
  say "$name: building"
  build "$preset" | tail -n 1
  say "$name: testing"
  (cd "$repository" && ctest --preset "$preset" -j "$(nproc)" --progress) >"$log" 2>&1 || true
  local total bad
  total=$(sed -n 's/^.*tests passed, \([0-9]*\) tests\? failed out of \([0-9]*\).*$/\2/p' "$log" | tail -n 1)
  bad=$(sed -n 's/^.*tests passed, \([0-9]*\) tests\? failed out of \([0-9]*\).*$/\1/p' "$log" | tail -n 1)
  if [ -z "$total" ] || [ "$total" = 0 ]; then
    tail -n 40 "$log"
    total=1 bad=1
    echo "$name: no test was run"
  elif [ "$bad" != 0 ]; then
    sed -n '/The following tests FAILED/,$p' "$log"
    grep -E "Failure|Error" "$log" | head -n 40 || true
  fi
  say "$name: $((total - bad)) passed, $bad failed (log: build/$(basename "$log"))"
  passed=$((passed + total - bad))
  failed=$((failed + bad))
}

# run_script NAME COMMAND...: a script that checks for itself what it shows counts as one test.
run_script() {
  local name=$1 log
  shift
  log="$repository/build/test-$(tr 'A-Z ' 'a-z-' <<<"$name").log"
  if "$@" >"$log" 2>&1; then
    say "$name: passed (log: build/$(basename "$log"))"
    passed=$((passed + 1))
  else
    tail -n 40 "$log"
    say "$name: failed"
    failed=$((failed + 1))
  fi
}

run_level "Native release" release
run_script "Demo" "$repository/scripts/demo.sh"
run_level "Native sanitizers" sanitize

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]

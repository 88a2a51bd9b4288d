#!/usr/bin/env bash
# Sets up, builds and runs every test: the release build, the same tests under the address and undefined-behaviour
# sanitizers, and the Windows build under Wine, in English and in German surroundings. The last line is
# "N passed, N failed".
source "$(dirname "$0")/setup.sh"

setup_native
mkdir -p "$repository/build"

passed=0
failed=0

log_of() { echo "$repository/build/test-$(tr 'A-Z ' 'a-z-' <<<"$1").log"; }

# run_level NAME PRESET: runs the tests that CTest knows in a build and adds their numbers up.
run_level() {
  local name=$1 preset=$2 log
  log=$(log_of "$name")
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
  log=$(log_of "$name")
  if "$@" >"$log" 2>&1; then
    say "$name: passed (log: build/$(basename "$log"))"
    passed=$((passed + 1))
  else
    tail -n 40 "$log"
    say "$name: failed"
    failed=$((failed + 1))
  fi
}

# built NAME COMMAND...: a build is no test, but a failed one is a failure; the tests behind it are left out then.
built() {
  local name=$1 log
  shift
  log=$(log_of "$name")
  say "$name"
  "$@" >"$log" 2>&1 && return
  tail -n 40 "$log"
  say "$name: failed"
  failed=$((failed + 1))
  return 1
}

if built "Release build" build release; then
  run_level "Release" release
  run_script "Demo" "$repository/scripts/demo.sh"
fi
if built "Sanitizer build" build sanitize; then
  run_level "Sanitizers" sanitize
fi
if built "Windows build" "$repository/scripts/build-windows.sh"; then
  run_level "Windows English" windows
  # Statements, numbers and dates must not depend on the language of the user.
  TALLYRA_TEST_LOCALE=de_DE.UTF-8 run_level "Windows German" windows
  run_script "Demo through the DLL" "$repository/scripts/demo.sh" --dll
fi

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]

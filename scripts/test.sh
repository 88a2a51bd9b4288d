#!/usr/bin/env bash
# Sets up, builds and tests: everything, or one level. The last line is "N passed, N failed".
#
#   test.sh                      every level but the last, in this order
#   test.sh LEVEL [FILTER]       one; of the tests that CTest runs only those whose name fits FILTER (ctest -R)
#
#   check              the gate, see check.sh, but for the benchmark; FILTER is the name of one check
#   release            the native tests
#   bench              the limits of the benchmark in its smaller sizes
#   demo               the demo, which checks what it shows
#   demo-postgres      the demo on a database server of its own, too
#   windows            the Windows build under Wine
#   windows-german     the same as a German user, for whom statements, numbers and dates must not be others
#   demo-dll           the demo through the DLL
#   sanitize           the native tests under the address and undefined-behaviour sanitizers
#   demo-dll-postgres  the demo through the DLL on a database server of its own
source "$(dirname "$0")/setup.sh"

levels=(check release bench demo demo-postgres windows windows-german demo-dll sanitize)
by_name=(demo-dll-postgres)
only=${1:-} filter=${2:-}
case " ${levels[*]} ${by_name[*]} " in
  *" ${only:-release} "*) [ -z "$only" ] || levels=("$only") ;;
  *)
    echo "test.sh: \"$only\" is none of ${levels[*]} ${by_name[*]}; see --help" >&2
    exit 2
    ;;
esac

setup_native
mkdir -p "$repository/build"

passed=0
failed=0

log_of() { echo "$repository/build/test-$1.log"; }

# run_level NAME PRESET [CTEST...]: runs the tests that CTest knows in a build and adds their numbers up. Many native
# ones wait for locks and servers most of their time, so more run at once than there are processors.
run_level() {
  local name=$1 preset=$2 log jobs
  shift 2
  jobs=$(($(nproc) + 1))
  [ "$preset" = windows ] || jobs=$(($(nproc) * 2))
  log=$(log_of "$name")
  say "$name: testing"
  (cd "$repository" && ctest --preset "$preset" -j "$jobs" --progress "$@" ${filter:+-R "$filter"}) >"$log" 2>&1 || true
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
  say "$name"
  if "$@" >"$log" 2>&1; then
    say "$name: passed (log: build/$(basename "$log"))"
    passed=$((passed + 1))
  else
    tail -n 120 "$log"
    say "$name: failed"
    failed=$((failed + 1))
  fi
}

# begin_build NAME COMMAND...: begins a build before its turn, where all levels run. It has what the levels before it,
# which wait for databases, clocks and Wine a third of their time, leave of the processors. What it installs nobody else
# may install meanwhile.
declare -A begun
begin_build() {
  local name=$1
  shift
  [ -z "$only" ] || return 0
  set -m
  (
    renice -n 19 $BASHPID >/dev/null
    "$@"
  ) >"$(log_of "build-$name")" 2>&1 &
  begun[$name]=$!
  set +m
}
trap 'for pid in "${begun[@]}"; do kill -- "-$pid" 2>/dev/null || true; done' EXIT

# built NAME COMMAND...: builds once. A build is no test, but a failed one is a failure; the levels that need it are
# left out then.
declare -A builds
built() {
  local name=$1 log
  shift
  [ -n "${builds[$name]:-}" ] || {
    log=$(log_of "build-$name")
    say "Building: $name"
    builds[$name]=good
    if [ -n "${begun[$name]:-}" ]; then wait "${begun[$name]}"; else "$@" >"$log" 2>&1; fi || {
      tail -n 40 "$log"
      say "Building $name: failed"
      failed=$((failed + 1))
      builds[$name]=bad
    }
  }
  [ "${builds[$name]}" = good ]
}
built_native() { built "$1" build "$1"; }
build_windows=$repository/scripts/build-windows.sh
built_windows() { built windows "$build_windows"; }

# What tests of the console client look through: a terminal, and a browser for the page of a report. Where they cannot
# be had those tests are left out and say so.
setup_viewers() { [ -n "${viewers:-}" ] || { viewers=tried && install_packages tmux chromium; } || true; }

level_release() {
  setup_viewers
  ! built_native release || run_level release release
}
# The benchmark of the gate is a level of its own.
level_check() {
  local checks=(format text links counts headers refused tidy)
  [ -z "$filter" ] || checks=("$filter")
  run_script check "$repository/scripts/check.sh" --dozen "${checks[@]}"
}
level_demo() { [ "${builds[release]:-}" = bad ] || run_script demo "$repository/scripts/demo.sh"; }
level_demo_postgres() {
  [ "${builds[release]:-}" = bad ] || run_script demo-postgres "$repository/scripts/demo.sh" --postgres
}
# On a quiet machine; what follows leaves half of it.
level_bench() {
  [ "${builds[release]:-}" = bad ] || run_script bench "$repository/scripts/bench.sh" --quick
  begin_build windows "$build_windows"
}
level_sanitize() {
  setup_viewers
  # What runs on a database server runs there in the native level; the server's engine itself is tested here too.
  ! built_native sanitize || run_level sanitize sanitize -E '_on_postgresql$'
}
level_windows() {
  built_windows || return 0
  begin_build sanitize build sanitize
  run_level windows windows
}
# Without the three programs that take minutes and in which no text depends on the user's language.
level_windows_german() {
  ! built_windows ||
    TALLYRA_TEST_LOCALE=de_DE.UTF-8 run_level windows-german windows -E '^(failed_close_tests|com_(load|memory)_tests)$'
}
level_demo_dll() { ! built_windows || run_script demo-dll "$repository/scripts/demo.sh" --dll; }
level_demo_dll_postgres() {
  ! built_windows || run_script demo-dll-postgres "$repository/scripts/demo.sh" --dll --postgres
}

for level in "${levels[@]}"; do "level_${level//-/_}"; done

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]

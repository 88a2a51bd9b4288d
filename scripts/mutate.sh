#!/usr/bin/env bash
# How sharp the tests of the business classes are: makes single changes to operators, literals and statements of frame/,
# close/, transactions/, stockcheck/ and masterdata/ as the last commit has them, one at a time, and runs the native
# tests against each. By hand, not part of the gate: 100 changes take about an hour on two cores.
#
#   mutate.sh [--count N] [--seed N] [FOLDER...]
#
# A change that does not compile is no change; another one takes its place. One after which the optimised machine code
# of the file is the same has no effect. Those that survive all tests stand with their differences in
# build/mutate/report.txt and are for a person to judge; the script ends with 1 when there is one.
source "$(dirname "$0")/setup.sh"

count=100 seed=1 folders=()
while [ "$#" != 0 ]; do
  case $1 in
    --count) count=$2 && shift ;;
    --seed) seed=$2 && shift ;;
    -*)
      echo "mutate.sh: what is $1? See --help" >&2
      exit 2
      ;;
    *) folders+=("$1") ;;
  esac
  shift
done
[ ${#folders[@]} != 0 ] || folders=(frame close transactions stockcheck masterdata)

setup_native
install_packages git
work=$repository/build/mutate
tree=$work/tree build=$work/build report=$work/report.txt
changes() { perl "$repository/scripts/mutate/changes.pl" "$@"; }

# The tree is that of the last commit, with the times of the commit: what is built already stays so. A change of an
# earlier run that did not get to its end is put back so that it is seen.
make_tree() {
  mkdir -p "$tree" "$work/fresh"
  rm -rf "$work/fresh"
  mkdir -p "$work/fresh"
  git -C "$repository" archive HEAD | tar -x -C "$work/fresh"
  (cd "$work/fresh" && find . -type f -print0) | while IFS= read -r -d '' file; do
    cmp -s "$work/fresh/$file" "$tree/$file" || {
      mkdir -p "$(dirname "$tree/$file")"
      cp "$work/fresh/$file" "$tree/$file"
    }
  done
  (cd "$tree" && find . -type f -print0) | while IFS= read -r -d '' file; do
    [ -e "$work/fresh/$file" ] || rm "$tree/$file"
  done
}

# Without optimisation and debugging information it is built soonest. A change may leave something unused: no warning
# keeps it from being tried. The assertions of the library notice more than the tests alone.
configure() {
  cmake -G Ninja -S "$tree" -B "$build" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O0 -w -D_GLIBCXX_ASSERTIONS" \
    >"$work/configure.log"
}

# Test programs that are linked with what is changed.
linked_programs() {
  local program
  ninja -C "$build" -t targets all | sed -n 's,^\(bin/[^:]*_tests\): CXX_EXECUTABLE.*$,\1,p' | while read -r program; do
    ! ninja -C "$build" -t query "$program" | grep -q libtallyra_frame.a || echo "$program"
  done
}

# Builds and runs them; sets $programs, the quickest first.
choose_programs() {
  local all program started times=()
  mapfile -t all < <(linked_programs)
  ninja -C "$build" "${all[@]}" >"$work/build.log" 2>&1 || { tail -n 30 "$work/build.log" && return 1; }
  for program in "${all[@]}"; do
    started=$(date +%s%N)
    run_program "$program" || {
      echo "$program fails before anything is changed" >&2
      cat "$work/run.log" >&2
      return 1
    }
    times+=("$(($(date +%s%N) - started)) $program")
  done
  mapfile -t programs < <(printf '%s\n' "${times[@]}" | sort -n | cut -d ' ' -f 2)
}

# A change may make a program run for ever, or take all memory.
run_program() (
  ulimit -v 4000000 -c 0
  cd "$work"
  timeout 120 "$build/$1" --gtest_brief=1 --gtest_fail_fast >"$work/run.log" 2>&1
)

# judge FILE: prints what became of the change in it.
judge() {
  local program
  for program in "${programs[@]}"; do
    ninja -C "$build" "$program" >"$work/build.log" 2>&1 || { echo "does not compile" && return; }
    run_program "$program" || { echo "killed by ${program#bin/}" && return; }
  done
  ctest --test-dir "$build" -R '^statement_corpus$' >"$work/run.log" 2>&1 ||
    { echo "killed by statement_corpus" && return; }
  if has_no_effect "$1"; then echo "has no effect"; else echo "survived"; fi
}

# Whether the optimised machine code is the same. Every source that has a header's code in it would have to be compared:
# that is not tried.
has_no_effect() {
  case $1 in *.h) return 1 ;; esac
  local side
  for side in "$tree" "$work/fresh"; do
    (cd "$side" && g++ -std=c++20 -O2 -DNDEBUG -I . -S -o "$work/$(basename "$side").s" "$1") || return 1
  done
  cmp -s "$work/tree.s" "$work/fresh.s"
}

say "Building the tests of $(git -C "$repository" rev-parse --short HEAD)"
make_tree
configure
choose_programs
say "Making $count changes with seed $seed; ${#programs[@]} test programs"
: >"$report"
done_count=0
declare -A results=([killed]=0 [survived]=0 [has]=0 [does]=0)
while IFS=$'\t' read -r file offset length kind text; do
  changes apply "$tree/$file" "$offset" "$length" "$text"
  result=$(judge "$file")
  difference=$(diff -U 1 "$work/fresh/$file" "$tree/$file" | tail -n +3 || true)
  cp "$work/fresh/$file" "$tree/$file"
  results[${result%% *}]=$((results[${result%% *}] + 1))
  [ "$result" != "does not compile" ] || continue
  done_count=$((done_count + 1))
  printf '%3d %-9s %s: %s\n' "$done_count" "$kind" "$file" "$result"
  [ "${result%% *}" = killed ] || printf '%s: %s\n%s\n\n' "$file" "$result" "$difference" >>"$report"
  [ "$done_count" != "$count" ] || break
done < <(cd "$tree" && find "${folders[@]}" -name '*.cpp' -o -name '*.h' | sort | xargs perl \
  "$repository/scripts/mutate/changes.pl" list "$seed")
cat "$report"
echo "$done_count changes: ${results[killed]} killed, ${results[has]} without effect, ${results[survived]} survived" \
  "(besides, ${results[does]} did not compile)"
[ "${results[survived]}" = 0 ]

#!/usr/bin/env bash
# How sharp the tests of the business classes are: makes single changes to operators, literals and statements of frame/,
# close/, transactions/, stockcheck/ and masterdata/ as the last commit has them, one at a time, and runs the native
# tests against each. By hand, not part of the gate: 100 changes take about half an hour on two cores.
#
#   mutate.sh [--count N] [--seed N] [--jobs N] [FOLDER...]
#
# A change that does not compile is no change; another one takes its place. Each meets the tests that need no database,
# and the first that fails has killed it. One after which the optimised machine code of the file is the same has no
# effect. What is left then meets the tests with a database, which are built only for it. Those that survive all stand
# with their differences in build/mutate/report.txt and are for a person to judge, as are those by which a program came
# to no end, which a machine that is much too busy may do as well; the script ends with 1 when one survived. So many
# jobs work side by side, two unless told, each with a build of its own: a compiler cache that is set in
# CMAKE_CXX_COMPILER_LAUNCHER saves most of that, and of building again what is put back after a change.
source "$(dirname "$0")/setup.sh"

count=100 seed=1 jobs=2 folders=()
while [ "$#" != 0 ]; do
  case $1 in
    --count) count=$2 && shift ;;
    --seed) seed=$2 && shift ;;
    --jobs) jobs=$2 && shift ;;
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
fresh=$work/fresh
changes() { perl "$repository/scripts/mutate/changes.pl" "$@"; }

source "$repository/scripts/mutate/room.sh"

# meet PROGRAM...: prints what became of the change, nothing if it is still alive.
meet() {
  local program status
  for program in "$@"; do
    ninja -C "$build" "$program" >"$room/build.log" 2>&1 || { echo "does not compile" && return; }
    status=0
    run_program "$program" || status=$?
    [ "$status" != 0 ] || continue
    printf 'killed by %s' "${program#bin/}"
    ! comes_to_no_end "$status" || printf ', which came to no end'
    return 0
  done
}

# meet_plain FILE: begins with what killed the last change in the folder of the file.
declare -A last_killer=()
meet_plain() {
  local first=${last_killer[${1%%/*}]:-${programs[0]}} program order
  order=("$first")
  for program in "${programs[@]}"; do [ "$program" = "$first" ] || order+=("$program"); done
  result=$(meet "${order[@]}")
  [[ $result != killed* ]] || last_killer[${1%%/*}]=bin/$(sed 's/^killed by //; s/,.*//' <<<"$result")
  [ -z "$result" ] || return 0
  if ! ctest --test-dir "$build" -R '^statement_corpus$' >"$room/run.log" 2>&1; then
    result="killed by statement_corpus"
  elif has_no_effect "$1"; then
    result="has no effect"
  else
    result=survived
  fi
}

meet_database() {
  result=$(meet "${programs[@]}")
  [ "$result" != "does not compile" ] || result="killed by the build"
  [ -n "$result" ] || result=survived
}

# Whether the optimised machine code is the same. Every source that has a header's code in it would have to be compared:
# that is not tried.
has_no_effect() {
  case $1 in *.h) return 1 ;; esac
  local side
  for side in "$tree" "$fresh"; do
    (cd "$side" && g++ -std=c++20 -O2 -DNDEBUG -I . -S -o "$room/$(basename "$side").s" "$1") || return 1
  done
  cmp -s "$room/tree.s" "$room/fresh.s"
}

# Of the changes in the list the first ones that compile are made, so many as are wanted, whichever job makes them.
take() (
  flock 9
  taken=$(wc -l <"$work/taken")
  [ "$((taken - $(grep -c '^does not compile' "$work/results")))" -lt "$count" ] || exit 1
  sed -n "$((taken + 1))p" "$work/list" | tee -a "$work/taken" | grep .
) 9>"$work/lock"

# note RESULT CHANGE
note() (
  flock 9
  printf '%s\t%s\n' "$1" "$2" >>"$work/results"
  [ "$1" = "does not compile" ] || awk -F '\t' '{ printf "%-9s %s: %s\n", $5, $2, $1 }' <<<"$1"$'\t'"$2"
) 9>"$work/lock"

# make_change plain|database: makes it, lets it meet those tests, notes the result and puts it back.
make_change() {
  local file offset length kind text
  IFS=$'\t' read -r file offset length kind text <<<"$change"
  changes apply "$tree/$file" "$offset" "$length" "$text"
  "meet_$1" "$file"
  note "$result" "$change"
  cp "$fresh/$file" "$tree/$file"
}

work_off() {
  local change result
  while change=$(take); do make_change plain; done
}

# What survived so far is tried again and noted anew.
try_survivors() {
  local change result survivors
  mapfile -t survivors < <(sed -n 's/^survived\t//p' "$work/results")
  [ ${#survivors[@]} != 0 ] || return 0
  sed -i '/^survived\t/d' "$work/results"
  enter_room 1
  say "Building the tests with a database for ${#survivors[@]} changes"
  choose_programs database
  for change in "${survivors[@]}"; do make_change database; done
}

report() {
  local result file offset length kind text
  grep -v $'^killed by [a-z_]*\t\|^does' "$work/results" |
    while IFS=$'\t' read -r result file offset length kind text; do
    cp "$fresh/$file" "$work/changed"
    changes apply "$work/changed" "$offset" "$length" "$text"
    printf '%s: %s\n%s\n\n' "$file" "$result" "$(diff -U 1 "$fresh/$file" "$work/changed" | tail -n +3)"
  done
}
results() { grep -c "^$1" "$work/results" || true; }

say "Building the tests of $(git -C "$repository" rev-parse --short HEAD) that need no database"
unpack_commit
for ((job = jobs; job > 0; --job)); do
  enter_room "$job"
  make_tree
  configure
  mapfile -t programs < <(linked_programs plain)
  build_programs "${programs[@]}"
done
choose_programs plain
say "Making $count changes with seed $seed; ${#programs[@]} test programs"
(cd "$fresh" && find "${folders[@]}" -name '*.cpp' -o -name '*.h' | sort | xargs perl \
  "$repository/scripts/mutate/changes.pl" list "$seed") >"$work/list"
: >"$work/taken"
: >"$work/results"
workers=()
for ((job = 1; job <= jobs; ++job)); do
  (enter_room "$job" && work_off) &
  workers+=($!)
done
for worker in "${workers[@]}"; do wait "$worker"; done
try_survivors
report | tee "$work/report.txt"
echo "$(($(wc -l <"$work/results") - $(results does))) changes: $(results killed) killed, $(results has) without" \
  "effect, $(results survived) survived (besides, $(results does) did not compile)"
[ "$(results survived)" = 0 ]

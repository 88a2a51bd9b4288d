#!/usr/bin/env bash
# Where a change is made and tried: a tree of the last commit and a build of its test programs. mutate.sh sources it.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

# Every job has a room with a tree and a build of its own.
enter_room() { room=$work/$1 tree=$work/$1/tree build=$work/$1/build; }

unpack_commit() {
  rm -rf "$fresh"
  mkdir -p "$fresh"
  git -C "$repository" archive HEAD | tar -x -C "$fresh"
}

# The tree is that of the last commit, with the times of the commit: what is built already stays so. A change of an
# earlier run that did not get to its end is put back so that it is seen.
make_tree() {
  mkdir -p "$tree"
  (cd "$fresh" && find . -type f -print0) | while IFS= read -r -d '' file; do
    cmp -s "$fresh/$file" "$tree/$file" || {
      mkdir -p "$(dirname "$tree/$file")"
      cp "$fresh/$file" "$tree/$file"
    }
  done
  (cd "$tree" && find . -type f -print0) | while IFS= read -r -d '' file; do
    [ -e "$fresh/$file" ] || rm "$tree/$file"
  done
}

# Without optimisation and debugging information it is built soonest. A change may leave something unused: no warning
# keeps it from being tried. The assertions of the library notice more than the tests alone.
configure() {
  cmake -G Ninja -S "$tree" -B "$build" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O0 -w -D_GLIBCXX_ASSERTIONS" \
    >"$room/configure.log"
}

# linked_programs plain|database: test programs that are linked with what is changed, and not, or also, with what makes
# a database of it.
linked_programs() {
  local program libraries needs
  ninja -C "$build" -t targets all | sed -n 's,^\(bin/[^:]*_tests\): CXX_EXECUTABLE.*$,\1,p' | while read -r program; do
    libraries=$(ninja -C "$build" -t query "$program")
    needs=plain
    [[ $libraries != *libtallyra_ado.a* ]] || needs=database
    [[ $libraries != *libtallyra_frame.a* || $needs != "$1" ]] || echo "$program"
  done
}

build_programs() {
  ninja -C "$build" "$@" >"$room/build.log" 2>&1 || { tail -n 30 "$room/build.log" && return 1; }
}

# choose_programs plain|database: builds and runs them; sets $programs, the quickest first, and the seconds that each
# of them gets.
declare -A seconds_for=()
choose_programs() {
  local all program started times=() took
  mapfile -t all < <(linked_programs "$1")
  build_programs "${all[@]}"
  for program in "${all[@]}"; do
    started=$(date +%s%N)
    seconds_for[$program]=600
    run_program "$program" || {
      echo "$program fails before anything is changed" >&2
      cat "$room/run.log" >&2
      return 1
    }
    took=$(($(date +%s%N) - started))
    seconds_for[$program]=$((10 + 5 * took / 1000000000))
    times+=("$took $program")
  done
  mapfile -t programs < <(printf '%s\n' "${times[@]}" | sort -n | cut -d ' ' -f 2)
}

# A change may make a program run or wait for ever, or take all memory. What runs gets a processor time, so that a busy
# machine does not end it; what waits takes none of that and gets ten minutes.
run_program() (
  exec >"$room/run.log" 2>&1
  ulimit -v 4000000 -c 0
  ulimit -S -t "${seconds_for[$1]}"
  cd "$room" || exit
  timeout 600 "$build/$1" --gtest_brief=1 --gtest_fail_fast
)

# comes_to_no_end STATUS: whether a program with this status had one of those times taken from it.
comes_to_no_end() { [ "$1" = 124 ] || [ "$1" = $((128 + $(kill -l XCPU))) ]; }

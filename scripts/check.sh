#!/usr/bin/env bash
# The gate: holds the project to its own rules. Ends with 1 when one is broken; what and where stands above the last
# lines and in build/check.
#
#   check.sh [--all|--dozen] [--clang] [--windows] [CHECK...]
#
#   format    C++ has the form of .clang-format
#   text      files are encoded, ended and as wide as .editorconfig says
#   links     what the documents name is there
#   counts    files and functions are small, and sources have tests that one finds by name
#   headers   every header compiles alone
#   refused   what must not compile does not
#   tidy      clang-tidy finds nothing in what changed
#   bench     the benchmark keeps its limits in the smaller sizes
#
#   --all       clang-tidy looks at everything (half an hour)
#   --dozen     clang-tidy looks at the twelve files that changed most
#   --clang     clang 16 builds everything too
#   --windows   headers compile alone under the cross compiler too
source "$(dirname "$0")/setup.sh"
cd "$repository"

all_checks=(format text links counts headers refused tidy bench)
checks=() also=() tidy=()
while [ "$#" != 0 ]; do
  case $1 in
    --all | --dozen) tidy=("$1") ;;
    --clang) also+=(clang) ;;
    --windows) also+=(windows_headers) ;;
    *)
      case " ${all_checks[*]} " in
        *" $1 "*) checks+=("$1") ;;
        *)
          echo "check.sh: \"$1\" is none of ${all_checks[*]}; see --help" >&2
          exit 2
          ;;
      esac
      ;;
  esac
  shift
done
[ ${#checks[@]} != 0 ] || checks=("${all_checks[@]}")

# The files that the project consists of, also those that are not yet committed.
files_of_project() { git ls-files -z --cached --others --exclude-standard "$@" | files_that_exist; }
files_that_exist() { perl -0 -ne 'chomp; print "$_\0" if -f $_'; }

# headers_alone PRESET: configured anew, so that headers that have come or gone are known.
headers_alone() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" --target tallyra_headers_alone -- -k 0 | grep -v '^\[' || true
  cmake --build --preset "$1" --target tallyra_headers_alone >/dev/null
}

check_format() { scripts/check/format.sh; }
check_text() { files_of_project ':!*.png' | xargs -0 perl scripts/check/text.pl; }
check_links() { files_of_project '*.md' | xargs -0 perl scripts/check/links.pl; }
check_counts() { files_of_project | xargs -0 perl scripts/check/counts.pl; }
check_headers() { headers_alone release; }
check_refused() { scripts/check/refused.sh; }
check_tidy() { scripts/check/tidy.sh "${tidy[@]}"; }
check_bench() { scripts/bench.sh --quick; }
check_clang() {
  install_packages clang-16
  build clang
}
check_windows_headers() {
  scripts/build-windows.sh tallyra_interfaces
  headers_alone windows
}

setup_native
install_packages git
mkdir -p build/check
summary=() failed=0
for check in "${checks[@]}" "${also[@]}"; do
  log=build/check/$check.log
  say "$check"
  started=$SECONDS
  # In the background, because a condition would let a check go on after an error.
  "check_$check" >"$log" 2>&1 &
  if wait "$!"; then
    result=kept
    tail -n 1 "$log"
  else
    result=BROKEN
    failed=$((failed + 1))
    tail -n 60 "$log"
  fi
  summary+=("$(printf '%-16s %-7s %4d s   %s' "$check" "$result" $((SECONDS - started)) "$log")")
done
say "$((${#summary[@]} - failed)) of ${#summary[@]} kept"
printf '   %s\n' "${summary[@]}"
[ "$failed" = 0 ]

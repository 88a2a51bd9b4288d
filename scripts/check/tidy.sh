#!/usr/bin/env bash
# clang-tidy 16 with the checks of .clang-tidy, on what changed since the branch left origin/main (on that branch
# itself: since the commit before), headers each by itself. For at most 60 files, those with most changed lines: two
# cores do that in about three minutes. Ends with 1 on a finding.
#
#   tidy.sh                          what changed
#   tidy.sh --dozen                  the 12 files with most changed lines
#   tidy.sh --all                    every source of the native build (half an hour on two cores)
#   tidy.sh FILE...                  these
source "$(dirname "$0")/../setup.sh"
cd "$repository"

most_files=60
# Where every source is compiled by itself.
build=build/debug

# "LINES FILE" for each changed file that is still there; a file that was only moved has not changed.
changed_files() {
  local base
  base=$(git merge-base HEAD origin/main 2>/dev/null) || base=
  if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then
    # The first commit of all is compared with an empty tree.
    base=$(git rev-parse -q --verify HEAD~) || base=$(git hash-object -t tree /dev/null)
  fi
  # Of a moved file git tells both names, each for itself.
  git diff --numstat -z -M --diff-filter=d "$base" | perl -0 -ne '
    chomp;
    my ($added, $removed, $path) = /^(\d+)\t(\d+)\t(.*)$/s or next;
    if ($path eq "") { <>; chomp($path = <>) }
    print $added + $removed, " $path\n" if $added + $removed'
  git ls-files --others --exclude-standard | xargs -r -d '\n' wc -l | awk '$2 != "total" { print $1, $2 }'
}

# A header is looked at through the source that includes nothing else, see cmake/headers_alone.cmake.
source_of() {
  case $1 in
    *.h) echo "$build/headers_alone/$1.cpp" ;;
    *) echo "$1" ;;
  esac
}

known_sources() { sed -n "s,^ *\"file\": \"$repository/\(.*\)\"\,\?$,\1,p" "$build/compile_commands.json" | sort -u; }

# What the build knows is asked of it, so it is configured first.
install_packages clang-tidy-16
cmake --preset debug >/dev/null
only_changed=
if [ "${1:-}" = --dozen ]; then
  most_files=12
  shift
fi
case ${1:-} in
  --all) files=$(known_sources | grep -v "^build/") ;;
  '')
    files=$(changed_files | grep -E '\.(cpp|h)$' | sort -k 1,1nr -k 2 | cut -d ' ' -f 2 || true)
    only_changed=yes
    ;;
  *) files=$(printf '%s\n' "$@") ;;
esac

wanted=$(while read -r file; do [ -z "$file" ] || source_of "$file"; done <<<"$files")
sources=$(grep -xF -f <(known_sources) <<<"$wanted" || true)
left_out=$(($(grep -c . <<<"$wanted" || true) - $(grep -c . <<<"$sources" || true)))
[ "$left_out" = 0 ] || echo "$left_out files are not part of the native build: not looked at"
if [ -n "$only_changed" ] && [ "$(grep -c . <<<"$sources")" -gt "$most_files" ]; then
  echo "$(grep -c . <<<"$sources") files changed, the $most_files that changed most are looked at; --all looks at all"
  sources=$(head -n "$most_files" <<<"$sources")
fi

[ -n "$sources" ] || {
  echo "no files to look at"
  exit 0
}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
# Options of gcc that clang does not know are no finding; a file that clang-tidy cannot read is.
# shellcheck disable=SC2016  # meant for the inner shell
xargs -d '\n' -P "$(nproc)" -n 1 sh -c '
  folder=$1 build=$2
  shift 2
  out=$folder/$$
  clang-tidy-16 -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option "$@" >"$out" 2>"$out.err" ||
    grep -q "error:" "$out" || cp "$out.err" "$out.unread"
' tidy "$folder" "$build" <<<"$sources"
find "$folder" -name '*.unread' -exec cat {} +
# What stands in a header shows with every source that includes it; once is enough.
cat "$folder"/*[0-9] | sed -n "s,^$repository/\(.*: error: .*\)\,-warnings-as-errors\]$,\1],p" |
  sort -u >"$folder/findings"
cat "$folder/findings"
echo "$(grep -c . <<<"$sources") files looked at, $(grep -c . "$folder/findings") findings"
[ ! -s "$folder/findings" ] && [ -z "$(find "$folder" -name '*.unread')" ]

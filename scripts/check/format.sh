#!/usr/bin/env bash
# C++ has the form of .clang-format, as clang-format 14 has it: another version breaks lines elsewhere.
#
#   format.sh          tells what has not
#   format.sh --fix    gives it that form
source "$(dirname "$0")/../setup.sh"
cd "$repository"

install_packages clang-format-14 git
case ${1:-} in
  '') action=(--dry-run -Werror) ;;
  --fix) action=(-i) ;;
  *)
    echo "usage: format.sh [--fix]" >&2
    exit 2
    ;;
esac
git ls-files -z --cached --others --exclude-standard '*.cpp' '*.h' |
  xargs -0 -P "$(nproc)" -n 50 clang-format-14 "${action[@]}"

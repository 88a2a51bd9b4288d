#!/usr/bin/env bash
# A machine that is made up, for the tests of the scripts: they run from a copy of their own, and every program that
# could look at or change a real machine is in its place only told. To be sourced. Sets $scripts and $calls, the file
# that tells the calls of those programs, a line each.
#
#   $installed           packages that dpkg-query finds, as name:architecture words
#   $outdated            while this file exists, what the package lists offer cannot be had
#   $unreachable         while this file exists, one index cannot be refreshed
source "$(dirname "${BASH_SOURCE[0]}")/../../../scripts/demo/checks.sh"
set -euo pipefail

machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT
scripts=$machine/copy/scripts calls=$machine/calls outdated=$machine/outdated unreachable=$machine/unreachable
export machine calls outdated unreachable installed=
mkdir -p "$machine/copy" "$machine/bin"
cp -r "$(dirname "${BASH_SOURCE[0]}")/../../../scripts" "$machine/copy/"
: >"$calls"

# program NAME: reads its body from the input.
program() {
  { echo '#!/usr/bin/env bash' && cat; } >"$machine/bin/$1"
  chmod +x "$machine/bin/$1"
}
told='echo "$(basename "$0") $*" >>"$calls"'

program apt-get <<END
$told
case " \$* " in
  *" update "*)
    [ ! -e "\$unreachable" ] || { echo "E: Failed to fetch http://elsewhere.example/Packages" >&2 && exit 100; }
    rm -f "\$outdated" ;;
  *" install "* | *" download "*)
    [ ! -e "\$outdated" ] || { echo "E: Unable to fetch some archives" >&2 && exit 100; } ;;
esac
END

# dpkg-query -W -f FORMAT PACKAGE: one text per architecture with nothing between, as the real one prints them.
program dpkg-query <<'END'
found=1
for package in $installed; do
  [ "${package%%:*}" = "$4" ] || continue
  text=${3//'${Architecture}'/${package#*:}}
  text=${text//'${db:Status-Status}'/installed}
  printf "$text"
  found=0
done
exit $found
END
program dpkg <<END
case "\$1" in --print-architecture) echo amd64 ;; *) $told ;; esac
END
program sudo <<<'exec "$@"'
program odbcinst <<<"[ \"\$1\" = -q ] || $told"
for name in cmake ctest wine wineserver; do program $name <<<"$told; exit 1"; done
export PATH=$machine/bin:$PATH TALLYRA_WINE_ROOT=$machine/wine-root HOME=$machine

# What was called of a program, without the options that are the same in every call.
called() { sed -n "s/^$1 \(-q \)\?\(-y \)\?//p" "$calls" | sed 's/ --no-install-recommends//' | paste -s -d ';'; }

#!/usr/bin/env bash
# How Wine and what belongs to it are installed on a machine one of whose package indexes does not answer.
source "$(dirname "$0")/machine.sh"
touch "$unreachable"
wanted="install wine wine32:i386 libsqliteodbc:i386 odbc-postgresql:i386 libodbc2:i386 odbcinst"

# The made-up machine runs no Wine in the end: what counts is that it was asked for.
TALLYRA_WINE_RECIPE=machine bash "$scripts/install-wine.sh" >/dev/null 2>&1 || true
check "on the machine: the refresh fails, the installation is tried" "$(called apt-get)" "update;$wanted"
check "its architecture is added" "$(called dpkg)" "--add-architecture i386"
check "the failure is told" \
  "$(grep -c '^== Some package list could not be refreshed' "$machine/copy/build/wine/install.log")" 1

: >"$calls"
TALLYRA_WINE_RECIPE=replace bash "$scripts/install-wine.sh" >/dev/null 2>&1 || true
check "from the main archive alone: likewise" \
  "$(sed 's/ -o [^ ]*//g' "$calls" | grep -c '^apt-get .*update$\|^apt-get .*--allow-downgrades wine ')" 2

# recipe_for ERROR: which recipe is taken where refreshing for both architectures ends with this error, and Wine would
# only add packages.
recipe_for() {
  program apt-get <<END
$told
case " \$* " in
  *" update "*) echo "$1"; exit 100 ;;
  *" -s "*) echo "Inst wine (8.0 Debian:12 [amd64])" ;;
esac
END
  bash "$scripts/install-wine.sh" 2>/dev/null |
    sed -n 's/^== Installing Wine on this machine.*/machine/p; s/^== Unpacking Wine into.*/folder/p' || true
}
program unshare <<<'exit 0'
check "an index of the machine's own architecture says nothing against the machine" \
  "$(recipe_for "E: Failed to fetch http://elsewhere.example/dists/x/binary-amd64/Packages")" machine
check "an index of the other architecture does" \
  "$(recipe_for "E: Failed to fetch http://elsewhere.example/dists/x/binary-i386/Packages")" folder

# The interface descriptions come from the lists that are there, too.
program apt-get <<END
$told
case " \$* " in
  *" update "*) rm -f "\$outdated" && exit 100 ;;
  *" download "*) [ ! -e "\$outdated" ] || exit 100 ;;
esac
END
program dpkg-deb <<<'mkdir -p usr/include/wine/wine/windows && touch usr/include/wine/wine/windows/oaidl.idl &&
  tar -c --files-from /dev/null'
descriptions() {
  : >"$calls"
  rm -rf "$machine/wine-idl"
  bash -c 'source "$1/setup.sh" && source "$1/wine.sh" && install_interface_descriptions' - "$scripts" >/dev/null
  called apt-get
}
check "interface descriptions come from the lists that are there" "$(descriptions)" "download libwine-dev"
touch "$outdated"
check "and from refreshed ones where these do not do" "$(descriptions)" \
  "download libwine-dev;update;download libwine-dev"
check "and are there" "$(ls "$machine/wine-idl")" oaidl.idl
[ "$failed_checks" = 0 ]

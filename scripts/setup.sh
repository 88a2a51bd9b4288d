#!/usr/bin/env bash
# Installs what building and testing need on Debian 12. The other scripts source it; run alone it sets the machine up.
# Cheap when everything is there. Packages come from the lists that the machine has; only when these do not do they are
# refreshed.
set -euo pipefail

# Every script that sources this one tells by --help what stands at its head, and does nothing else.
if [ "${1:-}" = --help ]; then
  sed -n '2,/^\([^#]\|$\)/{/^#/s/^# \{0,1\}//p}' "$0"
  exit
fi

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export repository

native_packages=(
  build-essential cmake ninja-build
  libgtest-dev libcli11-dev nlohmann-json3-dev
  unixodbc-dev unixodbc odbcinst libsqliteodbc sqlite3 libsqlite3-dev
  libpq-dev postgresql-15 odbc-postgresql
  universal-ctags
)

say() { printf '%s\n' "== $*"; }

# can_install PACKAGE...: tells what is missing when nobody here may install it.
can_install() {
  if [ "$(id -u)" = 0 ] || command -v sudo >/dev/null; then return 0; fi
  echo "These packages are missing, and installing them needs root or sudo: $*" >&2
  return 1
}

# Runs a command with the rights to change the system.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "This needs root or sudo: $*" >&2
    return 1
  fi
}

# A package may be installed for several architectures: what counts is that of the machine, or "all".
missing_packages() {
  local package native found
  native=$(dpkg --print-architecture)
  for package in "$@"; do
    # shellcheck disable=SC2016  # dpkg's own variables
    found=$(dpkg-query -W -f '${Architecture} ${db:Status-Status}\n' "$package" 2>/dev/null) || true
    grep -Eqx "($native|all) installed" <<<"$found" || printf '%s\n' "$package"
  done
}

# refresh_package_lists APT-GET...: an index that does not answer is told and is no end, because it may be one that
# nothing is wanted from. Whoever installs afterwards finds out.
refresh_package_lists() {
  "$@" update || say "Some package list could not be refreshed; going on with what there is" >&2
}

apt_install() { as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends "$@"; }

install_packages() {
  local missing
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  # shellcheck disable=SC2086
  can_install $missing || return 1
  say "Installing" $missing
  # shellcheck disable=SC2086
  apt_install $missing || {
    say "The package lists of this machine do not do; refreshing them"
    refresh_package_lists as_root apt-get -q
    apt_install $missing
  }
}

# The SQLite driver by its bare file name, so that every architecture finds its own.
register_sqlite_driver() {
  odbcinst -q -d -n SQLite3 >/dev/null 2>&1 && return 0
  say "Registering the SQLite ODBC driver"
  local template
  template=$(mktemp)
  printf '[SQLite3]\nDescription=SQLite3 ODBC Driver\nDriver=libsqlite3odbc.so\nSetup=libsqlite3odbc.so\n' >"$template"
  as_root odbcinst -i -d -f "$template"
  rm -f "$template"
}

setup_native() {
  install_packages "${native_packages[@]}"
  register_sqlite_driver
}

# build PRESET [TARGET...]: configures once and builds.
build() {
  local preset=$1
  shift
  [ -f "$repository/build/$preset/build.ninja" ] || (cd "$repository" && cmake --preset "$preset" >/dev/null)
  (cd "$repository" && cmake --build --preset "$preset" ${1:+--target "$@"})
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
  setup_native
  say "Ready."
fi

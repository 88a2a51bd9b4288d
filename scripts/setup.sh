#!/usr/bin/env bash
# Installs what building and testing need on Debian 12. The other scripts source it; run alone it sets the machine up.
# Cheap when everything is there.
set -euo pipefail

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export repository

native_packages=(
  build-essential cmake ninja-build
  libgtest-dev libcli11-dev nlohmann-json3-dev
  unixodbc-dev unixodbc odbcinst libsqliteodbc sqlite3
)

say() { printf '%s\n' "== $*"; }

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

missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || printf '%s\n' "$package"
  done
}

install_packages() {
  local missing
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  say "Installing" $missing
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q update
  # shellcheck disable=SC2086
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends $missing
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

#!/usr/bin/env bash
# A PostgreSQL server of the demo's own in a temporary folder, which goes with it. To be sourced.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

# Debian keeps the programs of each version in a folder of their own.
server_program() { find /usr/lib/postgresql -path "*/bin/$1" | sort -V | tail -n 1; }

# The server refuses to run as root.
as_server() {
  if [ "$(id -u)" = 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

start_server() {
  server_folder=$(mktemp -d /tmp/tallyra-demo-XXXXXX)
  server_port=$((20000 + RANDOM % 10000))
  [ "$(id -u)" != 0 ] || chown postgres "$server_folder"
  export server_folder server_port
  as_server "$(server_program initdb)" -D "$server_folder/data" -U owner -A trust -E UTF8 --locale=C.UTF-8 --no-sync \
    >"$server_folder.log" 2>&1
  # Speed matters here, a power cut does not.
  as_server "$(server_program pg_ctl)" -D "$server_folder/data" -w -t 60 -l "$server_folder/log" start \
    -o "-p $server_port -k $server_folder -c listen_addresses=127.0.0.1 -c fsync=off" >>"$server_folder.log" 2>&1 ||
    { cat "$server_folder.log" "$server_folder/log" >&2 && return 1; }
}

stop_server() {
  as_server "$(server_program pg_ctl)" -D "$server_folder/data" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$server_folder" "$server_folder.log"
}

on_server() { psql -X -q -v ON_ERROR_STOP=1 -h "$server_folder" -p "$server_port" -U owner "$@"; }

# connection_to NAME: the connection string of a database.
connection_to() {
  echo "DRIVER={PostgreSQL Unicode};Servername=127.0.0.1;Port=$server_port;Database=$1;Username=owner"
}

# mirror NAME FILE: an SQLite file with the rows of a database, for those who look at them.
mirror() {
  rm -f "$2"
  {
    echo 'BEGIN;'
    grep -v '^PRAGMA' "$repository/schema/sqlite.sql"
    echo 'DELETE FROM TALLYRASCHEMA;'
    "$(server_program pg_dump)" -h "$server_folder" -p "$server_port" -U owner --data-only --inserts \
      --rows-per-insert=500 --exclude-table={tablekeys,tallyralock,tallyrajournal} "$1" |
      sed -n '/^INSERT INTO /,/;$/p' | sed 's/^INSERT INTO public\./INSERT INTO /'
    echo 'COMMIT;'
  } | sqlite3 "$2"
}

#!/usr/bin/env bash
# Measures the component against a replay of its own statements through plain ODBC. Arguments go to the program:
# --quick for the smaller sizes only, --rounds N, --help.
source "$(dirname "$0")/setup.sh"

setup_native
say "Building"
build release tallyra-bench | tail -n 1
cd "$repository"
exec build/release/bin/tallyra-bench --schema schema/sqlite.sql "$@"

#!/usr/bin/env bash
# Measures the component against replays of its own statements. The databases are made in memory, in the folder that
# TALLYRA_BENCH_FOLDER names or in /dev/shm; where neither has the room nothing is measured. Arguments go to the
# program: --quick for the smaller sizes only, --only TEXT, --rounds N, --folder FOLDER, --goals, --processor-time,
# --write-readme FILE.
source "$(dirname "$0")/setup.sh"

setup_native
say "Building"
build release tallyra-bench | tail -n 1
cd "$repository"
exec build/release/bin/tallyra-bench --schema schema/sqlite.sql "$@"

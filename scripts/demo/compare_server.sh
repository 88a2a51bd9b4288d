#!/usr/bin/env bash
# compare_server.sh NATIVE-FOLDER SERVER-FOLDER: whether the demo on the server that runs printed and stored what it did
# on SQLite.
source "$(dirname "$0")/../setup.sh"
native=$1 folder=$2 database=$2/company.db
for part in checks server same_rows; do source "$repository/scripts/demo/$part.sh"; done
# Engines add up the rows of a sum in an order of their own, which shows in the fifteenth digit of a cost.
digits=12
mirror stock "$database"
same_story
if [ "$failed_checks" != 0 ]; then
  say "$failed_checks checks failed; see $folder/*.diff"
  exit 1
fi

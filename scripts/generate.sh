#!/usr/bin/env bash
# generate.sh: writes the create scripts schema/*.sql from the description in schema/. A test tells when they are stale.
source "$(dirname "$0")/setup.sh"
cd "$repository"
cmake --preset release >/dev/null
cmake --build --preset release --target tallyra-schema >/dev/null
for engine in sqlite postgresql sqlserver access; do
  build/release/bin/tallyra-schema "$engine" >"schema/$engine.sql.new"
  mv "schema/$engine.sql.new" "schema/$engine.sql"
done

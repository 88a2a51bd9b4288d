#!/usr/bin/env bash
# Writes what is made from descriptions into the files that it is kept in. From the classes (server/classes): the
# interface description and the slots of Tallyra.dll, the list of the console client, the tables of the reference. From
# the tables (schema/): the create scripts of the engines. From the verbs of the console client (client/verbs): its
# manual page and its completion for bash. Commit what has changed; tests fail until then.
source "$(dirname "$0")/setup.sh"
cd "$repository"

setup_native
build release tallyra-client tallyra-describe tallyra-schema | tail -n 1
build/release/bin/tallyra-describe "$repository"
for engine in sqlite postgresql sqlserver access; do
  build/release/bin/tallyra-schema "$engine" >"schema/$engine.sql.new"
  mv "schema/$engine.sql.new" "schema/$engine.sql"
done

# The client that prints them has to know what was just written into its list.
build release tallyra-client | tail -n 1
build/release/bin/tallyra-client help --man >docs/tallyra-client.1
build/release/bin/tallyra-client help --completion >docs/tallyra-client.bash

#!/usr/bin/env bash
# What setup.sh takes for missing, and how it installs that.
source "$(dirname "$0")/machine.sh"

all="build-essential cmake ninja-build libgtest-dev libcli11-dev nlohmann-json3-dev
     unixodbc-dev unixodbc odbcinst libsqliteodbc sqlite3 libsqlite3-dev libpq-dev postgresql-15
     odbc-postgresql universal-ctags"
everything=$(printf '%s:amd64 ' $all)
without() { sed "s/\b$1:amd64//" <<<"$everything"; }

# set_up: runs the script on the machine as it is now.
set_up() {
  : >"$calls"
  printed=$(bash "$scripts/setup.sh" 2>&1) && status=0 || status=$?
}

installed=$everything
set_up
check "with everything there nothing is installed" "$status $(called apt-get)" "0 "
installed="$everything libsqliteodbc:i386 unixodbc:i386"
set_up
check "a package of two architectures is there" "$status $(called apt-get)" "0 "
installed="$(without libgtest-dev) libgtest-dev:all"
set_up
check "a package for all architectures is there" "$status $(called apt-get)" "0 "
installed="$(without libsqliteodbc) libsqliteodbc:i386"
set_up
check "a package of another architecture alone is not" "$status $(called apt-get)" "0 install libsqliteodbc"

installed=$(without sqlite3)
set_up
check "what is missing comes from the lists that are there" "$status $(called apt-get)" "0 install sqlite3"
touch "$outdated"
set_up
check "lists that do not do are refreshed" "$status $(called apt-get)" "0 install sqlite3;update;install sqlite3"
touch "$outdated" "$unreachable"
set_up
check "what cannot be had in the end is an error" "$((status != 0)) $(called apt-get)" \
  "1 install sqlite3;update;install sqlite3"
check "an index that does not answer is told" \
  "$(grep -c '^== Some package list could not be refreshed' <<<"$printed")" 1

# The index that fails is not the one that the package comes from.
program apt-get <<END
$told
case " \$* " in
  *" update "*) rm -f "\$outdated" && exit 100 ;;
  *" install "*) [ ! -e "\$outdated" ] || exit 100 ;;
esac
END
set_up
check "an unrelated index that does not answer is no end" "$status $(called apt-get)" \
  "0 install sqlite3;update;install sqlite3"
check "and is told" "$(grep -c '^== Some package list could not be refreshed' <<<"$printed")" 1

# set_up_as_user FOLDERS: by somebody who is not root, with the programs of these folders alone.
program id <<<'[ "$*" = -u ] && echo 1000'
set_up_as_user() {
  : >"$calls"
  printed=$(PATH=$1 bash "$scripts/setup.sh" 2>&1) && status=0 || status=$?
}

installed=$everything
set_up_as_user "$PATH"
check "with everything there nobody needs to be root" "$status $(called apt-get)" "0 "
installed=$(without sqlite3)
program apt-get <<<"$told"
program sudo <<END
$told
exec "\$@"
END
set_up_as_user "$PATH"
check "a user installs through sudo" "$status $(called apt-get)" "0 install sqlite3"
check "and through nothing else" "$(grep -c '^sudo env .*apt-get .*install .*sqlite3$' "$calls")" 1

# The tools of the script in a folder without sudo: the machine may have one beside them.
mkdir "$machine/tools"
for name in bash dirname grep sed; do ln -s "$(type -P $name)" "$machine/tools/$name"; done
rm "$machine/bin/sudo"
installed=$(without sqlite3 | sed 's/\bcmake:amd64//')
set_up_as_user "$machine/bin:$machine/tools"
check "without root and sudo what is missing is an error" "$status $(called apt-get)" "1 "
check "and is named, once and alone" "$printed" \
  "These packages are missing, and installing them needs root or sudo: cmake sqlite3"
installed=$everything
set_up_as_user "$machine/bin:$machine/tools"
check "where nothing is missing sudo is not missed" "$status" 0
[ "$failed_checks" = 0 ]

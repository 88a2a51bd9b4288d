#!/usr/bin/env bash
# Runs 32-bit Windows programs of this project. To be sourced after setup.sh; run alone it tells this. Wine is either
# installed on this machine or unpacked into a folder of its own (see install-wine.sh); nothing but this file knows
# which, and nobody's ~/.wine is ever touched: every run happens in a prefix that this file made.
#
#   make_wine_prefix FOLDER         a fresh prefix in place of the one that was there
#   wine_run PROGRAM ARGUMENTS...   a Unix path, or a name that Wine knows (cscript); arguments pass unchanged
#   wine_client FILE ARGUMENTS...   a script (*.vbs, *.js) or a program whose last line tells that it came through
#   windows_path PATH               how a program that runs in Wine calls a file of this machine
#   register_dll FILE...            for the machine, not the user: Wine 8 ignores classes of the user
#   start_wine                      keeps Wine's services up until 5 minutes after the last program
#   stop_wine                       ends what still runs in the prefix
#
# $TALLYRA_TEST_LOCALE makes the programs believe in a user of another country, de_DE.UTF-8 for example.
#
# All but the first work in the prefix $TALLYRA_WINE_PREFIX (build/wine/prefix unless the caller sets it).

[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/setup.sh" --help

wine_root=${TALLYRA_WINE_ROOT:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/tallyra/wine-root}
# shellcheck disable=SC2154  # setup.sh sets it
wine_template=$repository/build/wine/template
wine_mark=.made-for-tallyra
TALLYRA_WINE_PREFIX=${TALLYRA_WINE_PREFIX:-$repository/build/wine/prefix}

wine_is_unpacked() { [ -f "$wine_root/complete" ]; }

# The folder with the system's type library, stdole2.tlb.
wine_typelib_folder() {
  if wine_is_unpacked; then echo "$wine_root/usr/lib/i386-linux-gnu/wine/i386-windows"
  else echo /usr/lib/i386-linux-gnu/wine/i386-windows; fi
}

# Runs a command with $wine_root as its root folder; the machine's own folders, where programs and databases
# lie, stay visible in it under their own names. The mounts belong to this command alone and end with it.
in_wine_root() {
  local flags=(--mount)
  [ "$(id -u)" = 0 ] || flags+=(--map-root-user)
  # shellcheck disable=SC2016  # meant for the inner shell
  unshare "${flags[@]}" bash -euc '
    root=$1 shown=($2)
    shift 2
    for folder in /*; do
      case $folder in
        /bin | /boot | /etc | /lib* | /lost+found | /run | /sbin | /sys | /usr | /var) ;;
        *) [ -L "$folder" ] || [ ! -d "$folder" ] || shown+=("$folder") ;;
      esac
    done
    for folder in "${shown[@]}" /usr/share/zoneinfo /usr/lib/locale; do
      [ -d "$folder" ] || continue
      [ -d "$root$folder" ] || mkdir -p "$root$folder"
      mount --rbind "$folder" "$root$folder"
    done
    exec unshare --root="$root" --wd="$PWD" "$@"' in_wine_root "$wine_root" "$(hidden_folders)" "$@"
}

# Folders that a program may need although they lie in a part of the machine that the unpacked root covers.
hidden_folders() {
  local folder
  for folder in "$repository" "$PWD" "$TALLYRA_WINE_PREFIX"; do
    case $folder in
      /usr/* | /var/* | /run/*) mkdir -p "$folder" && echo "$folder" ;;
    esac
  done
}

# The environment of every run: without a screen, quiet except for a missing DLL, the same text conversions
# wherever the user lives. Wine offers to fetch .NET and a browser for a new prefix, and to make menu entries:
# none of it is wanted.
set_wine_environment() {
  unset DISPLAY WAYLAND_DISPLAY WINESERVER WINELOADER WINEDLLPATH
  export WINEPREFIX=$TALLYRA_WINE_PREFIX HOME=$TALLYRA_WINE_PREFIX WINEARCH=win32
  export WINEDEBUG=${WINEDEBUG:--all,err+module}
  export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d" LC_ALL=C.UTF-8
}

# A machine need not have a locale for Wine to know the country; it does need one to read file names, for which any in
# UTF-8 will do. So this makes a locale of that name out of the one that every machine has.
stand_in_locale() {
  local folder=$repository/build/wine/locale
  mkdir -p "$folder"
  ln -sfn /usr/lib/locale/C.utf8 "$folder/$1"
  echo "$folder"
}

# Runs `wine` or `wineserver`, wherever they are. A shell would complain about a locale that it has not, so it hears of
# it last.
wine_command() (
  name=$1
  shift
  set_wine_environment
  country=()
  [ -z "${TALLYRA_TEST_LOCALE:-}" ] ||
    country=(env LOCPATH="$(stand_in_locale "$TALLYRA_TEST_LOCALE")" LC_ALL="$TALLYRA_TEST_LOCALE")
  if wine_is_unpacked; then in_wine_root "${country[@]}" "/usr/lib/wine/$name" "$@"
  else "${country[@]}" "$name" "$@"; fi
)

# A prefix takes seconds and 590 MB to make, so it is made once and copied.
make_wine_template() {
  [ ! -f "$wine_template/$wine_mark" ] || return 0
  mkdir -p "$(dirname "$wine_template")"
  (
    flock 9
    [ ! -f "$wine_template/$wine_mark" ] || exit 0
    say "Making the Wine prefix that tests start from (a few seconds)"
    TALLYRA_WINE_PREFIX=$wine_template.new TALLYRA_TEST_LOCALE=
    rm -rf "$TALLYRA_WINE_PREFIX" "$wine_template"
    mkdir "$TALLYRA_WINE_PREFIX"
    if ! wine_command wine wineboot -i </dev/null >"$wine_template.log" 2>&1; then
      cat "$wine_template.log"
      echo "Wine cannot make a prefix." >&2
      exit 1
    fi
    wine_command wineserver -w
    # The user's folders are links to the real ones; here they are folders.
    find "$TALLYRA_WINE_PREFIX/drive_c/users" -type l -exec sh -c 'rm "$1" && mkdir "$1"' link {} \;
    touch "$TALLYRA_WINE_PREFIX/$wine_mark"
    mv "$TALLYRA_WINE_PREFIX" "$wine_template"
  ) 9>"$wine_template.lock"
}

make_wine_prefix() {
  local prefix
  prefix=$(realpath -m "$1")
  if [ -e "$prefix" ] && [ ! -f "$prefix/$wine_mark" ]; then
    echo "$prefix exists and is no Wine prefix of this project: left alone." >&2
    return 1
  fi
  make_wine_template
  if [ -e "$prefix" ]; then
    # Wine's services outlive the last program by a moment, and would go on writing.
    TALLYRA_WINE_PREFIX=$prefix stop_wine
    rm -rf "$prefix.old"
    mv "$prefix" "$prefix.old"
    rm -rf "$prefix.old"
  fi
  mkdir -p "$prefix"
  touch "$prefix/$wine_mark"
  # Programs and libraries, nearly all of it, are shared with the template where the file system allows; what
  # Wine rewrites in place, the registry above all, must not be.
  tar -c -C "$wine_template" --exclude='*.dll' --exclude='*.exe' . | tar -x -C "$prefix"
  (
    cd "$wine_template" || exit 1
    share() {
      find . -type f \( -name '*.dll' -o -name '*.exe' \) -print0 | xargs -0 cp -p --parents "$@" -t "$prefix"
    }
    share --link 2>/dev/null || share
  )
}

wine_run() {
  [ -f "$TALLYRA_WINE_PREFIX/$wine_mark" ] || make_wine_prefix "$TALLYRA_WINE_PREFIX"
  wine_command wine "$@"
}

windows_path() {
  local path
  path=$(realpath -m "$1")
  printf '%s\n' "Z:${path//\//\\}"
}

# Wine's script host ends with 0 and in silence when a script fails. So it counts as passed only when its last line is
# "script reached its end", and the sample programs hold to that too.
wine_client() {
  local program=$1 output status=0 command
  shift
  case $program in
    *.vbs | *.js) command=(cscript //nologo "$(windows_path "$program")") ;;
    *) command=("$program") ;;
  esac
  output=$(wine_run "${command[@]}" "$@") || status=$?
  output=${output//$'\r'/}
  printf '%s\n' "$output"
  [ "$status" = 0 ] && [ "$(tail -n 1 <<<"$output")" = "script reached its end" ]
}

register_dll() {
  local dll
  for dll in "$@"; do
    # "replace": Wine holds some of the ProgIDs that the stand-ins take.
    wine_run regsvr32 /s /n /i:replace "$(windows_path "$dll")" || {
      echo "Registering $dll under Wine failed (regsvr32 ended with $?)." >&2
      return 1
    }
  done
}

# Without it Wine ends its services after each program and starts them again for the next. They must not
# inherit the caller's output: whoever reads that would wait for them.
start_wine() (
  exec </dev/null >/dev/null 2>&1
  wine_command wineserver -p300
  wine_run cmd /c exit
)

stop_wine() {
  wine_command wineserver -k || true
  wine_command wineserver -w
}

# Whether Wine runs a 32-bit program here and has the ODBC drivers for it.
wine_works() {
  local status=0 driver root=''
  if wine_is_unpacked; then root=$wine_root
  else [ -x "$(command -v wine)" ] && [ -f "$(wine_typelib_folder)/stdole2.tlb" ] || return 1; fi
  for driver in libsqlite3odbc psqlodbcw; do
    [ -f "$root/usr/lib/i386-linux-gnu/odbc/$driver.so" ] || return 1
  done
  (
    exec </dev/null >/dev/null 2>&1
    make_wine_template && TALLYRA_WINE_PREFIX=$wine_template wine_command wine cmd /c exit 7
  ) || status=$?
  [ "$status" = 7 ]
}

# Does nothing where it works already.
install_wine() { wine_works || "$repository/scripts/install-wine.sh"; }

install_cross_compiler() { install_packages g++-mingw-w64-i686-posix mingw-w64-tools googletest; }

# The interface descriptions (IDL) of the system, which the cross compiler lacks: unpacked, because the
# package that has them demands a second, 64-bit Wine.
wine_idl_folder=$(dirname "$wine_root")/wine-idl
install_interface_descriptions() {
  local work
  [ ! -f "$wine_idl_folder/oaidl.idl" ] || return 0
  say "Fetching the system's interface descriptions"
  work=$(mktemp -d)
  (
    cd "$work"
    apt-get -q download libwine-dev 2>&1 || {
      refresh_package_lists as_root apt-get -q 2>&1
      apt-get -q download libwine-dev
    }
    dpkg-deb --fsys-tarfile libwine-dev_*.deb | tar -x
    mkdir -p "$wine_idl_folder"
    cp usr/include/wine/wine/windows/*.idl "$wine_idl_folder"
  ) >"$work.log" || {
    cat "$work.log" >&2
    return 1
  }
  rm -rf "$work" "$work.log"
}

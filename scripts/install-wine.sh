#!/usr/bin/env bash
# Installs Wine for 32-bit programs with the ODBC drivers for SQLite and PostgreSQL. Does nothing where that works
# already.
#
# A 32-bit library must have exactly the version of its 64-bit twin. On a machine that has taken updates which
# the 32-bit archive does not offer, installing Wine would therefore downgrade or remove libraries of the
# machine. So, in this order:
#
#   machine   Wine goes onto the machine, if that only adds packages.
#   folder    Wine and all it needs are unpacked into a folder ($TALLYRA_WINE_ROOT, 700 MB). Changes nothing
#             on the machine and needs no root, but a kernel that gives a mount namespace: in some containers
#             it does not.
#   replace   Wine goes onto the machine from the main archive alone, and libraries that are in the way are
#             replaced by that archive's versions. Costs security updates, so it happens in containers only,
#             or on request.
#
# TALLYRA_WINE_RECIPE=machine|folder|replace asks for one of them.

source "$(dirname "$0")/setup.sh"
source "$(dirname "$0")/wine.sh"

wine_packages=(wine wine32 libsqliteodbc odbc-postgresql libodbc2 odbcinst)

# The archive that this machine installs Debian 12 from.
debian_mirror() {
  local mirror
  # shellcheck disable=SC2016  # apt's own variable
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Label: Debian' \
    'Codename: bookworm' | head -n 1) || true
  echo "${mirror:-http://deb.debian.org/debian}"
}

# Sets apt_options: an apt of its own in FOLDER, for ARCHITECTURES, that sees only the main archive.
private_apt() {
  local folder=$1 architecture signed='' keyring=/usr/share/keyrings/debian-archive-keyring.gpg
  shift
  mkdir -p "$folder/lists/partial" "$folder/archives/partial"
  [ ! -f "$keyring" ] || signed="[signed-by=$keyring]"
  echo "deb $signed $(debian_mirror) bookworm main" >"$folder/main.list"
  apt_options=(
    -q -o Acquire::Languages=none -o Dir::State::Lists="$folder/lists" -o Dir::Cache="$folder"
    -o Dir::Etc::SourceList="$folder/main.list" -o Dir::Etc::SourceParts=/dev/null
    -o Dir::Etc::Preferences=/dev/null -o Dir::Etc::PreferencesParts=/dev/null
    -o APT::Sandbox::User="$(id -un)")
  for architecture in "$@"; do apt_options+=(-o APT::Architectures::="$architecture"); done
}

for_i386() { printf '%s:i386\n' "${wine_packages[@]}" | sed 's/^\(wine\|odbcinst\):i386/\1/'; }

# Whether the machine's own archives offer Wine as an addition: asked of an apt with its own lists, because a
# 32-bit archive that does not answer properly would make every later `apt-get update` of this machine fail. An
# index that fails today already, for the machine's own architecture, says nothing against it.
machine_only_gains() {
  local folder=$1 plan
  local options=(-q -o APT::Architectures::=amd64 -o APT::Architectures::=i386
    -o Dir::State::Lists="$folder/lists" -o Dir::Cache="$folder" -o APT::Sandbox::User="$(id -un)")
  mkdir -p "$folder/lists/partial" "$folder/archives/partial"
  apt-get "${options[@]}" update >"$folder/log" 2>&1 || ! grep -q '^E: .*binary-i386' "$folder/log" || return 1
  # shellcheck disable=SC2046
  plan=$(apt-get "${options[@]}" -s install --no-install-recommends $(for_i386) 2>>"$folder/log") || return 1
  ! grep -qE '^Remv |^Inst [^ ]+ \[' <<<"$plan"
}

install_wine_on_machine() {
  as_root dpkg --add-architecture i386
  refresh_package_lists as_root apt-get -q
  # shellcheck disable=SC2046
  apt_install $(for_i386)
}

install_wine_replacing_libraries() {
  local folder=$1
  private_apt "$folder" amd64 i386
  printf 'Package: *\nPin: release n=bookworm\nPin-Priority: 1001\n' >"$folder/pin"
  apt_options+=(-o Dir::Etc::Preferences="$folder/pin")
  as_root dpkg --add-architecture i386
  refresh_package_lists as_root apt-get "${apt_options[@]}"
  # shellcheck disable=SC2046
  apt_install "${apt_options[@]}" --allow-downgrades $(for_i386)
}

# No maintainer scripts run, except the one that completes Wine's own libraries: Wine needs that.
unpack_wine() {
  local folder=$1 archive
  private_apt "$folder" i386
  : >"$folder/nothing-installed"
  apt_options+=(-o APT::Architecture=i386 -o Dir::State="$folder"
    -o Dir::State::status="$folder/nothing-installed")
  refresh_package_lists apt-get "${apt_options[@]}"
  apt-get "${apt_options[@]}" -y --download-only --no-install-recommends install \
    "${wine_packages[@]}" dash coreutils
  (
    wine_root=$wine_root.new
    rm -rf --one-file-system "$wine_root"
    mkdir -p "$wine_root"/{etc,tmp,usr/{bin,sbin,lib}}
    for name in bin sbin lib; do ln -s "usr/$name" "$wine_root/$name"; done
    find "$folder/archives" -name '*.deb' -print0 | xargs -0 -P "$(nproc)" -I ARCHIVE sh -c '
      dpkg-deb --fsys-tarfile "$1" | tar -x -C "$2" --keep-directory-symlink --no-same-owner \
        --exclude="./usr/share/doc/*" --exclude="./usr/share/man/*" --exclude="./usr/share/locale/*" \
        --exclude="./usr/share/iso-codes/*"' unpack ARCHIVE "$wine_root"
    echo 'root:x:0:0::/:' >"$wine_root/etc/passwd"
    printf '[%s]\nDriver=%s\n' SQLite3 libsqlite3odbc.so 'PostgreSQL Unicode' psqlodbcw.so \
      >"$wine_root/etc/odbcinst.ini"
    [ ! -e /etc/localtime ] || cp -P /etc/localtime "$wine_root/etc/localtime"
    archive=$(find "$folder/archives" -name 'libwine_*.deb')
    dpkg-deb --ctrl-tarfile "$archive" | tar -x -O ./postinst >"$wine_root/tmp.postinst"
    in_wine_root /bin/sh /tmp.postinst configure
    rm "$wine_root/tmp.postinst"
    touch "$wine_root/complete"
  )
  rm -rf --one-file-system "$wine_root"
  mv "$wine_root.new" "$wine_root"
}

can_enter_wine_root() {
  local flags=(--mount)
  [ "$(id -u)" = 0 ] || flags+=(--map-root-user)
  unshare "${flags[@]}" mount --bind / / 2>/dev/null
}

inside_container() {
  [ -f /.dockerenv ] || [ -f /run/.containerenv ] || systemd-detect-virt --quiet --container 2>/dev/null
}

choose_wine_recipe() {
  if machine_only_gains "$1"; then echo machine
  elif can_enter_wine_root; then echo folder
  elif inside_container; then echo replace
  else
    echo "Wine cannot be installed without replacing libraries of this machine, and this user may not make" \
      "mount namespaces. TALLYRA_WINE_RECIPE=replace replaces them; see scripts/install-wine.sh." >>"$log"
    return 1
  fi
}

# say, but on the terminal while everything else goes to the log.
tell() { say "$@" >&3; }

install_by() {
  case $1 in
    machine)
      tell "Installing Wine on this machine"
      install_wine_on_machine
      ;;
    folder)
      tell "Unpacking Wine into $wine_root (about half a minute)"
      unpack_wine "$work/folder"
      ;;
    replace)
      tell "Installing Wine, libraries of this machine are replaced by the main archive's versions"
      install_wine_replacing_libraries "$work/replace"
      ;;
    *)
      echo "TALLYRA_WINE_RECIPE is machine, folder or replace, not $1." >&2
      return 1
      ;;
  esac
}

mkdir -p "$repository/build/wine" "$(dirname "$wine_root")"
exec 8>"$wine_root.lock"
flock 8
! wine_works 8>&- || exit 0

work=$(mktemp -d "$repository/build/wine/install.XXXXXX")
log=$repository/build/wine/install.log
: >"$log"
end() {
  local status=$?
  rm -rf "$work"
  if [ "$status" != 0 ]; then
    tail -n 30 "$log" >&2
    echo "Wine is not installed (log: build/wine/install.log)." >&2
  fi
}
trap end EXIT
recipe=${TALLYRA_WINE_RECIPE:-$(choose_wine_recipe "$work/machine")}
install_by "$recipe" 3>&1 >"$log" 2>&1 8>&-
wine_works 8>&- || {
  echo "Installed, but it does not run a 32-bit program." >>"$log"
  exit 1
}

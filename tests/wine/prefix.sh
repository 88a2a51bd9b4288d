#!/usr/bin/env bash
# prefix.sh set-up PREFIX DLL...: a fresh Wine prefix with Wine running and these DLLs registered.
# prefix.sh tear-down PREFIX: ends what still runs in it.
source "$(dirname "$0")/../../scripts/setup.sh"
action=$1 TALLYRA_WINE_PREFIX=$2
shift 2
source "$repository/scripts/wine.sh"
case $action in
  set-up)
    make_wine_prefix "$TALLYRA_WINE_PREFIX"
    start_wine
    register_dll "$@"
    ;;
  tear-down) stop_wine ;;
esac

#!/usr/bin/env bash
# Cross-compiles everything for 32-bit Windows into build/windows: Tallyra.dll, the stand-ins,
# tallyra-client.exe and the tests. Arguments are the targets to build instead of everything. Wine comes along
# because its type library and interface descriptions are needed; it also runs the tests:
#
#   scripts/build-windows.sh && ctest --preset windows
source "$(dirname "$0")/setup.sh"
source "$repository/scripts/wine.sh"

setup_native
install_cross_compiler
install_wine
install_interface_descriptions

cd "$repository"
say "Configuring for 32-bit Windows"
cmake --preset windows >/dev/null \
  -DTALLYRA_IDL_FOLDER="$wine_idl_folder" -DTALLYRA_STDOLE_FOLDER="$(wine_typelib_folder)"
say "Building"
cmake --build --preset windows ${1:+--target "$@"}

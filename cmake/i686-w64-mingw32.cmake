# 32-bit Windows with the cross compiler of Debian 12 (g++-mingw-w64-i686-posix):
#
#   cmake --preset windows
#   cmake --build --preset windows
#
# scripts/build-windows.sh installs what that needs and runs both.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

# The posix variant: std::thread and std::mutex need it.
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

# Functions and lines, for the traces of a crash: the debug information of the DLL is kept beside it.
# Arithmetic as in the native build: the 80-bit registers of the old floating-point unit round differently.
# Callers in 32-bit Windows align the stack to 4 bytes, SSE wants 16.
set(CMAKE_CXX_FLAGS_INIT "-g1 -msse2 -mfpmath=sse -mstackrealign")
# The runtime goes into each program and DLL: they depend on nothing that Windows does not bring along.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
# Without it a library found as a .a file switches the end of the line, where the runtime is, back to DLLs.
set(CMAKE_LINK_SEARCH_START_STATIC ON)
set(CMAKE_LINK_SEARCH_END_STATIC ON)

set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Libraries that Debian has as sources or headers only.
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/windows)

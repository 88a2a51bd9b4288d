include(${CMAKE_CURRENT_LIST_DIR}/header_only.cmake)
tallyra_header_only(CLI11::CLI11 CLI/CLI.hpp)
set(CLI11_FOUND TRUE)

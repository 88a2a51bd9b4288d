# tallyra_header_only(target header): an interface library for a header-only library of this machine. The
# compiler is shown a link to that library's folder alone: other headers there describe another system.
function(tallyra_header_only target header)
  if(TARGET ${target})
    return()
  endif()
  find_path(${target}_headers ${header} REQUIRED NO_CMAKE_FIND_ROOT_PATH PATHS /usr/include)
  cmake_path(GET header PARENT_PATH folder)
  set(shown ${CMAKE_BINARY_DIR}/header_only)
  file(MAKE_DIRECTORY ${shown})
  file(CREATE_LINK ${${target}_headers}/${folder} ${shown}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${shown})
endfunction()

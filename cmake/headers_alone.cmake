# tallyra_headers_alone: compiles every header by itself, so that whoever includes one needs to know no other. Not part
# of an ordinary build; scripts/check.sh configures anew, so that headers that have come or gone are known, and builds
# it.
file(GLOB folders LIST_DIRECTORIES true RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/*)
set(headers)
foreach(folder ${folders})
  if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} AND NOT folder STREQUAL "build")
    file(GLOB_RECURSE in_folder RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    list(APPEND headers ${in_folder})
  endif()
endforeach()
# What stands in for headers of Windows for the cross compiler's sake.
list(FILTER headers EXCLUDE REGEX "^cmake/")
if(WIN32)
  # The benchmark measures on this machine, and the engines by their own libraries are native.
  list(FILTER headers EXCLUDE REGEX "^bench/|/ado/(sqlite|postgresql)/")
else()
  list(FILTER headers EXCLUDE REGEX "(^|/)com/")
endif()

set(sources)
foreach(header ${headers})
  set(source ${PROJECT_BINARY_DIR}/headers_alone/${header}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n" @ONLY)
  list(APPEND sources ${source})
endforeach()

# clang-tidy looks for its rules beside the file that it is given.
configure_file(${PROJECT_SOURCE_DIR}/tests/.clang-tidy ${PROJECT_BINARY_DIR}/headers_alone/tests/.clang-tidy COPYONLY)

find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(ODBC REQUIRED)
find_package(GTest REQUIRED)
add_library(tallyra_headers_alone OBJECT EXCLUDE_FROM_ALL ${sources})
set_target_properties(tallyra_headers_alone PROPERTIES UNITY_BUILD OFF)
target_include_directories(tallyra_headers_alone PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(tallyra_headers_alone PRIVATE
  tallyra_build_rules CLI11::CLI11 nlohmann_json::nlohmann_json ODBC::ODBC GTest::gtest)
target_compile_options(tallyra_headers_alone PRIVATE -O0)
# What the programs of tests are told about where the project lies.
target_compile_definitions(tallyra_headers_alone PRIVATE SQLITE_SCHEMA="")
if(NOT WIN32)
  find_package(PostgreSQL REQUIRED)
  target_link_libraries(tallyra_headers_alone PRIVATE PostgreSQL::PostgreSQL)
endif()
if(WIN32)
  target_link_libraries(tallyra_headers_alone PRIVATE tallyra_interfaces)
endif()

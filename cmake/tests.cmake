# tallyra_add_test(name sources... LIBRARIES targets...): one GoogleTest program. Natively CTest runs its cases one by
# one; under Wine, where starting a program costs more than most cases, it runs the program. What takes longest has a
# COST, its seconds, so that it begins first and nothing waits for it alone at the end.
find_package(GTest REQUIRED)
include(GoogleTest)
if(WIN32)
  include(${CMAKE_CURRENT_LIST_DIR}/windows/wine_tests.cmake)
endif()

# Most of a small test's compile time is the headers that all tests share; and no test is worth optimising. The way in
# which values print is among them, so that every part of a test program prints them alike.
add_library(tallyra_shared_test_headers OBJECT ${CMAKE_CURRENT_LIST_DIR}/test_headers.cpp)
target_link_libraries(tallyra_shared_test_headers PRIVATE tallyra_automation GTest::gtest)
target_compile_options(tallyra_shared_test_headers PRIVATE -O0)
target_precompile_headers(tallyra_shared_test_headers PRIVATE
  <gtest/gtest.h> <functional> <map> <string> <vector>
  "${PROJECT_SOURCE_DIR}/automation/object.h" "${PROJECT_SOURCE_DIR}/tests/support/printed_value.h")

function(tallyra_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LIBRARIES")
  add_executable(${name} ${test_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE
    tallyra_build_rules tallyra_automation ${test_LIBRARIES} GTest::gtest GTest::gtest_main)
  target_compile_options(${name} PRIVATE -O0)
  set_target_properties(${name} PROPERTIES TALLYRA_TEST ON)
  target_precompile_headers(${name} REUSE_FROM tallyra_shared_test_headers)
  # A test that hangs is a failure too.
  if(WIN32)
    add_test(NAME ${name} COMMAND ${name})
    tallyra_needs_wine_prefix(${name})
    set_property(TEST ${name} PROPERTY TIMEOUT 300)
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
  endif()
endfunction()

# As tallyra_add_test, for tests that start a database server, one for the whole program: CTest runs the program. Not
# built for Windows, where no server is started.
function(tallyra_add_server_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LIBRARIES")
  add_executable(${name} ${test_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE
    tallyra_build_rules tallyra_automation ${test_LIBRARIES} GTest::gtest GTest::gtest_main)
  target_compile_options(${name} PRIVATE -O0)
  set_target_properties(${name} PROPERTIES TALLYRA_TEST ON)
  target_precompile_headers(${name} REUSE_FROM tallyra_shared_test_headers)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 COST 40 LABELS server)
endfunction()

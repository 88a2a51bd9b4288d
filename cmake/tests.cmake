# tallyra_add_test(name sources... LIBRARIES targets...): one GoogleTest program whose cases CTest runs one by one.
find_package(GTest REQUIRED)
include(GoogleTest)

function(tallyra_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LIBRARIES")
  add_executable(${name} ${test_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE tallyra_build_rules ${test_LIBRARIES} GTest::gtest GTest::gtest_main)
  # A test that hangs is a failure too.
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

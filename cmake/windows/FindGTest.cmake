# GoogleTest from Debian's sources, compiled once: GTest::gtest and GTest::gtest_main.
if(NOT TARGET GTest::gtest)
  find_path(GTEST_SOURCE_FOLDER src/gtest-all.cc REQUIRED NO_CMAKE_FIND_ROOT_PATH
    PATHS /usr/src/googletest/googletest)
  find_package(Threads REQUIRED)

  # For all of the project, whichever folder asks first. Its headers are not held to the project's warnings.
  add_library(gtest STATIC ${GTEST_SOURCE_FOLDER}/src/gtest-all.cc)
  target_include_directories(gtest PRIVATE ${GTEST_SOURCE_FOLDER})
  target_include_directories(gtest SYSTEM PUBLIC ${GTEST_SOURCE_FOLDER}/include)
  target_link_libraries(gtest PUBLIC Threads::Threads)
  add_library(gtest_main STATIC ${GTEST_SOURCE_FOLDER}/src/gtest_main.cc)
  target_link_libraries(gtest_main PUBLIC gtest)
  add_library(GTest::gtest ALIAS gtest)
  add_library(GTest::gtest_main ALIAS gtest_main)
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GTest REQUIRED_VARS GTEST_SOURCE_FOLDER)

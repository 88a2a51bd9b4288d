# Tests run under Wine, in a prefix that belongs to this build folder: CTest makes it before the first test
# that needs it, with the DLLs of the project registered, and ends Wine after the last.
set(TALLYRA_WINE_PREFIX ${CMAKE_BINARY_DIR}/wine_prefix)
set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/wine/run.sh ${TALLYRA_WINE_PREFIX})

# tallyra_needs_wine_prefix(test...)
function(tallyra_needs_wine_prefix)
  set_property(TEST ${ARGN} APPEND PROPERTY FIXTURES_REQUIRED wine_prefix)
endfunction()

# tallyra_own_wine_prefix(test): a prefix made like the common one for a test program that changes what is registered.
function(tallyra_own_wine_prefix test)
  set(fixture wine_prefix_of_${test})
  set_target_properties(${test} PROPERTIES
    CROSSCOMPILING_EMULATOR "${PROJECT_SOURCE_DIR}/tests/wine/run.sh;${CMAKE_BINARY_DIR}/${fixture}")
  set_property(TEST ${test} PROPERTY FIXTURES_REQUIRED ${fixture})
  set_property(GLOBAL APPEND PROPERTY TALLYRA_WINE_FIXTURES ${fixture})
endfunction()

# tallyra_register_for_tests(target...): DLLs that are registered in the prefixes.
function(tallyra_register_for_tests)
  set_property(GLOBAL APPEND PROPERTY TALLYRA_REGISTERED_DLLS ${ARGN})
endfunction()

# tallyra_add_script_test(name script arguments...): a VBScript or JScript file. Wine's script host ends with
# 0 and in silence when a script fails, so a test passes only if the last line is "script reached its end".
function(tallyra_add_script_test name script)
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/wine/run_script.sh
    ${TALLYRA_WINE_PREFIX} ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  tallyra_needs_wine_prefix(${name})
  set_property(TEST ${name} PROPERTY TIMEOUT 120)
endfunction()

# tallyra_add_sample_test(name program arguments...): a sample client, script or program, on a generated company
# database of its own; see tests/wine/run_sample.sh.
function(tallyra_add_sample_test name program)
  tallyra_add_sample_script(${name} run_sample.sh ${program} ${ARGN})
endfunction()

# tallyra_add_sample_script(name script arguments...): a script of tests/wine that drives a sample client on such a
# company and checks the rows it leaves.
function(tallyra_add_sample_script name script)
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/wine/${script} ${TALLYRA_WINE_PREFIX}
    $<TARGET_FILE:tallyra-company> ${PROJECT_SOURCE_DIR}/schema/sqlite.sql ${ARGN})
  tallyra_needs_wine_prefix(${name})
  set_property(TEST ${name} PROPERTY TIMEOUT 120)
endfunction()

# To be called once, after everything that is to be registered.
function(tallyra_add_wine_prefixes)
  get_property(targets GLOBAL PROPERTY TALLYRA_REGISTERED_DLLS)
  list(TRANSFORM targets REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE dlls)
  set(script ${PROJECT_SOURCE_DIR}/tests/wine/prefix.sh)
  get_property(own GLOBAL PROPERTY TALLYRA_WINE_FIXTURES)
  foreach(fixture wine_prefix ${own})
    add_test(NAME ${fixture}_set_up COMMAND ${script} set-up ${CMAKE_BINARY_DIR}/${fixture} ${dlls})
    add_test(NAME ${fixture}_tear_down COMMAND ${script} tear-down ${CMAKE_BINARY_DIR}/${fixture})
    set_tests_properties(${fixture}_set_up PROPERTIES FIXTURES_SETUP ${fixture} TIMEOUT 120)
    set_tests_properties(${fixture}_tear_down PROPERTIES FIXTURES_CLEANUP ${fixture} TIMEOUT 30)
  endforeach()
endfunction()

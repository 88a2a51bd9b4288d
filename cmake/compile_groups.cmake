# Several sources are compiled as one, which takes less than half of the time. So what a source keeps to itself has a
# name that no other source of its target gives to something of its own.
#
# tallyra_compile_alone(sources...): those that have such names on purpose, because they say the same of different
# things; and those that a program may leave out of a library.
function(tallyra_compile_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# tallyra_compile_soon(target): one that waits for a person or for the database most of the time. Optimising it more
# takes the compiler longer than it ever saves.
function(tallyra_compile_soon target)
  target_compile_options(${target} PRIVATE $<IF:$<CONFIG:Release>,-O1,-O0>)
endfunction()

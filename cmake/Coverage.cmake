# The module once more, counting which of its lines are run, and the tests of the module with that one in the place of the
# other. Everything else is what the ordinary tests are made of. script/coverage builds and runs them.
set(covered_folder "${PROJECT_BINARY_DIR}/covered")
set(with_counters -O1 --coverage -fprofile-update=atomic)

tremolux_room_sources(sources source)
add_library(covered_source OBJECT EXCLUDE_FROM_ALL ${sources})
target_include_directories(covered_source PUBLIC ${interface_folders} "${PROJECT_SOURCE_DIR}/source")
tremolux_set_defaults(covered_source)
target_compile_options(covered_source PRIVATE ${with_counters})

# A module in build/<preset>/covered/, from the objects of the one that it stands for.
function(tremolux_add_covered_module name folder)
    add_library(${name} MODULE EXCLUDE_FROM_ALL $<TARGET_OBJECTS:covered_source> $<TARGET_OBJECTS:module_glue> ${ARGN})
    target_include_directories(${name} PRIVATE ${interface_folders} "${PROJECT_SOURCE_DIR}/source" "${PROJECT_SOURCE_DIR}")
    tremolux_set_test_defaults(${name})
    target_link_options(${name} PRIVATE --coverage)
    tremolux_set_exports(${name} "${module_exports}")
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${folder}")
endfunction()
tremolux_add_covered_module(covered_module "${covered_folder}/TremoluxCam")
set_target_properties(covered_module PROPERTIES OUTPUT_NAME TremoluxCam)
tremolux_add_covered_module(covered_host_memory "${covered_folder}" tests/modules/host_memory.cpp)
add_custom_command(
    TARGET covered_module POST_BUILD
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${PROJECT_SOURCE_DIR}/res" "${covered_folder}/TremoluxCam/res"
    VERBATIM)

# The objects of an ordinary test program, but for those that must be compiled anew: what they know of the module's file
# comes from this one's definitions.
function(tremolux_add_covered_tests room)
    set(target covered_${room}_tests)
    add_executable(${target} EXCLUDE_FROM_ALL ${ARGN})
    foreach(file IN LISTS ARGN)
        string(REPLACE "." "\\." pattern "${file}")
        list(APPEND own "${pattern}")
    endforeach()
    list(JOIN own "|" own)
    target_sources(${target} PRIVATE "$<FILTER:$<TARGET_OBJECTS:${room}_tests>,EXCLUDE,/(${own})\\.o$>")
    target_link_libraries(${target} PRIVATE embedded_host GTest::gtest_main rapidcheck)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_compile_definitions(
        ${target} PRIVATE TREMOLUX_MODULE_FILE="${covered_folder}/TremoluxCam/TremoluxCam${module_suffix}"
                          TREMOLUX_HOST_MEMORY_MODULE="${covered_folder}/covered_host_memory${module_suffix}")
    tremolux_set_test_defaults(${target})
    target_link_options(${target} PRIVATE --coverage)
    add_dependencies(${target} ${room}_tests covered_module covered_host_memory)
endfunction()
tremolux_add_covered_tests(tag tests/tag/fault_test.cpp tests/tag/scene.cpp)
tremolux_add_covered_tests(engine)
tremolux_add_covered_tests(source)
foreach(room engine source)
    target_sources(covered_${room}_tests PRIVATE $<TARGET_OBJECTS:covered_source> $<TARGET_OBJECTS:module_glue>)
endforeach()

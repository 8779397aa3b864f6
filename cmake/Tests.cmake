# One test program per room.
find_package(GTest REQUIRED)
find_package(rapidcheck REQUIRED)

set(module_suffix ".so")
if(WIN32)
    set(module_suffix ".cdl64")
endif()
# Where the tests find this machine's files: Wine has them on a drive of their own.
set(drive "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(drive "Z:")
endif()

# Tests take longer to compile than to run: what is tested is optimised, the tests themselves are not.
function(tremolux_set_test_defaults target)
    tremolux_set_defaults(${target})
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -O0)
    endif()
endfunction()

# A library that is no module.
add_library(no_entry MODULE tests/modules/no_entry.cpp)
tremolux_set_test_defaults(no_entry)

# The module as it is, with no memory but the host's.
if(TARGET module_code)
    add_library(host_memory MODULE tests/modules/host_memory.cpp)
    target_link_libraries(host_memory PRIVATE module_code)
    tremolux_set_defaults(host_memory)
    set_target_properties(host_memory PROPERTIES PREFIX "" SUFFIX "${module_suffix}" LINKER_LANGUAGE CXX)
    # Its operators are its own: those of a program that loads it would come first.
    tremolux_set_exports(host_memory "${module_exports}")
endif()

# Modules that are wrong on purpose, one mistake each.
set(wrong_modules "")
set(wrong_folder "${PROJECT_BINARY_DIR}/wrong")
foreach(
    mistake
    kUsesAFreedNode kInsertsNothing kTakesATagForAnObject kTakesAnObjectForATrack kUndoesInAnotherDocument
    kMovesANodeOfAnotherDocument kInsertsInAFrame kRemovesInAFrame kOpensAStepInAFrame kAsksInAFrame
    kQueuesAnEventInAFrame kEvaluatesInAFrame kKeysInAFrame kSelectsInAFrame)
    add_library(wrong_${mistake} MODULE tests/modules/wrong.cpp $<TARGET_OBJECTS:module_glue>)
    target_include_directories(wrong_${mistake} PRIVATE ${interface_folders})
    target_compile_definitions(wrong_${mistake} PRIVATE TREMOLUX_WRONG=${mistake})
    tremolux_set_test_defaults(wrong_${mistake})
    tremolux_set_exports(wrong_${mistake} "${module_exports}")
    set_target_properties(wrong_${mistake} PROPERTIES PREFIX "" SUFFIX "${module_suffix}" LIBRARY_OUTPUT_DIRECTORY
                                                                                          "${wrong_folder}")
    list(APPEND wrong_modules wrong_${mistake})
endforeach()

# tests/<room>/*.cpp, linked with the given targets. A room whose targets are missing is left out.
function(tremolux_add_tests room)
    tremolux_room_sources(sources tests/${room})
    if(NOT sources)
        message(STATUS "tests/${room} is empty: no ${room}_tests")
        return()
    endif()
    foreach(needed IN LISTS ARGN)
        if(NOT TARGET ${needed})
            message(STATUS "${needed} is missing: no ${room}_tests")
            return()
        endif()
    endforeach()
    set(target ${room}_tests)
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE ${ARGN} GTest::gtest_main rapidcheck)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_compile_definitions(
        ${target}
        PRIVATE TREMOLUX_MODULE_FILE="${drive}${PROJECT_BINARY_DIR}/bare/TremoluxCam/TremoluxCam${module_suffix}"
                TREMOLUX_PROGRAM_FILE="${drive}${PROJECT_BINARY_DIR}/tremolux${CMAKE_EXECUTABLE_SUFFIX}"
                TREMOLUX_COMPILER_FILE="${drive}${PROJECT_BINARY_DIR}/preset_compiler${CMAKE_EXECUTABLE_SUFFIX}"
                TREMOLUX_OTHER_LIBRARY="${drive}$<TARGET_FILE:no_entry>"
                TREMOLUX_SOURCE_DIR="${drive}${PROJECT_SOURCE_DIR}")
    tremolux_set_test_defaults(${target})
    if(room STREQUAL "program")
        # Their helpers have the same names: half of what such a test costs to compile is reading these.
        target_precompile_headers(
            ${target} PRIVATE <gtest/gtest.h> <rapidcheck/gtest.h> <algorithm> <cmath> <filesystem> <fstream> <functional>
            <map> <memory> <string> <vector>)
    else()
        tremolux_set_unity(${target})
    endif()
    set(used_targets TremoluxCam tremolux bare_module built_in_presets no_entry)
    # With the thread sanitizer these are built alone: that makes every file dear.
    if(room STREQUAL "threads")
        set(used_targets bare_module)
    elseif(room STREQUAL "library")
        set(used_targets built_in_presets)
    endif()
    foreach(used IN LISTS used_targets)
        if(TARGET ${used})
            add_dependencies(${target} ${used})
        endif()
    endforeach()
    # A fixed seed: the ordinary run is the same everywhere and every time. TREMOLUX_RECORDINGS comes from the caller.
    set(environment "RC_PARAMS=seed=20120914;UBSAN_OPTIONS=print_stacktrace=1")
    # A few processes for all tests of a room: to start one, with the module and the presets, takes longer than most tests.
    # Not one for all: under Wine every load of a module takes one of a process's 1088 thread-local slots for good.
    foreach(shard RANGE 3)
        add_test(NAME ${room}.${shard} COMMAND ${target} --gtest_brief=1 WORKING_DIRECTORY "${PROJECT_BINARY_DIR}")
        set_tests_properties(
            ${room}.${shard} PROPERTIES TIMEOUT 1500
                                        ENVIRONMENT "${environment};GTEST_TOTAL_SHARDS=4;GTEST_SHARD_INDEX=${shard}")
    endforeach()
endfunction()

tremolux_add_tests(platform module_glue embedded_host)
tremolux_add_tests(host embedded_host)
if(TARGET host_tests)
    target_compile_definitions(
        host_tests PRIVATE TREMOLUX_WRONG_MODULES="${drive}${wrong_folder}" TREMOLUX_SUFFIX="${module_suffix}")
    add_dependencies(host_tests ${wrong_modules})
endif()
tremolux_add_tests(engine module_engine)
tremolux_add_tests(source module_code embedded_host)
tremolux_add_tests(tag embedded_host)
# Compiled once more, with other definitions, for the module that counts its lines.
set_source_files_properties(tests/tag/fault_test.cpp tests/tag/scene.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
if(TARGET tag_tests)
    target_compile_definitions(
        tag_tests PRIVATE TREMOLUX_HOST_MEMORY_MODULE="${drive}$<TARGET_FILE:host_memory>"
                          $<$<BOOL:${TREMOLUX_SANITIZE}>:TREMOLUX_SANITIZED>)
    add_dependencies(tag_tests host_memory)
endif()
tremolux_add_tests(threads embedded_host)
if(TARGET threads_tests)
    target_sources(threads_tests PRIVATE tests/tag/scene.cpp tests/tag/preset_bench.cpp)
endif()
tremolux_add_tests(program tremolux_program)
tremolux_add_tests(library tremolux_shared tremolux_library)
if(TARGET library_tests)
    target_compile_definitions(library_tests PRIVATE TREMOLUX_LIBRARY_FILE="${drive}$<TARGET_FILE:tremolux_shared>")
endif()

# A program that sanitizers do not watch cannot open a library that they do.
if(TARGET tremolux_shared AND NOT TREMOLUX_SANITIZE)
    include(EveryPreset)
endif()

if(TARGET tremolux_shared AND NOT TREMOLUX_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME docs.library COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/library/examples_test.py"
                                           "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}")
endif()

if(abidw_program AND TARGET tremolux_described AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT TREMOLUX_SANITIZE)
    add_test(NAME abi.library COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/library/abi_test.py"
                                      "${PROJECT_SOURCE_DIR}" "$<TARGET_FILE:tremolux_described>")
endif()

if(NOT CMAKE_CROSSCOMPILING AND NOT TREMOLUX_SANITIZE)
    add_test(NAME cluster COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/cluster/cluster_test.py" "${PROJECT_SOURCE_DIR}"
                               $<TARGET_FILE:tremolux>)
    set_tests_properties(cluster PROPERTIES SKIP_RETURN_CODE 77 PROCESSORS 2 TIMEOUT 600)
endif()
if(NOT CMAKE_CROSSCOMPILING)
    add_test(NAME interop.telemetry COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/interop/telemetry_test.py"
                                            $<TARGET_FILE:tremolux>)
    set_tests_properties(interop.telemetry PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300)
    foreach(page cookbook jolts)
        add_test(NAME docs.${page} COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/docs/cookbook_test.py"
                                           "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}" "${PROJECT_SOURCE_DIR}/docs/${page}.md")
    endforeach()
endif()

if(TARGET parameter_page)
    add_test(NAME docs.parameters COMMAND parameter_page --check "${drive}${PROJECT_SOURCE_DIR}/docs/parameters.md")
endif()

# Both sides of the border, read for a third platform beside those that are built for: the layout checks of their structs
# hold there, too. The system's C and C++ headers serve for that, but for one that only a 32-bit system would have.
find_program(clang_program NAMES clang++ clang++-14)
if(clang_program AND NOT CMAKE_CROSSCOMPILING)
    set(wasm32_folder "${PROJECT_BINARY_DIR}/wasm32-headers")
    file(WRITE "${wasm32_folder}/gnu/stubs-32.h" "")
    set(wasm32_headers "${wasm32_folder}" ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    # The compiler brings its own.
    list(FILTER wasm32_headers EXCLUDE REGEX "/lib/")
    list(TRANSFORM wasm32_headers PREPEND "-isystem")
    tremolux_room_sources(border_sources host/table)
    list(APPEND border_sources ${interface_glue})
    add_test(
        NAME border.has_the_layout_of_wasm32
        COMMAND ${clang_program} --target=wasm32 -fsyntax-only -std=c++17 -nostdinc++ -Wall -Wextra -Werror
                "-I${PROJECT_SOURCE_DIR}" "-I${interface_folders}" ${wasm32_headers} ${border_sources})
else()
    message(STATUS "clang++ is missing, or another system is built for: the border's layout for wasm32 is not checked")
endif()

# The application kit against a folder in the shape of the vendor's SDK, with this project's own headers and glue in it.
if(TARGET built_in_presets AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME sdk.kit COMMAND "${PROJECT_SOURCE_DIR}/tests/sdk/build_with_sdk" "${PROJECT_BINARY_DIR}/sdk"
                                  "${PROJECT_BINARY_DIR}")
    set_tests_properties(sdk.kit PROPERTIES TIMEOUT 1200)
endif()

if(NOT CMAKE_CROSSCOMPILING)
    add_test(NAME page.links COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/page/links_test.py")
    add_test(NAME library.same_everywhere COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/library/same_everywhere_test.py")
    foreach(tool compare_blender count_instructions)
        add_test(NAME bench.${tool} COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/bench/${tool}_test.py")
    endforeach()
endif()

# NumPy is that of the system's Python.
execute_process(COMMAND /usr/bin/python3 -c "import numpy" RESULT_VARIABLE numpy_missing OUTPUT_QUIET ERROR_QUIET)
if(TARGET built_in_presets AND NOT numpy_missing AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME presets.motion COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/presets/measure/measure_presets.py"
                                         $<TARGET_FILE:tremolux>)
    set_tests_properties(presets.motion PROPERTIES TIMEOUT 600)
    add_test(NAME presets.realism COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/presets/realism_test.py"
                                          "${PROJECT_SOURCE_DIR}")
else()
    message(STATUS "NumPy is missing, or another system is built for: the motion of the presets is not measured")
endif()

# Pages are opened in a browser, where there is one with its driver; script/test installs both. The driver's bindings are
# those of the system's Python.
find_program(chromedriver_program chromedriver)
if(chromedriver_program AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME page.panel COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/tests/page/panel_page_test.py"
                                     $<TARGET_FILE:tremolux>)
    set_tests_properties(page.panel PROPERTIES TIMEOUT 600)
else()
    message(STATUS "chromedriver is missing, or another system is built for: no page tests")
endif()

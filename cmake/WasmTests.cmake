# The tests of the library's interface, with the library in their program, and those of its JavaScript module.
find_package(GTest REQUIRED)

# What WebAssembly has not: threads, and a file of the module to hold frames against, which every_preset does here.
set(left_out
    Threads.*
    Play.IsCancelledFromAnotherThread
    Play.KeepsItsShotFromOtherThreads
    Shot.ShowsTheFramesOfTheModuleFileUnderEveryPreset)
list(JOIN left_out ":" left_out)

tremolux_room_sources(sources tests/library)
add_executable(library_tests ${sources})
target_link_libraries(library_tests PRIVATE whole_library GTest::gtest_main)
target_include_directories(library_tests PRIVATE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(library_tests PRIVATE TREMOLUX_PROGRAM_FILE="" TREMOLUX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
tremolux_set_defaults(library_tests)
target_compile_options(library_tests PRIVATE -O0 -fno-lto)
# Linked sooner than what users get.
target_link_options(library_tests PRIVATE -O1 -sALLOW_MEMORY_GROWTH -sEXIT_RUNTIME)
add_test(NAME library COMMAND library_tests --gtest_brief=1 "--gtest_filter=-${left_out}")

include(EveryPreset)
target_link_options(every_preset PRIVATE -Os -sALLOW_MEMORY_GROWTH -sEXIT_RUNTIME)

add_test(NAME library.javascript COMMAND node --test "${PROJECT_SOURCE_DIR}/tests/library/javascript_test.mjs")
set_tests_properties(library.javascript PROPERTIES ENVIRONMENT "TREMOLUX_JAVASCRIPT=${wasm_folder};TREMOLUX_SOURCE=${PROJECT_SOURCE_DIR}")

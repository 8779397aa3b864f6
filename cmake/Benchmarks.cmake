# One program for all measurements; script/bench runs it.
find_package(benchmark REQUIRED)

tremolux_room_sources(sources bench)
if(NOT sources OR NOT TARGET TremoluxCam OR NOT TARGET embedded_host)
    message(STATUS "bench/, host/ or the module is missing: no benchmarks")
    return()
endif()
add_executable(tremolux_bench ${sources})
target_link_libraries(tremolux_bench PRIVATE embedded_host benchmark::benchmark)
target_compile_definitions(
    tremolux_bench PRIVATE TREMOLUX_MODULE_FILE="${bare_folder}/$<TARGET_FILE_NAME:TremoluxCam>"
                           TREMOLUX_RATIOS_FILE="${PROJECT_SOURCE_DIR}/bench/ratios.txt")
tremolux_set_defaults(tremolux_bench)
add_dependencies(tremolux_bench bare_module)

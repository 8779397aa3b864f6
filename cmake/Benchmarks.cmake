# One program for all measurements, one whose instructions are counted, and one that runs for long: script/bench and
# script/soak.
find_package(benchmark REQUIRED)

if(NOT TARGET TremoluxCam OR NOT TARGET embedded_host)
    message(STATUS "host/ or the module is missing: no benchmarks")
    return()
endif()

function(tremolux_add_bench name)
    add_executable(${name} bench/scene.cpp ${ARGN})
    target_link_libraries(${name} PRIVATE embedded_host module_ids)
    target_compile_definitions(
        ${name} PRIVATE TREMOLUX_MODULE_FILE="${bare_folder}/$<TARGET_FILE_NAME:TremoluxCam>"
                        TREMOLUX_RATIOS_FILE="${PROJECT_SOURCE_DIR}/bench/ratios.txt")
    tremolux_set_defaults(${name})
    add_dependencies(${name} bare_module)
endfunction()

file(GLOB sources CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" bench/*_bench.cpp)
if(NOT TARGET tremolux_shared)
    list(REMOVE_ITEM sources bench/library_bench.cpp)
endif()
tremolux_add_bench(tremolux_bench bench/main.cpp bench/medians.cpp bench/ratios.cpp ${sources})
target_link_libraries(tremolux_bench PRIVATE benchmark::benchmark)
if(TARGET tremolux)
    target_compile_definitions(tremolux_bench PRIVATE TREMOLUX_PROGRAM_FILE="$<TARGET_FILE:tremolux>")
    add_dependencies(tremolux_bench tremolux)
endif()
if(TARGET tremolux_shared)
    target_link_libraries(tremolux_bench PRIVATE tremolux_library tremolux_shared)
endif()
tremolux_add_bench(tremolux_soak bench/soak.cpp)
if(TARGET tremolux_program)
    tremolux_add_bench(tremolux_counted bench/counted.cpp)
    target_link_libraries(tremolux_counted PRIVATE tremolux_program)
endif()

# Fuzz targets: one program each, with libFuzzer. script/fuzz builds and runs them.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "found ${CMAKE_CXX_COMPILER_ID}, expected Clang: the fuzzer is a part of it")
endif()

function(tremolux_add_fuzz_target name source)
    add_executable(fuzz_${name} "${PROJECT_SOURCE_DIR}/fuzz/${source}")
    target_link_libraries(fuzz_${name} PRIVATE tremolux_program)
    target_compile_definitions(fuzz_${name} PRIVATE ${ARGN})
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    tremolux_set_defaults(fuzz_${name})
endfunction()

foreach(kind csv json chan usda)
    tremolux_add_fuzz_target(${kind} move_file.cpp "TREMOLUX_FUZZED_EXTENSION=\".${kind}\"")
endforeach()
foreach(kind container document hyperfile parameter_text)
    tremolux_add_fuzz_target(${kind} ${kind}.cpp)
endforeach()

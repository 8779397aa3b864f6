# Fuzz targets: one program each, with libFuzzer. script/fuzz builds and runs them.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "found ${CMAKE_CXX_COMPILER_ID}, expected Clang: the fuzzer is a part of it")
endif()

function(tremolux_add_fuzz_target name source)
    add_executable(fuzz_${name} "${PROJECT_SOURCE_DIR}/fuzz/${source}")
    target_link_libraries(fuzz_${name} PRIVATE tremolux_library)
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
# What is fuzzed through the module itself works on the shot that is measured, too.
foreach(kind edits preset_file trigger_text)
    tremolux_add_fuzz_target(${kind} ${kind}.cpp "TREMOLUX_MODULE_FILE=\"$<TARGET_FILE:TremoluxCam>\"")
    target_sources(fuzz_${kind} PRIVATE "${PROJECT_SOURCE_DIR}/bench/scene.cpp")
    # The module's own coverage is reported to the program's fuzzer.
    set_target_properties(fuzz_${kind} PROPERTIES ENABLE_EXPORTS ON)
    add_dependencies(fuzz_${kind} TremoluxCam)
endforeach()

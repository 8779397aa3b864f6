# The command-line program over the library: a library itself, so that tests reach its parts, and a main.
find_package(CLI11 REQUIRED)

tremolux_room_sources(sources tremolux)
set(program_main "${PROJECT_SOURCE_DIR}/tremolux/main.cpp")
list(REMOVE_ITEM sources "${program_main}")
if(NOT sources OR NOT TARGET tremolux_library)
    message(STATUS "tremolux/ or library/ is empty: no program")
    return()
endif()
add_library(tremolux_program STATIC ${sources})
target_link_libraries(tremolux_program PUBLIC tremolux_library CLI11::CLI11)
tremolux_set_defaults(tremolux_program)
target_precompile_headers(
    tremolux_program PRIVATE <algorithm> <cmath> <filesystem> <functional> <memory> <nlohmann/json.hpp> <optional> <string>
    <vector>)

if(EXISTS "${program_main}")
    add_executable(tremolux "${program_main}")
    target_link_libraries(tremolux PRIVATE tremolux_program)
    tremolux_set_defaults(tremolux)
    set_target_properties(tremolux PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
    if(WIN32)
        target_sources(tremolux PRIVATE "${PROJECT_SOURCE_DIR}/tremolux/tremolux.rc")
        tremolux_set_windows_file(tremolux)
    endif()
    # Loaded at run time, never linked: the module is found in plugins/ beside the program.
    if(TARGET TremoluxCam)
        add_dependencies(tremolux TremoluxCam)
    endif()
endif()

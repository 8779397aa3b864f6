# One C program over the library's interface whose numbers are compared between the targets, and whose times are.
enable_language(C)
add_executable(every_preset tests/library/every_preset.c)
# The thread sanitizer comes with the flags of C++ alone.
set_target_properties(
    every_preset PROPERTIES C_STANDARD 11 C_STANDARD_REQUIRED ON C_EXTENSIONS OFF LINKER_LANGUAGE CXX RUNTIME_OUTPUT_DIRECTORY
                                                                                  "${PROJECT_BINARY_DIR}")
tremolux_set_warnings(every_preset)
if(TARGET tremolux_shared)
    target_link_libraries(every_preset PRIVATE tremolux_shared)
else()
    target_link_libraries(every_preset PRIVATE whole_library)
endif()

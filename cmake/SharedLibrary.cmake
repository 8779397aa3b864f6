# The shared library: one file with the module linked in, and its folder in memory. Nothing but its C interface can be seen.
if(NOT TARGET built_in_presets)
    message(STATUS "the module or its presets are missing: no shared library")
    return()
endif()
set(embedded_source "${PROJECT_BINARY_DIR}/generated/module_folder.cpp")
add_custom_command(
    OUTPUT "${embedded_source}"
    COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${module_folder}/res" "-DOUTPUT=${embedded_source}" "-DLEFT_OUT=^guide.html$" -P
            "${PROJECT_SOURCE_DIR}/cmake/EmbedFolder.cmake"
    DEPENDS built_in_presets "${presets_stamp}" "${PROJECT_SOURCE_DIR}/cmake/EmbedFolder.cmake"
    COMMENT "Writing the module's folder into the library"
    VERBATIM)

add_library(tremolux_shared SHARED ${interface_sources} ${runtime_sources} "${embedded_source}")
target_link_libraries(tremolux_shared PRIVATE tremolux_library module_code)
target_include_directories(tremolux_shared PUBLIC "${PROJECT_SOURCE_DIR}/library/include")
target_compile_definitions(tremolux_shared PRIVATE TREMOLUX_BUILDS_LIBRARY)
tremolux_set_defaults(tremolux_shared)
set_target_properties(
    tremolux_shared PROPERTIES OUTPUT_NAME tremolux VERSION ${PROJECT_VERSION} SOVERSION 1
                               LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(library_exports "${PROJECT_SOURCE_DIR}/library/interface/exports.map")
set_property(TARGET tremolux_shared APPEND PROPERTY LINK_DEPENDS "${library_exports}")
target_link_options(tremolux_shared PRIVATE "-Wl,--version-script=${library_exports}")

# Everything that the library contains, for every form that it is given: the interface, the module linked in, and the module's
# folder as a source file.
set(embedded_source "${PROJECT_BINARY_DIR}/generated/module_folder.cpp")
if(TARGET built_in_presets)
    add_custom_command(
        OUTPUT "${embedded_source}"
        COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${module_folder}/res" "-DOUTPUT=${embedded_source}" "-DLEFT_OUT=^guide.html$" -P
                "${PROJECT_SOURCE_DIR}/cmake/EmbedFolder.cmake"
        DEPENDS built_in_presets "${presets_stamp}" "${PROJECT_SOURCE_DIR}/cmake/EmbedFolder.cmake"
        COMMENT "Writing the module's folder into the library"
        VERBATIM)
    # For builds that cannot run the compiler of presets.
    add_custom_target(module_folder_source DEPENDS "${embedded_source}")
elseif(EMSCRIPTEN)
    set(TREMOLUX_FOLDER_SOURCE "${PROJECT_SOURCE_DIR}/build/release/generated/module_folder.cpp" CACHE FILEPATH
        "The module's folder, from a build for this machine (target module_folder_source)")
    set(embedded_source "${TREMOLUX_FOLDER_SOURCE}")
else()
    message(STATUS "the module or its presets are missing: no library in one file")
    return()
endif()

tremolux_set_small(${interface_sources} ${runtime_sources})
add_library(library_interface OBJECT ${interface_sources} ${runtime_sources} "${embedded_source}")
target_link_libraries(library_interface PRIVATE tremolux_library)
target_include_directories(
    library_interface PUBLIC "${PROJECT_SOURCE_DIR}/library/include"
    PRIVATE $<TARGET_PROPERTY:module_code,INTERFACE_INCLUDE_DIRECTORIES>)
target_compile_definitions(library_interface PRIVATE TREMOLUX_BUILDS_LIBRARY)
tremolux_set_defaults(library_interface)
if(TARGET module_folder_source)
    add_dependencies(library_interface module_folder_source)
endif()

add_library(whole_library INTERFACE)
target_sources(whole_library INTERFACE $<TARGET_OBJECTS:library_interface>)
target_link_libraries(whole_library INTERFACE tremolux_library module_code)
target_include_directories(whole_library INTERFACE "${PROJECT_SOURCE_DIR}/library/include")

# The built-in presets: text files in presets/, compiled into the module's folder with each build.
if(NOT TARGET TremoluxCam OR NOT TARGET tremolux_library)
    message(STATUS "library/ or the module is missing: no built-in presets")
    return()
endif()

# The module with its icons and texts but without presets: what compiles them, and what tests begin with.
set(bare_folder "${PROJECT_BINARY_DIR}/bare/TremoluxCam")
set(bare_stamp "${PROJECT_BINARY_DIR}/bare_module.stamp")
add_custom_command(
    OUTPUT "${bare_stamp}"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${bare_folder}"
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${PROJECT_SOURCE_DIR}/res" "${bare_folder}/res"
    COMMAND "${CMAKE_COMMAND}" -E copy "$<TARGET_FILE:TremoluxCam>" "${bare_folder}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${bare_stamp}"
    DEPENDS TremoluxCam ${resources}
    VERBATIM)
add_custom_target(bare_module ALL DEPENDS "${bare_stamp}")

tremolux_room_sources(sources presets/compiler)
add_executable(preset_compiler ${sources})
target_link_libraries(preset_compiler PRIVATE tremolux_library)
tremolux_set_defaults(preset_compiler)

file(GLOB_RECURSE preset_texts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/presets/*.txt")
set(presets_stamp "${PROJECT_BINARY_DIR}/built_in_presets.stamp")
add_custom_command(
    OUTPUT "${presets_stamp}"
    COMMAND preset_compiler "${bare_folder}/$<TARGET_FILE_NAME:TremoluxCam>" "${PROJECT_SOURCE_DIR}/presets"
            "${module_folder}/res"
    COMMAND "${CMAKE_COMMAND}" -E touch "${presets_stamp}"
    DEPENDS preset_compiler "${bare_stamp}" "${resources_stamp}" ${preset_texts}
    COMMENT "Compiling the built-in presets"
    VERBATIM)
add_custom_target(built_in_presets ALL DEPENDS "${presets_stamp}")
add_dependencies(built_in_presets bare_module module_resources)
add_dependencies(tremolux built_in_presets)

# All presets by sight, drawn when asked for.
if(TARGET tremolux)
    add_custom_target(
        gallery
        COMMAND tremolux preview --quiet --all-presets -o "${PROJECT_BINARY_DIR}/gallery"
        DEPENDS tremolux
        COMMENT "Drawing the presets into ${PROJECT_BINARY_DIR}/gallery"
        VERBATIM)
endif()

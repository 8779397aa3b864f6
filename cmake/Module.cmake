# The plug-in module: source/ behind platform/include, tied to the embedded host's function table by platform/glue. For
# the application, kit/ builds source/ with the vendor's SDK in the place of platform/.

tremolux_room_sources(interface_glue platform/glue)
set(interface_folders "${PROJECT_SOURCE_DIR}/platform/include")

# The engine sees itself alone, the rest of source/ the host's programming interface too, and no other room: these arrows
# are held by the include paths.
tremolux_room_sources(engine_sources source/engine)
add_library(module_engine OBJECT ${engine_sources})
target_include_directories(module_engine PUBLIC "${PROJECT_SOURCE_DIR}/source")
tremolux_set_defaults(module_engine)

tremolux_room_sources(sources source)
list(REMOVE_ITEM sources ${engine_sources})
add_library(module_source OBJECT ${sources})
target_include_directories(module_source PUBLIC ${interface_folders} "${PROJECT_SOURCE_DIR}/source")
tremolux_set_defaults(module_source)
tremolux_room_sources(preset_sources source/presets)
tremolux_set_small(${preset_sources})
foreach(job baking bakerecord buttons cameraloader description enabling help icon init inputcamera operations panel)
    tremolux_set_small("${PROJECT_SOURCE_DIR}/source/tag/${job}.cpp")
endforeach()

add_library(module_glue OBJECT ${interface_glue})
target_include_directories(module_glue PUBLIC ${interface_folders} "${PROJECT_SOURCE_DIR}")
target_link_libraries(module_glue PRIVATE number_text)
tremolux_set_defaults(module_glue)

# Allocations name their source file: by its place in the project, so that no folder of the builder's gets into the file.
if(NOT MSVC)
    foreach(part module_engine module_source module_glue)
        target_compile_options(${part} PRIVATE "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
    endforeach()
endif()

# Everything that the module contains; the module itself adds nothing but the export list.
add_library(module_code INTERFACE)
target_sources(module_code INTERFACE $<TARGET_OBJECTS:module_engine> $<TARGET_OBJECTS:module_source>
                                     $<TARGET_OBJECTS:module_glue>)
target_include_directories(module_code INTERFACE ${interface_folders} "${PROJECT_SOURCE_DIR}/source"
                                                 "${PROJECT_SOURCE_DIR}")

if(EMSCRIPTEN)
    message(STATUS "modules are linked in: none is a file of its own")
    return()
endif()

set(module_folder "${PROJECT_BINARY_DIR}/plugins/TremoluxCam")
add_library(TremoluxCam MODULE)
target_link_libraries(TremoluxCam PRIVATE module_code)
tremolux_set_defaults(TremoluxCam)
set_target_properties(TremoluxCam PROPERTIES LINKER_LANGUAGE CXX PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${module_folder}")
set(module_exports "${PROJECT_SOURCE_DIR}/platform/glue/exports")
tremolux_set_exports(TremoluxCam "${module_exports}")
if(WIN32)
    set_target_properties(TremoluxCam PROPERTIES SUFFIX ".cdl64")
    target_sources(TremoluxCam PRIVATE "${PROJECT_SOURCE_DIR}/source/version.rc")
    tremolux_set_windows_file(TremoluxCam)
else()
    set_target_properties(TremoluxCam PROPERTIES SUFFIX ".so")
    # A symbol that is missing here would only be missed when a user's application loads the module. Clang leaves its
    # sanitizer runtime to the program, so there the check has to stay out.
    if(NOT ((TREMOLUX_SANITIZE OR TREMOLUX_FUZZ) AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
        target_link_options(TremoluxCam PRIVATE -Wl,--no-undefined)
    endif()
endif()

# The module's folder is complete after each build: what a host's plug-in folder takes.
file(GLOB_RECURSE resources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/res/*")
set(resources_stamp "${PROJECT_BINARY_DIR}/module_resources.stamp")
add_custom_command(
    OUTPUT "${resources_stamp}"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${module_folder}/res"
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${PROJECT_SOURCE_DIR}/res" "${module_folder}/res"
    COMMAND "${CMAKE_COMMAND}" -E touch "${resources_stamp}"
    DEPENDS ${resources}
    COMMENT "Copying the module's resources"
    VERBATIM)
add_custom_target(module_resources ALL DEPENDS "${resources_stamp}")
add_dependencies(TremoluxCam module_resources)

# The module's ids for the rooms that may not include source/: one header, generated/module_ids.h, from the module's own.
# It is written anew when one of them changes. The version comes along, for the resources of Windows files.
set(id_headers source/tag/ids.h source/tag/state.h source/presets/presetkeys.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${id_headers})
set(ids "")
foreach(header IN LISTS id_headers)
    file(READ "${PROJECT_SOURCE_DIR}/${header}" text)
    # Everything but the preprocessor's lines, which a namespace cannot hold.
    string(REGEX REPLACE "(^|\n)#[^\n]*" "" text "${text}")
    string(APPEND ids "${text}\n")
endforeach()
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/include/generated/module_ids.h" CONTENT
"// The module's ids. Written by the build from its headers: change those.
#pragma once

#include <cstdint>

namespace ids {

${ids}
}  // namespace ids
" @ONLY)

configure_file(source/version.h "${PROJECT_BINARY_DIR}/include/generated/module_version.h" COPYONLY)

add_library(module_ids INTERFACE)
target_include_directories(module_ids INTERFACE "${PROJECT_BINARY_DIR}/include")

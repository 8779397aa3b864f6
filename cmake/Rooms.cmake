# A room is a folder whose sources make one target. New files are found without touching any list.

# All .cpp files below `folder`, at any depth.
function(tremolux_room_sources result folder)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    set(${result} ${sources} PARENT_SCOPE)
endfunction()

# What no frame passes through while a move plays: small before fast, where a page fetches it, or one file has it all.
function(tremolux_set_small)
    if(EMSCRIPTEN)
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS -Oz)
    elseif(WIN32)
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS -Os)
    endif()
endfunction()

# What holds for every target of ours.
function(tremolux_set_defaults target)
    tremolux_set_numerics(${target})
    tremolux_set_warnings(${target})
    tremolux_set_sanitizers(${target})
endfunction()

# Most of what a file costs to compile is reading headers: several files of a room are compiled as one. The static checks
# read each alone.
option(TREMOLUX_UNITY "Compile several source files as one" ON)
function(tremolux_set_unity target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${TREMOLUX_UNITY} UNITY_BUILD_BATCH_SIZE 8)
endfunction()

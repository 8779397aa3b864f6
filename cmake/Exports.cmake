# What a library gives to whoever loads it: the names of a list, which lies there as LIST.map and, for Windows, as LIST.def.
function(tremolux_set_exports target list)
    if(WIN32)
        target_sources(${target} PRIVATE "${list}.def")
    else()
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${list}.map")
        target_link_options(${target} PRIVATE "-Wl,--version-script=${list}.map")
    endif()
endfunction()

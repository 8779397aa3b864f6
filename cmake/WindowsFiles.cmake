# Files that go to users of Windows: nothing in them but what they need, and the same bytes from every build.
if(WIN32)
    enable_language(RC)
endif()

function(tremolux_set_windows_file target)
    if(MSVC)
        return()
    endif()
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-s> -Wl,--no-insert-timestamp)
endfunction()

# One warning level for all of our own code.

# Names that hide others, and numbers that lose something on their way into a narrower one, in the rooms that are free of
# both. It ends up being all of them.
set(strict_targets tremolux_bench tremolux_counted tremolux_soak parameter_page preset_compiler)

function(tremolux_set_warnings target)
    if(MSVC)
        return()
    endif()
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    if(target IN_LIST strict_targets)
        target_compile_options(${target} PRIVATE -Wshadow -Wconversion)
    endif()
    if(TREMOLUX_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

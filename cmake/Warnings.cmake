# One warning level for all of our own code.

function(tremolux_set_warnings target)
    if(MSVC)
        return()
    endif()
    # Clang's -Wconversion counts changes of sign, too.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow $<$<CXX_COMPILER_ID:GNU>:-Wconversion>)
    if(TREMOLUX_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

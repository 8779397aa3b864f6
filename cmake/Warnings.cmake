# One warning level for all of our own code.
function(tremolux_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    if(TREMOLUX_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# Memory errors, leaks and undefined behaviour end the program at once.
function(tremolux_set_sanitizers target)
    if(NOT TREMOLUX_SANITIZE)
        return()
    endif()
    set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(${target} PRIVATE ${flags})
    target_link_options(${target} PRIVATE ${flags})
endfunction()

# Memory errors, leaks and undefined behaviour end the program at once.
function(tremolux_set_sanitizers target)
    if(NOT TREMOLUX_SANITIZE AND NOT TREMOLUX_FUZZ)
        return()
    endif()
    if(TREMOLUX_FUZZ)
        # What the fuzzer watches; in other programs nothing does.
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(${target} PRIVATE ${flags})
    target_link_options(${target} PRIVATE ${flags})
endfunction()

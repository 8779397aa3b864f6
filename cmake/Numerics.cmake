# The same numbers from every compiler and on every platform.
function(tremolux_set_numerics target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /fp:precise /utf-8)
        return()
    endif()
    # No fused multiply-add: its result differs from a product and a sum. Values cross the border between host and
    # module through plain structs that alias the classes behind them.
    target_compile_options(${target} PRIVATE -ffp-contract=off -fno-strict-aliasing)
    # The host hands out cleared memory, and members that a constructor leaves alone rely on it.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -flifetime-dse=1)
    endif()
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

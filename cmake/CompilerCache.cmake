# What was compiled before is not compiled again, where ccache is there. It has to be told that headers compiled ahead are
# as good as their text.
find_program(ccache_program ccache)
if(ccache_program AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${ccache_program}")
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
endif()

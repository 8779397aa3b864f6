# Numbers to and from texts by the same code on every target, some of whose standard libraries cannot. Headers alone.
find_path(fast_float_headers fast_float/fast_float.h REQUIRED)
find_path(fmt_headers fmt/format.h REQUIRED)
add_library(number_text INTERFACE)
target_include_directories(number_text SYSTEM INTERFACE "${fast_float_headers}" "${fmt_headers}")
# A fixed separator of thousands, which no text of ours has, keeps the locales of the standard library out.
target_compile_definitions(number_text INTERFACE FMT_HEADER_ONLY "FMT_STATIC_THOUSANDS_SEPARATOR=','")

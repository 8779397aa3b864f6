# The library as WebAssembly: one file, what the linker writes to start it, and the JavaScript module over both.
set(wasm_folder "${PROJECT_BINARY_DIR}/lib")
set(javascript_folder "${PROJECT_SOURCE_DIR}/library/javascript")

# What the JavaScript module calls: every function of the interface, and memory for what it hands over.
file(STRINGS "${PROJECT_SOURCE_DIR}/library/include/tremolux/tremolux.h" declarations REGEX "^TREMOLUX_API")
set_property(
    DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/library/include/tremolux/tremolux.h")
set(exports _malloc _free)
foreach(declaration IN LISTS declarations)
    string(REGEX REPLACE ".*(tremolux_[a-z_]+)\\(.*" "_\\1" name "${declaration}")
    list(APPEND exports ${name})
endforeach()
list(JOIN exports "," exports)

add_executable(tremolux_engine)
target_link_libraries(tremolux_engine PRIVATE whole_library)
tremolux_set_defaults(tremolux_engine)
target_link_options(
    tremolux_engine
    PRIVATE
    -Os
    --no-entry
    -sMODULARIZE
    -sEXPORT_ES6
    -sENVIRONMENT=web,worker
    -sFILESYSTEM=0
    -sALLOW_MEMORY_GROWTH
    -sALLOW_TABLE_GROWTH
    -sWASM_BIGINT
    "-sEXPORTED_FUNCTIONS=${exports}"
    -sEXPORTED_RUNTIME_METHODS=addFunction,removeFunction,stringToUTF8,lengthBytesUTF8,UTF8ToString)
set_target_properties(
    tremolux_engine PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME tremolux_engine SUFFIX ".mjs" RUNTIME_OUTPUT_DIRECTORY
                                                                                           "${wasm_folder}")

# The folder is complete after each build: what a page or a program for Node takes.
file(GLOB javascript_files CONFIGURE_DEPENDS "${javascript_folder}/*")
set(javascript_stamp "${PROJECT_BINARY_DIR}/javascript.stamp")
add_custom_command(
    OUTPUT "${javascript_stamp}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${wasm_folder}"
    COMMAND "${CMAKE_COMMAND}" -E copy ${javascript_files} "${wasm_folder}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${javascript_stamp}"
    DEPENDS ${javascript_files}
    VERBATIM)
add_custom_target(javascript_module ALL DEPENDS "${javascript_stamp}")

# Pages of docs/ that are written from the module's own tables. script/parameters writes them; a test holds them.
if(NOT TARGET module_code OR NOT TARGET embedded_host OR EMSCRIPTEN)
    message(STATUS "host/ or the module is missing, or files are out of reach: no pages are written")
    return()
endif()
tremolux_room_sources(sources docs/generator)
add_executable(parameter_page ${sources})
target_link_libraries(parameter_page PRIVATE module_code embedded_host)
tremolux_set_defaults(parameter_page)

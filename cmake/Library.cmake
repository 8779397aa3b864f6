# Moves, formats, shots and measures: what the program is built on; and the shared library, with the module linked in, for
# whoever else wants frames.
find_package(nlohmann_json REQUIRED)
find_package(Eigen3 REQUIRED NO_MODULE)

tremolux_room_sources(sources library)
tremolux_room_sources(interface_sources library/interface)
tremolux_room_sources(runtime_sources library/runtime)
list(REMOVE_ITEM sources ${interface_sources} ${runtime_sources})
if(NOT sources OR NOT TARGET embedded_host)
    message(STATUS "library/ or host/ is empty: no library")
    return()
endif()
add_library(tremolux_library STATIC ${sources})
target_link_libraries(tremolux_library PUBLIC embedded_host module_ids nlohmann_json::nlohmann_json Eigen3::Eigen)
target_link_libraries(tremolux_library PRIVATE number_text)
tremolux_set_defaults(tremolux_library)
if(EMSCRIPTEN)
    # The frames are made by the module and the host; what is around them had better be small where a page fetches it.
    target_compile_options(tremolux_library PRIVATE -Oz)
endif()
tremolux_set_unity(tremolux_library)

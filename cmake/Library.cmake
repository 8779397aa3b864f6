# Moves, formats, shots and measures: what the program, and whoever else wants frames, is built on.
find_package(nlohmann_json REQUIRED)
find_package(Eigen3 REQUIRED NO_MODULE)

tremolux_room_sources(sources library)
if(NOT sources OR NOT TARGET embedded_host)
    message(STATUS "library/ or host/ is empty: no library")
    return()
endif()
add_library(tremolux_library STATIC ${sources})
target_link_libraries(tremolux_library PUBLIC embedded_host module_ids nlohmann_json::nlohmann_json Eigen3::Eigen)
tremolux_set_defaults(tremolux_library)
target_precompile_headers(
    tremolux_library PRIVATE <algorithm> <cmath> <filesystem> <functional> <memory> <nlohmann/json.hpp> <optional> <string>
    <vector>)

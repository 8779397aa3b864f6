# The embedded host. It knows the function table of the module's border, and neither side of the module.
find_package(PNG REQUIRED)
find_package(tsl-robin-map REQUIRED)

tremolux_room_sources(sources host)
if(NOT sources)
    message(STATUS "host/ is empty: no embedded host")
    return()
endif()
add_library(embedded_host STATIC ${sources})
target_include_directories(embedded_host PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(embedded_host PUBLIC PNG::PNG tsl::robin_map ${CMAKE_DL_LIBS})
tremolux_set_defaults(embedded_host)
target_precompile_headers(embedded_host PRIVATE <algorithm> <filesystem> <functional> <memory> <mutex> <string> <vector>)

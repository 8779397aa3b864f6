# The shared library: one file. Nothing but its C interface can be seen.
if(NOT TARGET whole_library)
    message(STATUS "what the library contains is missing: no shared library")
    return()
endif()

include(GNUInstallDirs)
add_library(tremolux_shared SHARED)
target_link_libraries(tremolux_shared PRIVATE whole_library)
target_include_directories(
    tremolux_shared PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/library/include>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
tremolux_set_defaults(tremolux_shared)
set_target_properties(
    tremolux_shared PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME tremolux EXPORT_NAME tremolux VERSION ${PROJECT_VERSION} SOVERSION 1
                               LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib" ARCHIVE_OUTPUT_DIRECTORY
                                                                                    "${PROJECT_BINARY_DIR}/lib")
if(WIN32)
    # The header marks what is exported. Programs look for the library in their own folder.
    set_target_properties(tremolux_shared PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
    target_sources(tremolux_shared PRIVATE "${PROJECT_SOURCE_DIR}/library/interface/tremolux.rc")
    tremolux_set_windows_file(tremolux_shared)
    # library/interface/windows_entry.cpp
    target_link_options(tremolux_shared PRIVATE -Wl,--entry=EnterLibrary)
else()
    tremolux_set_exports(tremolux_shared "${PROJECT_SOURCE_DIR}/library/interface/exports")
endif()

# The interface alone, for script/abi: optimised functions no longer tell all of their types. What is behind it is missing.
if(NOT WIN32)
    find_program(abidw_program abidw)
    if(abidw_program)
        add_library(tremolux_described SHARED ${interface_sources})
    else()
        message(STATUS "abidw is missing: the library's binary interface is not checked")
        add_library(tremolux_described SHARED EXCLUDE_FROM_ALL ${interface_sources})
    endif()
    target_link_libraries(tremolux_described PRIVATE tremolux_library)
    target_include_directories(tremolux_described PRIVATE "${PROJECT_SOURCE_DIR}/library/include")
    target_compile_definitions(tremolux_described PRIVATE TREMOLUX_BUILDS_LIBRARY)
    tremolux_set_defaults(tremolux_described)
    target_compile_options(tremolux_described PRIVATE -O0 -g "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
    set_target_properties(
        tremolux_described PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
    tremolux_set_exports(tremolux_described "${PROJECT_SOURCE_DIR}/library/interface/exports")
    target_link_options(tremolux_described PRIVATE -Wl,--unresolved-symbols=ignore-all -Wl,-soname,libtremolux.so.1)
endif()

# For those who build on it: cmake --install BUILD --prefix FOLDER.
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/tremolux")
install(
    TARGETS tremolux_shared
    EXPORT tremolux
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT library
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library)
install(FILES "${PROJECT_SOURCE_DIR}/library/include/tremolux/tremolux.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tremolux"
        COMPONENT library)
install(EXPORT tremolux NAMESPACE tremolux:: FILE tremolux-config.cmake DESTINATION "${package_folder}" COMPONENT library)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/tremolux-config-version.cmake" COMPATIBILITY SameMajorVersion)
file(RELATIVE_PATH prefix_from_pc "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/tremolux.pc.in" "${PROJECT_BINARY_DIR}/tremolux.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tremolux-config-version.cmake" DESTINATION "${package_folder}" COMPONENT library)
install(FILES "${PROJECT_BINARY_DIR}/tremolux.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT library)

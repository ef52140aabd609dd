# What `cmake --install` puts under a prefix for a host to build against: the
# three libraries, the headers a host includes (in their tree layout, so the
# includes read the same as in this tree), and the package find_package reads.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Every header of the folders the public headers reach into. The desktop
# window's own headers name SDL types; only its interface goes out, and only
# when the platform has the window built in.
set(DOCKPANES_PUBLIC_HEADERS)
foreach(dir IN ITEMS platform siblings host marks funclist output grid watch panes)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${dir}/*.h)
    list(APPEND DOCKPANES_PUBLIC_HEADERS ${found})
endforeach()
list(FILTER DOCKPANES_PUBLIC_HEADERS EXCLUDE REGEX "^platform/window/")
if(TARGET SDL2::SDL2)
    list(APPEND DOCKPANES_PUBLIC_HEADERS platform/window/desktop.h)
endif()

foreach(header IN LISTS DOCKPANES_PUBLIC_HEADERS)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

# Installed, each library finds its siblings beside itself. Before 1.0 a
# minor version may change the binary interface, so it is part of the soname.
set(DOCKPANES_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set_target_properties(platform siblings dockpanes PROPERTIES
    INSTALL_RPATH "$ORIGIN" VERSION ${PROJECT_VERSION} SOVERSION ${DOCKPANES_SOVERSION})
install(TARGETS platform siblings dockpanes EXPORT dockpanesTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(DOCKPANES_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/dockpanes)
install(EXPORT dockpanesTargets NAMESPACE dockpanes:: DESTINATION ${DOCKPANES_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/dockpanesConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/dockpanesConfig.cmake
                              INSTALL_DESTINATION ${DOCKPANES_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/dockpanesConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/dockpanesConfig.cmake ${PROJECT_BINARY_DIR}/dockpanesConfigVersion.cmake
        DESTINATION ${DOCKPANES_CMAKE_DIR})

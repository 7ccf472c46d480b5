# SPDX-License-Identifier: MIT
# What cmake --install puts where: the library for the register (component register), and what somebody else's plug-in
# is built with (component sdk): the public headers in one folder, and the package RegisterPlatform for find_package().
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/RegisterPlatform)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/registerplatform)

install(TARGETS registerplatform EXPORT RegisterPlatform
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT register NAMELINK_COMPONENT sdk
    INCLUDES DESTINATION ${headers})
set_target_properties(registerplatform PROPERTIES EXPORT_NAME platform)

set(public_headers FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
if(LOG4QT_IS_NATIVE)
    list(APPEND public_headers PATTERN "log4qt" EXCLUDE)
endif()
foreach(folder IN LISTS sdk)
    install(DIRECTORY ${folder}/ DESTINATION ${headers} COMPONENT sdk ${public_headers})
endforeach()

configure_package_config_file(cmake/RegisterPlatformConfig.cmake.in RegisterPlatformConfig.cmake
    INSTALL_DESTINATION ${package})
# The version of the interface. A request for another version finds nothing.
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/RegisterPlatformConfigVersion.cmake"
    VERSION ${sdk_version} COMPATIBILITY SameMajorVersion)
install(
    FILES
        "${CMAKE_CURRENT_BINARY_DIR}/RegisterPlatformConfig.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/RegisterPlatformConfigVersion.cmake"
        "${PROJECT_SOURCE_DIR}/cmake/RegisterPlugins.cmake"
    DESTINATION ${package} COMPONENT sdk)
install(EXPORT RegisterPlatform FILE RegisterPlatformTargets.cmake NAMESPACE RegisterPlatform::
    DESTINATION ${package} COMPONENT sdk)

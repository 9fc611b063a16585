# Installing the library as a package: headers, the shared libraries with their sonames, hmitool, a
# CMake package (XRVHMI::xrvhmi) and a pkg-config file. Installed programs find the installed libraries
# through a RUNPATH relative to themselves, so a moved tree still works.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(HMI_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/XRVHMI)
set(HMI_INSTALLED_LIBRARIES xrvhmi)
if(NOT WIN32)
  list(APPEND HMI_INSTALLED_LIBRARIES hmispool)
  set(HMI_PC_EXTRA_LIBS -lhmispool)
  set_target_properties(xrvhmi hmispool PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                                   INSTALL_RPATH "$ORIGIN")
  set_target_properties(hmitool PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(FILES ${PROJECT_SOURCE_DIR}/platform/posix/spool/hmispool.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT development)
endif()

install(TARGETS ${HMI_INSTALLED_LIBRARIES} EXPORT XRVHMITargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS hmitool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
install(FILES ${PROJECT_SOURCE_DIR}/hmiapi/include/xrvhmi.h ${PROJECT_BINARY_DIR}/include/xrvhmi_version.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

install(EXPORT XRVHMITargets NAMESPACE XRVHMI:: DESTINATION ${HMI_PACKAGE_DIR} COMPONENT development)
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/XRVHMIConfig.cmake.in ${PROJECT_BINARY_DIR}/XRVHMIConfig.cmake @ONLY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/XRVHMIConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/XRVHMIConfig.cmake ${PROJECT_BINARY_DIR}/XRVHMIConfigVersion.cmake
        DESTINATION ${HMI_PACKAGE_DIR} COMPONENT development)
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/xrvhmi.pc.in ${PROJECT_BINARY_DIR}/xrvhmi.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/xrvhmi.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# cpack: a zip of everything for Windows; for Linux one Debian package per component.
set(CPACK_PACKAGE_NAME xrvhmi)
set(CPACK_PACKAGE_VENDOR XRVHMI)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Media information of the printer driver")
set(CPACK_PACKAGE_CONTACT "XRVHMI developers <xrvhmi@example.org>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME win64)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libxrvhmi0)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libxml2, libstdc++6")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libxrvhmi-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libxrvhmi0 (= ${PROJECT_VERSION})")
  set(CPACK_DEBIAN_TOOL_PACKAGE_NAME xrvhmi-tools)
  set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "libxrvhmi0 (= ${PROJECT_VERSION})")
endif()
include(CPack)

# What an installed qbrpt consists of: the shared library, its one public header, a CMake package, a pkg-config file and
# the command.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/qbrpt")

install(TARGETS qbrpt EXPORT qbrptTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(TARGETS qbrpt_command RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES src/service/VantlowCls.h DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/qbrpt")
install(FILES LICENSE README.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")

install(EXPORT qbrptTargets NAMESPACE qbrpt:: DESTINATION "${package_folder}")
configure_package_config_file(packaging/qbrptConfig.cmake.in "${CMAKE_BINARY_DIR}/qbrptConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/qbrptConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/qbrptConfig.cmake" "${CMAKE_BINARY_DIR}/qbrptConfigVersion.cmake"
        DESTINATION "${package_folder}")

# The pkg-config file finds its prefix from its own place, so that a package may be moved.
file(RELATIVE_PATH QBRPT_PREFIX_FROM_PKGCONFIG "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(packaging/qbrpt.pc.in "${CMAKE_BINARY_DIR}/qbrpt.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/qbrpt.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

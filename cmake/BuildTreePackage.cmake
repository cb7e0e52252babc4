# The build tree as a package: find_package(qbrpt) finds the component that is just built, so that a project in this tree
# is written as that of any host.
include(CMakePackageConfigHelpers)

add_library(qbrpt::qbrpt ALIAS qbrpt)
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/include/qbrpt")
file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/service/VantlowCls.h" "${CMAKE_BINARY_DIR}/include/qbrpt/VantlowCls.h" SYMBOLIC)
target_include_directories(qbrpt INTERFACE $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>)

file(WRITE "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/qbrptConfig.cmake" "")
write_basic_package_version_file("${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/qbrptConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)

# What is installed, and the package by which a consumer finds it: find_package(Rellinor CONFIG).

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Rellinor")

install(TARGETS Rellinor EXPORT RellinorTargets)
install(EXPORT RellinorTargets NAMESPACE Rellinor:: DESTINATION "${package_folder}")

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/RellinorConfig.cmake.in" "${PROJECT_BINARY_DIR}/RellinorConfig.cmake"
    INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/RellinorConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(
    FILES "${PROJECT_BINARY_DIR}/RellinorConfig.cmake"
          "${PROJECT_BINARY_DIR}/RellinorConfigVersion.cmake"
          "${CMAKE_CURRENT_LIST_DIR}/Dependencies.cmake"
    DESTINATION "${package_folder}")

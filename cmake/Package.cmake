# What is installed, and how a consumer finds it: find_package(Rellinor CONFIG) and pkg-config.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Rellinor")

# Each kind of library has an export of its own, so that both fit into one folder, from one build
# tree or from two.
foreach(library IN ITEMS Rellinor RellinorOtherKind)
    if(NOT TARGET ${library})
        continue()
    endif()
    get_target_property(type ${library} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        set(kind shared)
    else()
        set(kind static)
    endif()
    install(TARGETS ${library} EXPORT Rellinor-${kind}-targets
        ARCHIVE COMPONENT Development
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development)
    install(EXPORT Rellinor-${kind}-targets
        NAMESPACE Rellinor:: DESTINATION "${package_folder}" COMPONENT Development)
endforeach()

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/RellinorConfig.cmake.in" "${PROJECT_BINARY_DIR}/RellinorConfig.cmake"
    INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/RellinorConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(
    FILES "${PROJECT_BINARY_DIR}/RellinorConfig.cmake"
          "${PROJECT_BINARY_DIR}/RellinorConfigVersion.cmake"
    DESTINATION "${package_folder}" COMPONENT Development)

include(PkgConfigFile)

# What the README leads to.
file(GLOB documents RELATIVE "${PROJECT_SOURCE_DIR}" CONFIGURE_DEPENDS "*.md")
foreach(document IN LISTS documents ITEMS LICENSE)
    install(FILES "${PROJECT_SOURCE_DIR}/${document}"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT Development)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Documentation"
    DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT Development FILES_MATCHING PATTERN "*.md")

# An installed tool finds a shared library wherever both have been put, but for the system's own
# folder, where the loader looks anyway.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(RELATIVE_PATH from_tool "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    if(APPLE)
        set(CMAKE_INSTALL_RPATH "@loader_path/${from_tool}")
    else()
        set(CMAKE_INSTALL_RPATH "$ORIGIN/${from_tool}")
    endif()
endif()

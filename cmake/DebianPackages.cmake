# cpack -G DEB makes three packages: the shared library, what a host is built with, and the tool.

set(library_package "librellinor${PROJECT_VERSION_MAJOR}")
if(PROJECT_VERSION_MAJOR EQUAL 0)
    string(APPEND library_package ".${PROJECT_VERSION_MINOR}")
endif()

get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME rellinor)
# To be published, packages need somebody who answers: -DCPACK_PACKAGE_CONTACT="Name <address>".
set(CPACK_PACKAGE_CONTACT "The Rellinor authors" CACHE STRING "Who maintains the packages")
# Each package has a description of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/Sources")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(about "Rellinor reads logins, secure notes and payment cards from exports of password
managers and from the profiles of browsers.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "importer of other password managers' exports, shared library
${about}
This package has the shared library that hosts link.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME librellinor-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(boost "${Boost_VERSION_MAJOR}.${Boost_VERSION_MINOR}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libboost-url${boost}-dev, libexpat1-dev, libsodium-dev, libsqlite3-dev, \
libutf8proc-dev, pkgconf | pkg-config, zlib1g-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libboost-json${boost}-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "importer of other password managers' exports, to build with
${about}
This package has the headers, the static library, and files for CMake and
pkg-config.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME rellinor)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOL_DESCRIPTION "importer of other password managers' exports, command-line tool
${about}
This package has a tool that shows what an export holds.")

# A package needs the shared library of its own version.
if(Runtime IN_LIST CPACK_COMPONENTS_ALL)
    set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
    set(CPACK_COMPONENT_TOOL_DEPENDS Runtime)
endif()

set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/DebianDocuments.cmake")
include(CPack)

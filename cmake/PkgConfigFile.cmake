# rellinor.pc: the package by which everything but CMake finds an installed Rellinor.

set(pkg_config_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# All paths hang on the file's own folder, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_here
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" prefix_from_here "${prefix_from_here}")
cmake_path(APPEND libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")

# What a static library needs and has no file of this kind: Boost, unless it is compiled in, and the
# C++ library, for a program that a C compiler links.
set(private_libraries "")
if(NOT RELLINOR_BOOST_FROM_HEADERS)
    foreach(folder IN LISTS Boost_LIBRARY_DIRS)
        if(NOT folder IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
            list(APPEND private_libraries "-L${folder}")
        endif()
    endforeach()
    list(APPEND private_libraries -lboost_url)
endif()
if(APPLE OR CMAKE_CXX_FLAGS MATCHES "-stdlib=libc\\+\\+")
    list(APPEND private_libraries -lc++)
else()
    list(APPEND private_libraries -lstdc++)
endif()
list(JOIN private_libraries " " private_libraries)

# Where there is no shared library, everybody needs what the static one needs.
if(BUILD_SHARED_LIBS OR RELLINOR_BUILD_BOTH)
    set(private ".private")
    set(libraries "")
else()
    set(private "")
    set(libraries " ${private_libraries}")
    set(private_libraries "")
endif()

# The libraries that may be left out.
set(private_requirements "")
if(RELLINOR_ARCHIVES)
    string(APPEND private_requirements ", zlib")
endif()
if(RELLINOR_XML)
    string(APPEND private_requirements ", expat")
endif()

configure_file(
    "${CMAKE_CURRENT_LIST_DIR}/rellinor.pc.in" "${PROJECT_BINARY_DIR}/rellinor.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/rellinor.pc"
    DESTINATION "${pkg_config_folder}" COMPONENT Development)

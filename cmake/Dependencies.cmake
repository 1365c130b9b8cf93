# The libraries that Rellinor calls. RellinorConfig.cmake.in finds the same ones for a consumer of the
# static library.

# libc++ and libstdc++ do not mix: with libc++ the compiled parts of Boost come from its headers
# (see Sources/Platform/BoostSources.cpp) and its libraries are not linked.
option(RELLINOR_BOOST_FROM_HEADERS "Compile Boost's sources from its headers" OFF)

# Starting a program takes as long as finding and binding its shared libraries: most of the time of a
# short run of the host tool. A package of a system links the shared ones, which the system mends. A
# shared library of ours links the shared ones too: static ones need not be position-independent.
option(RELLINOR_STATIC_DEPENDENCIES
    "Link the static kinds of the libraries that Rellinor calls, unless it is shared itself" OFF)

if(RELLINOR_STATIC_DEPENDENCIES AND NOT BUILD_SHARED_LIBS AND NOT RELLINOR_BUILD_BOTH)
    set(kind_of_dependencies static)
    set(Boost_USE_STATIC_LIBS ON)
    list(PREPEND CMAKE_FIND_LIBRARY_SUFFIXES .a)
else()
    set(kind_of_dependencies any)
endif()

# What was found of the other kind in this build tree is found anew.
if(NOT kind_of_dependencies STREQUAL "${RELLINOR_KIND_OF_DEPENDENCIES}")
    get_cmake_property(cached CACHE_VARIABLES)
    list(FILTER cached INCLUDE REGEX "^(pkgcfg_lib_|[A-Za-z0-9]+_LIBRARY)")
    foreach(variable IN LISTS cached)
        unset(${variable} CACHE)
    endforeach()
    set(RELLINOR_KIND_OF_DEPENDENCIES "${kind_of_dependencies}" CACHE INTERNAL "")
endif()

if(RELLINOR_BOOST_FROM_HEADERS)
    find_package(Boost 1.81 REQUIRED)
else()
    find_package(Boost 1.81 REQUIRED COMPONENTS url)
endif()

find_package(SQLite3 3.31 REQUIRED)
if(RELLINOR_ARCHIVES OR RELLINOR_TESTS)
    find_package(ZLIB REQUIRED)
endif()
if(RELLINOR_XML)
    find_package(EXPAT REQUIRED)
endif()
find_package(PkgConfig REQUIRED)
if(NOT TARGET PkgConfig::sodium)
    pkg_check_modules(sodium REQUIRED IMPORTED_TARGET libsodium)
endif()
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND RELLINOR_SECCOMP AND (RELLINOR_HOST OR RELLINOR_EXAMPLES)
        AND NOT TARGET PkgConfig::seccomp)
    # Shared in any case: its licence asks that it can be replaced.
    set(suffixes "${CMAKE_FIND_LIBRARY_SUFFIXES}")
    list(REMOVE_ITEM CMAKE_FIND_LIBRARY_SUFFIXES .a)
    pkg_check_modules(seccomp IMPORTED_TARGET libseccomp)
    if(NOT seccomp_FOUND)
        message(WARNING "Without libseccomp the tool can open connections and start programs")
    endif()
    set(CMAKE_FIND_LIBRARY_SUFFIXES "${suffixes}")
endif()
if(NOT TARGET PkgConfig::utf8proc)
    pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
endif()

# The libraries that Rellinor calls. RellinorConfig.cmake.in finds the same ones for a consumer of the
# static library.

# libc++ and libstdc++ do not mix: with libc++ the compiled parts of Boost come from its headers
# (see Sources/Platform/BoostSources.cpp) and its libraries are not linked.
option(RELLINOR_BOOST_FROM_HEADERS "Compile Boost's sources from its headers" OFF)

# Starting a program takes as long as finding and binding its shared libraries: most of the time of a
# short run of the host tool. A package of a system links the shared ones, which the system mends.
option(RELLINOR_STATIC_DEPENDENCIES "Link the static kinds of the libraries that Rellinor calls" OFF)

if(RELLINOR_STATIC_DEPENDENCIES)
    set(Boost_USE_STATIC_LIBS ON)
    list(PREPEND CMAKE_FIND_LIBRARY_SUFFIXES .a)
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
if(NOT TARGET PkgConfig::utf8proc)
    pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
endif()

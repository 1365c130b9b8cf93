# The libraries that Rellinor calls. RellinorConfig.cmake.in finds the same ones for a consumer of the
# static library.

# libc++ and libstdc++ do not mix: with libc++ the compiled parts of Boost come from its headers
# (see Sources/Platform/BoostSources.cpp) and its libraries are not linked.
option(RELLINOR_BOOST_FROM_HEADERS "Compile Boost's sources from its headers" OFF)

if(RELLINOR_BOOST_FROM_HEADERS)
    find_package(Boost 1.81 REQUIRED)
else()
    find_package(Boost 1.81 REQUIRED COMPONENTS json url)
endif()

find_package(SQLite3 REQUIRED)
find_package(PkgConfig REQUIRED)
if(NOT TARGET PkgConfig::sodium)
    pkg_check_modules(sodium REQUIRED IMPORTED_TARGET libsodium)
endif()
if(NOT TARGET PkgConfig::utf8proc)
    pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
endif()

# The libraries that Rellinor calls. The package config includes this file too,
# so that a consumer of the static library finds the same ones.

include(CMakeFindDependencyMacro)

# libc++ and libstdc++ do not mix: with libc++ the compiled parts of Boost come from its headers
# (see Sources/Platform/BoostSources.cpp) and its libraries are not linked.
option(RELLINOR_BOOST_FROM_HEADERS "Compile Boost's sources from its headers" OFF)

if(RELLINOR_BOOST_FROM_HEADERS)
    find_dependency(Boost 1.81)
else()
    find_dependency(Boost 1.81 COMPONENTS json url)
endif()

find_dependency(SQLite3)
find_dependency(PkgConfig)
if(NOT TARGET PkgConfig::sodium)
    pkg_check_modules(sodium REQUIRED IMPORTED_TARGET libsodium)
endif()
if(NOT TARGET PkgConfig::utf8proc)
    pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
endif()

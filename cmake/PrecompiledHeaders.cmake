# Headers of the standard library that most files include, parsed once for all of a target: without it
# that takes up to half of the time of compiling.

# rellinor_precompile_headers(TARGET [UNOPTIMISED] [HEADER...]): these and more. GCC 12 warns wrongly of
# what stands in precompiled headers when it optimises, so it has them for unoptimised targets alone. It
# finds the headers that a file forgets to include.
function(rellinor_precompile_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "UNOPTIMISED" "" "")
    if(NOT PROJECT_IS_TOP_LEVEL OR (CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT arg_UNOPTIMISED))
        return()
    endif()
    target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <cstddef> <cstdint> <expected> <filesystem> <functional> <memory>
        <optional> <ostream> <span> <string> <string_view> <utility> <vector>
        ${arg_UNPARSED_ARGUMENTS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Or ccache would find another time in it after each build.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

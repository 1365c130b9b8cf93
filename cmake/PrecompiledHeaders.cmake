# Headers of the standard library that many files include, parsed once for all of a target: without it that
# takes up to half of the time of compiling. Where clang-tidy reads the files there are none, which finds
# the headers that a file forgets to include.

# rellinor_precompile_headers(TARGET [HEADER...]): these and more. GCC 12 may warn wrongly of what stands in
# a precompiled header; a target where it does has none.
function(rellinor_precompile_headers target)
    if(NOT PROJECT_IS_TOP_LEVEL)
        return()
    endif()
    target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <charconv> <chrono> <cstddef> <cstdint> <expected> <functional> <iterator>
        <limits> <map> <memory> <optional> <span> <string> <string_view> <unordered_map> <utility>
        <variant> <vector>
        ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Or ccache would find another time in it after each build.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

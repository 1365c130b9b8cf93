# What the programs of tests have in common.

# A name may hide one of another file. A library of its own, so that the flag comes behind the warnings.
add_library(RellinorUnited INTERFACE)
target_compile_options(RellinorUnited INTERFACE -Wno-shadow)

# rellinor_unite(TARGET [ALONE file...]): compiles the files of a folder as one, those of a format in large
# folders: to parse what each includes takes most of the time. Files whose own names collide stay alone, and
# all do for clang-tidy.
function(rellinor_unite target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ALONE")
    if(CMAKE_DISABLE_PRECOMPILE_HEADERS)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    target_link_libraries(${target} PRIVATE RellinorUnited)
    get_target_property(files ${target} SOURCES)
    list(REMOVE_ITEM files ${arg_ALONE} "")
    foreach(file IN LISTS files)
        string(REGEX MATCH "^(.*)/(CSV|JSON|SQLite)?[^/]*$" matched "${file}")
        string(MAKE_C_IDENTIFIER "${CMAKE_MATCH_1}/${CMAKE_MATCH_2}" group)
        set_source_files_properties("${file}" PROPERTIES UNITY_GROUP "${group}")
    endforeach()
endfunction()

# rellinor_test_program(TARGET [COUNTED] [ALONE file...] [STATEMENTS filter]): lets ctest run the tests in
# it, and has counted what of the library they reach. The filter names those that leave statements of
# SQLite's behind.
function(rellinor_test_program target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "COUNTED" "STATEMENTS" "ALONE")
    set(environment "")
    if(arg_COUNTED)
        target_compile_options(${target} PRIVATE ${RELLINOR_COUNTED}) # for the headers
        set(environment "${RELLINOR_COUNTED_ENVIRONMENT}")
    endif()

    # To optimise what runs once took most of the time of building everything.
    target_compile_options(${target} PRIVATE -O0 -U_FORTIFY_SOURCE)
    rellinor_precompile_headers(${target} UNOPTIMISED <gtest/gtest.h>)
    rellinor_unite(${target} ALONE ${arg_ALONE})

    if(NOT RELLINOR_SANITIZERS OR NOT arg_STATEMENTS)
        rellinor_test_parts(${target} ${target} 8 "${environment}")
        return()
    endif()
    rellinor_test_parts(${target} ${target}-statements 4 "${environment};GTEST_FILTER=${arg_STATEMENTS}")
    rellinor_test_parts(${target} ${target} 4 "${environment};GTEST_FILTER=-${arg_STATEMENTS}")
    foreach(part RANGE 3)
        rellinor_tests_without_statements("${target}.${part}")
    endforeach()
endfunction()

# rellinor_tests_without_statements(TEST...): these leave no statement of SQLite's behind. That leak alone
# is told by who called SQLite, and to find the callers behind SQLite takes most of the time of other tests.
# A leak of a test that is named wrongly is reported.
function(rellinor_tests_without_statements)
    set_tests_properties(${ARGN} PROPERTIES ENVIRONMENT_MODIFICATION
        "ASAN_OPTIONS=string_append::fast_unwind_on_malloc=1")
endfunction()

# rellinor_test_parts(TARGET NAME COUNT ENVIRONMENT): so many tests for all of a program, since a program
# takes longer to start than most tests take.
function(rellinor_test_parts target name parts environment)
    math(EXPR last "${parts} - 1")
    foreach(part RANGE ${last})
        add_test(NAME "${name}.${part}" COMMAND ${target} --gtest_brief=1)
        set_tests_properties("${name}.${part}" PROPERTIES ENVIRONMENT
            "GTEST_TOTAL_SHARDS=${parts};GTEST_SHARD_INDEX=${part};${environment}")
    endforeach()
endfunction()

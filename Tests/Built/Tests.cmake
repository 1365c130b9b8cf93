set(scripts "${PROJECT_SOURCE_DIR}/Scripts")

add_test(NAME Built.noStateIsKept
    COMMAND "${scripts}/inspect-library" "$<TARGET_FILE:Rellinor>")
add_library(rellinor-state STATIC Built/State.cpp)
add_test(NAME Built.stateIsFound
    COMMAND "${scripts}/inspect-library" "$<TARGET_FILE:rellinor-state>")
set_tests_properties(Built.stateIsFound PROPERTIES
    PASS_REGULAR_EXPRESSION
        "\\.data.*\\.bss.*\\.init_array.*\\.tbss.*between calls.*guard variable.*first call.*puts.*write.*prints.*pthread_mutex_lock.*threads, locks.*getenv.*environment")

if(RELLINOR_HOST)
    add_test(NAME Built.toolIsHardened COMMAND "${scripts}/inspect-program" "$<TARGET_FILE:rellinor>")
endif()
add_executable(rellinor-soft Built/Soft.cpp)
set_target_properties(rellinor-soft PROPERTIES POSITION_INDEPENDENT_CODE OFF)
target_compile_options(rellinor-soft PRIVATE
    -O0 -fno-pie -fno-stack-protector "SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2"
    -fno-stack-clash-protection -fcf-protection=none -U_GLIBCXX_ASSERTIONS)
target_link_options(rellinor-soft PRIVATE
    -no-pie -Wl,-z,norelro,-z,lazy,-z,execstack,-z,notext,-z,nocopyreloc,--no-warn-rwx-segments)
set(softness "any address.*stays writable.*looked up late.*stack can be executed.*writable and can be executed"
    "while loading.*guards the stack.*is checked")
set(soft_commands "array guards.*guard page.*checked less.*optimised")
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    list(APPEND softness "go anywhere.*guard page")
    string(APPEND soft_commands ".*go anywhere")
endif()
list(JOIN softness ".*" softness)
add_test(NAME Built.softnessIsFound
    COMMAND "${scripts}/inspect-program" "$<TARGET_FILE:rellinor-soft>")
set_tests_properties(Built.softnessIsFound PROPERTIES PASS_REGULAR_EXPRESSION "${softness}")

# How each file is compiled, where the build tells.
if(CMAKE_EXPORT_COMPILE_COMMANDS)
    set(commands "${PROJECT_BINARY_DIR}/compile_commands.json")
    set(delivered "${PROJECT_SOURCE_DIR}/Sources")
    if(RELLINOR_HOST)
        list(APPEND delivered "${PROJECT_SOURCE_DIR}/Host")
    endif()
    add_test(NAME Built.everyFileIsHardened
        COMMAND "${scripts}/inspect-commands" "${commands}" ${delivered})
    add_test(NAME Built.softFilesAreFound
        COMMAND "${scripts}/inspect-commands" "${commands}" "${CMAKE_CURRENT_SOURCE_DIR}/Built")
    set_tests_properties(Built.softFilesAreFound PROPERTIES PASS_REGULAR_EXPRESSION "${soft_commands}")

    add_test(NAME Built.everyTestIsChecked
        COMMAND "${scripts}/inspect-commands" --tests --but "${CMAKE_CURRENT_SOURCE_DIR}/Built"
                "${commands}" "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_CURRENT_BINARY_DIR}")
    add_test(NAME Built.uncheckedTestsAreFound
        COMMAND "${scripts}/inspect-commands" --tests "${commands}" "${CMAKE_CURRENT_SOURCE_DIR}/Built")
    set_tests_properties(Built.uncheckedTestsAreFound PROPERTIES
        PASS_REGULAR_EXPRESSION "Soft\\.cpp: the standard library checks nothing")
endif()

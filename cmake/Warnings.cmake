# Warnings for our own targets. They never reach a consumer: link Rellinor::Warnings privately.

option(RELLINOR_WARNINGS_AS_ERRORS "Turn warnings of our own code into errors" ${PROJECT_IS_TOP_LEVEL})

add_library(RellinorWarnings INTERFACE)
add_library(Rellinor::Warnings ALIAS RellinorWarnings)

target_compile_options(RellinorWarnings INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-align
    -Wcast-qual
    -Wconversion
    -Wdouble-promotion
    -Wformat=2
    -Wimplicit-fallthrough
    -Wshadow
    -Wsign-conversion
    -Wundef
    -Wunused
    $<$<COMPILE_LANGUAGE:C>:-Wmissing-prototypes -Wstrict-prototypes>
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual>
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wduplicated-branches -Wduplicated-cond -Wlogical-op -Wuseless-cast>
    $<$<COMPILE_LANG_AND_ID:CXX,Clang,AppleClang>:-Wextra-semi -Wnewline-eof -Wreserved-identifier -Wunreachable-code>
    $<$<BOOL:${RELLINOR_WARNINGS_AS_ERRORS}>:-Werror>)

# Sanitizers for everything this project builds: -DRELLINOR_SANITIZERS=address,undefined

set(RELLINOR_SANITIZERS "" CACHE STRING "Sanitizers to build with, comma-separated")

add_library(RellinorSanitizers INTERFACE)
add_library(Rellinor::Sanitizers ALIAS RellinorSanitizers)

if(RELLINOR_SANITIZERS)
    target_compile_options(RellinorSanitizers INTERFACE
        -fsanitize=${RELLINOR_SANITIZERS}
        -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_compile_definitions(RellinorSanitizers INTERFACE RELLINOR_SANITIZED)
    target_link_options(RellinorSanitizers INTERFACE -fsanitize=${RELLINOR_SANITIZERS})
endif()

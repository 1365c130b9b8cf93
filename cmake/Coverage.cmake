# What the tests reach of the library: with Clang, -DRELLINOR_COVERAGE=ON, see Scripts/coverage.

option(RELLINOR_COVERAGE "Count which lines and branches of the library run" OFF)

set(RELLINOR_COUNTED "")             # options for compiling what is counted
set(RELLINOR_COUNTED_ENVIRONMENT "") # of the tests that count
if(RELLINOR_COVERAGE)
    # Nothing is written unless the environment says where: the tool must not, whatever runs it.
    set(RELLINOR_COUNTED -fprofile-instr-generate=/dev/null -fcoverage-mapping)
    set(RELLINOR_COUNTED_ENVIRONMENT "LLVM_PROFILE_FILE=${PROJECT_BINARY_DIR}/Coverage/%2m.profraw")
    target_compile_options(Rellinor PRIVATE ${RELLINOR_COUNTED})
    target_link_options(Rellinor INTERFACE -fprofile-instr-generate)
endif()

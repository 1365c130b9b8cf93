# What makes a defect harder to abuse, for everything this project builds and for nothing else. Each
# flag is taken where the compiler or the linker knows it; Scripts/inspect-program looks at what came of
# them, Scripts/inspect-commands at whether each file had them.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

# rellinor_harden_compiler(FLAG...)
function(rellinor_harden_compiler)
    foreach(flag IN LISTS ARGN)
        string(MAKE_C_IDENTIFIER "RELLINOR_HAS${flag}" known)
        check_cxx_compiler_flag("${flag}" ${known})
        if(${known})
            add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:${flag}>")
        endif()
    endforeach()
endfunction()

# rellinor_harden_linker(FLAG...)
function(rellinor_harden_linker)
    foreach(flag IN LISTS ARGN)
        string(MAKE_C_IDENTIFIER "RELLINOR_HAS${flag}" known)
        check_linker_flag(CXX "${flag}" ${known})
        if(${known})
            add_link_options("${flag}")
        endif()
    endforeach()
endfunction()

rellinor_harden_compiler(-fstack-protector-strong -fstack-clash-protection -fcf-protection)
if(NOT RELLINOR_SANITIZERS)
    # The C library checks only what is optimised; a system's own choice of the level gives way.
    add_compile_options(
        "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
endif()

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
rellinor_harden_linker(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)

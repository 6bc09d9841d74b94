# SPDX-License-Identifier: MIT
# What makes a fault harder to exploit, as far as compiler and linker know it, where an optimized
# build type asks for it. Distributions build without a type and bring such flags themselves.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
set(hardened $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)

foreach(flag -Wformat -Werror=format-security -fstack-protector-strong -fstack-clash-protection
        -fcf-protection -fPIE)
    string(MAKE_C_IDENTIFIER KESTRELWOOD_KNOWS${flag} known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        target_compile_options(kestrelwood_options INTERFACE $<${hardened}:${flag}>)
    endif()
endforeach()
if(NOT CMAKE_CXX_FLAGS MATCHES _FORTIFY_SOURCE)
    # Some compilers define it by themselves.
    target_compile_options(kestrelwood_options INTERFACE
        $<${hardened}:-U_FORTIFY_SOURCE> $<${hardened}:-D_FORTIFY_SOURCE=2>)
endif()

set(CMAKE_REQUIRED_FLAGS -fPIE)
foreach(flag -pie LINKER:-z,relro LINKER:-z,now)
    string(MAKE_C_IDENTIFIER KESTRELWOOD_KNOWS${flag} known)
    check_linker_flag(CXX ${flag} ${known})
    if(${known})
        target_link_options(kestrelwood_options INTERFACE $<${hardened}:${flag}>)
    endif()
endforeach()
unset(CMAKE_REQUIRED_FLAGS)

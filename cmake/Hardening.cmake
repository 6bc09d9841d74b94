# SPDX-License-Identifier: MIT
# What makes a fault harder to exploit, as far as compiler and linker know it. Flags wait for an
# optimized build type: distributions build without a type and bring such flags themselves.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)
set(hardened $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)

# A program at any address; what is hidden is as quick to call as at a fixed one.
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(flags -fstack-protector-strong -fcf-protection)
if(NOT WIN32) # where all is hidden and every stack is probed anyway
    set(CMAKE_CXX_VISIBILITY_PRESET hidden)
    set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
    list(APPEND flags -fstack-clash-protection)
endif()
foreach(flag IN LISTS flags)
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
check_linker_flag(CXX LINKER:-z,relro,-z,now KESTRELWOOD_KNOWS_relro_now)
if(KESTRELWOOD_KNOWS_relro_now)
    target_link_options(kestrelwood_options INTERFACE $<${hardened}:LINKER:-z,relro,-z,now>)
endif()

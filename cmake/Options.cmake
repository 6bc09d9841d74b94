# SPDX-License-Identifier: MIT
# What every target of ours is built with.
add_library(kestrelwood_options INTERFACE)
target_compile_features(kestrelwood_options INTERFACE cxx_std_20)
target_compile_options(kestrelwood_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Wformat-security
    $<$<BOOL:${KESTRELWOOD_WERROR}>:-Werror>)

# Plain doubles, and files of any size and number, on machines of 32 bits too.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_definitions(kestrelwood_options INTERFACE _FILE_OFFSET_BITS=64)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86.*|X86|AMD64)$")
        target_compile_options(kestrelwood_options INTERFACE -msse2 -mfpmath=sse)
    endif()
endif()

if(KESTRELWOOD_SANITIZE)
    target_compile_options(kestrelwood_options INTERFACE
        -fsanitize=${KESTRELWOOD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kestrelwood_options INTERFACE -fsanitize=${KESTRELWOOD_SANITIZE})
else()
    include(Hardening)
endif()

if(WIN32)
    # One program file, which needs nothing beside it.
    target_link_options(kestrelwood_options INTERFACE -static -fstack-protector-strong)
endif()

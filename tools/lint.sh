#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Static analysis of our own sources; the arguments are build folders with compile_commands.json,
# one for this system and one for Windows.
set -eu
cd "$(dirname "$0")/.."

# check FOLDER ARGUMENTS PATTERN...: the sources that the patterns name.
check() {
    # shellcheck disable=SC2086 # the arguments are a list of words
    git ls-files -z -- "${@:3}" |
        xargs -0 -n 3 -P "$(nproc)" clang-tidy --quiet --warnings-as-errors='*' -p "$1" $2
}

check "$1" "" 'src/*.cpp' ':!src/desktop/windows'
# The cross compiler's standard library lies where clang doesn't look.
library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++.a)")/include/c++
check "$2" "--extra-arg=-isystem$library --extra-arg=-isystem$library/x86_64-w64-mingw32" \
    'src/desktop/windows/*.cpp'

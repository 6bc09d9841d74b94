#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Static analysis of our own sources; the argument is a build folder with compile_commands.json.
set -eu
cd "$(dirname "$0")/.."
git ls-files -z -- 'src/*.cpp' |
    xargs -0 -n 3 -P "$(nproc)" clang-tidy --quiet --warnings-as-errors='*' -p "$1"

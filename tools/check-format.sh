#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fails where the formatter would change a line.
set -eu
cd "$(dirname "$0")/.."
git ls-files -z -- '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror

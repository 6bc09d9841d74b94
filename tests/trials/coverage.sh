#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures by gcovr what share of the core's branches and of the window's lines the tests reach.
# Branches that only an exception's clean-up takes don't count, nor does what can't be reached.
#   coverage.sh [--teile]     --teile: also file by file
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
core_bar=95
window_bar=80
folder=$builds/coverage
[ -f "$folder/build.ninja" ] || (cd "$home" && cmake --preset coverage -B "$folder" >/dev/null)
cmake --build "$folder" --target core_tests window_tests -- --quiet >&2
find "$folder" -name '*.gcda' -delete
"$folder/tests/core_tests" --gtest_brief=1 >&2
QT_QPA_PLATFORM=offscreen LANG=C "$folder/tests/window_tests" --gtest_brief=1 >&2

# share FIELD PATTERN: the share in per cent of what gcovr counts in files that match.
share() {
    gcovr --root "$home" --object-directory "$folder" --filter "$2" --exclude-throw-branches \
        --exclude-unreachable-branches --json-summary-pretty --json-summary - |
        sed -n "s/^ *\"$1_percent\": *\([0-9.]*\),*$/\1/p" | tail -1
}
core="$home/src/(chances|controls|coup|files|forms|grids|info|progress|shell|stats)/"
window="$home/src/window/"
[ "${1-}" != --teile ] || gcovr --root "$home" --object-directory "$folder" --filter "$core" \
    --exclude-throw-branches --exclude-unreachable-branches --branches
branches=$(share branch "$core")
lines=$(share line "$window")
echo "coverage: $branches % of the core's branches (bar $core_bar), $lines % of the window's lines" \
    "(bar $window_bar), gcovr $(gcovr --version | sed -n '1s/gcovr //p')"
awk -v a="$branches" -v b="$lines" -v c=$core_bar -v d=$window_bar 'BEGIN { exit !(a >= c && b >= d) }'

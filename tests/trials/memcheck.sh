#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the tests under valgrind: no access to what isn't ours, no value never set, no byte lost.
# The tests of failing memory have allocation functions of their own and are left out; so is what
# only reads the sources.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
folder=$builds/dev
[ -f "$folder/build.ninja" ] || (cd "$home" && cmake --preset dev -B "$folder" >/dev/null)
cmake --build "$folder" --target core_tests window_tests -- --quiet
room
passed=0
for tests in core_tests window_tests; do
    QT_QPA_PLATFORM=offscreen LANG=C valgrind --quiet --leak-check=full --error-exitcode=9 \
        --errors-for-leak-kinds=definite,indirect --show-leak-kinds=definite,indirect \
        --num-callers=50 --suppressions="$trials/valgrind.supp" \
        "$folder/tests/$tests" --gtest_brief=1 --gtest_filter=-Memory.*:Architecture.* \
        >"$room/said" 2>&1 || {
        grep -v 'plugin does not support' "$room/said" >&2
        exit 1
    }
    passed=$((passed + $(sed -n 's/.*PASSED *\] \([0-9]*\) tests.*/\1/p' "$room/said")))
done
[ "$passed" -gt 0 ]
echo "memcheck: $passed tests, no fault and no byte lost"

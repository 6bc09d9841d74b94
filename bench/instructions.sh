#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Counts the instructions that one coup costs through each source: a number that no other program
# on the machine can disturb. The first argument is kestrelwood_bench, the second the number of coups.
set -eu
program=$1
coups=$2
notes=$(mktemp)
trap 'rm -f "$notes"' EXIT
for source in click undo load bare-load draw bare-draw resort bare-resort; do
    valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no \
        --toggle-collect='bench::(anonymous namespace)::measured*' \
        "$program" --einmal "$source" "$coups" >/dev/null 2>"$notes" || {
        cat "$notes" >&2
        exit 1
    }
    awk -v source="$source" -v coups="$coups" \
        '/Collected/ { printf "%-12s %10.1f instructions a coup\n", source, $NF / coups }' "$notes"
done

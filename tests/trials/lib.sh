# shellcheck shell=bash
# shellcheck disable=SC2034 # what is set here is used by the trials
# SPDX-License-Identifier: MIT
# Sourced by the trials. KESTRELWOOD_BUILD is another place for build folders, TRIAL_PRESET the
# preset that the programs are built by.
set -eu
trials=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
home=$(cd "$trials/../.." && pwd)
builds=${KESTRELWOOD_BUILD:-$home/build}
preset=${TRIAL_PRESET:-asan}
seed=${SEED:-$((RANDOM * 32768 + RANDOM + 1))}
failures=0

# built TARGET: builds a program; its path is then in $program.
built() {
    local folder=$builds/$preset
    [ -f "$folder/build.ninja" ] ||
        (cd "$home" && cmake --preset "$preset" -B "$folder" >/dev/null)
    cmake --build "$folder" --target "$1" -- --quiet >&2
    case "$1" in
    kestrelwood) program=$folder/kestrelwood ;;
    *) program=$folder/tests/trials/$1 ;;
    esac
}

# room: an empty folder that goes with the script; its path is then in $room.
room() {
    room=$(mktemp -d)
    trap 'chmod -R u+w "$room" 2>/dev/null; rm -rf "$room"' EXIT
}

# expect WHAT WANTED IS: one comparison.
expect() {
    [ "$2" != "$3" ] || return 0
    printf 'Fault: %s\n  wanted: %s\n  is:     %s\n' "$1" "$2" "$3" >&2
    failures=$((failures + 1))
}

# told WHAT REASON OUTPUT: the message must give this reason, "" for no message at all.
told() {
    case "$3" in
    *Fault* | *ERROR* | *"runtime error"*) expect "$1" "no fault" "$3" ;;
    *Fehler:*)
        case "$3" in
        *"$2"*) [ -n "$2" ] || expect "$1" "no message" "$3" ;;
        *) expect "$1" "$2" "$3" ;;
        esac
        ;;
    *) expect "$1" "$2" "" ;;
    esac
}

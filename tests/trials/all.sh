#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs all trials and prints a line for each, with its figure and seed.
#   all.sh            the long form: hours
#   all.sh --kurz     a short form of each: minutes
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
short=
[ "${1-}" != --kurz ] || short=yes
export SEED=$seed KESTRELWOOD_BUILD=$builds PYTHONDONTWRITEBYTECODE=1
export QT_QPA_PLATFORM=offscreen LANG=C
log=$(mktemp -d)
trap 'rm -rf "$log"' EXIT

# trial COMMAND...: its last line is its result; all it said is shown if it fails.
trial() {
    begun=$SECONDS
    if "$@" >"$log/out" 2>&1; then
        printf '%s (%d s)\n' "$(tail -n 1 "$log/out")" $((SECONDS - begun))
    else
        failures=$((failures + 1))
        grep -v 'plugin does not support' "$log/out" | tail -n 40
        printf 'FAILED (%d s): %s\n' $((SECONDS - begun)) "${*#"$home/"}"
    fi
}

# random_user ACTIONS: in the preset at hand.
random_user() {
    built random_user
    "$program" "$1" "$seed"
}

# randomness REPEATS
randomness() {
    preset=dev
    built randomness
    "$program" 10000000 "$1" "$seed"
}

cd "$trials"
trial ./odd_targets.sh
trial ./full_disk.sh
if [ "$short" ]; then
    trial ./odd_files.sh --kurz
    trial ./kill_save.sh 100
    trial randomness 1
    trial random_user 300
    trial ./clicks.py 10000 "$seed"
    trial ./closing.py 3 "$seed"
    trial "$home/fuzz/run" 60s
else
    trial ./odd_files.sh
    trial ./kill_save.sh 1000
    trial randomness 10
    trial random_user 10000
    trial ./clicks.py 10000 "$seed"
    trial ./closing.py 100 "$seed"
    TRIAL_PRESET=dev trial ./closing.py 100 "$seed"
    trial ./memcheck.sh
    trial ./coverage.py
    trial ./mutate.py --count 300 --seed "$seed"
    trial "$home/fuzz/run" 100000000
fi
echo "trials: $failures failed, seed $seed"
[ "$failures" = 0 ]

#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Kills the program at random moments of saving over an old file: afterwards the file must be the
# old one or the new one, whole.
#   kill_save.sh [TRIALS]      SEED in the environment repeats a run
. "$(dirname "$0")/lib.sh"
preset=${TRIAL_PRESET:-dev} # a kill is a kill, and the quick program gets further before it
built files_trial
room
"$program" kill "$room/permanenz.txt" "${1:-1000}" "$seed"

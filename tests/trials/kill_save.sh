#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Kills the program at random moments of saving over an old file: afterwards the file must be the
# old one or the new one, whole.
#   kill_save.sh [TRIALS]      SEED in the environment repeats a run
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
# shellcheck disable=SC2034 # used by built
preset=${TRIAL_PRESET:-dev} # a kill is a kill, and the quick program gets further before it
built files_trial
room
"$program" kill "$room/permanenz.txt" "${1:-1000}" "$seed"

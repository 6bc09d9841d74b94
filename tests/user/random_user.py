#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A user who does anything at random, mostly to a program built with sanitizers; whenever no dialog
is open, all that the program shows must agree.

Usage: random_user.py PROGRAM [ACTIONS [SEED]]
"""
import os
import random
import sys

import desk
from desk import check, keys, run, type_text, wait

KEYS = ["Tab", "shift+Tab", "Left", "Right", "Up", "Down", "Home", "End", "Prior", "Next", "Return",
        "space", "BackSpace", "alt+r", "ctrl+z", "alt+l", "alt+s", "alt+i", "alt+d", "alt+Down",
        "ctrl+a", *"0123456789"]


def act(dice, program):
    kind = dice.random()
    if kind < 0.5:  # the pointer, half of the time on the pad and the buttons
        left, top, width, height = program.place(program.main)
        x = left + dice.randrange(dice.choice((width, 110)))
        run("xdotool", "mousemove", str(x), str(top + dice.randrange(height)), "click", "--delay", "20",
            "--repeat", str(dice.choice((1, 1, 2, 3))), dice.choice("1111345"))
    elif kind < 0.95:
        keys(*dice.choices(KEYS, k=dice.randrange(1, 4)))
    else:
        type_text(os.environ["HOME"] + f"/{dice.randrange(3)}.txt\n")


def agree(program):
    """Leaves what is open; then rows and badges must be of one permanence."""
    for _ in range(40):
        if program.active() == program.main and not program.find("menu"):
            break
        keys("Escape")
    program.back()
    wait(lambda: program.rows() == sum(program.counts()), "as many rows as coups fell", 60)
    rows = program.rows()
    check(rows == 0 or program.row(rows - 1)[0] == str(rows), f"the last of {rows} rows")


desk.own_session()
actions = int(sys.argv[2]) if len(sys.argv) > 2 else 200
seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(10**9)
print(f"random_user.py: {actions} actions, seed {seed}")
dice = random.Random(seed)
desk.open_screen(1280, 1024)
program = desk.Program(sys.argv[1])
for action in range(actions):
    if program.process.poll() is None:
        act(dice, program)
    if program.process.poll() is not None:  # by way of the menu
        program.ends()
        program = desk.Program(sys.argv[1])
    elif action % 10 == 9:
        agree(program)
run("wmctrl", "-c", program.main.name)
program.ends()
desk.finish()

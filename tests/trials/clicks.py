#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Clicks the number pad of the real program thousands of times, faster than any hand, and reads the
saved permanence: every click must be in it, in order.

  clicks.py [CLICKS [SEED]]"""

import os
import random
import sys
import time

import x11

PACE = 2000  # clicks a second that are sent


def main():
    clicks = int(sys.argv[1]) if len(sys.argv) > 1 else 10000
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1, 10**9)
    draw = random.Random(seed)
    # Every third click is on the cell before, and so half of a double click.
    numbers = [draw.randrange(37)]
    while len(numbers) < clicks:
        numbers.append(numbers[-1] if draw.random() < 1 / 3 else draw.randrange(37))
    with x11.Screen(x11.build("kestrelwood", os.environ.get("TRIAL_PRESET", "dev"))) as screen:
        screen.start()
        screen.focus(screen.main)
        left, top, menu = screen.place()
        begun = time.monotonic()
        for i, number in enumerate(numbers):
            x, y = screen.pad(number, menu)
            screen.click(left + x, top + y)
            screen.flush()
            ahead = begun + (i + 1) / PACE - time.monotonic()
            if ahead > 0:
                time.sleep(ahead)
        took = time.monotonic() - begun
        file = screen.folder + "/klicks.txt"
        screen.keys("ctrl+s")
        screen.focus(screen.window("Permanenz speichern", 60))
        screen.enter(file)
        end = time.monotonic() + 20
        while not os.path.exists(file) and time.monotonic() < end:
            time.sleep(0.02)
        saved = [int(line) for line in open(file)]
        screen.close(screen.main)
        code = screen.process.wait(20)
        said = screen.said()
    right = saved == numbers and code == 0 and not said
    if saved != numbers:
        first = next((i for i, pair in enumerate(zip(saved, numbers)) if pair[0] != pair[1]), len(saved))
        print(f"Fault: first difference at coup {first + 1}", file=sys.stderr)
    if said:
        print(said, file=sys.stderr)
    print(f"clicks: {len(saved)} coups of {clicks} clicks at {clicks / took:.0f} a second, "
          f"{'in order' if saved == numbers else 'NOT the same'}, exit code {code}, seed {seed}")
    return 0 if right and clicks / took >= 1000 else 1


if __name__ == "__main__":
    sys.exit(main())

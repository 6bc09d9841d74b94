#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Closes the real program at random moments of a load, a draw, a re-sort and the info dialog with its
melody: it must end by itself, in time, with exit code 0 and without a word from the sanitizers.

  closing.py [TIMES [SEED]]      TIMES of each kind"""

import os
import pathlib
import random
import subprocess
import sys
import time

import x11

LIMIT = {"asan": 5.0}  # seconds; sanitizers are slow, everything else has one second
SIZE = {"asan": 3_000_000}  # coups of a run that is to last while someone closes the window


def begin(screen, kind, place, size):
    """Sets the kind of run going."""
    left, top, menu = place
    if kind == "load":
        screen.keys("ctrl+o")
        screen.focus(screen.window("Permanenz laden"))
        screen.enter(screen.folder + "/lang.txt")
    elif kind == "info":
        screen.xdotool("mousemove", str(left + 58), str(top + menu // 2), "click", "1")
    else:
        screen.xdotool("mousemove", str(left + 50), str(top + menu + 364), "click", "1")
        screen.enter(str(8 * size if kind == "draw" else size))
        if kind == "re-sort":
            screen.window("Berechne . . .")
            screen.gone("Berechne . . .", 120)
            screen.click(left + 130, top + menu + 672)
            screen.flush()


def main():
    times = int(sys.argv[1]) if len(sys.argv) > 1 else 100
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1, 10**9)
    draw = random.Random(seed)
    preset = os.environ.get("TRIAL_PRESET", "asan")
    limit, size = LIMIT.get(preset, 1.0), SIZE.get(preset, 30_000_000)
    program = x11.build("kestrelwood", preset)
    subprocess.run(["cmake", "--build", str(program.parent), "--", "--quiet"], stdout=subprocess.DEVNULL)
    faults, slowest, amid = 0, 0.0, 0
    # What the toolkit and its helpers keep to the end of the process is not ours to free.
    leaks = {"ASAN_OPTIONS": "detect_leaks=0:exitcode=99", "UBSAN_OPTIONS": "print_stacktrace=1"}
    with x11.Screen(program, leaks) as screen:
        with open(screen.folder + "/lang.txt", "w") as file:
            file.write("".join(f" {i % 37} \r\n" for i in range(37)) * (size // 37))
        for kind in ("load", "draw", "re-sort", "info"):
            for _ in range(times):
                screen.start()
                screen.focus(screen.main)
                begin(screen, kind, screen.place(), size)
                time.sleep(draw.uniform(0, {"load": 1.2, "draw": 1.0, "re-sort": 0.06, "info": 1.5}[kind]))
                # No look in a re-sort: it would be over before.
                amid += kind != "re-sort" and bool(screen.xdotool("search", "--onlyvisible", "--name", "^Berechne|^Info"))
                closed = time.monotonic()
                screen.close(screen.main)
                try:
                    code = screen.process.wait(60)
                except subprocess.TimeoutExpired:
                    code = "none"
                    screen.process.kill()
                    screen.process.wait()
                took = time.monotonic() - closed
                slowest = max(slowest, took)
                said = screen.said()
                left_over = [p for p in pathlib.Path("/proc").glob("[0-9]*/environ")
                             if lives_on(p, screen.environment["DISPLAY"], screen.server.pid)]
                if code != 0 or took > limit or said or left_over:
                    faults += 1
                    print(f"Fault: {kind}: exit code {code} after {took:.2f} s, {len(left_over)} processes "
                          f"left\n{said}", file=sys.stderr)
    print(f"closing: {4 * times} times ({amid} amid a run or with the info dialog open), {faults} faults, "
          f"slowest {slowest:.2f} s of {limit:.0f} allowed, seed {seed}")
    return 1 if faults or amid < times else 0


def lives_on(environ, display, server):
    try:
        return f"DISPLAY={display}\0".encode() in environ.read_bytes() and int(environ.parent.name) != server
    except OSError:
        return False


if __name__ == "__main__":
    sys.exit(main())

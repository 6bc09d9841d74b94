#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Works the whole program by keyboard alone and checks each step as a screen reader sees it.

Usage: keyboard.py [program file] [--laut]
"""
import os

import desk
from desk import check, keys, type_text, wait

# What Tab is to meet, in the order that the eye expects: role and name.
STOPS = [
    ("push button", "0"),  # the pad, at its first cell
    ("text", "Autom."),
    ("push button", "Laden"),
    ("push button", "Rückgängig"),
    ("push button", "Reset"),
    ("push button", "Speichern"),
    ("combo box", "Noir/Rouge"),
    ("table", "Sortierte Permanenz"),
    ("check box", "einfache Sortierung"),
    ("check box", "Gitter an"),
    ("text", "Pleins Markieren die genau … mal gefallen sind"),
    ("push button", "Reset"),
    ("text", "Pleins Markieren die mind. … mal gefallen sind"),
    ("push button", "Reset"),
]
PAD, COUNT_BOX, FAMILY, GRID, MODE, LINES, EXACT, EXACT_RESET, LEAST, LEAST_RESET = (
    0, 1, 6, 7, 8, 9, 10, 11, 12, 13)
MOST_STOPS = 19
# The least that a focus mark must change: pixels whose contrast between both looks is 3 to 1.
LEAST_PIXELS = 30


class Walk:
    def __init__(self, program):
        self.program = program
        self.at = PAD
        self.stops = len(STOPS)

    def focus(self):
        node = self.program.focused()
        return (node.getRoleName(), node.name, self.program.rect(node)) if node else None

    def focus_is(self, role, name):
        return wait(lambda: (self.focus() or ())[:2] == (role, name), f"the focus on “{name}”")

    def step(self, key):
        """A key that must move the focus; where it has gone."""
        before = self.focus()
        keys(key)
        wait(lambda: self.focus() not in (before, None), f"{key} leads on from {before}")
        return self.focus()

    def go(self, stop):
        """By Tab or Shift+Tab, whichever is nearer, from the last stop to another one."""
        forward = (stop - self.at) % self.stops
        key, times = ("Tab", forward) if forward <= self.stops / 2 else (
            "shift+Tab", self.stops - forward)
        for _ in range(times):
            self.step(key)
        self.at = stop

    def columns(self):
        table = self.program.table
        return [table.getColumnHeader(column).name for column in range(table.nColumns)]


def luminance(pixel):
    parts = [part / 255 for part in pixel]
    linear = [part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4
              for part in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def clear_changes(one, other, rect):
    """How many pixels in a rectangle and just around it differ by a contrast of 3 to 1."""
    width, height, pixels = one
    left, top, across, down = rect
    count = 0
    for y in range(max(0, top - 2), min(height, top + down + 2)):
        for x in range(max(0, left - 2), min(width, left + across + 2)):
            at = 3 * (y * width + x)
            here, there = pixels[at:at + 3], other[2][at:at + 3]
            if here != there:
                low, high = sorted((luminance(here), luminance(there)))
                count += (high + 0.05) / (low + 0.05) >= 3
    return count


def tab_stops(walk):
    first = walk.focus_is(*STOPS[PAD]) and walk.focus()
    met, pictures = [first], [desk.still_picture()]
    while len(met) <= MOST_STOPS:
        now = walk.step("Tab")
        if now == first:
            break
        met.append(now)
        pictures.append(desk.picture())
    check(len(met) <= MOST_STOPS, f"fewer than 20 tab stops: {len(met)}")
    check([stop[:2] for stop in met] == STOPS, f"the order of the tab stops: {met}")
    for index, stop in enumerate(met):
        changed = clear_changes(pictures[index], pictures[index - 1], stop[2])
        check(changed >= LEAST_PIXELS,
              f"the focus is seen on {stop[:2]}: {changed} pixels change clearly")
    back = [walk.step("shift+Tab") for _ in met]
    check(back == met[1:][::-1] + [first], "Shift+Tab goes the same way back")


def pad(walk):
    program = walk.program
    rect = program.rect(program.control("panel", "Zahlenfeld"))
    before = desk.still_picture()
    for key, cell in [("Down", "2"), ("Left", "1"), ("Down", "4"), ("Right", "5"), ("Up", "2"),
                      ("Up", "0"), ("End", "36"), ("Home", "0")]:
        keys(key)
        walk.focus_is("push button", cell)
        now = desk.still_picture()
        changed = clear_changes(now, before, rect)
        check(changed >= LEAST_PIXELS, f"the pad's focus is seen at {cell}: {changed} pixels")
        before = now
    keys("Down", times=6)
    walk.focus_is("push button", "17")
    keys("Return")
    wait(lambda: program.count(17) == 1, "Enter on 17 enters the coup")
    keys("space")
    wait(lambda: program.count(17) == 2, "Space on 17 enters the coup")
    keys("Up", "Return", "3", "6", "Return")
    wait(lambda: program.count(14) == 1 and program.count(36) == 1, "arrows and digits lead on")
    check(program.rows() == 4, "a row for each coup")
    check(program.row(0)[0] == "1" and "17" in program.row(0), f"the first row: {program.row(0)}")


def undo_and_reset(walk):
    program = walk.program
    keys("ctrl+z")
    wait(lambda: program.count(36) == 0 and program.rows() == 3, "Ctrl+Z takes a coup back")
    keys("alt+r")
    wait(lambda: program.count(14) == 0 and program.rows() == 2, "Alt+R takes a coup back")
    for burst, left in [("alt+r", 2), ("ctrl+z", 1)]:
        keys("Return", times=5 - program.rows())
        wait(lambda: program.rows() == 5, "five coups")
        keys(burst, times=5 - left)
        wait(lambda: program.rows() == left, f"every {burst} of a quick burst counts")
    walk.go(EXACT)
    keys("ctrl+z")
    wait(lambda: program.rows() == 0, "Ctrl+Z from a marking box takes a coup back")
    walk.go(PAD)
    keys("Return")
    wait(lambda: program.rows() == 1, "a coup to be cleared")
    keys("alt+d", "r")
    wait(lambda: program.rows() == 0 and sum(program.counts()) == 0, "Alt+D, R clears everything")
    walk.at = PAD
    walk.focus_is("push button", "36")
    for _ in range(4):
        walk.step("Tab")
    keys("alt+d", "Escape", "Escape")
    walk.focus_is("push button", "Reset")
    walk.at = 4


def draw(walk):
    program = walk.program
    walk.go(COUNT_BOX)
    type_text("x2y5")
    wait(lambda: program.text(program.focused()) == "25", "only digits reach the count box")
    keys("Return")
    wait(lambda: program.rows() == 25 and sum(program.counts()) == 25, "25 coups drawn")
    walk.focus_is("text", "Autom.")
    keys("Return")
    wait(lambda: program.rows() == 50, "Enter draws again")
    asked = 100000000
    for way in ("Escape", "alt+a", "space"):
        before = program.rows()
        keys("ctrl+a")
        type_text(str(asked))
        keys("Return")
        wait(lambda: program.active() == program.window("Berechne . . ."), "the dialog in front")
        check(program.rows() > before, f"{way}: the run is under way")
        if way == "space":
            keys("ctrl+z", "alt+l", "ctrl+q")  # all locked
        keys(way)
        wait(lambda: program.active() == program.main, f"{way} ends the run", 60)
        check(before < program.rows() < before + asked, f"{way}: the coups so far stay")
        check(sum(program.counts()) == program.rows(), f"{way}: counts and rows agree")
        walk.focus_is("text", "Autom.")
    keys("alt+d", "r")
    wait(lambda: program.rows() == 0, "cleared")
    keys("ctrl+a")
    type_text("12")
    keys("Return")
    wait(lambda: program.rows() == 12, "12 coups to work with")


def answer(walk, text):
    """Types into what has the focus and confirms it once all of it has arrived."""
    type_text(text)
    wait(lambda: walk.program.text(walk.program.focused()) == text, f"“{text}” in the box")
    leave(walk, "Return")


def in_dialog(walk, title):
    wait(lambda: walk.program.active() == walk.program.dialog(title), f"“{title}” in front")
    return walk.program.active()


def leave(walk, key):
    keys(key)
    wait(lambda: walk.program.active() == walk.program.main, f"{key} leads back to the main window")


def files(walk):
    program = walk.program
    folder = os.environ["HOME"]
    name = os.path.join(folder, "zwölf.txt")
    for key in ("alt+s", "ctrl+s"):
        keys(key)
        in_dialog(walk, "Permanenz speichern")
        leave(walk, "Escape")
    check(os.listdir(folder).count("zwölf.txt") == 0, "leaving the dialog writes nothing")
    keys("alt+d", "s")
    in_dialog(walk, "Permanenz speichern")
    answer(walk, name)
    with open(name, "rb") as file:
        lines = file.read().split(b"\r\n")
    check(len(lines) == 13 and lines[-1] == b"", f"12 lines are written: {lines}")
    numbers = [int(line) for line in lines[:-1]]
    check([numbers.count(n) for n in range(37)] == program.counts(), "the lines are the coups")
    rows = [program.row(index) for index in range(12)]
    keys("alt+d", "r")
    wait(lambda: program.rows() == 0, "cleared before the load")
    for key in ("alt+l", "ctrl+o"):
        keys(key)
        in_dialog(walk, "Permanenz laden")
        leave(walk, "Escape")
    keys("alt+l")
    in_dialog(walk, "Permanenz laden")
    keys("ctrl+a")
    answer(walk, name)
    wait(lambda: program.rows() == 12, "12 coups loaded")
    check([program.row(index) for index in range(12)] == rows, "the rows are those of before")


def view(walk):
    program = walk.program
    walk.go(FAMILY)
    keys("Down")
    wait(lambda: program.focused().name == "Pair/Impair", "Down takes the next family")
    wait(lambda: walk.columns()[:4] == ["Cp / PI", "P", "Z", "I"], "its columns")
    keys("alt+Down")
    wait(lambda: program.has(program.control("list"), "STATE_SHOWING"), "the open list")
    keys("End", "Return")
    wait(lambda: program.focused() and program.focused().name == "Transversalen Plein",
         "the last family")
    wait(lambda: walk.columns()[13:] == ["#", "13", "14"], "its columns")
    keys("alt+Down")
    wait(lambda: program.has(program.control("list"), "STATE_SHOWING"), "the open list")
    keys("Home", "Return")
    wait(lambda: walk.columns()[0] == "Cp / NR", "the first family again")
    walk.go(MODE)
    keys("space")
    wait(lambda: program.has(program.focused() or program.main, "STATE_CHECKED"), "the mode ticked")
    wait(lambda: all(set(program.row(i)[1:]) <= {"N", "Z", "R", ""} for i in range(12)),
         "codes in place of numbers")
    keys("space")
    wait(lambda: any(cell.isdigit() for cell in program.row(0)[1:]), "numbers again")
    walk.go(LINES)
    before = desk.still_picture()
    keys("space")
    wait(lambda: program.has(program.focused(), "STATE_CHECKED"), "the grid lines ticked")
    rect = program.rect(program.control("table"))
    wait(lambda: clear_changes(desk.picture(), before, rect) > 0 or
         desk.difference(desk.picture(), before)[0] > 500, "grid lines are seen")
    walk.go(GRID)
    keys("Down", "Prior", "End", "Home")


def marking(walk):
    program = walk.program
    walk.go(EXACT)
    keys("space")
    in_dialog(walk, "Pleins genau markieren!")
    answer(walk, "0")
    wait(lambda: program.text(program.focused()) == "0", "the count in its box")
    marked = [number for number, node in enumerate(program.tableau[1])
              if "markiert" in node.description]
    check(marked == [n for n, count in enumerate(program.counts()) if count == 0],
          f"the numbers that haven't fallen are marked: {marked}")
    walk.go(EXACT_RESET)
    keys("space")
    walk.go(EXACT)
    wait(lambda: program.text(program.focused()) == "", "Space on “Reset” clears the box")
    walk.go(LEAST)
    keys("Return")
    in_dialog(walk, "Pleins mind. markieren!")
    type_text("1001")
    keys("Return")
    in_dialog(walk, "Fehler")
    leave(walk, "Return")
    check(program.text(program.focused()) == "", "a value out of range is refused")
    keys("space")
    in_dialog(walk, "Pleins mind. markieren!")
    leave(walk, "Escape")
    wait(lambda: program.text(program.focused()) == "0", "an empty answer reads as 0")
    walk.go(LEAST_RESET)
    keys("Return")
    walk.go(LEAST)
    wait(lambda: program.text(program.focused()) == "", "Enter on “Reset” clears the box")


def info(walk):
    program = walk.program
    for key in ("Return", "Escape"):
        keys("alt+i")
        in_dialog(walk, "Info")
        wait(lambda: program.focused(), "a focus in Info")
        check(program.focused().name == "OK", "Info begins at “OK”")
        leave(walk, key)
    keys("alt+i")
    in_dialog(walk, "Info")
    walk.step("Tab")
    check(program.focused().name == "System-Info...", "then comes “System-Info...”")
    leave(walk, "Escape")


def main():
    desk.own_session()
    desk.Screen(manager=["openbox", "--sm-disable"])
    program = desk.Program(desk.program_from_arguments())
    wait(lambda: program.active() == program.main, "the main window in front")
    walk = Walk(program)
    tab_stops(walk)
    pad(walk)
    undo_and_reset(walk)
    draw(walk)
    files(walk)
    view(walk)
    marking(walk)
    info(walk)
    keys("ctrl+q")
    check(program.quits(), "Ctrl+Q ends the program")
    for way in (["alt+d", "b"], ["alt+F4"]):
        program = desk.Program(desk.program_from_arguments())
        wait(lambda: program.active() == program.main, "the main window in front")
        keys(*way)
        check(program.quits(), f"{way} ends the program")
    desk.finish()


if __name__ == "__main__":
    main()

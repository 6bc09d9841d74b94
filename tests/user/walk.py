#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""One walk of a user through the real program, by keyboard and by screen reader, on an easy screen
and on a hard one.

Usage: walk.py PROGRAM
"""
import os
import re
import sys
import time

import numpy

import desk
from desk import check, contrast, keys, picture, type_text, wait

ENDLESS = 400_000_000
LONG = 20_000_000  # gives labels of eight digits
MOST_STOPS = 19
LEAST_PIXELS = 30  # that a focus mark changes by a contrast of 3 to 1
LISTS = ("table cell", "list item", "tree item", "tree table", "list")
ENGLISH = re.compile(r"\b(Cancel|Open|Save|Yes|No|Close|Back|Forward|Parent|Create|List|Detail|Name:|"
                     r"Files?|Look in|Date|Size|Type)\b")


def operable(program, window):
    return [node for node in program.nodes(window) if program.has(node, "FOCUSABLE")
            and node.getRoleName() not in LISTS and node not in program.pad]


def spoken(program, window):
    """Whatever takes the focus has a name, and buttons an action; nothing is English."""
    def look(node):
        role = node.getRoleName()
        acts = role in ("push button", "check box", "combo box") and program.has(node, "ENABLED") and [
            node.queryAction().getName(i) for i in range(node.queryAction().nActions)]
        return role, node.name, node.description, program.has(node, "FOCUSABLE"), acts
    for role, name, description, focusable, acts in wait(
            lambda: [look(node) for node in program.nodes(window)], f"a look at “{window.name}”"):
        what = f"{window.name}: {role} “{name}”"
        check(name.strip() or not focusable or role in LISTS, what + " has a name")
        check(acts is False or {"Press", "Toggle"} & set(acts), f"{what} is pressed: {acts}")
        check(not ENGLISH.search(name + "|" + description), what + " is German")


def step(program, key):
    """A key that must move the focus; where it has gone."""
    last = program.focused()
    keys(key)
    return wait(lambda: program.focused() not in (last, None) and program.focused(),
                f"{key} leads on from {last}")


def go(program, name):
    """Tab by tab to the next stop of this name."""
    for _ in range(MOST_STOPS):
        node = program.focused()
        if not node or node.name != name:
            node = step(program, "Tab")
        if node.name == name:
            return node
    return check(False, f"“{name}” is reached")


def marked(program, node, now, before):
    """The focus is seen: it changes the look of what has it."""
    left, top, width, height = program.rect(node)
    box = slice(max(0, top - 2), top + height + 2), slice(max(0, left - 2), left + width + 2)
    seen = (contrast(now[box], before[box]) >= 3).sum()
    check(seen >= LEAST_PIXELS, f"the focus is seen on {node}: {seen} pixels")


def tab_stops(program):
    """Tab reaches all that can be operated, panel by panel, in reading order; each stop is heard
    and seen; Shift+Tab goes the same way back."""
    panels = [program.rect(node)[0] for node in program.nodes() if node.getRoleName() == "panel"]

    def reading(node):
        left, top = program.rect(node)[:2]
        return sum(panel <= left for panel in panels), top, left
    wanted = [program.pad[0], *sorted(operable(program, program.main), key=reading)]
    wanted = [node for node in wanted if node.getRoleName() != "panel"]
    met, shots = [wait(program.focused, "a focus at the start")], [picture()]
    while len(met) < len(wanted):
        met.append(step(program, "Tab"))
        shots.append(picture())
    check(met == wanted and len(met) <= MOST_STOPS,
          f"Tab goes in reading order: {[*map(str, met)]}, wanted: {[*map(str, wanted)]}")
    check(step(program, "Tab") == met[0], "Tab comes round")
    for index, node in enumerate(met):
        marked(program, node, shots[index], shots[index - 1])
    check([step(program, "shift+Tab") for _ in met] == met[::-1], "Shift+Tab goes the same way back")


def consistent(program, coups):
    """Counters, rows and what is told agree with the coups."""
    wait(lambda: program.rows() == len(coups), f"{len(coups)} rows")
    wait(lambda: program.counts() == [coups.count(n) for n in range(37)], f"badges of {coups}")
    for pair in ("Noir|Rouge", "Pair|Impair", "Passe|Manque", r"\d.K", r"\d.D"):
        parts = [re.fullmatch(rf" ({pair})= (\d+)", label.name) for label in program.labels]
        check(sum(int(part[2]) for part in parts if part) == len(coups) - coups.count(0), pair)
    check(program.find("label", f"gefallene Pleins: {len(set(coups))} / 37 "), "fallen numbers")
    for index, number in list(enumerate(coups))[-40:]:
        row = program.row(index)
        check(row[0] == str(index + 1) and {str(number)} == set(row[1:]) - {""}, f"{number}: {row}")


def coups_by_hand(program):
    for key, number in (("End", 36), ("Home", 0), ("Down", 2), ("Left", 1), ("Up", 0)):
        before = picture()
        check(step(program, key) == program.pad[number], f"{key} leads to {number}")
        marked(program, program.pad[number], picture(), before)
    keys("Down", times=6)
    wait(lambda: program.focused() == program.pad[17], "six rows down from 0")
    keys("Return", "space", "3", "6", "Return")
    coups = [17, 17, 36]
    consistent(program, coups)
    names = "object:property-change:accessible-name"
    program.pyatspi.Registry.registerEventListener(program.hear, names)
    check(all(map(program.press, program.pad)), "a screen reader presses each number")
    coups += range(37)
    consistent(program, coups)
    wait(lambda: program.hears("accessible-name", program.badges[17]), "the badge tells its new count")
    program.pyatspi.Registry.deregisterEventListener(program.hear, names)  # runs tell too much
    check("2. Dutzend, 3 mal gefallen" in program.numbers[17].description, "what 17 tells")
    for burst in ("alt+r", "ctrl+z"):
        keys(burst, times=5)
        del coups[-5:]
        consistent(program, coups)
    program.press(program.find("push button", "Rückgängig"))
    consistent(program, coups[:-1])
    return coups[:-1]


def marks(program, index):
    """What stands in a row below which caption."""
    return [pair for pair in list(zip(program.heads(), program.row(index)))[1:] if pair[1]]


def view(program, coups):
    go(program, "Sortierung")
    seen = [program.heads()[0]]
    while program.focused().queryText().getText(0, -1) != "Transversalen Plein":
        keys("Down")
        seen.append(wait(lambda: program.heads()[0] not in seen and program.heads()[0], "its captions"))
        program.back()
        check(all(head for index in (3, 4, 20) for head, cell in marks(program, index)), f"{seen[-1]}")
    check(len(seen) == 7, f"families: {seen}")
    keys("alt+Down")
    wait(lambda: program.focused().getRoleName() == "list", "the open list")
    keys("Home", "Return")
    wait(lambda: program.heads()[0] == seen[0], "the first family again")
    program.back()
    box = go(program, "einfache Sortierung")
    for ticked in (1, 0):
        keys("space")
        wait(lambda: program.hears("checked", box, ticked), "a screen reader is told of the mode")
        wait(lambda: all((head == cell) == ticked for head, cell in marks(program, 20)), "its marks")
    go(program, "Gitter an")
    before = picture()
    keys("space")
    wait(lambda: (picture() != before).any(axis=2).sum() > 500, "grid lines are seen")


def menu(program, letter, done):
    """By the menu; once more where a late word of the window manager has closed it."""
    def again():
        if not done():
            keys("alt+d", letter)
            time.sleep(2)
        return done()
    wait(again, f"the menu's entry {letter}")


def told(program, title, key):
    """A dialog that is looked at by a screen reader and left again."""
    spoken(program, program.front(title))
    keys(key)


def marking(program, coups):
    for ways, least, most in (("genau", 1, 1), ("mind.", 1, 99)):
        box = go(program, f"Pleins Markieren die {ways} … mal gefallen sind")
        for value in ("1001", "1"):
            keys("space")
            spoken(program, program.front(f"Pleins {ways} markieren!"))
            program.answer(value)
            if value == "1001":
                told(program, "Fehler", "Return")
            program.back()
        wanted = [n for n in range(37) if least <= coups.count(n) <= most]
        wait(lambda: program.text(box) == "1", "the count in its box")
        wait(lambda: [n for n in range(37) if "markiert" in program.numbers[n].description] == wanted,
             f"marked: {wanted}")
        keys("Tab", "space", "shift+Tab")
        wait(lambda: program.text(box) == "", "“Reset” clears the box")


def files(program, coups):
    name = os.path.join(os.environ["HOME"], "zwölf.txt")
    for key in ("alt+s", "ctrl+s"):
        keys(key)
        told(program, "Permanenz speichern", "Escape")
        program.back()
    menu(program, "s", lambda: program.active() != program.main)
    program.front("Permanenz speichern")
    program.answer(name)
    program.back()
    with open(name, "rb") as file:
        check(file.read() == b"".join(b" %d \r\n" % coup for coup in coups), "the file's bytes")
    menu(program, "r", lambda: program.rows() == 0)
    consistent(program, [])
    keys("alt+l")
    program.front("Permanenz laden")
    program.answer(name)
    consistent(program, coups)
    keys("ctrl+o")
    told(program, "Permanenz laden", "Escape")
    program.back()


def info(program):
    for key in ("Return", "Escape"):
        keys("alt+i")
        texts = [node.name for node in program.nodes(program.front("Info"))]
        check(any(re.fullmatch(r"\d+\.\d+\.\d+", text) for text in texts), f"a version: {texts}")
        go(program, "System-Info...")
        go(program, "OK")
        told(program, "Info", key)
        program.back()


def runs(program):
    """A series too long to wait for: told, locked, cancelled in every way."""
    for way in ("Escape", "alt+a", "space"):
        before = program.rows()
        draw(program, ENDLESS)
        window, looks = program.front("Berechne . . ."), []
        status = wait(lambda: next(node for node in window if "Status" in node.name), "the status")
        bar = program.find("progress bar", None, window).queryValue()

        def look():
            percent = re.fullmatch(rf" Status: Berechne \d+ / {ENDLESS} \((\d+) %\)", status.name)[1]
            looks.append((int(percent) / 100, bar.currentValue / bar.maximumValue))
            return len(set(looks)) >= 3
        wait(look, "three steps of the bar")
        check(looks == sorted(looks) and all(abs(a - b) < 0.1 for a, b in looks), f"rises: {looks}")
        check(not program.has(program.pad[3], "ENABLED"), "the pad is closed in a run")
        program.press(program.pad[3])
        keys("ctrl+z", "alt+l", way)
        program.back()
        check(before < program.rows() < before + ENDLESS, f"{way}: the coups so far stay")
        wait(lambda: sum(program.counts()) == program.rows(), "counts and rows agree")
    program.press(program.find("push button", "Reset"))
    consistent(program, [])


def uncut(program):
    """No text in view reaches the edges of a button or of a label of the tableau."""
    shot = picture()
    bottom = program.place(program.main)[1] + program.place(program.main)[3]
    nodes = [node for node in operable(program, program.main) if node.getRoleName() == "push button"]
    for inset, node in [*((3, node) for node in nodes), *((1, node) for node in program.labels)]:
        left, top, width, height = program.place(node)
        if top + height <= bottom:
            rim = shot[top + 4:top + height - 4, [left + inset, left + width - 1 - inset]]
            ink = (contrast(rim, numpy.median(rim, axis=0) + 0 * rim) >= 3).sum()
            check(ink == 0, f"“{node.name}” is uncut: {ink} pixels at its edges")


def draw(program, count):
    box = go(program, "Autom.")
    keys("ctrl+a")
    type_text(f"x{count}y")
    wait(lambda: program.text(box) == str(count), "digits alone reach the box")
    keys("Return")


def hard_screen():
    """A small screen, a broken scale, a dark desktop, one font that nobody planned for; and a user
    who closes the window in a run."""
    fonts = os.path.join(os.environ["HOME"], "fonts.conf")
    with open(fonts, "w", encoding="ascii") as conf:
        conf.write("<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir></fontconfig>")
    desk.open_screen(1366, 768)
    program = desk.Program(sys.argv[1], QT_SCALE_FACTOR="1.25", QT_QPA_PLATFORMTHEME="gtk3",
                           GTK_THEME="Adwaita:dark", FONTCONFIG_FILE=fonts)
    left, top, across, down = program.place(program.main)
    check(min(left, top) >= 0 and left + across <= 1366 and top + down <= 768, "on the screen")
    check(numpy.median(picture()[top:top + down, left:left + across]) > 200, "light on a dark desktop")
    draw(program, LONG)
    wait(lambda: sum(program.counts()) == LONG, "all coups drawn", 120)
    program.back()
    uncut(program)
    for _ in range(MOST_STOPS):
        node = step(program, "Tab")
        x, y, wide, high = program.place(node)
        check(node == program.grid or x >= left and y >= top and x + wide <= left + across
              and y + high <= top + down, f"{node} is in view")
    draw(program, ENDLESS)
    program.front("Berechne . . .")
    desk.run("wmctrl", "-c", program.main.name)
    program.ends(5)


desk.own_session()
desk.open_screen(1280, 1024)
easy = desk.Program(sys.argv[1])
spoken(easy, easy.main)
uncut(easy)
tab_stops(easy)
entered = coups_by_hand(easy)
for part in (view, marking, files):
    part(easy, entered)
info(easy)
runs(easy)
menu(easy, "b", lambda: easy.process.poll() is not None)
easy.ends()
hard_screen()
desk.finish()

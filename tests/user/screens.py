#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""One look at the program on one kind of screen; screens.sh goes through all of them.

Usage: screens.py look PICTURE [program file] [coups]   the main window with coups, saved as a picture
       screens.py crisp [program file]                  lines on whole pixels, no gaps
       screens.py small [program file]                  a screen of 1366 x 768 with a panel
       screens.py words [program file]                  every dialog speaks German
       screens.py pointer [program file]                a busy pointer while the program works
"""
import os
import re
import sys

import desk
import reader
from desk import check, keys, wait

SERIES = [17, 0, 36, 17, 2, 5, 29, 17, 36, 11]
PANEL = 40  # pixels of the small screen that a desktop's panel takes


def start(size="1280x1024", manager=("openbox", "--sm-disable")):
    desk.Screen(size, manager)
    program = desk.Program(desk.program_from_arguments())
    wait(lambda: program.active() == program.main, "the main window in front")
    return program


def scale():
    return float(os.environ.get("QT_SCALE_FACTOR", "1"))


def device_rect(program, node):
    """The place of a node in the screen's own pixels, beside what the screen reader is told."""
    left, top, width, height = program.rect(node)
    told = desk.run("xwininfo", "-name", program.main.name)
    x, y = (int(re.search(rf"Absolute upper-left {axis}: +(-?\d+)", told)[1]) for axis in "XY")
    corner = program.rect(program.main)
    return (round(x + (left - corner[0]) * scale()),
            round(y + (top - corner[1]) * scale()),
            round(width * scale()), round(height * scale()))


def park_pointer():
    desk.run("xdotool", "mousemove", "0", "0")


def look():
    program = start("2560x1700")
    park_pointer()
    theme = os.environ.get("QT_QPA_PLATFORMTHEME")
    if theme:
        with open(f"/proc/{program.process.pid}/maps", encoding="utf-8") as maps:
            check(f"libq{theme}.so" in maps.read(), f"the desktop's theme {theme} takes part")
    many = next((int(word) for word in sys.argv if word.isdigit()), 0)
    if many:
        reader.draw(program, many)
        wait(lambda: program.rows() == many and program.active() == program.main, "all drawn", 300)
    for number in SERIES:
        program.press(program.pad[number])
    wait(lambda: sum(program.counts()) == many + len(SERIES), "the coups entered")
    program.press(program.control("check box", "Gitter an"), "Toggle")
    box = program.control("text", "Pleins Markieren die mind. … mal gefallen sind")
    box.queryComponent().grabFocus()
    wait(lambda: program.has(box, "STATE_FOCUSED"), "the focus on the box")
    keys("space")
    wait(lambda: program.active() == program.window("Pleins mind. markieren!"), "the prompt")
    keys("2", "Return")
    wait(lambda: program.text(box) == "2" and program.active() == program.main, "the marking")
    desk.save(desk.still_picture(device_rect(program, program.main)), sys.argv[2])


def crisp():
    """Lines that lie across or along the screen have the colours of the plan and no others: a line
    between two pixels would show a mixture."""
    program = start("2560x1700")
    park_pointer()
    tableau = program.control("panel", "Tableau")
    left, top, _, _ = device_rect(program, tableau)
    width, _, pixels = desk.still_picture()

    def colours(x1, y1, x2, y2):
        """Of a strip in twips of the panel; one of both extents is a single line."""
        at = [(round(left + x / 15 * scale()), round(top + y / 15 * scale()))
              for x, y in ((x1, y1), (x2, y2))]
        return {pixels[3 * (y * width + x):3 * (y * width + x) + 3]
                for y in range(at[0][1], at[1][1] + 1) for x in range(at[0][0], at[1][0] + 1)}
    black, cloth, face = bytes((0, 0, 0)), bytes((0, 192, 0)), bytes((240, 240, 240))
    for what, strip, wanted in [
            ("the cloth's left edge", (900, 2000, 1700, 2000), {face, black, cloth}),
            ("the cloth's upper edge", (2000, 700, 2000, 1100), {face, black, cloth}),
            ("the upper frame", (1700, 1500, 1700, 2000), {black, cloth}),
            ("the right frame", (6300, 2300, 7100, 2300), {face, black, cloth}),
            ("the gap between two rows of numbers", (3180, 2250, 4700, 2250), {black}),
            ("the gap between two columns of numbers", (3697, 1800, 3697, 8000), {black})]:
        found = colours(*strip)
        check(found <= wanted, f"scale {scale()}: {what} is crisp: {found - wanted}")
    pad = device_rect(program, program.control("panel", "Zahlenfeld"))
    cells = [device_rect(program, cell) for cell in program.pad]
    for one, other in ((1, 2), (1, 4), (20, 21), (33, 36)):
        a, b = cells[one], cells[other]
        overlap = (a[0] + a[2] - b[0]) if one + 1 == other else (a[1] + a[3] - b[1])
        check(overlap >= 1, f"scale {scale()}: no gap between {one} and {other}: {overlap}")
    middle = cells[2][1] - round(3 * scale())  # above the row of 1 to 3, beside the zero
    strip = {pixels[3 * (middle * width + x):][:3] for x in range(pad[0] + 2, cells[0][0] - 2)}
    check(strip == {cloth}, f"scale {scale()}: the pad's ground: {strip}")


def small():
    """Everything is reached by Tab and is in view then."""
    settings = os.path.join(os.environ["HOME"], "manager.xml")
    with open(settings, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc"><margins>'
                   f"<bottom>{PANEL}</bottom></margins></openbox_config>")
    program = start("1366x768", ("openbox", "--sm-disable", "--config-file", settings))
    right, bottom = 1366, 768 - PANEL
    frame = program.rect(program.main)
    check(frame[0] >= 0 and frame[1] >= 0 and frame[0] + frame[2] <= right
          and frame[1] + frame[3] <= bottom, f"the window keeps to the screen: {frame}")
    inner = (frame[0], frame[1], frame[0] + frame[2], frame[1] + frame[3])
    wait(program.focused, "the focus at the start")
    seen = []
    while len(seen) < 20:
        node = program.focused()
        name = (node.getRoleName(), node.name)

        def in_view():
            place = program.rect(node)
            return (place[0] >= inner[0] and place[1] >= inner[1] and place[0] + place[2] <= inner[2]
                    and place[1] + place[3] <= inner[3])
        check(in_view() or name[0] == "table", f"{name} is in view: {program.rect(node)} in {inner}")
        seen.append(name)
        keys("Tab")
        wait(lambda: program.focused() and program.focused() != node, "Tab leads on")
        if program.focused().name == "0":
            break
    check(len(seen) == 14, f"all controls are reached: {seen}")
    keys("End")
    wait(lambda: program.focused().name == "36", "the last cell of the pad")
    place = program.rect(program.focused())
    check(place[1] + place[3] <= inner[3] and place[1] >= inner[1], f"it is in view: {place}")


def words():
    program = start()
    for button, title in (("Laden", "Permanenz laden"), ("Speichern", "Permanenz speichern")):
        program.press(program.control("push button", button))
        window = program.dialog(title)
        reader.english(program, window)
        check(program.find("push button", "Abbrechen", window), f"{title}: “Abbrechen”")
        wait(lambda: program.active() == window, f"“{title}” in front")
        keys("Escape")
        wait(lambda: program.active() == program.main, "the dialog gone")
    # A name that exists, a file that doesn't, a number out of range: the three messages.
    name = os.path.join(os.environ["HOME"], "da.txt")
    with open(name, "w", encoding="ascii") as file:
        file.write("17\r\n")
    for key, title, text, message in [
            ("ctrl+s", "Permanenz speichern", name, "Permanenz speichern"),
            ("ctrl+o", "Permanenz laden", name + ".fort", None)]:
        keys(key)
        wait(lambda: program.active() == program.dialog(title), f"“{title}” in front")
        keys("ctrl+a")
        desk.type_text(text)
        before = program.active()
        keys("Return")
        box = wait(lambda: program.active() not in (before, None, program.main)
                   and program.active(), f"the message behind “{title}”")
        reader.english(program, box)
        check(message in (None, box.name), f"the message's title: {box.name}")
        while program.active() != program.main:
            front = program.active()
            keys("Escape")
            wait(lambda: program.active() not in (front, None), "a window less")
    box = program.control("text", "Pleins Markieren die genau … mal gefallen sind")
    box.queryComponent().grabFocus()
    wait(lambda: program.has(box, "STATE_FOCUSED"), "the focus on the box")
    keys("space")
    wait(lambda: program.active() == program.window("Pleins genau markieren!"), "the prompt")
    reader.english(program, program.active())
    check(program.find("push button", "Abbrechen", program.active()), "prompt: “Abbrechen”")
    desk.type_text("-1")
    keys("Return")
    wait(lambda: program.active() == program.window("Fehler"), "the refusal")
    reader.english(program, program.active())
    keys("Return")
    wait(lambda: program.active() == program.main, "the main window in front")


def pointer():
    """The shape of the pointer over the main window, at rest and in a run."""
    import ctypes
    program = start()

    class Image(ctypes.Structure):
        _fields_ = [(name, kind) for name, kind in (
            ("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort),
            ("height", ctypes.c_ushort), ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort),
            ("serial", ctypes.c_ulong), ("pixels", ctypes.POINTER(ctypes.c_ulong)))]
    x11, fixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    fixes.XFixesGetCursorImage.argtypes = [ctypes.c_void_p]
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(Image)
    screen = x11.XOpenDisplay(None)
    left, top, width, height = program.rect(program.main)
    desk.run("xdotool", "mousemove", str(left + width // 2 - 30), str(top + height - 60))

    def shape():
        image = fixes.XFixesGetCursorImage(screen).contents
        return (image.width, image.height,
                tuple(image.pixels[i] for i in range(image.width * image.height)))
    rest = shape()
    reader.draw(program, reader.ENDLESS)
    wait(lambda: shape() != rest, "the pointer turns busy in a run")
    wait(lambda: program.active() == program.window("Berechne . . ."), "the dialog in front")
    keys("Escape")
    wait(lambda: program.active() == program.main, "the end of the run")
    wait(lambda: shape() == rest, "the pointer is the usual one again")


desk.own_session()
{"look": look, "crisp": crisp, "small": small, "words": words, "pointer": pointer}[sys.argv[1]]()
desk.finish()

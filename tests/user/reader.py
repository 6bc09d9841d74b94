#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Reads the program as a screen reader does: names, values, places, actions, states, live changes.

Usage: reader.py [program file] [--laut] [--baum]    (--baum prints the tree)
"""
import re
import sys
import time

import desk
import plan
from desk import check, keys, wait

MANY = 10_000_000
ENDLESS = 100_000_000
AT_ONCE = 1.0  # seconds for a screenful of cells
RED = {1, 3, 5, 7, 9, 12, 14, 16, 18, 19, 21, 23, 25, 27, 30, 32, 34, 36}
CAPTIONS = [
    ["Cp / NR", "N", "Z", "R"], ["Cp / PI", "P", "Z", "I"], ["Cp / PsM", "Ps", "Z", "M"],
    ["Cp / K", "K1", "K2", "K3"], ["Cp / D", "D1", "D2", "D3"],
    ["Cp / TVS", *"123456", "#", "7", "8", "9", "10", "11"],
    ["Cp / TVP", *map(str, range(1, 13)), "#", "13", "14"],
]


def chances(number):
    """The chances of a number by the control that counts them."""
    if number == 0:
        return {("XPLabel_TVP", 13), ("XPLabel_TVP", 14)}
    belongs = {
        ("XPLabel_R" if number in RED else "XPLabel_N", 0),
        ("XPLabel_I" if number % 2 else "XPLabel_P", 0),
        ("XPLabel_M" if number <= 18 else "XPLabel_Ps", 0),
        ("XPLabel_K", (number - 1) % 3 + 1), ("XPLabel_D", (number - 1) // 12 + 1),
        ("XPLabel_TVS", (number - 1) // 6 + 1), ("XPLabel_TVP", (number - 1) // 3 + 1)}
    if 4 <= number <= 33:
        belongs.add(("XPLabel_TVS", (number - 4) // 6 + 7))
    if number <= 3:
        belongs |= {("XPLabel_TVP", t) for t in (13, 14) if number in ((1, 2), (2, 3))[t - 13]}
    return belongs


WORDS = {"XPLabel_N": "Noir", "XPLabel_R": "Rouge", "XPLabel_P": "Pair", "XPLabel_I": "Impair",
         "XPLabel_Ps": "Passe", "XPLabel_M": "Manque"}


def caption(control, count):
    """What a counter shows, without the blanks that surround it."""
    name, index = control
    return f"{WORDS[name] if name in WORDS else f'{index}.{name[8:]}'}= {count}"


def dump(program):
    for node in program.nodes():
        if "--baum" in sys.argv:
            print(node.getRoleName(), repr(node.name), repr(node.description), program.rect(node))


def named(program, window):
    """Cells of a list of files may be empty; what isn't in view can't be reached."""
    nameless = [(node.getRoleName(), program.rect(node)) for node in program.nodes(window)
                if program.has(node, "STATE_FOCUSABLE") and program.shown(node)
                and node.getRoleName() != "table cell" and not node.name.strip()]
    check(not nameless, f"{window.name}: everything that takes the focus has a name: {nameless}")


def english(program, window):
    words = {node.name for node in program.nodes(window)} | {
        node.description for node in program.nodes(window)}
    found = [word for word in words if re.search(
        r"\b(Cancel|Open|Save|Yes|No|Close|Back|Forward|Parent|Create|List View|Detail|Name:|"
        r"Files? of|Look in|Date Modified|Size|Type)\b", word)]
    check(not found, f"{window.name}: nothing is English: {found}")


def counters(program, coups):
    labels, numbers, badges = program.tableau
    wanted = sorted(caption(control, sum(control in chances(coup) for coup in coups))
                    for control in plan.counter_labels())
    shown = sorted(label.name.strip() for label in labels)
    check(shown == wanted, f"the counters after {coups}: {set(shown) ^ set(wanted)}")
    check([badge.name for badge in badges] == [str(coups.count(n)) for n in range(37)],
          f"the badges after {coups}")
    for number in (0, 17, 36):
        told = numbers[number].description
        check(f"{coups.count(number)} mal gefallen" in told, f"what {number} tells: {told}")
    fallen = program.control("label", f"gefallene Pleins: {len(set(coups))} / 37 ")
    check(fallen, "how many numbers have fallen")


def places(program):
    frame = program.rect(program.main)
    origin = program.rect(program.control("panel", "Eingabe"))[:2]
    client = (1016, 714 + origin[1] - frame[1])
    check(frame[2:] == client, f"the client area: {frame[2:]} for {client}")
    wanted = []  # role, name or None, rectangle, may be wider
    names = {("xpFrame", 2): "Zahlenfeld", ("Text", 0): "Autom.",
             ("Text", 1): "Pleins Markieren die genau … mal gefallen sind",
             ("Text", 2): "Pleins Markieren die mind. … mal gefallen sind",
             ("xpCombo", 0): "Sortierung", ("Grid", 0): "Sortierte Permanenz",
             ("Image1", 0): "Programmsymbol"}
    roles = {"xpFrame": "panel", "Text": "text", "xpButton": "push button", "xpCombo": "combo box",
             "Grid": "table", "Check": "check box", "Image1": "image", "Label": "label"}
    for (_, _, rect, title), part in zip(plan.section("Panels"),
                                         ("Eingabe", "Sortierung", "Tableau")):
        wanted.append(("panel", title, rect, False))
        for name, index, inside, text in plan.section(part):
            if name == "Label1":
                continue  # empty, so there is nothing to be read
            if name == "Grid":  # as wide as the first family asks
                inside = plan.pixels(120, 720, 2010, 9255)
            if (name, index) == ("Label", 4):
                text = "gefallene Pleins: 0 / 37 "
            wanted.append((roles[name], names.get((name, index), text), plan.moved(inside, rect),
                           name == "Label"))
    found = {}
    for node in program.nodes():
        found.setdefault((node.getRoleName(), node.name), []).append(
            plan.moved(program.rect(node), (-origin[0], -origin[1])))
    for role, name, rect, wider in wanted:
        there = found.get((role, name), [])
        right = rect in there or wider and any(
            place[:2] == rect[:2] and place[2] >= rect[2] and place[3] >= rect[3]
            for place in there)
        check(right, f"{role} “{name}” stands at {rect}: {there}")
    pad, tableau = (wanted[index][2] for index in (
        next(i for i, row in enumerate(wanted) if row[1] == "Zahlenfeld"),
        next(i for i, row in enumerate(wanted) if row[1] == "Tableau")))
    labels, numbers, badges = program.tableau
    for what, nodes, rects, start in [("pad cell", program.pad, plan.PAD, pad),
                                      ("number", numbers, plan.NUMBERS, tableau),
                                      ("badge", badges, plan.BADGES, tableau)]:
        for index, (node, rect) in enumerate(zip(nodes, rects)):
            place = program.rect(node)
            target = plan.moved(plan.moved(rect, start), origin)
            check(place == target, f"{what} {index} stands at {target}: {place}")
    shown = {label.name.strip(): program.rect(label) for label in labels}
    for control, rect in plan.counter_labels().items():
        target = plan.moved(plan.moved(rect, tableau), origin)
        place = shown.get(caption(control, 0))
        check(place == target, f"{control} stands at {target}: {place}")


def dialog_places(program, window, section, names):
    corner = program.rect(window)
    for name, index, rect, text in plan.section(section):
        if name not in names:
            continue
        role, shown = names[name]
        node = program.find(role, shown if shown is not None else text, window)
        place = node and plan.moved(program.rect(node), (-corner[0], -corner[1]))
        fits = place and place[:2] == rect[:2] and (
            place[2:] == rect[2:] or role == "label" and place[2] >= rect[2])
        check(fits, f"{window.name}: {name}({index}) stands at {rect}: {place}")


class Ear:
    """Hears what the program tells of its own accord."""

    def __init__(self, program, *kinds):
        from gi.repository import GLib
        self.context = GLib.MainContext.default()
        self.heard = []
        program.pyatspi.Registry.registerEventListener(self._hear, *kinds)

    def _hear(self, event):
        # As a screen reader does: told of a change, it reads anew.
        self.heard.append((str(event.type), event.source, event.source.name))

    def hears(self, test):
        while self.context.pending():
            self.context.iteration(False)
        return any(test(event) for event in self.heard)


def pad(program):
    ear = Ear(program, "object:property-change:accessible-name",
              "object:property-change:accessible-description")
    coups = []
    check([cell.name for cell in program.pad] == [str(n) for n in range(37)], "the pad's names")
    for number in [*range(37), 17, 17, 0]:
        coups.append(number)
        check(program.press(program.pad[number]), f"{number} has a press action")
    wait(lambda: program.rows() == len(coups), "every press enters its coup")
    wait(lambda: sum(program.counts()) == len(coups), "the badges follow with the next picture")
    counters(program, coups)
    badge = program.tableau[2][17]
    wait(lambda: ear.hears(lambda event: event[1] == badge and event[2] == "3"),
         "the badge tells its new value")
    rouge = next(label for label in program.tableau[0] if "Rouge" in label.name)
    wait(lambda: ear.hears(lambda event: event[1] == rouge and "18" in event[2]),
         "the counter of Rouge tells its new value")
    for _ in range(3):  # at once, one after the other
        program.press(program.control("push button", "Rückgängig"))
    wait(lambda: program.rows() == 37, "three presses of the undo button take back three coups")
    wait(lambda: sum(program.counts()) == 37, "the badges follow")
    counters(program, coups[:-3])
    return coups[:-3]


def table(program, coups):
    view = program.table
    check((view.nRows, view.nColumns) == (37, 16), f"{view.nRows} rows by {view.nColumns} columns")
    for index in (0, 17, 36):
        code = "Z" if index == 0 else "R" if index in RED else "N"
        column = CAPTIONS[0].index(code)
        row = [str(index + 1)] + [""] * 15
        row[column] = str(coups[index])
        check(program.row(index) == row, f"row {index + 1}: {program.row(index)}")
    combo = program.control("combo box")
    items = program.control("list")
    check([item.name for item in items][3:5] == ["Kolonnen", "Dutzende"], "the families' names")
    program.control("push button", "Speichern").queryComponent().grabFocus()
    keys("Tab")
    wait(lambda: program.has(combo, "STATE_FOCUSED"), "the focus on the families")
    for family, wanted in enumerate(CAPTIONS):
        shown = wait(lambda: [view.getColumnHeader(column).name for column in range(16)],
                     "the captions")
        check(shown[:len(wanted)] == wanted, f"the captions of family {family}: {shown}")
        check((combo.name, program.text(combo)) == ("Sortierung", items[family].name),
              "the chosen family is read")
        if family + 1 < len(CAPTIONS):
            wait(lambda: program.has(combo, "STATE_FOCUSED"), "the focus on the families")
            keys("Down")
            wait(lambda: view.getColumnHeader(0).name == CAPTIONS[family + 1][0], "the next family")
            wait(lambda: program.active() == program.main, "the re-sort over")
    keys("Home")
    wait(lambda: view.getColumnHeader(0).name == "Cp / NR", "the first family")


def boxes(program):
    for name in ("einfache Sortierung", "Gitter an"):
        box = program.control("check box", name)
        ear = Ear(program, "object:state-changed:checked")
        check(not program.has(box, "STATE_CHECKED"), f"“{name}” is not ticked at first")
        for ticked in (True, False, True):
            check(program.press(box, "Toggle"), f"“{name}” has an action")
            wait(lambda: program.has(box, "STATE_CHECKED") == ticked, f"“{name}” is {ticked}")
        wait(lambda: ear.hears(lambda event: event[1] == box), f"“{name}” tells its new state")
    wait(lambda: program.row(36)[1:4] == ["", "", "R"], "a toggle from outside does its work")
    box = program.control("text", "Pleins Markieren die mind. … mal gefallen sind")
    box.queryComponent().grabFocus()
    wait(lambda: program.has(box, "STATE_FOCUSED"), "the focus on the box")
    keys("Return")
    prompt = program.dialog("Pleins mind. markieren!")
    wait(lambda: program.active() == prompt, "the prompt in front")
    named(program, prompt)
    english(program, prompt)
    check(program.find("label", "Bitte geben Sie einen Wert von 0-1000 ein!", prompt),
          "the prompt's text is read")
    check({"OK", "Abbrechen"} <= {node.name for node in program.nodes(prompt)}, "its buttons")
    program.find("text", None, prompt).queryEditableText().setTextContents("1001")
    keys("Return")
    message = program.dialog("Fehler")
    named(program, message)
    check(program.find("label", "Ungültiger Wert! Bitte versuchen Sie es nochmal!", message),
          "the message is read")
    program.press(program.find("push button", "OK", message))
    wait(lambda: program.active() == program.main, "the main window in front")
    keys("Return")
    wait(lambda: program.active() == program.window("Pleins mind. markieren!"), "the prompt")
    keys("1", "Return")
    wait(lambda: program.text(box) == "1", "the box's text is read")
    check("markiert" in program.tableau[1][5].description, "a marked number says so")
    check("Lösch" in program.control("push button", "Reset", 2).description, "“Reset” explains itself")


def file_dialogs(program):
    for button, title in (("Laden", "Permanenz laden"), ("Speichern", "Permanenz speichern")):
        check(program.press(program.control("push button", button)), f"“{button}” is pressed")
        window = program.dialog(title)
        named(program, window)
        english(program, window)
        check(program.find("push button", "Abbrechen", window), f"{title}: “Abbrechen”")
        program.press(program.find("push button", "Abbrechen", window))
        wait(lambda: program.active() == program.main, "the dialog gone")


def draw(program, count):
    box = program.control("text", "Autom.")
    box.queryComponent().grabFocus()
    wait(lambda: program.has(box, "STATE_FOCUSED"), "the focus on the count box")
    box.queryEditableText().setTextContents(str(count))
    keys("Return")


def progress(program, coups):
    """A run too long to wait for, watched for a while and then cancelled. Looks are answered in
    the run's pauses."""
    draw(program, ENDLESS)
    window = program.dialog("Berechne . . .")
    status = wait(lambda: next((node for node in window if "Status" in node.name), None),
                  "the status line")
    bar = program.find("progress bar", None, window)
    values = bar.queryValue()
    looks = []

    def look():
        looks.append((status.name, values.currentValue / values.maximumValue))
        return len({part for _, part in looks}) >= 5
    wait(look, "five steps of the bar")
    shapes = [re.fullmatch(r" Status: Berechne (\d+) / (\d+) \((\d+) %\)", text)
              for text, _ in looks]
    check(all(shapes) and {shape[2] for shape in shapes} == {str(ENDLESS)},
          f"the status line is read: {looks}")
    parts = [part for _, part in looks]
    check(parts == sorted(parts), f"the bar rises: {looks}")
    check(all(abs(float(shape[3]) / 100 - part) < 0.1 for shape, part in zip(shapes, parts)),
          f"bar and percentage agree: {looks}")
    check(not program.has(program.pad[3], "STATE_ENABLED"), "the pad is closed in a run")
    program.press(program.pad[3])
    dialog_places(program, window, "Progress", {
        "xpProgress": ("progress bar", "Fortschritt"), "xpButton": ("push button", None)})
    program.press(program.find("push button", "Abbrechen", window))
    wait(lambda: program.active() == program.main, "“Abbrechen” ends the run")
    check(len(coups) < program.rows() < len(coups) + ENDLESS, "the coups so far stay")
    program.press(program.control("push button", "Reset"))
    wait(lambda: program.rows() == 0, "“Reset” clears the permanence")


def many(program):
    draw(program, MANY)
    wait(lambda: program.rows() == MANY and program.active() == program.main, "all coups drawn", 60)
    view = program.table
    check((view.nRows, view.nColumns) == (MANY, 16), f"the table has {view.nRows} rows")
    start = time.monotonic()
    for first in (0, MANY // 2, view.nRows - 25):
        for row in range(first, first + 25):
            texts = program.row(row)
            marks = [text for text in texts[1:4] if text]
            check(texts[0] == str(row + 1) and len(marks) == 1, f"row {row + 1}: {texts}")
    took = time.monotonic() - start
    check(took < 75 * 16 * 0.02, f"75 rows are read at once: {took:.2f} s")
    check(sum(program.counts()) == view.nRows, "the badges count all coups")
    start = time.monotonic()
    program.press(program.pad[17])
    wait(lambda: program.row(MANY)[0] == str(MANY + 1), "one more coup")
    check(time.monotonic() - start < AT_ONCE, "a coup behind ten million comes at once")


def info(program):
    program.press(program.control("menu item", "Info"))
    window = program.dialog("Info")
    named(program, window)
    dialog_places(program, window, "Info", {
        "Image1": ("image", "Kestrelwood"), "lblTitle": ("label", None),
        "cmdOK": ("push button", None), "cmdSysInfo": ("push button", None),
        "lblDisclaimer": ("label", None)})
    check(any(re.fullmatch(r"\d+\.\d+\.\d+", node.name) for node in program.nodes(window)),
          "the version is read")
    program.press(program.find("push button", "OK", window))
    wait(lambda: not program.window("Info"), "OK closes the dialog")


def main():
    desk.own_session()
    desk.Screen(manager=["openbox", "--sm-disable"])
    program = desk.Program(desk.program_from_arguments())
    wait(lambda: program.active() == program.main, "the main window in front")
    dump(program)
    named(program, program.main)
    places(program)
    counters(program, [])
    coups = pad(program)
    table(program, coups)
    boxes(program)
    file_dialogs(program)
    info(program)
    progress(program, coups)
    many(program)
    keys("ctrl+q")
    check(program.quits(), "Ctrl+Q ends the program")
    desk.finish()


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""Where every control is to stand, in pixels at 96 to the inch: controls read from the plan, the
number cells worked out anew."""
import os
import re

from desk import ROOT

ROW = re.compile(r'Control\{Name::(\w+), (\d+), \{(\d+), (\d+), (\d+), (\d+)\}(?:,\s*"([^"]*)")?')
LABEL = re.compile(r"label\(Name::(XPLabel_\w+), (\d+), \{(\d+), (\d+), (\d+), (\d+)\}")
TOPS = [1740, 2280, 2820, 3360, 3960, 4500, 5040, 5580, 6180, 6720, 7260, 7800]
TVS_TOPS = [1980, 3060, 4200, 5280, 6420, 7500, 2520, 3660, 4740, 5880, 6960]


def pixels(left, top, width, height):
    """Edges are rounded, so that neighbours meet."""
    edges = [round(edge / 15) for edge in (left, top, left + width, top + height)]
    return (edges[0], edges[1], edges[2] - edges[0], edges[3] - edges[1])


def moved(rect, origin):
    return (rect[0] + origin[0], rect[1] + origin[1], rect[2], rect[3])


def section(name):
    """The controls of one table of the plan: (name, index, rectangle, caption)."""
    with open(os.path.join(ROOT, "src", "forms", "plan.h"), encoding="utf-8") as file:
        text = file.read()
    start = text.index(f"inline constexpr std::array {name}{{")
    rows = ROW.findall(text[start:text.index("\n};", start)])
    assert rows, name
    return [(row[0], int(row[1]), pixels(*map(int, row[2:6])), row[6].replace("&", ""))
            for row in rows]


def counter_labels():
    """Rectangles of the labels of the chances, by control and index."""
    with open(os.path.join(ROOT, "src", "forms", "plan.h"), encoding="utf-8") as file:
        rows = LABEL.findall(file.read())
    places = {(name, int(index)): pixels(*map(int, place)) for name, index, *place in rows}
    assert len(places) == 14, places
    for index, top in enumerate(TOPS, 1):
        places["XPLabel_TVP", index] = pixels(1800, top, 1335, 495)
    for index, top in enumerate(TVS_TOPS, 1):
        places["XPLabel_TVS", index] = pixels(4800, top, 1335, 495)
    assert len(places) == 37
    return places


PAD = [pixels(420, 120, 315, 375)] + [
    pixels(120 + 300 * ((n - 1) % 3), 480 + 300 * ((n - 1) // 3), 315, 315) for n in range(1, 37)]
NUMBERS = [pixels(3180, 1140, 1575, 495)] + [
    pixels(3180 + 540 * ((n - 1) % 3), TOPS[(n - 1) // 3], 495, 495) for n in range(1, 37)]
BADGES = [pixels(3720, 1140, 495, 495)] + NUMBERS[1:]

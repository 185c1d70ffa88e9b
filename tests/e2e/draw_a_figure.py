#!/usr/bin/env python3
"""Whether a saved figure is the one that draw_a_figure.sh has drawn: draw_a_figure.py NAME JSON.

The lists below say in centimetres what was clicked, snapped to the grid by hand.
"""
import json
import sys

UNITS_PER_CENTIMETRE = 472.440944  # the step of the medium grid
HOLLOW_TRIANGLE, FILLED_TRIANGLE = (1, 0), (1, 1)  # type and style of arrowheads
BLACK, BLUE, CYAN, RED, YELLOW, NO_FILL = 0, 1, 3, 4, 6, -1


def units(centimetres):
    return round(centimetres * UNITS_PER_CENTIMETRE)


def places(*pairs):
    return [(units(x), units(y)) for x, y in pairs]


def box(left, top, right, bottom):
    return places((left, top), (right, top), (right, bottom), (left, bottom), (left, top))


def line(*points, arrow=None, **attributes):
    wanted = dict(type_name="line", sub_type=1, points=places(*points), line_style=0, thickness=1,
                  depth=50, pen_color=BLACK, fill_style=NO_FILL, forward_arrow=arrow,
                  backward_arrow=None)
    wanted.update(attributes)
    return wanted


def filled(points, **attributes):
    wanted = dict(type_name="line", points=points, line_style=0, depth=50, forward_arrow=None,
                  backward_arrow=None)
    wanted.update(attributes)
    return wanted


def text(x, y, words, **attributes):
    wanted = dict(type_name="text", x=units(x), y=units(y), cstring=words, depth=40, flags=4,
                  font=16, size=12, sub_type=1, angle=0, pen_color=BLACK)
    wanted.update(attributes)
    return wanted


def shape(points, sub_type):
    return filled(points, sub_type=sub_type, thickness=2, pen_color=BLACK, fill_color=YELLOW,
                  fill_style=30)


FLOWCHART = [
    shape(box(6, 5, 10, 7), 2),
    shape(box(6, 15, 10, 17), 2),
    dict(shape(box(6, 1, 10, 3), 4), radius=7),
    filled(places((8, 9), (10, 11), (8, 13), (6, 11), (8, 9)), sub_type=3, thickness=3,
           pen_color=BLUE, fill_color=CYAN, fill_style=34),
    line((8, 3), (8, 5), arrow=FILLED_TRIANGLE),
    line((8, 7), (8, 9), arrow=FILLED_TRIANGLE),
    line((8, 13), (8, 15), arrow=FILLED_TRIANGLE),
    line((10, 11), (13, 11), (13, 6), (10, 6), arrow=FILLED_TRIANGLE, line_style=1),
    text(8, 2, "Start"),
    text(8, 6, "Read a value"),
    text(8, 11, "More?"),
    text(8, 16, "Plot"),
    text(11, 10, "yes"),
    text(9, 14, "no"),
]

LABEL = dict(depth=50, size=10)
PLOT = [
    line((3, 14), (18, 14), arrow=HOLLOW_TRIANGLE),
    line((3, 14), (3, 2), arrow=HOLLOW_TRIANGLE),
    *(line((x, 14), (x, 14.5)) for x in (6, 9, 12, 15)),
    *(line((2.5, y), (3, y)) for y in (11, 8, 5)),
    dict(type_name="spline", sub_type=2, thickness=2, pen_color=RED, fill_style=NO_FILL, depth=50,
         points=places((3, 14), (6, 11.5), (9, 7.5), (12, 5.5), (15, 5), (17, 4.5)),
         forward_arrow=None, backward_arrow=None),
    *(text(x, 15.5, str((x - 3) // 3), **LABEL) for x in (6, 9, 12, 15)),
    *(text(2, y, str((14 - y) // 3 * 10), sub_type=2, **LABEL) for y in (11, 8, 5)),
    text(16, 16.5, "time in s", sub_type=0, depth=50, size=14),
    text(1, 10, "voltage in V", sub_type=0, depth=50, size=14, angle=1.5708),
]

FIGURES = {"flowchart": FLOWCHART, "plot": PLOT}


def value(found, name):
    """What an object has under that name, as the lists above tell it."""
    if name == "points":
        return [(point["x"], point["y"]) for point in found["points"]]
    if name.endswith("_arrow"):
        return found[name] and (found[name]["type"], found[name]["style"])
    if name == "angle":
        return round(found[name], 4)
    return found[name]


def differences(number, found, wanted):
    for name, expected in wanted.items():
        if name not in found:
            yield f"object {number}: no {name}, a {found['type_name']}"
        elif value(found, name) != expected:
            yield f"object {number}: {name} is {value(found, name)}, not {expected}"


def main():
    wanted = FIGURES[sys.argv[1]]
    with open(sys.argv[2], encoding="utf-8") as file:
        found = json.load(file)["objects"]
    faults = [] if len(found) == len(wanted) else [f"{len(found)} objects, not {len(wanted)}"]
    for number, (one, other) in enumerate(zip(found, wanted)):
        faults += differences(number, one, other)
    print("\n".join(faults) or f"{sys.argv[1]}: {len(found)} objects as drawn")
    return bool(faults)


sys.exit(main())

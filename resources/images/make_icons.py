#!/usr/bin/env python3
"""Writes the SVG sources of all icons: <group>/<name>.svg beside this script.

One drawing style for all of them: a 24 x 24 grid, outlines of 2 pixels on whole coordinates and
details of 1 pixel on half coordinates (so that both are sharp at 100 and 200 percent), round joins,
dark ink, one blue accent, one warm accent for what edits. Run it in any directory after a change;
the SVG files are under version control too, and the build makes the rasters from them.
"""
import math
import pathlib

HERE = pathlib.Path(__file__).resolve().parent

INK = "#39424e"
GREY = "#7d8896"
BLUE = "#1a6fd4"
SKY = "#cfe3fa"
WARM = "#d96b0b"
PEACH = "#fddcae"
WHITE = "#ffffff"


# --- strokes and shapes --------------------------------------------------

def path(d, stroke=INK, fill="none", width=2):
    return f'<path d="{d}" fill="{fill}" stroke="{stroke}" stroke-width="{width}"/>'


def detail(d, stroke=INK, fill="none"):
    return path(d, stroke, fill, 1)


def area(d, fill):
    return f'<path d="{d}" fill="{fill}" stroke="none"/>'


def box(x, y, w, h, stroke=INK, fill=WHITE, width=2):
    """A rectangle whose outline runs through (x, y) and (x + w, y + h)."""
    return path(f"M{x} {y}h{w}v{h}h-{w}z", stroke, fill, width)


def circle(x, y, r, stroke=INK, fill=WHITE, width=2):
    return (f'<circle cx="{x}" cy="{y}" r="{r}" fill="{fill}" stroke="{stroke}"'
            f' stroke-width="{width}"/>')


def dot(x, y, r, fill=BLUE):
    return f'<circle cx="{x}" cy="{y}" r="{r}" fill="{fill}" stroke="none"/>'


def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def ray(x, y, degrees, start, end):
    """A line in the given direction (counter-clockwise, 0 to the right)."""
    cos, sin = math.cos(math.radians(degrees)), -math.sin(math.radians(degrees))
    return (f"M{number(x + start * cos)} {number(y + start * sin)}"
            f"L{number(x + end * cos)} {number(y + end * sin)}")


def rays(x, y, angles, start, end):
    return "".join(ray(x, y, angle, start, end) for angle in angles)


def without(shapes, d, margin):
    """The shapes, kept clear of an outline that is drawn over them."""
    return ('<mask id="clear"><rect width="24" height="24" fill="#fff" stroke="none"/>'
            f'<path d="{d}" fill="#000" stroke="#000" stroke-width="{margin}"/></mask>'
            f'<g mask="url(#clear)">{shapes}</g>')


# --- parts that several icons share --------------------------------------

def page():
    """A sheet with its upper right corner folded."""
    return path("M5 3h9l5 5v13h-14z", INK, WHITE) + fold(14, 3)


def fold(x, y):
    """The turned corner of a sheet whose upper edge ends at (x, y)."""
    return detail(f"M{x - .5} {y}v5.5h5.5")


def with_pencil(shapes):
    outline = "M12.5 21.5l1-4l7-7l3 3l-7 7z"
    return (without(shapes, outline, 4) + detail(outline, WARM, PEACH)
            + detail("M18.5 12.5l3 3", WARM) + area("M12 22l.7-2.8l2.1 2.1z", WARM))


def disk():
    return (path("M4 4h13l3 3v13h-16z", INK, SKY) + path("M8 4v5h7v-5", INK, WHITE)
            + path("M7 20v-7h10v7", INK, WHITE))


def lens(inner):
    return circle(10, 10, 7) + path("M15.2 15.2l5.8 5.8", INK, "none", 3) + inner


def window(x, y, w, h):
    return (box(x, y, w, h) + area(f"M{x} {y}h{w}v3h-{w}z", BLUE)
            + path(f"M{x} {y}h{w}v{h}h-{w}z"))


def dashed_frame(last="M21 10v4M21 17v4h-4M14 21h-4"):
    """The bracket around a compound; its lower right part may make room for a badge."""
    return path(f"M7 21h-4v-4M3 14v-4M3 7v-4h4M10 3h4M17 3h4v4{last}", BLUE)


def arrow_right(x0, x1, y, colour=BLUE, head=4):
    return path(f"M{x0} {y}H{x1}M{x1 - head} {y - head}l{head} {head}l-{head} {head}", colour)


def arrow_left(x0, x1, y, colour=BLUE, head=4):
    return path(f"M{x1} {y}H{x0}M{x0 + head} {y - head}l-{head} {head}l{head} {head}", colour)


def gear():
    """Eight teeth, each 30 degrees wide at its foot and 19 at its head."""
    points = []
    for tooth in range(8):
        middle = math.pi * (tooth / 4 - .5)
        for offset, radius in ((-.084, 7.4), (-.0525, 10), (.0525, 10), (.084, 7.4)):
            angle = middle + math.pi * offset
            points.append(f"{number(12 + radius * math.cos(angle))}"
                          f" {number(12 + radius * math.sin(angle))}")
    return "M" + "L".join(points) + "z"


# --- groups --------------------------------------------------------------

def bars_left(line, bars):
    """Bars along a reference line; all rectangles are x, y, w, h of their outlines."""
    return path(line) + "".join(box(*bar, BLUE, SKY) for bar in bars)


SHAPE_PAIR = box(7, 7, 5, 5) + circle(14.5, 14.5, 3)
SHAPES_ABOVE = box(6, 6, 4, 5) + circle(15.5, 8.5, 2.5)

ACTIONS = {
    # files
    "new": page() + path("M12 11v6M9 14h6", BLUE),
    "open": (path("M3 19v-14h6l2 2h8v4", INK, WHITE) + path("M3 19l3-8h16l-3 8z", INK, SKY)),
    "save": disk(),
    "save_as": with_pencil(disk()),
    "export": (path("M15 17v4h-12v-18h7l5 5v1", INK, WHITE) + fold(10, 3)
               + arrow_right(9, 21, 13)),
    "export_again": (path("M8 21h-5v-18h7l5 5", INK, WHITE) + fold(10, 3)
                     + path("M20.6 14.2a5 5 0 1 0 .2 3.4M21 10v4h-4", BLUE)),
    "close": page() + path("M9 12l6 6M15 12l-6 6", WARM),
    "properties": (page() + path("M12 13h4M12 17h4") + path("M8.5 13h.01M8.5 17h.01", BLUE)),
    "exit": (path("M11 5h4v3M15 16v3h-4") + path("M3 5l8-2v18l-8-2z", INK, SKY)
             + dot(8, 12, 1.5, INK) + arrow_right(14, 22, 12, BLUE, 3)),
    # edit
    "undo": path("M8 4l-5 5l5 5M3 9h11a5.5 5.5 0 0 1 0 11h-6", WARM),
    "redo": path("M16 4l5 5l-5 5M21 9h-11a5.5 5.5 0 0 0 0 11h6", WARM),
    "cut": (path("M7 3l7.6 12.2M17 3l-7.6 12.2")
            + circle(7, 18, 3, WARM, PEACH) + circle(17, 18, 3, WARM, PEACH)),
    "copy": (path("M15 7v-4h-12v14h5", INK, WHITE) + box(8, 7, 13, 14, INK, SKY)
             + detail("M11.5 11.5h6M11.5 14.5h6M11.5 17.5h4")),
    "paste": (path("M9 21h-6v-17h14v5", INK, SKY) + box(7, 2, 6, 4, INK, WHITE)
              + box(10, 10, 11, 11) + detail("M13.5 13.5h5M13.5 16.5h5")),
    "select_all": (detail("M4.5 4.5h15v15h-15z", BLUE) + SHAPE_PAIR
                   + "".join(box(x, y, 4, 4, BLUE, SKY, 1)
                             for x in (2.5, 17.5) for y in (2.5, 17.5))),
    "smart_links": (box(3, 3, 8, 6) + box(13, 15, 8, 6) + path("M11 6h6v9", BLUE)
                    + dot(11, 6, 2.5) + dot(17, 15, 2.5)),
    # dialogs
    "preferences": path(gear(), INK, WHITE) + circle(12, 12, 3, BLUE, SKY),
    "metrics": (path("M5 13v-10h9l5 5v5", INK, WHITE) + fold(14, 3)
                + box(2, 14, 20, 7, INK, SKY)
                + detail("M5.5 15v3M8.5 15v2M11.5 15v3M14.5 15v2M17.5 15v3")),
    "library": (box(3, 4, 5, 17, INK, SKY) + box(8, 4, 5, 17)
                + path("M13.5 7l4.8-1.4l4 14l-4.8 1.4z", INK, PEACH)),
    "console": (box(2, 4, 20, 16) + path("M6 9l4 3.5l-4 3.5", BLUE) + path("M13 16h5")),
    "palette": (path("M12 3a9 9 0 1 0 0 18c2 0 2.5-1.5 1.7-3c-.8-1.8 .3-3.5 2.3-3.5h2.5"
                     "c1.6 0 2.5-1 2.5-3c0-5-4-8.5-9-8.5z", INK, WHITE)
                + dot(7.5, 13, 1.8, BLUE) + dot(9.5, 8, 1.8, WARM) + dot(15, 8, 1.8, INK)),
    "layers": (path("M3 17l9 4.5l9-4.5M3 12l9 4.5l9-4.5")
               + path("M12 2.5l9 4.5l-9 4.5l-9-4.5z", BLUE, SKY)),
    # zoom
    "zoom_in": lens(path("M10 7v6M7 10h6", BLUE)),
    "zoom_out": lens(path("M7 10h6", BLUE)),
    "zoom_selection": lens(area("M6.5 6.5h7v7h-7z", SKY)
                           + detail("M6.5 8.5v-2h2M11.5 6.5h2v2M13.5 11.5v2h-2M8.5 13.5h-2v-2",
                                    BLUE)),
    "zoom_selection_revert": lens(path("M9 7l-2.5 2.5l2.5 2.5M7 9.5h4a2 2 0 0 1 2 2v1", BLUE)),
    # align
    "align_left": bars_left("M3 2v20", [(7, 5, 14, 5), (7, 14, 8, 5)]),
    "align_right": bars_left("M21 2v20", [(3, 5, 14, 5), (9, 14, 8, 5)]),
    "align_top": bars_left("M2 3h20", [(5, 7, 5, 14), (14, 7, 5, 8)]),
    "align_bottom": bars_left("M2 21h20", [(5, 3, 5, 14), (14, 9, 5, 8)]),
    "align_center_h": bars_left("M12 2v20", [(4, 5, 16, 5), (7, 14, 10, 5)]),
    "align_center_v": bars_left("M2 12h20", [(5, 4, 5, 16), (14, 7, 5, 10)]),
    "align_center_hv": bars_left("M12 2v20M2 12h20", [(5, 6, 14, 12), (9, 9, 6, 6)]),
    # compounds
    "compound_create": dashed_frame() + SHAPE_PAIR,
    "compound_break": (path("M3 7v-4h4M17 3h4v4M21 17v4h-4M7 21h-4v-4", BLUE)
                       + box(3, 10, 5, 5) + circle(18.5, 12.5, 2.5)
                       + path("M13 3l-2 6l3 3l-3 4l1 5", WARM)),
    "compound_open": with_pencil(dashed_frame("") + SHAPES_ABOVE),
    "compound_close": dashed_frame("") + SHAPES_ABOVE + path("M13 17l3 3l6-7", WARM),
    "convert": (path("M3 12l4-9l4 9") + path("M13 12c1-12 7-12 8 0", BLUE)
                + path("M5 18h14M8 15l-3 3l3 3M16 15l3 3l-3 3", WARM)),
    # windows and help
    "tile": "".join(window(x, y, 7, 7) for y in (3, 14) for x in (3, 14)),
    "cascade": window(3, 3, 10, 8) + window(7, 8, 10, 8) + window(11, 13, 10, 8),
    "next": window(3, 4, 18, 16) + arrow_right(7, 17, 13.5),
    "previous": window(3, 4, 18, 16) + arrow_left(7, 17, 13.5),
    "about": circle(12, 12, 9, BLUE, SKY) + path("M12 11v6") + dot(12, 7.5, 1.5, INK),
    "about_qt": (path("M6 4h12a3 3 0 0 1 3 3v10a3 3 0 0 1 -3 3h-12a3 3 0 0 1 -3 -3v-10"
                      "a3 3 0 0 1 3 -3z", BLUE, SKY)
                 + path("M9.5 8a2.5 2.5 0 0 1 2.5 2.5v3a2.5 2.5 0 0 1 -5 0v-3"
                        "a2.5 2.5 0 0 1 2.5 -2.5M10 14l2 2.5M16 8v6a2 2 0 0 0 2 2M14.5 10.5h3.5")),
    "clear_log": (path("M3 5h16M3 10h9M3 15h4") + path("M9 18l7-7l5 5l-5 5h-4z", WARM, PEACH)
                  + detail("M12.5 14.5l5 5", WARM)),
}

def node(x, y):
    """The point that lines start from, with its middle at (x, y)."""
    return box(x - 2, y - 2, 4, 4, BLUE, SKY, 1)


def star(angles, end):
    return path(rays(12, 12, angles, 5, end)) + box(9.5, 9.5, 5, 5, BLUE, SKY, 1)


def fan(angles, slope):
    return detail(rays(4.5, 19.5, angles, 7, 16), GREY) + path(slope) + node(4.5, 19.5)


CONSTRAINTS = {
    "unconstraint": star([25 + 72 * i for i in range(5)], 10),
    "mounthattan": star(range(0, 360, 45), 10),
    "manhattan": star(range(0, 360, 90), 10),
    "mountain": star(range(45, 360, 90), 11),
    "latex_arrow": fan((0, 90), "M8 16L20 4M12 4h8v8"),
    "latex_line": fan((0, 26.57, 63.43, 90), "M8 16L20 4"),
}


def grid_paper(lines):
    border = "M2.5 2.5h18v18h-18z"
    return area(border, WHITE) + detail(lines, BLUE) + detail(border)


def square_grid(pitch):
    """The paper is 18 pixels wide, so that pitches of 3, 6 and 9 all end on its border."""
    steps = [2.5 + step for step in range(pitch, 18, pitch)]
    return grid_paper("".join(f"M{v} 2.5v18M2.5 {v}h18" for v in steps))


def iso_grid(pitch):
    """Lines that rise and fall by one pixel in two, `pitch` apart, crossing in the middle."""
    return grid_paper("".join(clipped_line(11.5 + pitch * step, slope)
                              for step in range(-8, 9) for slope in (.5, -.5)))


def clipped_line(middle, slope):
    """The part inside the border of a line through (11.5, middle)."""
    ends = [11.5 + (y - middle) / slope for y in (2.5, 20.5)]
    left, right = max(2.5, min(ends)), min(20.5, max(ends))
    if left >= right:
        return ""
    return (f"M{number(left)} {number(middle + slope * (left - 11.5))}"
            f"L{number(right)} {number(middle + slope * (right - 11.5))}")


GRID = {
    "grid_none": (without(square_grid(6), "M3 21l18-18", 4) + path("M3 21l18-18", WARM)),
    "grid_small": square_grid(3),
    "grid_medium": square_grid(6),
    "grid_large": square_grid(9),
    "grid_iso_small": iso_grid(4.5),
    "grid_iso_medium": iso_grid(6),
    "grid_iso_large": iso_grid(9),
    "grid_custom": with_pencil(square_grid(6)),
    "magnet": (path("M4 3v9a8 8 0 0 0 16 0v-9h-5v9a3 3 0 0 1 -6 0v-9z", INK, BLUE)
               + path("M4 3h5v4h-5zM15 3h5v4h-5z", INK, WHITE)),
}

def spots(*places):
    """The places that the user clicks."""
    return "".join(dot(x, y, 2.5) for x, y in places)


def ellipse(x, y, rx, ry, stroke=INK, fill=WHITE):
    return (f'<ellipse cx="{x}" cy="{y}" rx="{rx}" ry="{ry}" fill="{fill}" stroke="{stroke}"'
            ' stroke-width="2"/>')


def regular_polygon(x, y, r, sides):
    corners = [(x + r * math.cos(angle), y + r * math.sin(angle))
               for angle in (2 * math.pi * side / sides for side in range(sides))]
    return "M" + "L".join(f"{number(a)} {number(b)}" for a, b in corners) + "z"


def turn(shapes, head):
    """A box with an arc around its upper side that ends in an arrow."""
    return box(7, 12, 10, 8, INK, SKY) + path(shapes + head, WARM)


def badge(sign):
    """A sign in the lower right corner."""
    return path(sign, WARM, "none", 3)


TOOLS = {
    # drawing
    "polyline": path("M4 19L9 7L15 15L20 4") + spots((4, 19), (9, 7), (15, 15), (20, 4)),
    "polygon": (path("M4 8L14 4L20 13L14 20L6 18z", INK, WHITE)
                + spots((4, 8), (14, 4), (20, 13), (14, 20), (6, 18))),
    "box": box(3, 5, 18, 14) + spots((3, 5), (21, 19)),
    "regular": (path(regular_polygon(12, 12, 9.5, 6), INK, WHITE) + spots((12, 12), (21.5, 12))),
    "cbr": circle(12, 12, 9) + detail("M12 12h9", BLUE) + spots((12, 12), (21, 12)),
    "cbd": circle(12, 12, 9) + detail("M3 12h18", BLUE) + spots((3, 12), (21, 12)),
    "ebr": (ellipse(12, 12, 10, 6) + detail("M12 12h9.5M12 12v-6", BLUE)
            + spots((12, 12), (21.5, 6))),
    "ebd": (detail("M2.5 5.5h19v13h-19z", BLUE) + ellipse(12, 12, 9, 6)
            + spots((2.5, 5.5), (21.5, 18.5))),
    "spline": (detail("M3.5 19.5L8.5 4.5L15.5 19.5L20.5 4.5", GREY)
               + path("M3.5 19.5C7 9 8.5 7.5 12 12C15.5 16.5 17 15 20.5 4.5")
               + spots((3.5, 19.5), (8.5, 4.5), (15.5, 19.5), (20.5, 4.5))),
    "closedSpline": (detail("M3.5 4.5h17v15h-17z", GREY)
                     + path("M12 4.5C22 4.5 22 19.5 12 19.5C2 19.5 2 4.5 12 4.5z", INK, WHITE)
                     + spots((3.5, 4.5), (20.5, 4.5), (20.5, 19.5), (3.5, 19.5))),
    "intSpline": (path("M3.5 18C4.5 10 7 5 9.5 7C12 9 12 18 15 17C18 16 19 10 20.5 4.5")
                  + spots((3.5, 18), (9.5, 7), (15, 17), (20.5, 4.5))),
    "closedIntSpline": (path("M5 6C9 1 16 2 19 6C22 10 21 17 17 19.5C12 22 6 20 4 16"
                             "C3 13 2.5 9 5 6z", INK, WHITE)
                        + spots((5, 6), (19, 6), (17, 19.5), (4, 16))),
    "arc": path("M3 16A9 9 0 0 1 21 16") + spots((3, 16), (12, 7), (21, 16)),
    "text": path("M5 7v-3h14v3M12 4v16M9 20h6"),
    "picture": (box(3, 4, 18, 16, INK, SKY) + area("M4 19l5-7l4 5l3-3l4 5z", GREY)
                + dot(16, 9, 2, WARM) + path("M3 4h18v16h-18z")),
    # manipulation
    "select": path("M5 3l14 9l-6 1l4 6.5l-3 1.5l-3.5-6.5l-4.5 4z", INK, WHITE),
    "copy": box(3, 3, 11, 11, GREY) + box(10, 10, 11, 11, BLUE, SKY),
    "delete": box(4, 4, 11, 11) + path("M12 12l9 9M21 12l-9 9", WARM, "none", 3),
    "update": (box(3, 3, 11, 11, INK, SKY) + path("M21 8l-6 6", INK, "none", 3)
               + path("M15 13c-3 0-4 2-4 4c0 2-1 3-3 3.5c3 1.5 8 1 9.5-2c.8-2-.3-4-2.5-5.5z",
                      WARM, PEACH)),
    "scaleComp": (dashed_frame("M21 10v4") + box(7, 7, 4, 4)
                  + path("M13 13l8 8M15 21h6v-6", WARM)),
    "arrow": path("M4 20L19 5") + path("M10 4h10v10", BLUE),
    "addPoint": (path("M3 16L10 5L20 9") + spots((3, 16), (10, 5), (20, 9))
                 + badge("M17 14v8M13 18h8")),
    "deletePoint": (path("M3 16L10 5L20 9") + spots((3, 16), (20, 9)) + dot(10, 5, 2.5, WARM)
                    + badge("M13 18h8")),
    "flipVert": (path("M5 9h14l-14-7z", INK, SKY) + detail("M2.5 12.5h3M8.5 12.5h3"
                 "M14.5 12.5h3M20.5 12.5h1", WARM) + path("M5 16h14l-14 7z", GREY, WHITE)),
    "flipHoriz": (path("M9 5v14l-7-14z", INK, SKY) + detail("M12.5 2.5v3M12.5 8.5v3"
                  "M12.5 14.5v3M12.5 20.5v1", WARM) + path("M16 5v14l7-14z", GREY, WHITE)),
    "rotateLeft": turn("M19 9A8 8 0 0 0 4 8", "M3 3v5h5"),
    "rotateRight": turn("M5 9A8 8 0 0 1 20 8", "M21 3v5h-5"),
    "tangent": circle(11, 14, 7) + path("M4 2L22 11", BLUE) + dot(14, 7.5, 2.5),
    "normal": circle(9, 15, 7) + path("M10 13L20 3", BLUE) + dot(14, 10, 2.5),
}

SPEECH_BUBBLE = "M4 4h16v11h-9l-4 5v-5h-3z"

DIVERSE = {
    "comment": path(SPEECH_BUBBLE, INK, WHITE),
    "comment_filled": (path(SPEECH_BUBBLE, INK, SKY)
                       + path("M8 8h8M8 11h5", BLUE)),
    "play": path("M6 3l14 9l-14 9z", BLUE, SKY),
    "refresh": path("M20 5v5h-5M4 19v-5h5M19.4 9.5a8 8 0 0 0 -14.4-1.5"
                    "M4.6 14.5a8 8 0 0 0 14.4 1.5", BLUE),
}

# 64 x 64; edges lie on multiples of 4, so that they are sharp at 16, 32, 48 and 64 pixels.
APP = {
    "orvalt": (area("M12 4h24l20 20v32a4 4 0 0 1-4 4h-40a4 4 0 0 1-4-4v-48a4 4 0 0 1 4-4z", BLUE)
               + area("M36 4l20 20h-16a4 4 0 0 1-4-4z", "#a9cef8")
               + path("M18 48c-2-32 14-24 14-10c0 12 14 14 14-6", WHITE, "none", 6)
               + area("M12 44h12v12h-12zM40 28h12v12h-12z", "#ffb04a")),
}

GROUPS = {"actions": ACTIONS, "tools": TOOLS, "constraints": CONSTRAINTS, "grid": GRID,
          "diverse": DIVERSE}


def svg(shapes, side=24):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{side}" height="{side}"'
            f' viewBox="0 0 {side} {side}">\n'
            '<g stroke-linecap="round" stroke-linejoin="round">\n'
            + shapes.replace("><", ">\n<") + "\n</g>\n</svg>\n")


def write(group, name, text):
    folder = HERE / group
    folder.mkdir(exist_ok=True)
    (folder / f"{name}.svg").write_text(text)


def main():
    for group, icons in GROUPS.items():
        for name, shapes in icons.items():
            write(group, name, svg(shapes))
    for name, shapes in APP.items():
        write("app", name, svg(shapes, 64))


if __name__ == "__main__":
    main()

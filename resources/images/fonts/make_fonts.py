#!/usr/bin/env python3
"""Writes the pictures of the LaTeX fonts: <word>.png and <word>@2x.png beside this script.

Run it in any directory, by hand: it needs rsvg-convert and the faces named below, so the pictures
are under version control. The faces only stand for those that LaTeX will set.
"""
import pathlib
import subprocess

HERE = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 28, 18
BASE_LINE = 14
SIZE = 16

# Word of the font table, family, further attributes.
FONTS = [
    ("default", "C059", ""),
    ("roman", "C059", ""),
    ("bold", "C059", 'font-weight="bold"'),
    ("italic", "C059", 'font-style="italic"'),
    ("sansserif", "Nimbus Sans", ""),
    ("typewriter", "Nimbus Mono PS", ""),
]


def drawing(family, attributes):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}">'
            f'<text x="{WIDTH // 2}" y="{BASE_LINE}" font-family="{family}" font-size="{SIZE}" '
            f'text-anchor="middle" fill="#000000" {attributes}>Aa</text></svg>')


for word, family, attributes in FONTS:
    svg = drawing(family, attributes).encode()
    for suffix, zoom in (("", 1), ("@2x", 2)):
        subprocess.run(["rsvg-convert", "-z", str(zoom), "-o", str(HERE / f"{word}{suffix}.png")],
                       input=svg, check=True)

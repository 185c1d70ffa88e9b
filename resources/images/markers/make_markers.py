#!/usr/bin/env python3
"""Writes the marker bitmaps DOT_*.png: 5 x 5 pixels, drawn over the points of a figure.

A dark rim shows them on white paper, a light middle on dark objects. Points are round, the handles
of compounds square, so that shape tells them apart as well as colour. Run it in any directory; the
files land beside this script and are under version control too.
"""
import pathlib
import struct
import zlib

HERE = pathlib.Path(__file__).resolve().parent

# "#" rim, "o" middle, "." nothing
ROUND = (".###.",
         "#ooo#",
         "#ooo#",
         "#ooo#",
         ".###.")
SQUARE = ("#####",
          "#ooo#",
          "#ooo#",
          "#ooo#",
          "#####")

# name: shape, rim, middle
MARKERS = {
    "DOT_SMALL_NORMAL": (ROUND, "#39424e", "#ffffff"),
    "DOT_SMALL_TAGGED": (ROUND, "#0d3f80", "#4da3ff"),
    "DOT_SMALL_TAGGED2": (ROUND, "#8a1c00", "#ff6a2b"),
    "DOT_SMALL_LINKED": (ROUND, "#0b5c1e", "#45e066"),
    "DOT_COMPOUND_SMALL_NORMAL": (SQUARE, "#5c3a78", "#f3e4ff"),
    "DOT_COMPOUND_SMALL_TAGGED": (SQUARE, "#5b0f8b", "#c766ff"),
    "DOT_HIGHLIGHT": (ROUND, "#7a5c00", "#ffe433"),
}


def rgba(colour):
    return bytes.fromhex(colour[1:]) + b"\xff"


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def png(shape, rim, middle):
    pixels = {"#": rgba(rim), "o": rgba(middle), ".": bytes(4)}
    rows = b"".join(b"\0" + b"".join(pixels[pixel] for pixel in row) for row in shape)
    header = struct.pack(">IIBBBBB", len(shape[0]), len(shape), 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9))
            + chunk(b"IEND", b""))


def main():
    for name, marker in MARKERS.items():
        (HERE / f"{name}.png").write_bytes(png(*marker))


if __name__ == "__main__":
    main()

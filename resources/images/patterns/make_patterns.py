#!/usr/bin/env python3
"""Writes pattern0.png to pattern21.png from the tiles of patterns.txt.

Run it in any directory; the files land beside this script. A "#" is a painted pixel (black in the
image), a "." an empty one (white).
"""
import pathlib
import struct
import zlib

HERE = pathlib.Path(__file__).resolve().parent


def read_tiles(text):
    """The tiles in file order, each a list of equally long rows."""
    tiles = []
    for line in text.splitlines():
        if line.startswith("="):
            tiles.append([])
        elif line and not line.startswith("//"):
            tiles[-1].append(line)
    return tiles


def check(tile):
    assert tile and tile[0], "empty tile"
    assert len({len(row) for row in tile}) == 1, "rows of different length"
    assert set("".join(tile)) <= {"#", "."}, "unknown character"


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def packed_row(row):
    """One filter byte, then the pixels from the high bit down; 1 is white."""
    bits = "".join("0" if pixel == "#" else "1" for pixel in row)
    bits += "0" * (-len(bits) % 8)
    return b"\0" + int(bits, 2).to_bytes(len(bits) // 8, "big")


def png(tile):
    header = struct.pack(">IIBBBBB", len(tile[0]), len(tile), 1, 0, 0, 0, 0)
    data = zlib.compress(b"".join(packed_row(row) for row in tile), 9)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", data)
            + chunk(b"IEND", b""))


def main():
    tiles = read_tiles((HERE / "patterns.txt").read_text())
    assert len(tiles) == 22, "22 tiles are wanted"
    for number, tile in enumerate(tiles):
        check(tile)
        (HERE / f"pattern{number}.png").write_bytes(png(tile))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Draws the program's icon: a till receipt with a torn edge and an O on it.

  tools/draw_icon.py                writes src/app/windows/orvenza.ico
  tools/draw_icon.py --check        fails when that file is not what would be written
  tools/draw_icon.py --png FOLDER   writes each size as a picture too, to be looked at

Each size has measures of its own, in whole pixels, so that every straight edge lies on the pixel grid. Needs
nothing but Python.
"""

import struct
import sys
import zlib
from pathlib import Path

TARGET = Path(__file__).resolve().parent.parent / "src/app/windows/orvenza.ico"

PAPER = (255, 255, 255)
EDGE = (24, 62, 98)
RING = (0, 112, 178)
PRINT = (150, 172, 192)

# Samples per pixel in each direction, at odd positions only, so that no edge is hit exactly.
GRID = 8
UNIT = 2 * GRID


class Drawing:
    """The measures of one size, in pixels. The paper is `width` wide from `left`, and reaches from `top` down
    to the tips of its teeth; `edge` is the thickness of its outline. A tooth is a width and a height or, where
    slopes would blur, a stair: how far each of its columns ends above the tips. The ring stands in the middle
    of the paper's width, `across` wide and high from `ring_top`, its line `stroke` thick. `lines` are the
    printed lines: top, left, width and height each."""

    def __init__(self, size, paper, edge, tooth, ring, lines=()):
        self.size, self.edge, self.lines = size, edge, lines
        self.left, self.top, self.width, self.height = paper
        self.tooth = tooth if len(tooth) == 2 else None
        self.stair = tooth if len(tooth) > 2 else None
        self.ring_top, self.across, self.stroke = ring


# Size, paper (left, top, width, height), edge, tooth, ring (top, across, stroke), lines.
DRAWINGS = [
    Drawing(16, (2, 0, 12, 16), 1, (2, 1, 0, 0, 1, 2), (3, 8, 2)),
    Drawing(20, (2, 0, 16, 20), 1, (3, 2, 1, 0, 0, 1, 2, 3), (3, 10, 3)),
    Drawing(24, (3, 0, 18, 24), 1, (2, 1, 0, 0, 1, 2), (4, 12, 3), [(18, 7, 10, 1)]),
    Drawing(32, (4, 0, 24, 32), 2, (3, 2, 1, 0, 0, 1, 2, 3), (5, 14, 4), [(21, 9, 14, 2)]),
    Drawing(40, (5, 0, 30, 40), 2, (6, 3), (6, 18, 5), [(27, 11, 18, 2), (31, 11, 10, 2)]),
    Drawing(48, (6, 0, 36, 48), 2, (6, 3), (7, 22, 6), [(33, 13, 22, 2), (38, 13, 14, 2)]),
    Drawing(64, (8, 1, 48, 62), 3, (8, 4), (9, 28, 8), [(42, 18, 28, 3), (49, 18, 18, 3)]),
    Drawing(256, (32, 4, 192, 248), 8, (24, 14), (36, 112, 30), [(168, 72, 112, 10), (194, 72, 72, 10)]),
]


def stair_at(drawing, column):
    """How far the paper ends above the tips in the column, which is counted from its left edge."""
    return drawing.stair[column % len(drawing.stair)]


def above_stair(drawing, x, y, inset):
    """Whether the point lies above the torn edge, `inset` pixels away from it to all sides."""
    column = (x - drawing.left * UNIT) // UNIT
    near = range(max(column - inset, 0), min(column + inset, drawing.width - 1) + 1)
    rise = max(stair_at(drawing, other) + inset - abs(other - column) for other in near)
    return y < (drawing.top + drawing.height - max(rise, 0)) * UNIT


def above_slopes(drawing, x, y, inset):
    """The same for a torn edge of slopes, in which the outline is as thick as along the sides."""
    width, height = drawing.tooth
    # Twice the distance from the middle of the tooth, where its tip is.
    off = abs(2 * ((x - drawing.left * UNIT) % (width * UNIT)) - width * UNIT)
    slanted = int(inset * UNIT * (1 + (2 * height / width) ** 2) ** 0.5)
    return y < (drawing.top + drawing.height) * UNIT - off * height // width - slanted


def in_paper(drawing, x, y, inset):
    """Whether the point, in units, lies on the paper without a margin of `inset` pixels."""
    d = drawing
    if not (d.left + inset) * UNIT < x < (d.left + d.width - inset) * UNIT or y < (d.top + inset) * UNIT:
        return False
    return above_stair(d, x, y, inset) if d.stair else above_slopes(d, x, y, inset)


def in_ring(drawing, x, y):
    radius = drawing.across * UNIT // 2
    from_middle = ((x - (2 * drawing.left + drawing.width) * UNIT // 2) ** 2 +
                   (y - drawing.ring_top * UNIT - radius) ** 2)
    return (radius - drawing.stroke * UNIT) ** 2 < from_middle < radius ** 2


def on_line(drawing, x, y):
    return any(left * UNIT < x < (left + width) * UNIT and top * UNIT < y < (top + height) * UNIT
               for top, left, width, height in drawing.lines)


def colour_at(drawing, x, y):
    """The colour of the point, or None outside the paper."""
    if not in_paper(drawing, x, y, 0):
        return None
    if not in_paper(drawing, x, y, drawing.edge):
        return EDGE
    if in_ring(drawing, x, y):
        return RING
    return PRINT if on_line(drawing, x, y) else PAPER


def pixel(drawing, column, row):
    """Red, green, blue, alpha."""
    seen = [colour_at(drawing, column * UNIT + 2 * i + 1, row * UNIT + 2 * j + 1)
            for j in range(GRID) for i in range(GRID)]
    inside = [colour for colour in seen if colour]
    if not inside:
        return (0, 0, 0, 0)
    count = len(inside)
    mean = tuple((sum(colour[i] for colour in inside) + count // 2) // count for i in range(3))
    return mean + ((255 * count + GRID * GRID // 2) // (GRID * GRID),)


def rows_of(drawing):
    return [[pixel(drawing, column, row) for column in range(drawing.size)] for row in range(drawing.size)]


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(rows):
    head = struct.pack(">IIBBBBB", len(rows), len(rows), 8, 6, 0, 0, 0)
    data = b"".join(b"\0" + b"".join(bytes(p) for p in row) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", head) + png_chunk(b"IDAT", zlib.compress(data, 9)) +
            png_chunk(b"IEND", b""))


def bitmap(rows):
    """The picture as icons hold it: bottom row first, blue first, then the mask of what shows through."""
    size = len(rows)
    head = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b""
    for row in reversed(rows):
        bits = 0
        for r, g, b, a in row:
            bits = bits << 1 | (a == 0)
        width = (size + 31) // 32 * 32
        mask += (bits << (width - size)).to_bytes(width // 8, "big")
    return head + colours + mask


def icon(pictures):
    """An icon file of the pictures, given as rows; the largest is stored as PNG, as Windows expects."""
    images = [png(rows) if len(rows) >= 256 else bitmap(rows) for rows in pictures]
    offset = 6 + 16 * len(images)
    head = struct.pack("<HHH", 0, 1, len(images))
    for rows, image in zip(pictures, images):
        size = len(rows) % 256  # 256 is written as 0
        head += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return head + b"".join(images)


def main(words):
    pictures = [rows_of(drawing) for drawing in DRAWINGS]
    data = icon(pictures)
    if words == ["--check"]:
        if TARGET.read_bytes() != data:
            sys.exit(f"draw_icon: {TARGET} is not what this script draws")
    elif len(words) == 2 and words[0] == "--png":
        for rows in pictures:
            Path(words[1], f"orvenza-{len(rows)}.png").write_bytes(png(rows))
    elif not words:
        TARGET.write_bytes(data)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])

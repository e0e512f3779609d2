#!/usr/bin/env python3
"""Draws the four icons of the plug-in into resources/ (16, 32 and 48 pixels in each .ico).

Run by hand after a change of the drawings; the pictures themselves are kept in the tree.
Shapes are given on a 32 x 32 sheet and drawn with 4 x 4 samples a pixel.
"""
import pathlib
import struct
import zlib

INK, PAPER, BLUE, GREEN, GOLD, RED, GREY = (
    (45, 55, 72), (250, 250, 245), (66, 120, 190), (70, 150, 95), (235, 180, 50), (205, 60, 55), (150, 160, 170))


def box(x0, y0, x1, y1, r=0.0):
    def inside(x, y):
        dx = max(x0 + r - x, 0, x - (x1 - r))
        dy = max(y0 + r - y, 0, y - (y1 - r))
        return x0 <= x <= x1 and y0 <= y <= y1 and (r == 0 or dx * dx + dy * dy <= r * r)
    return inside


def disc(cx, cy, r, hole=0.0):
    return lambda x, y: hole * hole <= (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def line(x0, y0, x1, y1, width):
    length2 = (x1 - x0) ** 2 + (y1 - y0) ** 2

    def inside(x, y):
        t = min(1, max(0, ((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length2))
        return (x - x0 - t * (x1 - x0)) ** 2 + (y - y0 - t * (y1 - y0)) ** 2 <= (width / 2) ** 2
    return inside


SHEET = [(box(5, 2, 27, 30, 2), INK), (box(6.5, 3.5, 25.5, 28.5, 1), PAPER)]
PERSON = [(disc(13, 9, 6), BLUE), (lambda x, y: disc(13, 29, 12)(x, y) and y <= 29, BLUE)]

ICONS = {
    # Grades of a ladder, the highest in gold.
    "CATEGORYTYPE": [(box(3, 20, 10, 29, 1), BLUE), (box(12.5, 13, 19.5, 29, 1), GREEN), (box(22, 5, 29, 29, 1), GOLD),
                     (line(3, 30.5, 29, 30.5, 1.6), INK)],
    # A pay sheet with a coin.
    "LAYOUT": SHEET + [(line(9.5, y, 22.5, y, 1.8), GREY) for y in (8, 12, 16)] +
              [(disc(22, 23, 8), INK), (disc(22, 23, 6.6), GOLD), (line(22, 19.5, 22, 26.5, 2), INK)],
    # A list with one line over its limit.
    "OFFICEEMPLOYEEPREVIEW": SHEET + [(line(9.5, y, 22.5, y, 2), c) for y, c in
                                      ((8, GREY), (12.5, RED), (17, GREY), (21.5, GREY))] +
                             [(disc(21, 22, 6.5, 4.4), INK), (line(25.5, 26.5, 29.5, 30.5, 2.6), INK)],
    # A person and a percentage.
    "OFFICEEMPLOYEESETTINGS": PERSON + [(disc(22.5, 22.5, 8.5), INK), (disc(22.5, 22.5, 7.2), PAPER),
                                        (line(19.5, 26.5, 25.5, 18.5, 1.6), INK), (disc(19.6, 19.8, 2), RED),
                                        (disc(25.4, 25.2, 2), RED)],
}


def pixel(shapes, x, y, scale):
    total = [0, 0, 0, 0]
    for sy in range(4):
        for sx in range(4):
            px, py = (x + (sx + .5) / 4) * scale, (y + (sy + .5) / 4) * scale
            for inside, colour in reversed(shapes):
                if inside(px, py):
                    total = [total[i] + colour[i] for i in range(3)] + [total[3] + 1]
                    break
    hits = total[3]
    return bytes([t // hits for t in total[:3]] + [hits * 255 // 16]) if hits else bytes(4)


def png(shapes, size):
    rows = b"".join(b"\0" + b"".join(pixel(shapes, x, y, 32 / size) for x in range(size)) for y in range(size))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def ico(shapes):
    pictures = [(size, png(shapes, size)) for size in (16, 32, 48)]
    head, offset = struct.pack("<HHH", 0, 1, len(pictures)), 6 + 16 * len(pictures)
    for size, data in pictures:
        head += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    return head + b"".join(data for _, data in pictures)


for name, shapes in ICONS.items():
    (pathlib.Path(__file__).parent.parent / "resources" / f"{name}.ico").write_bytes(ico(shapes))

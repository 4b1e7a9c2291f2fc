#!/usr/bin/env python3
"""Writes the bitmaps and cursors of this folder. Run it after changing a picture here, and commit what it wrote."""

import pathlib
import struct

FOLDER = pathlib.Path(__file__).resolve().parent

BLACK, WHITE = (0, 0, 0), (255, 255, 255)

# What a character of a cursor's text picture stands for, as red, green, blue, alpha.
INK = {".": (0, 0, 0, 0), "#": BLACK + (255,), "o": WHITE + (255,)}

# The hot spot is the free pixel in the middle, (7, 7). The arms begin at 0, so their outline has no room at the left and top ends.
CROSSHAIR = [
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "ooooooo#oooooooo",
    "#######.#######o",
    "ooooooo#oooooooo",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......o#o.......",
    "......ooo.......",
]


def write_bmp(name, rows):
    """A 24-bit bottom-up .bmp from rows of (red, green, blue), top row first."""
    width, height = len(rows[0]), len(rows)
    padding = bytes(-width * 3 % 4)
    bits = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + padding for row in reversed(rows))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(bits), 0, 0, 0, 0)
    offset = 14 + len(info)
    (FOLDER / name).write_bytes(struct.pack("<2sIHHI", b"BM", offset + len(bits), 0, 0, offset) + info + bits)


def write_cur(name, rows, hot_spot):
    """A .cur of one 32-bit image from rows of (red, green, blue, alpha), top row first; a transparent pixel leaves the screen
    as it is, also for readers that only know the one-bit mask."""
    width, height = len(rows[0]), len(rows)
    bits = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b"".join(mask_row(row) for row in reversed(rows))
    # The height counts picture and mask.
    info = struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 32, 0, len(bits) + len(mask), 0, 0, 0, 0)
    image = info + bits + mask
    entry = struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, *hot_spot, len(image), 6 + 16)
    (FOLDER / name).write_bytes(struct.pack("<HHH", 0, 2, 1) + entry + image)


def mask_row(row):
    """One row of the mask: a set bit where the pixel is transparent, leftmost pixel in the highest bit, padded to 32 bits."""
    padded_width = (len(row) + 31) // 32 * 32
    value = 0
    for pixel in row:
        value = value << 1 | (pixel[3] == 0)
    return (value << padded_width - len(row)).to_bytes(padded_width // 8, "big")


def drawn(picture, size=32):
    """The pixels of a text picture, in the top left corner of a transparent square."""
    lines = [line.ljust(size, ".") for line in picture] + ["." * size] * (size - len(picture))
    return [[INK[character] for character in line] for line in lines]


def checker(shift, size=8):
    """Squares of half the size, black where both coordinates fall into the same half, moved by shift along the diagonal."""
    half = size // 2
    first_half = [(i + shift) % size < half for i in range(size)]
    return [[BLACK if first_half[x] == first_half[y] else WHITE for x in range(size)] for y in range(size)]


def main():
    for shift in range(4):
        write_bmp(f"border{shift}.bmp", checker(shift))
    write_cur("crosshair.cur", drawn(CROSSHAIR), hot_spot=(7, 7))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Writes the bitmaps and cursors of this folder. Run it after changing a picture, and commit what it wrote:
make_resources.py [FOLDER]"""

import pathlib
import sys

from drawing.cursors import cursors
from drawing.files import bmp_file, cur_file

FOLDER = pathlib.Path(__file__).resolve().parent

BLACK, WHITE = (0, 0, 0), (255, 255, 255)

# What a character of a cursor's text picture stands for, as red, green, blue, alpha.
INK = {".": (0, 0, 0, 0), "#": BLACK + (255,), "o": WHITE + (255,)}

# The hot spot is the free pixel in the middle, (7, 7). The arms begin at 0, so their outline has no room at the
# left and top ends.
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


def drawn(picture, size=32):
    """The pixels of a text picture, in the top left corner of a transparent square."""
    lines = [line.ljust(size, ".") for line in picture] + ["." * size] * (size - len(picture))
    return [[INK[character] for character in line] for line in lines]


def checker(shift, size=8):
    """Squares of half the size, black where both coordinates fall into the same half, moved along the diagonal."""
    half = size // 2
    first_half = [(i + shift) % size < half for i in range(size)]
    return [[BLACK if first_half[x] == first_half[y] else WHITE for x in range(size)] for y in range(size)]


def main(folder):
    for shift in range(4):
        (folder / f"border{shift}.bmp").write_bytes(bmp_file(checker(shift)))
    (folder / "crosshair.cur").write_bytes(cur_file(drawn(CROSSHAIR), hot_spot=(7, 7)))
    for name, (canvas, hot_spot) in cursors().items():
        (folder / f"{name}.cur").write_bytes(cur_file(canvas.pixels(), hot_spot))


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else FOLDER)

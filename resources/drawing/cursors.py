"""The cursors of the selection and scrolling tools."""

from .canvas import Canvas
from .shapes import ellipse, frame, line, mirrored, moved, polygon, rectangle, smooth, transposed

ARROW = polygon((0, 0), (0, 17), (3.9, 13.3), (6.6, 19.6), (9.6, 18.3), (6.9, 12.1), (12, 12))

# The symbols beside the arrow, 12 x 10 pixels.
LASSO = line(smooth([(3, 6.3), (0.8, 3.6), (4, 1), (8.6, 0.8), (11.4, 3.2), (9, 6), (5, 6.8)], closed=True), 1.2) + line(
    smooth([(3, 6.3), (1.6, 7.4), (3.2, 8.4), (2.2, 9.8)]), 1.2
)
POLYGON = line([(0.6, 3.5), (7.5, 0.6), (7.5, 4.5), (11.4, 6), (8.5, 9.4), (2, 9.4)], 1.2, closed=True)
RECTANGLE = frame(12, 10)
ELLIPSE = line(ellipse(6, 5, 5.4, 4.4)[0], 1.2, closed=True)
DASHED_RECTANGLE = [
    contour
    for x, y, width, height in [(0, 0, 3, 1), (5, 0, 2, 1), (9, 0, 3, 1), (0, 9, 3, 1), (5, 9, 2, 1), (9, 9, 3, 1)]
    + [(0, 0, 1, 3), (0, 4, 1, 2), (0, 7, 1, 3), (11, 0, 1, 3), (11, 4, 1, 2), (11, 7, 1, 3)]
    for contour in rectangle(x, y, width, height)
]

# The marks of the rules, 6 x 6 pixels.
MARKS = {
    "new": [],
    "add": rectangle(0, 2, 6, 2) + rectangle(2, 0, 2, 6),
    "subtract": rectangle(0, 2, 6, 2),
    "intersect": line([(0.7, 0.7), (5.3, 5.3)], 1.7) + line([(5.3, 0.7), (0.7, 5.3)], 1.7),
}
CLOSING_CIRCLE = line(ellipse(3, 3, 2.3, 2.3)[0], 1.4, closed=True)


def arrow_with(symbol, mark):
    return Canvas().ink(moved(symbol, 11, 20) + moved(mark, 25, 22)).solid(ARROW)


def star(x, y, radius):
    """A sparkle of four rays."""
    waist = radius / 4
    return polygon(
        (x, y - radius), (x + waist, y - waist), (x + radius, y), (x + waist, y + waist),
        (x, y + radius), (x - waist, y + waist), (x - radius, y), (x - waist, y - waist),
    )  # fmt: skip


def wand(mark):
    sparkles = star(10.5, 3.5, 3) + star(3.5, 10.5, 3)
    canvas = Canvas().ink(sparkles + moved(mark, 22, 17)).ink(line([(4.2, 4.2), (18.5, 18.5)], 2.6))
    return canvas


def hollow_arrow():
    return Canvas().ink(moved(DASHED_RECTANGLE, 12, 20)).hollow(ARROW)


def hand(fingers, palm):
    return Canvas().rimmed(palm + [c for finger in fingers for c in line(finger, 2.4)])


OPEN_HAND = [[(5, 3.5), (6, 10)], [(8.2, 1.8), (8.6, 10)], [(11.6, 2.4), (11.4, 10)], [(14.8, 5), (14, 11)], [(2.2, 9.5), (5.6, 13)]]
CLOSED_HAND = [[(5.2, 5.8), (5.2, 10)], [(8.4, 5), (8.4, 10)], [(11.6, 5.3), (11.6, 10)], [(14.4, 6.6), (14.2, 10)], [(3, 9), (4.6, 12)]]
PALM = polygon((5, 9), (15, 9), (14.8, 12), (13, 17), (7, 17), (4.4, 12.4))

HORIZONTAL = rectangle(3, 3, 9, 1) + polygon((1, 3.5), (4, 1), (4, 6)) + polygon((14, 3.5), (11, 1), (11, 6))
FALLING = line([(3, 3), (12, 12)], 1.4) + polygon((1, 1), (6, 1), (1, 6)) + polygon((14, 14), (9, 14), (14, 9))


def cursors():
    """All of them: name to canvas and hot spot."""
    table = {}
    for name, symbol in [("lasso", LASSO), ("polygon", POLYGON), ("rectangle", RECTANGLE), ("ellipse", ELLIPSE)]:
        for rule, mark in MARKS.items():
            table[f"{name}_{rule}"] = arrow_with(symbol, mark), (0, 0)
    for rule, mark in MARKS.items():
        table[f"wand_{rule}"] = wand(mark), (3, 3)
    table["polygon_close"] = arrow_with(POLYGON, CLOSING_CIRCLE), (0, 0)
    table["move_selection"] = hollow_arrow(), (0, 0)
    table["hand_open"] = hand(OPEN_HAND, PALM), (8, 6)
    table["hand_closed"] = hand(CLOSED_HAND, PALM), (8, 6)
    table["size_horizontal"] = Canvas().ink(HORIZONTAL), (7, 3)
    table["size_vertical"] = Canvas().ink(transposed(HORIZONTAL)), (3, 7)
    table["size_falling"] = Canvas().ink(FALLING), (7, 7)
    table["size_rising"] = Canvas().ink(mirrored(FALLING, 15)), (7, 7)
    return table

"""The cursors of the tools."""

from .canvas import Canvas
from .shapes import ellipse, frame, line, mirrored, moved, polygon, rectangle, smooth, transposed

ARROW = polygon((0, 0), (0, 17), (3.9, 13.3), (6.6, 19.8), (10.2, 18.3), (7.4, 12), (12, 12))

# The symbols beside the arrow, 12 x 10 pixels: lines and the area they enclose.
LASSO_LOOP = smooth([(3.2, 5.8), (0.8, 3.4), (4, 1), (8.6, 0.8), (11.4, 3), (9, 5.6), (5.6, 6.3)], closed=True)
LASSO_TAIL = smooth([(3.2, 5.8), (1.7, 7), (2.4, 8.5), (5, 9.4)])
LASSO = line(LASSO_LOOP, 1.2, closed=True) + line(LASSO_TAIL, 1.2), [LASSO_LOOP]
VERTICES = [(0.6, 2.6), (5.2, 4.4), (11.4, 0.6), (9.4, 9.4), (2.6, 9.4)]
POLYGON = line(VERTICES, 1.2, closed=True), [VERTICES]
RECTANGLE = frame(12, 10), rectangle(0, 0, 12, 10)
OVAL = ellipse(6, 5, 5.4, 4.4)
ELLIPSE = line(OVAL[0], 1.2, closed=True), OVAL
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
CIRCLE = ellipse(3, 3, 2.4, 2.4)

# White fingers two pixels wide, a pixel apart, on the same palm.
PALM = polygon((4, 9), (15, 9), (15, 12), (13, 17), (6, 17), (3.6, 13))
OPEN_FINGERS = [(5, 3, 10), (8, 2, 10), (11, 2.5, 10), (14, 5, 10)]
OPEN_THUMB = [(2, 9.6), (5, 13.4)]
CLOSED_FINGERS = [(5, 6.5, 10), (8, 5.5, 10), (11, 6, 10), (14, 7.2, 10)]
CLOSED_THUMB = [(3, 10), (5, 13)]

# The eyedropper from its tip in the middle of pixel (9, 22) up to the right: glass, collar and bulb.
DROPPER_GLASS = [(9.5, 22.5), (11.5, 18.5), (18, 12), (20, 14), (13.5, 20.5)]
DROPPER_COLLAR = line([(16.5, 10.5), (21.5, 15.5)], 2)
DROPPER_BULB = line([(20, 12), (23, 9)], 4.4)

# A ring around the free pixel in the middle, with four ticks.
TARGET = line(ellipse(15.5, 15.5, 8, 8)[0], 1.4, closed=True) + (
    rectangle(15, 3, 1, 8) + rectangle(15, 20, 1, 8) + rectangle(3, 15, 8, 1) + rectangle(20, 15, 8, 1)
)

# A pen from its tip in the middle of pixel (0, 15) up to the right.
PEN_BODY = [(0.5, 15.5), (2.6, 10.4), (10.6, 2.4), (13.6, 5.4), (5.6, 13.4)]
PEN_TIP = polygon((0.5, 15.5), (1.5, 13), (3, 14.5))

LENS = ellipse(12.5, 12.5, 8, 8)
LENS_HANDLE = line([(19, 19), (27, 27)], 3)

HORIZONTAL = rectangle(3, 3, 9, 1) + polygon((0.5, 3.5), (4, 1), (4, 6)) + polygon((14.5, 3.5), (11, 1), (11, 6))
FALLING = line([(3, 3), (12, 12)], 1.4) + polygon((1, 1), (6, 1), (1, 6)) + polygon((14, 14), (9, 14), (14, 9))


def arrow_with(symbol, mark, mark_inside=()):
    """A black arrow, the symbol at its lower right and the mark beside that; all of it fits the canvas to the pixel."""
    lines, inside = symbol
    shape = moved(lines, 10, 21) + moved(mark, 25, 23)
    return Canvas().ink(shape, moved(inside, 10, 21) + moved(mark_inside, 25, 23)).solid(ARROW)


def star(x, y, radius):
    """A sparkle of four rays."""
    waist = radius / 4
    return polygon(
        (x, y - radius), (x + waist, y - waist), (x + radius, y), (x + waist, y + waist),
        (x, y + radius), (x - waist, y + waist), (x - radius, y), (x - waist, y - waist),
    )  # fmt: skip


def wand(mark):
    """A stick with a white end, whose tip is at (3, 3), and sparkles around it."""
    sparkles = star(13.5, 3.5, 3.5) + star(3.5, 13.5, 3.5) + star(17.5, 9.5, 2)
    stick = line([(4.4, 4.4), (20, 20)], 3)
    return Canvas().ink(sparkles + moved(mark, 23, 21) + stick).white(line([(5.4, 5.4), (7.4, 7.4)], 1.6))


def hollow_arrow():
    """A white arrow with a dashed rectangle."""
    return Canvas().ink(moved(DASHED_RECTANGLE, 12, 20)).hollow(ARROW)


def hand(fingers, thumb):
    """A white hand; a finger is its middle, top and bottom."""
    shape = PALM + line(thumb, 2.2)
    for x, top, bottom in fingers:
        shape += line([(x, top), (x, bottom)], 2)
    return Canvas().rimmed(shape)


def eyedropper():
    """A white dropper with a black bulb."""
    return Canvas().ink(line(DROPPER_GLASS, 1, closed=True), [DROPPER_GLASS]).ink(DROPPER_COLLAR + DROPPER_BULB)


def pen():
    """A white pen with a black tip."""
    return Canvas().ink(line(PEN_BODY, 1, closed=True), [PEN_BODY]).ink(PEN_TIP)


def lens(mark):
    """A magnifier with a mark in the middle of its glass."""
    return Canvas().ink(line(LENS[0], 1.6, closed=True) + LENS_HANDLE + moved(mark, 9.5, 9.5), LENS)


def cursors():
    """All of them: name to canvas and hot spot."""
    table = {}
    for name, symbol in [("lasso", LASSO), ("polygon", POLYGON), ("rectangle", RECTANGLE), ("ellipse", ELLIPSE)]:
        for rule, mark in MARKS.items():
            table[f"{name}_{rule}"] = arrow_with(symbol, mark), (0, 0)
    for rule, mark in MARKS.items():
        table[f"wand_{rule}"] = wand(mark), (3, 3)
    table["polygon_close"] = arrow_with(POLYGON, line(CIRCLE[0], 1.3, closed=True), CIRCLE), (0, 0)
    table["move_selection"] = hollow_arrow(), (0, 0)
    table["hand_open"] = hand(OPEN_FINGERS, OPEN_THUMB), (8, 6)
    table["hand_closed"] = hand(CLOSED_FINGERS, CLOSED_THUMB), (8, 6)
    table["eyedropper"] = eyedropper(), (9, 22)
    table["clone_source"] = Canvas().ink(TARGET), (15, 15)
    table["zoom_in"] = lens(MARKS["add"]), (12, 12)
    table["zoom_out"] = lens(MARKS["subtract"]), (12, 12)
    table["pen"] = pen(), (0, 15)
    table["size_horizontal"] = Canvas().ink(HORIZONTAL), (7, 3)
    table["size_vertical"] = Canvas().ink(transposed(HORIZONTAL)), (3, 7)
    table["size_falling"] = Canvas().ink(FALLING), (7, 7)
    table["size_rising"] = Canvas().ink(mirrored(FALLING, 15)), (7, 7)
    return table

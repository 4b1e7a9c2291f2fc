"""Turns shapes into pixels: each pixel is the average of 8 x 8 samples that are black, white or nothing."""

import math
import operator
from functools import reduce

SIDE = 32
SAMPLES = 8
SAMPLE_SIDE = SIDE * SAMPLES
FULL_ROW = (1 << SAMPLE_SIDE) - 1


class Mask:
    """A set of samples: an integer per row of samples, whose lowest bit is the leftmost sample."""

    def __init__(self, rows):
        self.rows = rows

    @classmethod
    def of(cls, shape):
        """The samples whose middle lies in the shape."""
        rows = [0] * SAMPLE_SIDE
        for contour in shape:
            for row, bits in contour_rows(contour):
                rows[row] |= bits
        return cls(rows)

    def __or__(self, other):
        return Mask([a | b for a, b in zip(self.rows, other.rows)])

    def __sub__(self, other):
        return Mask([a & ~b for a, b in zip(self.rows, other.rows)])

    def grown(self, radius):
        """With all samples that are at most this many pixels away."""
        return self._spread(radius, operator.or_)

    def shrunk(self, radius):
        """Without those that are at most this many pixels away from the outside, which begins at the canvas' edge."""
        return self._spread(radius, operator.and_)

    def _spread(self, radius, combine):
        """Combines each sample with those of the disc around it."""
        reach = round(radius * SAMPLES)
        half_widths = [math.isqrt(reach * reach - dy * dy) for dy in range(-reach, reach + 1)]
        outside = [[0] * (reach + 1)] * reach
        wide = outside + [widened(row, reach, combine) for row in self.rows] + outside
        return Mask(
            [reduce(combine, (wide[y + i][w] for i, w in enumerate(half_widths))) for y in range(SAMPLE_SIDE)]
        )


def widened(row, reach, combine):
    """The row combined with its neighbours to the left and right: none of them, one on each side, up to reach."""
    rows = [row]
    for distance in range(1, reach + 1):
        rows.append(combine(rows[-1], combine(row << distance & FULL_ROW, row >> distance)))
    return rows


def contour_rows(contour):
    """The rows of samples that a contour touches, with the bits of the samples inside it."""
    heights = [y for _, y in contour]
    edges = list(zip(contour, contour[1:] + contour[:1]))
    for row in range(first_sample(min(heights)), first_sample(max(heights))):
        y = (row + 0.5) / SAMPLES
        crossings = sorted(
            x0 + (y - y0) * (x1 - x0) / (y1 - y0) for (x0, y0), (x1, y1) in edges if (y0 <= y) != (y1 <= y)
        )
        bits = 0
        for left, right in zip(crossings[::2], crossings[1::2]):
            bits |= (1 << first_sample(right)) - (1 << first_sample(left))
        yield row, bits


def first_sample(coordinate):
    """The first sample whose middle is not before the coordinate."""
    return min(max(math.ceil(coordinate * SAMPLES - 0.5), 0), SAMPLE_SIDE)


class Canvas:
    """A square of samples to draw on, in black and white; what is drawn later covers what was there."""

    def __init__(self):
        self._opaque = self._white = Mask([0] * SAMPLE_SIDE)

    def _paint_black(self, mask):
        self._opaque |= mask
        self._white -= mask

    def _paint_white(self, mask):
        self._opaque |= mask
        self._white |= mask

    def ink(self, shape, inside=()):
        """Draws the shape black with white around it, so that it shows on any photo, and what it encloses white too."""
        mask = Mask.of(shape)
        self._paint_white(mask.grown(1) | Mask.of(inside))
        self._paint_black(mask)
        return self

    def solid(self, shape):
        """Draws the shape black with a white rim inside its edge."""
        mask = Mask.of(shape)
        self._paint_white(mask)
        self._paint_black(mask.shrunk(1))
        return self

    def hollow(self, shape):
        """Draws the shape white with a black rim inside its edge."""
        mask = Mask.of(shape)
        self._paint_black(mask)
        self._paint_white(mask.shrunk(1))
        return self

    def rimmed(self, shape):
        """Draws the shape white with black around it."""
        mask = Mask.of(shape)
        self._paint_black(mask.grown(1))
        self._paint_white(mask)
        return self

    def white(self, shape):
        """Draws the shape white."""
        self._paint_white(Mask.of(shape))
        return self

    def pixels(self):
        """Rows of (red, green, blue, alpha), the colours not multiplied with alpha."""
        return [[self._pixel(x, y) for x in range(SIDE)] for y in range(SIDE)]

    def _pixel(self, x, y):
        opaque, white = (block_count(mask, x, y) for mask in (self._opaque, self._white))
        grey = round(255 * white / opaque) if opaque else 0
        return (grey, grey, grey, round(255 * opaque / SAMPLES**2))


def block_count(mask, x, y):
    """How many samples of a pixel are in the mask."""
    rows = mask.rows[y * SAMPLES : (y + 1) * SAMPLES]
    return sum((row >> x * SAMPLES & (1 << SAMPLES) - 1).bit_count() for row in rows)

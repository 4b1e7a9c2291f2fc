"""Shapes: lists of closed contours, each a list of (x, y) in pixels, that stand for the area inside any of them.

Joining two shapes is adding two lists. Their arithmetic rounds the same everywhere, so it has no sines."""

import math

CURVE_STEPS = 12


def polygon(*points):
    return [list(points)]


def rectangle(x, y, width, height):
    return polygon((x, y), (x + width, y), (x + width, y + height), (x, y + height))


def ellipse(x, y, radius_x, radius_y):
    """An ellipse around (x, y); the fractions are half-angle formulas of a quarter circle, turned three times."""
    steps = [i / CURVE_STEPS for i in range(CURVE_STEPS)]
    quarter = [((1 - t * t) / (1 + t * t), 2 * t / (1 + t * t)) for t in steps]
    unit = quarter + [(-v, u) for u, v in quarter]
    unit += [(-u, -v) for u, v in unit]
    return polygon(*((x + radius_x * u, y + radius_y * v) for u, v in unit))


def smooth(points, closed=False):
    """Points of a curve that passes evenly through the given ones (a Catmull-Rom spline)."""
    before, after = ([points[-1]], points[:2]) if closed else (points[:1], points[-1:])
    through = before + points + after
    spans = [through[i : i + 4] for i in range(len(through) - 3)]
    curve = [blend(*span, step / CURVE_STEPS) for span in spans for step in range(CURVE_STEPS)]
    return curve if closed else curve + points[-1:]


def blend(p0, p1, p2, p3, t):
    """The point of a spline at t from 0 (p1) to 1 (p2)."""
    return tuple(
        b + t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a))) / 2
        for a, b, c, d in zip(p0, p1, p2, p3)
    )


def line(points, width, closed=False):
    """A line of this width through the points, with round joints and ends."""
    ends = points[1:] + (points[:1] if closed else [])
    shape = [contour for x, y in points for contour in ellipse(x, y, width / 2, width / 2)]
    for (x0, y0), (x1, y1) in zip(points, ends):
        scale = width / 2 / math.sqrt((x1 - x0) ** 2 + (y1 - y0) ** 2)
        across_x, across_y = (y0 - y1) * scale, (x1 - x0) * scale
        shape += polygon(
            (x0 + across_x, y0 + across_y),
            (x1 + across_x, y1 + across_y),
            (x1 - across_x, y1 - across_y),
            (x0 - across_x, y0 - across_y),
        )
    return shape


def frame(width, height):
    """The outermost pixels of a rectangle whose corner is (0, 0)."""
    return (
        rectangle(0, 0, width, 1)
        + rectangle(0, height - 1, width, 1)
        + rectangle(0, 0, 1, height)
        + rectangle(width - 1, 0, 1, height)
    )


def moved(shape, dx, dy):
    return [[(x + dx, y + dy) for x, y in contour] for contour in shape]


def transposed(shape):
    """Mirrored at the diagonal through (0, 0)."""
    return [[(y, x) for x, y in contour] for contour in shape]


def mirrored(shape, width):
    """Mirrored left to right within this width."""
    return [[(width - x, y) for x, y in contour] for contour in shape]

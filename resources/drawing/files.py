"""Writes .bmp and .cur files."""

import struct


def bmp_file(rows):
    """A 24-bit bottom-up .bmp from rows of (red, green, blue), top row first."""
    width, height = len(rows[0]), len(rows)
    padding = bytes(-width * 3 % 4)
    bits = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + padding for row in reversed(rows))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(bits), 0, 0, 0, 0)
    offset = 14 + len(info)
    return struct.pack("<2sIHHI", b"BM", offset + len(bits), 0, 0, offset) + info + bits


def cur_file(rows, hot_spot):
    """A .cur of one 32-bit image from rows of (red, green, blue, alpha), top row first; a transparent pixel
    leaves the screen as it is, also for readers that only know the one-bit mask."""
    width, height = len(rows[0]), len(rows)
    bits = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b"".join(mask_row(row) for row in reversed(rows))
    # The height counts picture and mask.
    info = struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 32, 0, len(bits) + len(mask), 0, 0, 0, 0)
    image = info + bits + mask
    entry = struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, *hot_spot, len(image), 6 + 16)
    return struct.pack("<HHH", 0, 2, 1) + entry + image


def mask_row(row):
    """One row of the mask: a set bit where the pixel is transparent, the leftmost in the highest bit, to 32 bits."""
    padded_width = (len(row) + 31) // 32 * 32
    value = 0
    for pixel in row:
        value = value << 1 | (pixel[3] == 0)
    return (value << padded_width - len(row)).to_bytes(padded_width // 8, "big")

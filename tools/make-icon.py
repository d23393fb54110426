#!/usr/bin/env python3
"""Draws the program's icon in all sizes: python3 tools/make-icon.py src/Scrivanta.ico

The motif is a sheet with lines of writing and a pen laid across its corner, on a rounded ground.
"""
import math
import struct
import sys
import zlib

SIZES = (16, 20, 24, 32, 40, 48, 64, 96, 128, 256)
SAMPLES = 4  # a side of the grid of samples that a pixel is averaged from

GROUND = (0x1F, 0x4E, 0x79)
PAPER = (0xFF, 0xFF, 0xFF)
WRITING = (0x6B, 0x8F, 0xB5)
PEN = (0xF2, 0x8C, 0x28)
NIB = (0x33, 0x33, 0x33)


def rounded(x, y, left, top, right, bottom, radius):
    dx = max(left + radius - x, x - (right - radius), 0)
    dy = max(top + radius - y, y - (bottom - radius), 0)
    return left <= x <= right and top <= y <= bottom and math.hypot(dx, dy) <= radius


def along_pen(x, y):
    """How far a point lies along the pen from its tip, and beside its axis."""
    tip_x, tip_y = 0.44, 0.84
    dx, dy = x - tip_x, tip_y - y
    return (dx + dy) / math.sqrt(2), abs(dx - dy) / math.sqrt(2)


def colour_at(x, y, small):
    """The colour at a point of the unit square, None outside of the icon."""
    if not rounded(x, y, 0, 0, 1, 1, 0.2):
        return None
    length, beside = along_pen(x, y)
    half = 0.085 if small else 0.07
    if 0 <= length < 0.12 and beside <= half * length / 0.12:
        return NIB
    if 0.12 <= length <= 0.6 and beside <= half:
        return PEN
    if not rounded(x, y, 0.17, 0.12, 0.83, 0.88, 0.05):
        return GROUND
    lines = (0.3, 0.5) if small else (0.26, 0.4, 0.54, 0.68)
    half_line = 0.055 if small else 0.03
    for number, centre in enumerate(lines):
        end = 0.72 if number % 2 == 0 else 0.62
        if abs(y - centre) <= half_line and 0.27 <= x <= end:
            return WRITING
    return PAPER


def pixel(column, row, size):
    total = [0, 0, 0, 0]
    for sub_row in range(SAMPLES):
        for sub_column in range(SAMPLES):
            x = (column + (sub_column + 0.5) / SAMPLES) / size
            y = (row + (sub_row + 0.5) / SAMPLES) / size
            colour = colour_at(x, y, size < 32)
            if colour:
                for i in range(3):
                    total[i] += colour[i]
                total[3] += 1
    if total[3] == 0:
        return (0, 0, 0, 0)
    red, green, blue = (round(total[i] / total[3]) for i in range(3))
    return (red, green, blue, round(255 * total[3] / SAMPLES**2))


def as_bitmap(rows, size):
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = b''.join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask_row = (size + 31) // 32 * 4
    return header + pixels + bytes(mask_row * size)


def as_png(rows, size):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))

    raw = b''.join(b'\0' + b''.join(bytes(p) for p in row) for row in rows)
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', size, size, 8, 6, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))


def main():
    images = []
    for size in SIZES:
        rows = [[pixel(column, row, size) for column in range(size)] for row in range(size)]
        images.append(as_png(rows, size) if size == 256 else as_bitmap(rows, size))
    offset = 6 + 16 * len(SIZES)
    directory = struct.pack('<HHH', 0, 1, len(SIZES))
    for size, image in zip(SIZES, images):
        directory += struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    with open(sys.argv[1], 'wb') as file:
        file.write(directory + b''.join(images))


if __name__ == '__main__':
    main()

#!/usr/bin/env python3
"""Makes a Spectrum character set of an X bitmap font:  charset.py FONT.pcf.gz FILE

The file holds the 96 characters from the blank on, 8 bytes each, one for each row from the top with
the leftmost pixel in the highest bit. The font has cells of 8 by 8 pixels.
"""

import gzip
import struct
import sys

SIDE = 8
FIRST, LAST = 32, 127
METRICS, BITMAPS, ENCODINGS = 1 << 2, 1 << 3, 1 << 5  # types of tables
BIG_ENDIAN_BYTES, BIG_ENDIAN_BITS = 1 << 2, 1 << 3  # in the format of a table
COMPRESSED_METRICS = 0x100
NO_GLYPH = 0xFFFF


class Table:
    """One table of the font, read from its beginning in its own byte order."""

    def __init__(self, data, kind):
        count, = struct.unpack_from("<I", data, 4)
        for entry in range(count):
            found, _, _, offset = struct.unpack_from("<4I", data, 8 + 16 * entry)
            if found == kind:
                self.data = data[offset:]
                self.format, = struct.unpack_from("<I", self.data)
                self.order = ">" if self.format & BIG_ENDIAN_BYTES else "<"
                return
        raise SystemExit(f"the font has no table {kind}")

    def read(self, layout, offset):
        return struct.unpack_from(self.order + layout, self.data, offset)


def glyph_rows(bitmaps, metrics, glyph):
    """The rows of a glyph as bytes, put into its cell by its bearings."""
    if metrics.format & COMPRESSED_METRICS:
        left, right, _, ascent, descent = (n - 0x80 for n in metrics.data[6 + 5 * glyph:11 + 5 * glyph])
    else:
        left, right, _, ascent, descent = metrics.read("5h", 8 + 12 * glyph)
    count, = bitmaps.read("I", 4)
    offset, = bitmaps.read("I", 8 + 4 * glyph)
    padding = 1 << (bitmaps.format & 3)
    bytes_a_row = -(-(right - left) // (8 * padding)) * padding
    start = 8 + 4 * count + 16 + offset
    cell = [0] * SIDE
    baseline = SIDE - 1
    for row in range(ascent + descent):
        bits = bitmaps.data[start + row * bytes_a_row]
        if not bitmaps.format & BIG_ENDIAN_BITS:
            bits = int(f"{bits:08b}"[::-1], 2)
        y = baseline - ascent + row
        if 0 <= y < SIDE:
            cell[y] = bits >> left if left >= 0 else bits << -left & 0xFF
    return bytes(cell)


def main(font, file):
    with gzip.open(font) as source:
        data = source.read()
    if data[:4] != b"\1fcp":
        raise SystemExit(f"{font} is no PCF font")
    encodings, bitmaps, metrics = (Table(data, kind) for kind in (ENCODINGS, BITMAPS, METRICS))
    first, last, low_row, _, _ = encodings.read("5h", 4)
    if low_row != 0 or first > FIRST or last < LAST - 1:
        raise SystemExit(f"{font} lacks characters")
    with open(file, "wb") as target:
        for character in range(FIRST, LAST + 1):
            glyph = NO_GLYPH
            if character <= last:
                glyph, = encodings.read("H", 14 + 2 * (character - first))
            blank = bytes(SIDE)
            target.write(blank if glyph == NO_GLYPH else glyph_rows(bitmaps, metrics, glyph))


if __name__ == "__main__":
    main(*sys.argv[1:])

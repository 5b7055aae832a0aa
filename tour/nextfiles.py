"""What a game on the Next would do with the exported files, and what the colours should be.

Written from the byte tables alone with nothing but the standard library: it shares no line with
the program that it checks.
"""
import struct
import zlib

LEVELS = list(range(0, 241, 16)) + [255]


def read_png(data):
    """The pixels of a PNG as rows of (red, green, blue, alpha), and as rows of indices or None."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n", "no PNG"
    place, packed, table, alphas = 8, b"", [], []
    while place < len(data):
        size, kind = struct.unpack(">I4s", data[place:place + 8])
        body = data[place + 8:place + 8 + size]
        place += 12 + size
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlaced = struct.unpack(">IIBBBBB", body)
        elif kind == b"PLTE":
            table = [tuple(body[i:i + 3]) for i in range(0, size, 3)]
        elif kind == b"tRNS":
            alphas = list(body)
        elif kind == b"IDAT":
            packed += body
    assert not interlaced, "interlaced"
    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[colour]
    lines = unfilter(zlib.decompress(packed), width, height, depth * channels)
    values = [unpack(line, depth, width * channels) for line in lines]
    if colour == 3:
        alphas += [255] * (len(table) - len(alphas))
        rows = [[table[i] + (alphas[i],) for i in line] for line in values]
        return rows, values
    if colour == 6:
        return [[tuple(v[i:i + 4]) for i in range(0, len(v), 4)] for v in values], None
    if colour == 2:
        return [[tuple(v[i:i + 3]) + (255,) for i in range(0, len(v), 3)] for v in values], None
    top = (1 << depth) - 1
    return [[(g * 255 // top,) * 3 + (255,) for g in line[::channels]] for line in values], None


def unfilter(data, width, height, bits):
    """The lines of a picture without their filters."""
    pitch, step = (width * bits + 7) // 8, max(1, bits // 8)
    lines, above, place = [], bytes(pitch), 0
    for _ in range(height):
        kind, line = data[place], bytearray(data[place + 1:place + 1 + pitch])
        place += 1 + pitch
        for i in range(pitch):
            left = line[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            guess = (0, left, above[i], (left + above[i]) // 2,
                     paeth(left, above[i], corner) if kind == 4 else 0)[kind]
            line[i] = (line[i] + guess) & 255
        lines.append(line)
        above = line
    return lines


def paeth(left, above, corner):
    guess = left + above - corner
    return min((abs(guess - left), 0, left), (abs(guess - above), 1, above),
               (abs(guess - corner), 2, corner))[2]


def unpack(line, depth, count):
    if depth == 8:
        return list(line)
    per_byte = 8 // depth
    return [line[i // per_byte] >> (8 - depth - i % per_byte * depth) & ((1 << depth) - 1)
            for i in range(count)]


def write_png(path, rows):
    """Writes rows of (red, green, blue)."""
    raw = b"".join(b"\0" + bytes(v for pixel in row for v in pixel[:3]) for row in rows)
    def chunk(kind, body):
        whole = kind + body
        return struct.pack(">I", len(body)) + whole + struct.pack(">I", zlib.crc32(whole))
    head = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 2, 0, 0, 0)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) +
                   chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


def snap(value):
    """The nearer level of one channel; a tie goes down."""
    low = LEVELS[value // 16]
    high = LEVELS[min(value // 16 + 1, 16)]
    return high if value - low > high - value else low


def word_of(pixel):
    """The palette entry that a screen colour becomes: snapped, then the top three bits."""
    red, green, blue = (snap(v) >> 5 for v in pixel[:3])
    return red << 13 | green << 10 | blue >> 1 << 8 | blue & 1


def colour_of(word):
    """The screen colour of a palette entry: each level of seven, rounded up."""
    levels = (word >> 13, word >> 10 & 7, word >> 7 & 6 | word & 1)
    return tuple(-(-level * 255 // 7) for level in levels)


def read_palette(data):
    assert len(data) == 512, len(data)
    return list(struct.unpack(">256H", data))


def read_tiles(data):
    """.nxt: tiles of eight rows of eight four-bit pixels."""
    assert len(data) % 32 == 0, len(data)
    return [[[data[at + y * 4 + x // 2] >> (4 if x % 2 == 0 else 0) & 15 for x in range(8)]
             for y in range(8)] for at in range(0, len(data), 32)]


def read_squares(data, side):
    """Squares of one byte a pixel: the tiles of .bin and the sprites of .spr."""
    area = side * side
    assert len(data) % area == 0, len(data)
    return [[list(data[at + y * side:at + y * side + side]) for y in range(side)]
            for at in range(0, len(data), area)]


def read_map(data, columns):
    """.map: rows of (tile, rotate, flip, mirror, offset)."""
    cells = [(low | (high & 1) << 8, high >> 1 & 1, high >> 2 & 1, high >> 3 & 1, high >> 4)
             for low, high in zip(data[::2], data[1::2])]
    return [cells[at:at + columns] for at in range(0, len(cells), columns)]


def turned(square, rotate, flip, mirror):
    """A quarter clockwise first, then top to bottom, then left to right."""
    if rotate:
        square = [list(row) for row in zip(*square[::-1])]
    if flip:
        square = square[::-1]
    if mirror:
        square = [row[::-1] for row in square]
    return square


def orientations(square):
    return [turned(square, n & 4, n & 1, n & 2) for n in range(8)]


def cut(rows, x, y, side):
    return [row[x:x + side] for row in rows[y:y + side]]

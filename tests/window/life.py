"""A project's life in the real program: made, filled from a picture, saved, closed, opened again.

The file on disk is read by this script alone: ZIP, JSON, PNG and the cells of the map.
"""
import json
import os
import struct
import sys
import time
import zipfile
import zlib

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desktop import WAIT, Desktop  # noqa: E402

WIDTH, HEIGHT = 64, 48  # pixels of the picture
RED, GREEN, BLACK = (255, 0, 0), (0, 255, 0), (0, 0, 0)


def pixel(x, y):
    if (x // 8 + y // 8) % 2:
        return BLACK
    return RED if x % 8 < 4 else GREEN


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def write_picture(path):
    rows = b"".join(b"\0" + b"".join(bytes(pixel(x, y)) for x in range(WIDTH))
                    for y in range(HEIGHT))
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n")
        out.write(chunk(b"IHDR", struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0)))
        out.write(chunk(b"IDAT", zlib.compress(rows)))
        out.write(chunk(b"IEND", b""))


def read_indexed(data):
    """Width and rows of an eight-bit palette PNG."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    place, packed = 8, b""
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place:place + 8])
        body = data[place + 8:place + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            assert (depth, colour) == (8, 3), (depth, colour)
        elif kind == b"IDAT":
            packed += body
        place += 12 + length
    return width, unfiltered(zlib.decompress(packed), width, height)


def unfiltered(raw, width, height):
    rows, before = [], bytes(width)
    for y in range(height):
        kind, line = raw[y * (width + 1)], bytearray(raw[y * (width + 1) + 1:(y + 1) * (width + 1)])
        for x in range(width):
            left = line[x - 1] if x else 0
            corner = before[x - 1] if x else 0
            guess = left + before[x] - corner
            paeth = min((left, before[x], corner), key=lambda value: abs(guess - value))
            add = (0, left, before[x], (left + before[x]) // 2, paeth)[kind]
            line[x] = (line[x] + add) & 255
        before = bytes(line)
        rows.append(before)
    return rows


def colour_of(word):
    levels = (word >> 13 & 7, word >> 10 & 7, (word >> 7 & 6) | word & 1)
    return tuple(-(-level * 255 // 7) for level in levels)


def check_file(path, name):
    with zipfile.ZipFile(path) as archive:
        assert archive.testzip() is None
        names = archive.namelist()
        assert names == sorted(names), names
        project = json.loads(archive.read("project.json"))
        assert (project["name"], project["formatVersion"]) == (name, 2), project["name"]
        (palette,), (tileset,), (the_map,) = (
            project["palettes"], project["tilesets"], project["maps"])
        assert tileset["palette"] == palette["id"] and the_map["tileset"] == tileset["id"]
        width, tiles = read_indexed(archive.read(f"tileset/{tileset['id']}.png"))
        assert (width, len(tiles)) == (8, 8 * tileset["count"])
        cells = archive.read(f"tilemap/{the_map['id']}")
    rows, columns = struct.unpack(">ii", cells[:8])
    assert (rows, columns) == (HEIGHT // 8, WIDTH // 8), (rows, columns)
    assert len(cells) == 8 + 12 * rows * columns + 16
    for y in range(HEIGHT):
        for x in range(WIDTH):
            cell = cells[8 + 12 * (y // 8 * columns + x // 8):]
            index, occupied, offset, rotate, flip, mirror = struct.unpack(">iBiBBB", cell[:12])
            assert occupied
            tx, ty = x % 8, y % 8
            tx, ty = (7 - tx if mirror else tx), (7 - ty if flip else ty)
            if rotate:
                tx, ty = ty, 7 - tx
            value = tiles[8 * index + ty][tx] & 15 | offset << 4
            assert colour_of(palette["colours"][value]) == pixel(x, y), (x, y)


def close(desktop, program):
    desktop.press("alt+F4")
    program.wait(timeout=WAIT)
    assert program.returncode == 0, program.returncode


def make_project(desktop, executable, picture, file):
    program = desktop.start(executable)
    desktop.wait_for_title("Tessaril")
    desktop.press("ctrl+n")
    desktop.wait_for_title("Tessaril")
    time.sleep(0.5)
    desktop.type("castle")
    desktop.press("Return")
    desktop.wait_for_title("Tessaril - castle")

    # The fifth menu is Map, its second item Import; the menu bar takes the keys after Alt alone.
    desktop.press("Alt_L", "Right", "Right", "Right", "Right", "Down", "Down", "Return")
    desktop.wait_for_title("Import Map Data")
    desktop.type(picture)
    desktop.press("Return")
    desktop.wait_for_title("Tessaril - castle")
    time.sleep(1)

    desktop.press("ctrl+s")
    desktop.wait_for_title("Save project")
    desktop.type(file)
    desktop.press("Return")
    desktop.wait_for("the saved file", lambda: os.path.exists(file + ".tessaril"))
    desktop.wait_for_title("Tessaril - castle")
    close(desktop, program)


def open_again(desktop, executable, file):
    program = desktop.start(executable)
    desktop.wait_for_title("Tessaril")
    desktop.press("ctrl+o")
    desktop.wait_for_title("Open project")
    desktop.type(file)
    desktop.press("Return")
    desktop.wait_for_title("Tessaril - castle")
    desktop.press("Escape")  # the dialog's list of completions can outlive it
    close(desktop, program)


def check_home(file):
    """What outlives a run stands in one folder, and nothing was written beside it."""
    home = os.path.expanduser("~")
    written = [os.path.relpath(os.path.join(folder, name), home)
               for folder, _, names in os.walk(home) for name in names]
    # The first program that shows a text lets the library of fonts keep what it found.
    known = (".config/tessaril/", ".cache/fontconfig/")
    outside = [path for path in written if not path.startswith(known)]
    assert not outside, outside
    with open(os.path.join(home, ".config/tessaril/state.json")) as text:
        state = json.load(text)
    assert state["recent"] == [file], state["recent"]
    assert state["tileZoom"] == 8 and state["windowState"] and state["windowGeometry"]
    with open(os.path.join(home, ".config/tessaril/preferences.json")) as text:
        preferences = json.load(text)
    assert set(preferences) == {"general", "mapEditor"}, preferences
    assert preferences["general"]["updateInterval"] == "weekly"


def main():
    executable = sys.argv[1]
    folder = os.getcwd()
    picture, file = os.path.join(folder, "picture.png"), os.path.join(folder, "castle")
    write_picture(picture)
    with Desktop() as desktop:
        make_project(desktop, executable, picture, file)
        check_file(file + ".tessaril", "castle")
        open_again(desktop, executable, file + ".tessaril")
        check_file(file + ".tessaril", "castle")
    check_home(file + ".tessaril")
    print("1 passed, 0 failed")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Rebuilds the tour's pictures from the exported files alone:  read_exports.py MANIFEST

Each picture is read from where its package put it. What the palette, the tiles and the map show
must be that picture in the Next's colours, pixel for pixel; where the palette was full, it must be
so for the tiles before the first that found no room.
"""
import json
import pathlib
import sys
import zipfile

from nextfiles import (colour_of, cut, orientations, read_map, read_palette, read_png,
                       read_squares, read_tiles, snap, turned, word_of, write_png)

TILE, SPRITE, BANKS, BANK_SIZE = 8, 16, 16, 16
wrong = 0


def check(holds, name, what):
    global wrong
    wrong += not holds
    print(f"  {name:14} {what:46} {'ok' if holds else 'WRONG'}", flush=True)


def source_pixels(entry):
    """The part of the original picture that was imported, without alpha."""
    rows, _ = read_png(pathlib.Path(entry["source"]).read_bytes())
    x, y, width, height = entry["part"]
    return [[pixel[:3] for pixel in row[x:x + width]] for row in rows[y:y + height]]


def key(square):
    return tuple(tuple(row) for row in square)


def distinct_tiles(rows):
    """The squares that differ in every orientation, in order of first appearance."""
    seen, tiles = set(), []
    for y in range(0, len(rows) // TILE * TILE, TILE):
        for x in range(0, len(rows[0]) // TILE * TILE, TILE):
            square = cut(rows, x, y, TILE)
            if key(square) not in seen:
                seen.update(key(form) for form in orientations(square))
                tiles.append(square)
    return tiles


def tiles_with_room(tiles):
    """How many tiles, from the first, find a bank of sixteen colours that takes them."""
    banks = [[] for _ in range(BANKS)]
    for count, tile in enumerate(tiles):
        colours = list(dict.fromkeys(pixel for row in tile for pixel in row))
        for bank in banks:
            new = [colour for colour in colours if colour not in bank]
            if len(bank) + len(new) <= BANK_SIZE:
                bank += new
                break
        else:
            return count
    return len(tiles)


def check_level(folder, entry):
    name = entry["name"]
    source = source_pixels(entry)
    snapped = [[tuple(snap(v) for v in pixel) for pixel in row] for row in source]
    columns, lines = len(source[0]) // TILE, len(source) // TILE
    words = read_palette((folder / f"{name}_palette.bin").read_bytes())
    tiles = read_tiles((folder / f"{name}_tiles.nxt").read_bytes())
    wide = read_squares((folder / f"{name}_tiles.bin").read_bytes(), TILE)
    cells = read_map((folder / f"{name}_tilemap.bin").read_bytes(), columns)

    expected = distinct_tiles(snapped)
    room = tiles_with_room(expected)
    check(len(expected) == entry["tiles"] == len(wide), name, f"has {len(expected)} distinct tiles")
    check((room < len(expected)) == entry["full"], name, f"has room for {room} of them")
    check(len(cells) == lines, name, f"is a map of {columns} x {lines} cells")

    rebuilt = [[None] * columns * TILE for _ in range(lines * TILE)]
    exact = differing = 0
    wide_agrees = True
    for row, line in enumerate(cells):
        for column, (tile, rotate, flip, mirror, offset) in enumerate(line):
            square = [[words[offset * 16 + nibble] for nibble in pixels] for pixels in tiles[tile]]
            wide_agrees &= wide[tile] == [[offset * 16 + nibble for nibble in pixels]
                                          for pixels in tiles[tile]]
            for y, pixels in enumerate(turned(square, rotate, flip, mirror)):
                for x, word in enumerate(pixels):
                    at_x, at_y = column * TILE + x, row * TILE + y
                    rebuilt[at_y][at_x] = colour_of(word)
                    if tile < room:
                        exact += word == word_of(source[at_y][at_x])
                        differing += word != word_of(source[at_y][at_x])
    check(wide_agrees, name, "has the same tiles at one byte a pixel")
    check(differing == 0 and exact > 0, name, f"is rebuilt: {exact} pixels, {differing} differ")
    write_png(folder / f"{name}-rebuilt.png", rebuilt)
    write_png(folder / f"{name}-source.png",
              [[colour_of(word_of(pixel)) for pixel in row[:columns * TILE]]
               for row in source[:lines * TILE]])


def check_shown(folder, entry):
    """What the window showed of a map is what its three files rebuild."""
    words = read_palette((folder / entry["palette"]).read_bytes())
    tiles = read_tiles((folder / entry["tiles"]).read_bytes())
    cells = read_map((folder / entry["map"]).read_bytes(), entry["columns"])
    shown, _ = read_png((folder / entry["picture"]).read_bytes())
    blank = {tuple(cell) for cell in entry["blank"]}
    same_size = len(shown) == len(cells) * TILE and len(shown[0]) == entry["columns"] * TILE
    check(same_size, entry["map"], "has the size that was shown")

    differing = 0
    for row, line in enumerate(cells):
        for column, (tile, rotate, flip, mirror, offset) in enumerate(line):
            square = [[words[offset * 16 + nibble] for nibble in pixels] for pixels in tiles[tile]]
            square = turned(square, rotate, flip, mirror)
            if (column, row) in blank:
                square = [[words[0]] * TILE] * TILE
            seen = cut(shown, column * TILE, row * TILE, TILE)
            differing += sum(colour_of(word) != pixel[:3] for words_, pixels in zip(square, seen)
                             for word, pixel in zip(words_, pixels))
    check(differing == 0, entry["map"], f"is what the window showed: {differing} pixels differ")


def check_sheet(folder, entry, description):
    name = entry["name"]
    source = source_pixels(entry)
    squares = [cut(source, x, y, SPRITE)
               for y in range(0, len(source) // SPRITE * SPRITE, SPRITE)
               for x in range(0, len(source[0]) // SPRITE * SPRITE, SPRITE)]
    palettes = {item["name"]: item for item in description["palettes"]}
    check(name in palettes and "standard" in palettes, name, "has its palettes in the project")

    sprites = read_squares((folder / f"{name}.spr").read_bytes(), SPRITE)
    check(len(sprites) == entry["sprites"] < len(squares), name,
          f"are {len(squares)} squares in {len(sprites)} sprites")
    words = palettes[name]["colours"]
    shown = {key([[words[index] for index in row] for row in form])
             for sprite in sprites for form in orientations(sprite)}
    missing = sum(key([[word_of(pixel) for pixel in row] for row in square]) not in shown
                  for square in squares)
    check(missing == 0, name, "each square is one of them, turned or not")

    matched = read_squares((folder / f"{name} matched.spr").read_bytes(), SPRITE)
    check(len(matched) == entry["matched"] == len(squares) + 1, name, "matched: one for each")
    words, nearest = default_words(), {}
    differing = sum(index != nearest_index(tuple(snap(v) for v in pixel), words, nearest)
                    for sprite, square in zip(matched[1:], squares)
                    for row, pixels in zip(sprite, square)
                    for index, pixel in zip(row, pixels))
    check(differing == 0, name, "matched: each pixel has the nearest colour")


def default_words():
    """The hardware's ramp: the lowest bit of blue is set where one of the others is."""
    return [index << 8 | (index & 3 != 0) for index in range(256)]


def nearest_index(pixel, words, known):
    if pixel not in known:
        distances = [sum((a - b) ** 2 for a, b in zip(pixel, colour_of(word))) for word in words]
        known[pixel] = distances.index(min(distances))
    return known[pixel]


def check_image(entry, archive):
    name = entry["name"]
    source = source_pixels(entry)
    width, height = entry["size"]
    _, rows = read_png(archive.read(f"images/{entry['id']}.png"))
    check(rows is not None and len(rows) == height and len(rows[0]) == width, name,
          f"is a page of {width} x {height} in the project")
    words, nearest, differing = default_words(), {}, 0
    for y, row in enumerate(rows):
        for x, index in enumerate(row):
            inside = y < len(source) and x < len(source[0])
            pixel = tuple(snap(v) for v in source[y][x]) if inside else (0, 0, 0)
            differing += index != nearest_index(pixel, words, nearest)
    check(differing == 0, name, f"each pixel has the nearest of {len(nearest)} colours")


def check_project(folder, manifest):
    with zipfile.ZipFile(manifest["project"]) as archive:
        check(archive.testzip() is None, "project", "is a sound archive")
        description = json.loads(archive.read("project.json"))
        if "sheet" in manifest:
            check_sheet(folder, manifest["sheet"], description)
        if "image" in manifest:
            check_image(manifest["image"], archive)


def main():
    manifest_file = pathlib.Path(sys.argv[1])
    folder = manifest_file.parent
    manifest = json.loads(manifest_file.read_text(encoding="utf-8"))
    for entry in manifest.get("levels", []):
        check_level(folder, entry)
    for entry in manifest.get("shown", []):
        check_shown(folder, entry)
    if "project" in manifest:
        check_project(folder, manifest)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

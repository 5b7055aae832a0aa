#!/usr/bin/env python3
"""Fails if the manual tells what the program does not do:  check.py PROGRAM EXAMPLES FOLDER MANUAL

Does every step of the manual in the real window, compares the page of keys, looks for the pictures
and links, assembles the game from the files that the menus exported, and runs it.
"""
import pathlib
import re
import subprocess
import sys

sys.dont_write_bytecode = True
HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "tour")]
from next import Machine, SCREEN  # noqa: E402
from nextfiles import read_png  # noqa: E402
from walk import walk  # noqa: E402

START = 0x8000
VIEW = (10 * 8, 8 * 8)  # the pixel of the island in the upper left corner
PEOPLE = ((166, 202), (290, 166), (262, 240))


def check_keys(manual, folder):
    if (manual / "keys.md").read_text() != (folder / "keys.md").read_text():
        raise SystemExit("docs/manual/keys.md is not what the program's keys are: run tools/manual")


def check_links(manual, folder):
    used = set()
    for page in sorted(manual.glob("*.md")):
        for target in re.findall(r"\]\(([^)#]+)", page.read_text()):
            if "://" not in target and not (page.parent / target).is_file():
                raise SystemExit(f"{page.name} leads to {target}, which is not there")
            used.add(target)
    made = {f"pictures/{path.name}" for path in (folder / "pictures").glob("*.png")}
    kept = {f"pictures/{path.name}" for path in (manual / "pictures").glob("*.png")}
    if kept != made:
        raise SystemExit(f"pictures that differ from those of the walk: {sorted(kept ^ made)}")
    if kept - used:
        raise SystemExit(f"pictures that no page shows: {sorted(kept - used)}")


def assemble(manual, exports):
    source = (manual / "game" / "island.asm").read_text()
    commands = re.findall(r"^;   (z80-unknown-coff-.*)$", source, re.MULTILINE)
    assert len(commands) == 3, commands
    (exports / "island.asm").write_text(source)
    for command in commands:
        subprocess.run(command.split(), cwd=exports, check=True)
    return (exports / "island.bin").read_bytes()


def check_game(program, island):
    """The game's screen is the part of the island that it shows, but for the people on it."""
    machine = Machine(program, START)
    machine.run()
    rows, _ = read_png(island.read_bytes())
    shown = machine.picture()
    people = [(x - VIEW[0], y - VIEW[1]) for x, y in PEOPLE]
    different = set()
    for y in range(SCREEN[1]):
        for x in range(SCREEN[0]):
            red, green, blue, _ = rows[VIEW[1] + y][VIEW[0] + x]
            if shown[y][x] != tuple((level * 7 + 127) // 255 for level in (red, green, blue)):
                different.add((x, y))
    outside = {(x, y) for x, y in different
               if not any(left <= x < left + 16 and top <= y < top + 16 for left, top in people)}
    assert not outside, f"wrong pixels: {sorted(outside)[:20]}"
    for left, top in people:
        inside = [p for p in different if left <= p[0] < left + 16 and top <= p[1] < top + 16]
        assert len(inside) > 80, f"nobody stands at {left}, {top}"
    colours = {shown[top + 2][left + 8] for left, top in people}
    assert len(colours) > 1, "the palette offsets of the sprites are lost"


def main():
    program, examples, folder, manual = sys.argv[1:5]
    folder, manual = pathlib.Path(folder).resolve(), pathlib.Path(manual).resolve()
    walk(program, examples, str(folder))
    check_keys(manual, folder)
    check_links(manual, folder)
    check_game(assemble(manual, folder / "exports"), folder / "island.png")
    print("The manual tells what the program does.")


if __name__ == "__main__":
    main()

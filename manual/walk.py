#!/usr/bin/env python3
"""Runs the manual's program on a virtual display:  walk.py PROGRAM EXAMPLES FOLDER"""
import os
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "window"))
from desktop import Desktop  # noqa: E402


def walk(program, examples, folder):
    """Fails unless every step of the manual could be done."""
    shutil.rmtree(folder, ignore_errors=True)  # else the exports would ask before they replace
    os.makedirs(folder)
    with Desktop() as desktop:
        subprocess.run([program, examples, folder], env=desktop.environment, check=True,
                       timeout=200)


if __name__ == "__main__":
    walk(*sys.argv[1:4])

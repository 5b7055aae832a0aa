"""Runs a test program on a virtual display, where it drags with a real mouse:  drags.py PROGRAM"""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desktop import WAIT, Desktop  # noqa: E402

with Desktop() as desktop:
    desktop.wait_for("the window manager", lambda: desktop.xdotool("get_num_desktops"))
    done = subprocess.run([sys.argv[1]], env=desktop.environment, timeout=4 * WAIT)
sys.exit(done.returncode)

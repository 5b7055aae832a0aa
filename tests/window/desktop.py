"""A virtual display with a window manager, and keys pressed on it. Ended by leaving the `with` block."""
import os
import subprocess
import tempfile
import time

WAIT = 30  # seconds, for anything that the program does


class Desktop:
    def __enter__(self):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x900x24", "-nolisten", "tcp"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            display = ":" + numbers.readline().strip()
        self.environment = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb")
        self.manager_home = tempfile.TemporaryDirectory()  # it writes a log of its own
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL,
                                        env=dict(self.environment, HOME=self.manager_home.name))
        # A window that is there before its manager gets no focus.
        self.wait_for("the window manager", self.is_managed)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait(timeout=WAIT)
        self.manager_home.cleanup()

    def is_managed(self):
        done = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], text=True,
                              env=self.environment, capture_output=True)
        return "window id" in done.stdout

    def start(self, program):
        return subprocess.Popen([program], env=self.environment)

    def xdotool(self, *arguments):
        done = subprocess.run(["xdotool", *arguments], env=self.environment, text=True,
                              capture_output=True)
        return done.stdout.strip()

    def press(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)
            time.sleep(0.15)

    def type(self, text):
        self.xdotool("type", "--clearmodifiers", "--delay", "15", text)

    def active_title(self):
        return self.xdotool("getactivewindow", "getwindowname")

    def wait_for(self, what, condition):
        end = time.monotonic() + WAIT
        while time.monotonic() < end:
            if condition():
                return
            time.sleep(0.1)
        raise SystemExit(f"waited in vain for {what}; active: {self.active_title()!r}")

    def wait_for_title(self, start):
        self.wait_for(f"a window titled {start!r}",
                      lambda: self.active_title().startswith(start))
        time.sleep(0.3)

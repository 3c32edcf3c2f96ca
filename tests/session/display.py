# SPDX-License-Identifier: MIT
"""A display of our own with a window manager, and a person's hands on it."""

import os
import subprocess
import time

from picture import Picture

DEADLINE = 60.0  # seconds; only a failure waits this long


class Timeout(AssertionError):
    pass


def wait_until(condition, what, deadline=DEADLINE):
    """The first true result of the condition."""
    end = time.monotonic() + deadline
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise Timeout(f"waited {deadline:g} s in vain: {what}")
        time.sleep(0.03)


class Display:
    """An X server without hardware, and openbox on it. Use as a context manager."""

    def __init__(self, home, size=(1600, 1000)):
        self.size = size
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(home), "LANG": "C.UTF-8", "LC_ALL": "C.UTF-8",
            "XDG_CONFIG_HOME": str(home / "config"), "XDG_DATA_HOME": str(home / "data"),
            "XDG_CACHE_HOME": str(home / "cache"), "XDG_RUNTIME_DIR": str(home / "runtime"),
            # As desktops set it; the size of the screen in millimetres would give a scale a little above 1.
            "QT_FONT_DPI": "96",
        }
        (home / "runtime").mkdir(mode=0o700, parents=True)
        # The server keeps its screen in a file here, in the format of xwd.
        self._screen_folder = home / "screen"
        self._screen_folder.mkdir()
        self._processes = []

    def __enter__(self):
        reading, writing = os.pipe()
        screen = f"{self.size[0]}x{self.size[1]}x24"
        self._processes.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", screen, "-dpi", "96", "-nolisten", "tcp", "-noreset",
             "-fbdir", str(self._screen_folder)],
            pass_fds=[writing], stderr=subprocess.DEVNULL, env=self.environment))
        os.close(writing)
        with os.fdopen(reading) as number:
            self.environment["DISPLAY"] = f":{number.readline().strip()}"
        self._processes.append(subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL,
                                                stderr=subprocess.DEVNULL, env=self.environment))
        wait_until(lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                   "a window manager on the display")
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            process.terminate()
            process.wait(10)

    def run(self, *command):
        result = subprocess.run(command, capture_output=True, text=True, env=self.environment, timeout=DEADLINE)
        return result.stdout

    def xdotool(self, *words):
        return self.run("xdotool", *map(str, words))

    def picture(self):
        """What is on the screen now."""
        return Picture.from_xwd((self._screen_folder / "Xvfb_screen0").read_bytes())

    def steady_picture(self, area=None):
        """What is on the screen once the area, or all of it, has stopped changing."""
        last = self.picture()

        def unchanged():
            nonlocal last
            time.sleep(0.1)
            now = self.picture()
            same = now.crop(area).pixels == last.crop(area).pixels if area else now.pixels == last.pixels
            last = now
            return same

        wait_until(unchanged, "the screen to come to rest")
        return last

    def windows(self, pid):
        """The visible windows of a process that have a size worth speaking of, by id."""
        return [line for line in self.xdotool("search", "--onlyvisible", "--pid", pid).split()
                if min(self.geometry(line)[2:]) > 8]

    def geometry(self, window):
        """x, y, width and height on the screen; zeros for a window that is gone."""
        values = dict(line.split("=") for line in self.xdotool("getwindowgeometry", "--shell", window).split())
        return tuple(int(values.get(name, 0)) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def move(self, point):
        self.xdotool("mousemove", "--sync", *point)

    def click(self, point, button=1):
        self.move(point)
        self.xdotool("click", button)

    def double_click(self, point):
        self.move(point)
        self.xdotool("click", "--repeat", 2, "--delay", 60, 1)

    def drag(self, start, end, steps=12, until=None):
        """Presses at the start, moves in steps and lets go at the end, or as soon as the condition holds there."""
        self.move(start)
        self.xdotool("mousedown", 1)
        for step in range(1, steps + 1):
            self.move(tuple(round(a + (b - a) * step / steps) for a, b in zip(start, end)))
        if until:
            wait_until(until, "the drag to be taken")
        self.xdotool("mouseup", 1)

    def key(self, *names):
        self.xdotool("key", "--clearmodifiers", *names)

    def write(self, text):
        self.xdotool("type", "--clearmodifiers", "--delay", 20, text)

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The game in a real window: a display of its own, real X input, and what a player would see and find afterwards.

Everything waits for what it expects, with a limit, and never just sleeps.
"""

import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import time
import tomllib
import unittest

from x11 import Connection

FONTS = pathlib.Path(__file__).resolve().parent.parent / "support" / "fonts.conf"
WAIT_LIMIT = 30.0  # seconds; software OpenGL under sanitizers on a busy machine is slow


def wait_until(condition, what, limit=WAIT_LIMIT):
    """Waits for the condition to hold and returns its value. what: a text, or a function that tells at the end."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    raise AssertionError("waited in vain for " + (what() if callable(what) else what))


class Display:
    """An X server without a screen; its picture lies in a file."""

    def __init__(self, width=1280, height=720, depth=24, opengl=True):
        self.width, self.height = width, height
        self._folder = tempfile.mkdtemp(prefix="quarrow-display-")
        read_end, write_end = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x{depth}",
             "+extension" if opengl else "-extension", "GLX",
             "-nolisten", "tcp", "-noreset", "-fbdir", self._folder],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.name = ":" + pipe.readline().strip()

    def vanish(self):
        """The server ends, and with it everybody's connection."""
        self._server.kill()
        self._server.wait()

    def close(self):
        self._server.terminate()
        self._server.wait()
        shutil.rmtree(self._folder, ignore_errors=True)

    def picture(self):
        """A snapshot, as a Picture."""
        data = pathlib.Path(self._folder, "Xvfb_screen0").read_bytes()
        header = struct.unpack(">25I", data[:100])
        header_size, bytes_per_line, colours = header[0], header[12], header[19]
        return Picture(data, header_size + colours * 12, bytes_per_line)

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env={**os.environ, "DISPLAY": self.name}, check=True,
                       stdout=subprocess.DEVNULL)

    def resize_window(self, width, height):
        """Moves the largest visible window to the corner and gives it that size."""
        window = wait_until(self._visible, "a visible window")[-1][1]
        self.xdotool("windowmove", window, 0, 0)
        self.xdotool("windowsize", window, width, height)

    def close_button(self):
        """Clicks the close button of the largest visible window, as a window manager would have it."""
        window = wait_until(self._visible, "a visible window")[-1][1]
        with Connection(self.name) as connection:
            connection.press_close_button(int(window, 16))

    def largest_window(self):
        """Its identifier; None when none is visible."""
        visible = self._visible()
        return int(visible[-1][1], 16) if visible else None

    def windows(self):
        """Visible windows as (x, y, width, height), the largest last."""
        return [geometry for geometry, _ in self._visible()]

    def titles(self):
        """The titles of all windows, visible or not."""
        text = subprocess.run(["xwininfo", "-display", self.name, "-root", "-tree"], check=True, capture_output=True,
                              text=True).stdout
        return re.findall(r'0x[0-9a-f]+ "([^"]*)":', text)

    def _visible(self):
        """Geometry and identifier of each visible window, the largest last."""
        # It fails when a window goes away while it asks: then there is nothing to be seen yet.
        tree = subprocess.run(["xwininfo", "-display", self.name, "-root", "-tree"], capture_output=True, text=True)
        found = []
        for line in tree.stdout.splitlines() if tree.returncode == 0 else ():
            words = line.split()
            if '"' in line and "(has no name)" not in line and words and words[0].startswith("0x"):
                stats = subprocess.run(["xwininfo", "-display", self.name, "-id", words[0], "-stats"],
                                       capture_output=True, text=True).stdout
                if "IsViewable" in stats:
                    found.append((_geometry(stats), words[0]))
        return sorted(found, key=lambda window: window[0][2] * window[0][3])


def _geometry(stats):
    values = {}
    for line in stats.splitlines():
        name, _, value = line.strip().partition(":")
        values[name] = value.strip()
    return tuple(int(values[name]) for name in
                 ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


class Picture:
    def __init__(self, data, offset, bytes_per_line):
        self._data, self._offset, self._line = data, offset, bytes_per_line

    def pixel(self, x, y):
        """(red, green, blue)"""
        at = self._offset + y * self._line + x * 4
        blue, green, red = self._data[at:at + 3]
        return red, green, blue

    def part(self, box):
        """The bytes of the box (x, y, width, height)."""
        x0, y0, width, height = box
        starts = (self._offset + y * self._line + x0 * 4 for y in range(y0, y0 + height))
        return b"".join(self._data[start:start + width * 4] for start in starts)

    def count(self, box, wanted):
        """How many pixels of the box (x, y, width, height) the predicate wants."""
        x0, y0, width, height = box
        return sum(1 for y in range(y0, y0 + height) for x in range(x0, x0 + width) if wanted(*self.pixel(x, y)))


def is_white(red, green, blue):
    return min(red, green, blue) > 240


def is_light(red, green, blue):
    """Text in its normal grey (0.7) or brighter."""
    return min(red, green, blue) > 150


class Game:
    """One run of the program. Use it in a with statement."""

    def __init__(self, display, home, environment=None, expect_start=True, program=None):
        self.display = display
        self.home = pathlib.Path(home)
        self.config = self.home / ".config" / "quarrow" / "settings.toml"
        self._log_path = self.home / f"log-{time.monotonic_ns()}.txt"
        env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "SDL_", "LC_")) and
               k not in ("WAYLAND_DISPLAY", "LANGUAGE")}
        env.update(HOME=str(self.home), DISPLAY=display.name if display else "", ALSOFT_DRIVERS="null", LANG="C.UTF-8",
                   LIBGL_ALWAYS_SOFTWARE="1", FONTCONFIG_FILE=str(FONTS))
        env.update(environment or {})
        with open(self._log_path, "wb") as log:
            self.process = subprocess.Popen([program or os.environ["QUARROW_PROGRAM"]], env=env, stdout=log,
                                            stderr=log, stdin=subprocess.DEVNULL)
        if expect_start:
            wait_until(lambda: "Alpha bits" in self.log(), lambda: "the game's first frame\n" + self.log())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def log(self):
        return self._log_path.read_text(errors="replace")

    def maps(self):
        """What the process has in its memory, files by their paths."""
        return pathlib.Path(f"/proc/{self.process.pid}/maps").read_text()

    def settings(self):
        return tomllib.loads(self.config.read_text()) if self.config.exists() else {}

    def wait_for_setting(self, key, value):
        wait_until(lambda: self.settings().get(key) == value, f"{key} = {value} in settings.toml")

    def window(self):
        """The visible window's (x, y, width, height)."""
        return wait_until(self.display.windows, "a visible window")[-1]

    def wait_exit(self):
        """The exit status."""
        return self.process.wait(timeout=WAIT_LIMIT)

    def end(self, how=signal.SIGTERM):
        self.process.send_signal(how)
        return self.wait_exit()

    # What a player does

    def point_at(self, x, y):
        """Moves the pointer to a pixel of the window, origin at its top left."""
        left, top, _, _ = self.window()
        self.display.xdotool("mousemove", left + x, top + y)

    def click(self, x, y):
        self.point_at(x, y)
        self.display.xdotool("click", 1)

    def key(self, name):
        self.display.xdotool("key", name)

    def item_position(self, item, font_size=20):
        """The top left corner of a menu's item."""
        _, _, width, height = self.window()
        return width // 2, height // 2 + 2 * font_size * item

    def point_at_item(self, item):
        """Comes from beside it: a pointer that is there already would not be noticed by a menu that is new."""
        x, y = self.item_position(item)
        self.point_at(x + 14, y + 12)
        self.point_at(x + 12, y + 12)

    def click_item(self, item):
        x, y = self.item_position(item)
        self.click(x + 12, y + 12)

    # What a player sees

    def picture(self):
        return self.display.picture()

    def text_pixels(self, item, width=160):
        """How many pixels of the item's line are as light as text."""
        left, top, _, _ = self.window()
        x, y = self.item_position(item)
        return self.picture().count((left + x + 2, top + y + 2, width, 22), is_light)

    def is_highlighted(self, item):
        """Whether the item stands in its white frame."""
        left, top, _, _ = self.window()
        x, y = self.item_position(item)
        return self.picture().count((left + x, top + y + 3, 1, 16), is_white) == 16

    def frame_width(self, item):
        """How far the highlighted item's frame reaches."""
        left, top, window_width, _ = self.window()
        x, y = self.item_position(item)
        picture = self.picture()
        width = 0
        while x + width < window_width and is_white(*picture.pixel(left + x + width, top + y)):
            width += 1
        return width

    def wait_for_items(self, present, absent=()):
        """Waits for the menu whose items are those, and no others among the absent."""
        wait_until(lambda: all(self.text_pixels(i) > 40 for i in present) and
                   all(self.text_pixels(i) < 15 for i in absent),
                   f"a menu with items {list(present)} and without {list(absent)}")

    def open_graphics(self):
        """From the main menu to the page of the graphics settings."""
        self.click_item(2)
        self.wait_for_items(present=range(4), absent=[4])
        self.click_item(0)
        self.wait_for_items(present=[0, 1, 2, 4], absent=[3])


class Scenario(unittest.TestCase):
    """Tests of which each has a player's home of its own, as new."""

    def setUp(self):
        home = tempfile.TemporaryDirectory(prefix="quarrow-home-")
        self.addCleanup(home.cleanup)
        self.home = pathlib.Path(home.name)

    def open_display(self, **options):
        display = Display(**options)
        self.addCleanup(display.close)
        return display

    def write_settings(self, text):
        folder = self.home / ".config" / "quarrow"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "settings.toml").write_text(text)

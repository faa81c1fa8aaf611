# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The game in a real window: a display of its own, real X input, and what a player would see and find afterwards.

Everything waits for what it expects, with a limit, and never just sleeps.
"""

import configparser
import json
import mmap
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import time
import unittest

from x11 import Connection

FONTS = pathlib.Path(__file__).resolve().parent.parent / "support" / "fonts.conf"
WAIT_LIMIT = 30.0  # seconds; software OpenGL under sanitizers on a busy machine is slow


def wait_until(condition, what, limit=WAIT_LIMIT, pause=0.02):
    """Waits for the condition to hold and returns its value. what: a text, or a function that tells at the end."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(pause)
    raise AssertionError("waited in vain for " + (what() if callable(what) else what))


SETTINGS_GROUP = "[Settings]\n"


def read_settings(file):
    """The keys of a settings file and their values: numbers, lists of numbers, or else texts. Empty without the file."""
    def value_of(text):
        try:
            return [int(number) for number in text.split(";")[:-1]] if ";" in text else json.loads(text)
        except ValueError:
            return text

    parser = configparser.RawConfigParser(delimiters="=", comment_prefixes="#", strict=False)
    parser.optionxform = str  # keeps capitals in keys
    parser.read(file)
    return {key: value_of(text) for key, text in parser["Settings"].items()} if "Settings" in parser else {}


class Display:
    """An X server without a screen, whose picture is in a file."""

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
        self.x = Connection(self.name)

    def vanish(self):
        """Kills the server, and with it every connection to it."""
        self.x.close()
        self._server.kill()
        self._server.wait()

    def close(self):
        self.x.close()
        self._server.terminate()
        self._server.wait()
        shutil.rmtree(self._folder, ignore_errors=True)

    def picture(self, live=False):
        """A Picture: a snapshot, or one that goes on changing as the display does."""
        with open(pathlib.Path(self._folder, "Xvfb_screen0"), "rb") as file:
            data = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) if live else file.read()
        header = struct.unpack(">25I", data[:100])
        header_size, bytes_per_line, colours = header[0], header[12], header[19]
        return Picture(data, header_size + colours * 12, bytes_per_line)

    def window(self):
        """The largest window that can be seen."""
        return wait_until(self.x.titled_windows, "a visible window")[-1]

    def shows(self, window):
        return any(shown.identifier == window for shown in self.x.titled_windows())

    def resize_window(self, width, height):
        """Moves the largest visible window to the corner and gives it that size."""
        self.x.place(self.window().identifier, 0, 0, width, height)
        self.x.flush()

    def press_close_button(self):
        """Closes the largest visible window as a window manager does."""
        self.x.press_close_button(self.window().identifier)
        self.x.flush()


def preloaded(*names, **environment):
    """The environment that loads those of programs/ into the game. A sanitizer is then not the first library, and would
    refuse to start."""
    libraries = [os.path.join(os.environ["QUARROW_PRELOADS"], name + ".so") for name in names]
    return {"LD_PRELOAD": ":".join(libraries), "ASAN_OPTIONS": "verify_asan_link_order=0:" + os.environ.get("ASAN_OPTIONS", ""),
            **environment}


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

    def count(self, box, colours):
        """How many pixels of the box (x, y, width, height) lie within the ranges of red, green and blue."""
        part = self.part(box)
        fits = -1  # then a byte for each pixel, 1 where it does
        for channel, values in zip((2, 1, 0), colours):
            fits &= int.from_bytes(part[channel::4].translate(bytes(value in values for value in range(256))), "big")
        return fits.bit_count()


# What every run logs, and each change of full screen.
USUAL = re.compile(r"quarrow: (Set current context\.\.\.|(end )?awakeFromNib|Window was created|"
                   r"self apparently made first responder|Alpha bits  = .*|-toggle fullscreen)")

WHITE = (range(241, 256),) * 3
LIGHT = (range(151, 256),) * 3  # text in its normal grey (0.7) or brighter
THRUST = (range(201, 256), range(31, 80), range(31, 80))  # the throttle's bar


# What wait_for_items() takes.
MAIN_MENU = {"present": range(5), "absent": [5, 6]}
PAUSE_MENU = {"present": [0, 1], "absent": [2, 3]}

MOST_WORK = 0.1  # of a core, while the window is minimised: three times what is meant, as other tests run beside


class Game:
    """One run of the program. Use it in a with statement."""

    def __init__(self, display, home, environment=None, expect_start=True, program=None, arguments=(),
                 stdin=subprocess.DEVNULL, scale=1):
        """scale: display pixels for each of the game's. Places and sizes below are in the game's, but for window()."""
        self.display = display
        self._scale = scale
        self.home = pathlib.Path(home)
        self.config = self.home / ".config" / "quarrow" / "settings.ini"
        self._log_path = self.home / f"log-{time.monotonic_ns()}.txt"
        env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "SDL_", "LC_")) and
               k not in ("WAYLAND_DISPLAY", "LANGUAGE")}
        env.update(HOME=str(self.home), DISPLAY=display.name if display else "", ALSOFT_DRIVERS="null", LANG="C.UTF-8",
                   LIBGL_ALWAYS_SOFTWARE="1", FONTCONFIG_FILE=str(FONTS))
        env.update(environment or {})
        with open(self._log_path, "wb") as log:
            self.process = subprocess.Popen([program or os.environ["QUARROW_PROGRAM"], *arguments], env=env,
                                            stdout=log, stderr=log, stdin=stdin)
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

    def unusual_lines(self):
        """All lines of the log but those of every run, whoever wrote them."""
        return [line for line in self.log().splitlines() if not USUAL.fullmatch(line)]

    def maps(self):
        """The paths of the files that the process has mapped into its memory."""
        return pathlib.Path(f"/proc/{self.process.pid}/maps").read_text()

    def has_raced(self):
        """Whether a race was started: the tracks are open from the first one on."""
        descriptors = pathlib.Path(f"/proc/{self.process.pid}/fd")
        return any("/Music/" in os.path.realpath(descriptor) for descriptor in descriptors.iterdir())

    def settings(self):
        return read_settings(self.config)

    def wait_for_setting(self, key, value):
        wait_until(lambda: self.settings().get(key) == value, f"{key} = {value} in settings.ini")

    def window(self):
        """The visible window's (x, y, width, height)."""
        return self.display.window()[2:]

    def wait_exit(self):
        """The exit status."""
        return self.process.wait(timeout=WAIT_LIMIT)

    def processor_time(self):
        """Seconds that the game has worked so far, on all threads."""
        fields = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rsplit(")", 1)[1].split()
        return sum(int(field) for field in fields[11:13]) / os.sysconf("SC_CLK_TCK")

    def share_of_a_core(self):
        """What the game works on in the next two seconds."""
        work, start = self.processor_time(), time.monotonic()
        wait_until(lambda: time.monotonic() > start + 2, "two seconds")
        return (self.processor_time() - work) / (time.monotonic() - start)

    def end(self, how=signal.SIGTERM):
        self.process.send_signal(how)
        return self.wait_exit()

    # What a player does

    def point_at(self, x, y):
        """Moves the pointer to a pixel of the window, origin at its top left."""
        left, top, _, _ = self.window()
        self.display.x.move(left + x * self._scale, top + y * self._scale)
        self.display.x.flush()

    def press_button(self):
        """Clicks where the pointer is."""
        self.display.x.click()
        self.display.x.flush()

    def click(self, x, y):
        self.point_at(x, y)
        self.press_button()

    def turn_wheel(self, up):
        self.display.x.click(4 if up else 5)
        self.display.x.flush()

    def key(self, *names):
        """Presses keys together, the modifiers first, by their X names."""
        self.display.x.press(*names)
        self.display.x.flush()

    def item_position(self, item, font_size=20):
        """The top left corner of a menu's item."""
        _, _, width, height = self.window()
        return width // self._scale // 2, height // self._scale // 2 + 2 * font_size * item

    def point_at_item(self, item):
        """Moves onto the item from beside it: a new menu does not notice a pointer that already rests there."""
        x, y = self.item_position(item)
        self.point_at(x + 14, y + 12)
        self.point_at(x + 12, y + 12)

    def highlight_item(self, item):
        """Points at the item until it is framed. All earlier input has arrived by then."""
        def is_highlighted():
            self.point_at_item(item)
            return self.is_highlighted(item)

        wait_until(is_highlighted, lambda: f"item {item} in its frame\n" + self.log())

    def click_item(self, item):
        """Clicks the item once it is framed: a click that gives the window its focus is not passed on."""
        self.highlight_item(item)
        self.press_button()

    # What a player sees

    def picture(self):
        return self.display.picture()

    def on_display(self, x, y, width, height):
        """The box on the display of a box of the window."""
        left, top, _, _ = self.window()
        x, y, width, height = (value * self._scale for value in (x, y, width, height))
        return left + x, top + y, width, height

    def text_pixels(self, item, width=160):
        """How many pixels of the item's line are as light as text."""
        x, y = self.item_position(item)
        return self.picture().count(self.on_display(x + 2, y + 2, width, 22), LIGHT) // self._scale ** 2

    def is_highlighted(self, item):
        """Whether the item has its white frame."""
        x, y = self.item_position(item)
        return self.picture().count(self.on_display(x, y + 3, 1, 16), WHITE) == 16 * self._scale ** 2

    def frame_width(self, item):
        """The width of the highlighted item's frame."""
        x, y = self.item_position(item)
        _, _, window_width, _ = self.window()
        row = self.on_display(x, y, window_width // self._scale - x, 1)
        return self.picture().count(row, WHITE) // self._scale ** 2

    def throttle_pixels(self):
        """How many of the display's pixels the throttle's bar fills."""
        left, top, width, height = self.window()
        size = height // 9
        box = (left + width // 2 - 5 * size // 2, top + height - 9 * size // 8, 5 * size // 2, size)
        return self.picture().count(box, THRUST)

    def raise_throttle(self):
        """A step by a key, another by the wheel."""
        self.key("w")
        one_step = wait_until(self.throttle_pixels, "the throttle bar to grow by a key")
        self.turn_wheel(up=True)
        wait_until(lambda: self.throttle_pixels() > 1.5 * one_step, "the throttle bar to grow by the wheel")

    def wait_for_items(self, present, absent=()):
        """Waits for a menu that has the items present and none of the items absent."""
        wait_until(lambda: all(self.text_pixels(i) > 40 for i in present) and
                   all(self.text_pixels(i) < 15 for i in absent),
                   f"a menu with items {list(present)} and without {list(absent)}")

    def open_options(self):
        """From the main menu to the choice of pages."""
        self.click_item(2)
        self.wait_for_items(present=range(4), absent=[4, 5])

    def open_graphics(self):
        """From the main menu to the page of the graphics settings."""
        self.open_options()
        self.click_item(0)
        self.wait_for_items(present=[0, 1, 2, 4], absent=[3])

    def open_keys(self):
        """From the main menu to the page of the keys."""
        self.open_options()
        self.click_item(1)
        self.wait_for_items(present=[0, 1, 2, 3, 5], absent=[4])

    def walk_every_screen(self, change=False, rows=(2,)):
        """From the main menu through all the others and back, each setting clicked once where changes are wanted.
        rows: those of the five that the page of fastest times shows; without a time there is one, in the middle."""
        def open_page(item, present, absent, settings=()):
            self.click_item(item)
            self.wait_for_items(present=present, absent=absent)
            for setting, key in settings if change else ():
                self.click_item(setting)
                if key:
                    self.key(key)

        main = MAIN_MENU.values()
        hub = (range(4), [4, 5])
        self.wait_for_items(*main)
        open_page(1, [*rows, 6, 7], [row for row in range(6) if row not in rows])
        open_page(7, *main)
        open_page(2, *hub)
        open_page(0, [0, 1, 2, 4], [3], [(0, None), (1, None), (2, None)])
        open_page(4, *hub)
        open_page(1, [0, 1, 2, 3, 5], [4], [(0, "i"), (1, "k"), (2, "p"), (3, None)])
        open_page(5, *hub)
        open_page(2, [0, 1, 3], [2], [(0, None), (1, None)])
        open_page(3, *hub)
        open_page(3, *main)
        self.click_item(3)
        _, _, width, height = self.window()
        back = (width // 10, height // 6 + 26 * 15, 130, 20)
        wait_until(lambda: self.picture().count(back, LIGHT) > 100, "the credits' way back")
        self.click(back[0] + 12, back[1] + 8)
        self.wait_for_items(*main)


class Scenario(unittest.TestCase):
    """Each test has a new home folder."""

    def setUp(self):
        home = tempfile.TemporaryDirectory(prefix="quarrow-home-")
        self.addCleanup(home.cleanup)
        self.home = pathlib.Path(home.name)

    def open_display(self, **options):
        display = Display(**options)
        self.addCleanup(display.close)
        return display

    def start_window_manager(self, display):
        manager = subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env={"DISPLAY": display.name, "HOME": str(self.home), "PATH": "/usr/bin:/bin"})
        self.addCleanup(manager.wait)
        self.addCleanup(manager.terminate)
        wait_until(display.x.has_window_manager, "the window manager")

    def wait_for_focus(self, display):
        wait_until(lambda: display.x.focused() == display.window().identifier, "the keyboard's focus")

    def minimise(self, display):
        """Returns the window, which is no longer to be seen."""
        window = display.window().identifier
        display.x.minimise(window)
        wait_until(lambda: not display.shows(window), "a minimised window")
        return window

    def write_settings(self, text):
        """text: a line for each key."""
        file = self.home / ".config" / "quarrow" / "settings.ini"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(SETTINGS_GROUP + text)

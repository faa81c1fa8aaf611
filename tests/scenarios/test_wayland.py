# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The game on Wayland, without an X server to connect to.

The compositor is itself a window of an X server without a screen, and can be driven and looked at like any other. (With
no display at all it has neither pointer nor keyboard, and SDL does not start there.)
"""

import os
import pathlib
import subprocess
import tempfile
import unittest

from game_window import Display, Game, wait_until


class Compositor:
    """A Weston whose one output fills the display."""

    def __init__(self, folder, display, scale):
        self.folder = pathlib.Path(folder, "runtime")
        self.folder.mkdir(mode=0o700)
        self._log = open(self.folder / "log", "wb")
        self._server = subprocess.Popen(
            ["weston", "--no-config", "--idle-time=0", "--socket=quarrow", "--shell=kiosk-shell.so", "--use-pixman",
             "--backend=x11-backend.so", f"--scale={scale}", f"--width={display.width // scale}",
             f"--height={display.height // scale}"],
            env={**os.environ, "XDG_RUNTIME_DIR": str(self.folder), "DISPLAY": display.name},
            stdout=self._log, stderr=self._log)
        wait_until((self.folder / "quarrow").exists, "the compositor")
        self.environment = {"WAYLAND_DISPLAY": "quarrow", "XDG_RUNTIME_DIR": str(self.folder), "DISPLAY": ""}

    def close(self):
        self._server.terminate()
        self._server.wait()
        self._log.close()


class WaylandScenario(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="quarrow-wayland-")
        self.addCleanup(self._folder.cleanup)
        self.home = pathlib.Path(self._folder.name, "home")
        self.home.mkdir()

    def start(self, scale=1):
        self.display = Display(1280 * scale, 720 * scale)
        self.addCleanup(self.display.close)
        compositor = Compositor(self._folder.name, self.display, scale)
        self.addCleanup(compositor.close)
        game = Game(self.display, self.home, environment=compositor.environment, scale=scale)
        self.addCleanup(game.__exit__)
        return game

    def click_item(self, game, item):
        """Moves the pointer away afterwards: the compositor draws it into the picture."""
        game.click_item(item)
        game.point_at(5, 5)

    def test_race_is_started_flown_paused_and_left(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.highlight_item(2)
        self.click_item(game, 0)
        game.wait_for_items(present=[], absent=range(5))

        wait_until(lambda: game.throttle_pixels() == 0, "an empty throttle bar")
        game.raise_throttle()
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        self.click_item(game, 1)
        game.wait_for_items(present=range(5))
        self.click_item(game, 4)
        self.assertEqual(game.wait_exit(), 0)

    def test_compositors_scale_is_the_games(self):
        game = self.start(scale=2)
        game.wait_for_items(present=range(5))
        game.highlight_item(2)
        self.click_item(game, 0)
        game.wait_for_items(present=[], absent=range(5))
        game.key("w")
        wait_until(game.throttle_pixels, "the throttle bar to grow")
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        game.key("F11")
        game.wait_for_setting("Fullscreen", 0)
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        self.assertEqual(game.end(), 0)

    def test_options_are_changed_and_kept(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        self.click_item(game, 2)
        game.wait_for_items(present=range(4), absent=[4, 5])
        self.click_item(game, 2)
        game.wait_for_items(present=[0, 1, 3], absent=[2])
        self.click_item(game, 1)
        game.wait_for_setting("MusicVolume", 1.0)
        game.key("Control_L", "q")
        self.assertEqual(game.wait_exit(), 0)
        self.assertEqual(game.settings()["MusicVolume"], 1.0)

    def test_full_screen_key_changes_the_setting_and_the_menu_stays(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        for full_screen in (0, 1):
            game.key("F11")
            game.wait_for_setting("Fullscreen", full_screen)
            game.wait_for_items(present=range(5))
        self.assertEqual(game.end(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

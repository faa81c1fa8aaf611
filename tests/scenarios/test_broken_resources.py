# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Resources that are missing or cannot be decoded: each costs a line in the log whenever it is loaded, and its own part
of the game, no more."""

import os
import pathlib
import random
import shutil
import unittest

from game_window import Display, Game, Scenario, wait_until

# What a start and a race read.
FOLDERS = ("Images", "Sounds", "Music")
ICON = "quarrow-64.png"


def empty(path):
    path.write_bytes(b"")


def noise(path):
    path.write_bytes(random.Random(path.name).randbytes(path.stat().st_size))


class BrokenResourcesScenario(Scenario):
    @classmethod
    def setUpClass(cls):
        cls.display = Display(800, 600)
        cls.program = pathlib.Path(os.environ["QUARROW_PROGRAM"])

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    def setUp(self):
        super().setUp()
        self.installed = self.home / "installed"
        self.installed.mkdir()
        shutil.copytree(self.program.parent / "resources", self.installed / "resources")
        shutil.copy2(self.program, self.installed / "quarrow")

    def files(self):
        for folder in FOLDERS:
            yield from sorted(path for path in (self.installed / "resources" / folder).iterdir()
                              if not path.name.endswith(".license"))
        yield self.installed / "resources" / "Icons" / ICON

    def play(self):
        """Starts the game, a race, and quits. Returns what it logged beyond the usual. Clicks without looking for the
        item's frame: without its picture the sky is as white as the frame."""
        with Game(self.display, self.home, program=str(self.installed / "quarrow")) as game:
            def is_racing():
                game.point_at_item(0)
                game.press_button()
                game.key("w")
                return game.throttle_pixels() > 0

            wait_until(is_racing, lambda: "the race\n" + game.log())
            game.key("Escape")
            self.assertEqual(game.end(), 0, game.log())
            return game.unusual_lines()

    def expect_lines(self, lines, paths):
        """Two for the asteroids' picture, which the first world and the race's load; one for anything else; no other but
        what the mp3 decoder itself says of noise."""
        for path in paths:
            told = [lines.pop(i) for i in reversed(range(len(lines))) if path.name in lines[i]]
            self.assertEqual(len(told), 2 if path.name == "roid-128.jpg" else 1, path.name + "\n" + "\n".join(told))
        self.assertEqual([line for line in lines if "libmpg123" not in line], [])

    def break_all(self, how):
        paths = list(self.files())
        for path in paths:
            how(path)
        self.expect_lines(self.play(), paths)

    def test_whole_files(self):
        self.assertEqual(self.play(), [])

    def test_missing_files(self):
        self.break_all(pathlib.Path.unlink)

    def test_empty_files(self):
        self.break_all(empty)

    def test_noise(self):
        self.break_all(noise)


if __name__ == "__main__":
    unittest.main(verbosity=2)

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Resources that are missing or cannot be decoded: each costs one line in the log and its own part of the game, no
more. Without the interface file there is no start."""

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
        """Starts the game, a race, and quits. Returns the log. Clicks without looking for the item's frame: without its
        picture the sky is as white as the frame."""
        with Game(self.display, self.home, program=str(self.installed / "quarrow")) as game:
            def is_racing():
                game.point_at_item(0)
                game.press_button()
                game.key("w")
                return game.throttle_pixels() > 0

            wait_until(is_racing, lambda: "the race\n" + game.log())
            game.key("Escape")
            self.assertEqual(game.end(), 0, game.log())
            return game.log().splitlines()

    def expect_one_line_each(self, lines, paths):
        for path in paths:
            told = [line for line in lines if path.name in line]
            self.assertEqual(len(told), 1, path.name + "\n" + "\n".join(lines))

    def break_all(self, how):
        paths = list(self.files())
        for path in paths:
            how(path)
        self.expect_one_line_each(self.play(), paths)

    def test_missing_files(self):
        self.break_all(pathlib.Path.unlink)

    def test_empty_files(self):
        self.break_all(empty)

    def test_noise(self):
        self.break_all(noise)


if __name__ == "__main__":
    unittest.main(verbosity=2)

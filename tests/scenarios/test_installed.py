# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The game as `cmake --install` puts it on a system, wherever that is."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from game_window import SETTINGS_GROUP, Display, Game

BUILD = pathlib.Path(os.environ["QUARROW_PROGRAM"]).parent


class InstalledScenario(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="quarrow-installed-")
        self.addCleanup(self._folder.cleanup)
        self.folder = pathlib.Path(self._folder.name)
        self.home = self.folder / "home"
        settings = self.home / ".config" / "quarrow" / "settings.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(SETTINGS_GROUP + "Fullscreen=0\n")
        self.display = Display()
        self.addCleanup(self.display.close)

    def install(self, prefix, **environment):
        subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, **environment})

    def expect_menu_and_version(self, program):
        version = re.search(r"project\(Quarrow VERSION ([0-9.]+)",
                            (pathlib.Path(__file__).parents[2] / "CMakeLists.txt").read_text())[1]
        with Game(self.display, self.home, program=program) as game:
            game.wait_for_items(present=range(5))
            self.assertNotIn("Unable to load", game.log())
            self.assertEqual(self.display.window().title, f"Quarrow {version}")
            game.click_item(4)
            self.assertEqual(game.wait_exit(), 0)

    def test_installation_works_where_it_is_moved_to(self):
        self.install(self.folder / "first")
        (self.folder / "first").rename(self.folder / "then here")
        self.expect_menu_and_version(self.folder / "then here" / "games" / "quarrow")

    def test_staged_installation_lies_below_its_stage(self):
        stage = self.folder / "stage"
        self.install("/usr", DESTDIR=str(stage))
        self.assertEqual({path.name for path in stage.iterdir()}, {"usr"})
        self.assertEqual({path.name for path in (stage / "usr").iterdir()}, {"games", "share"})
        self.expect_menu_and_version(stage / "usr" / "games" / "quarrow")

    def test_link_elsewhere_starts_the_game_with_its_resources(self):
        self.install(self.folder / "prefix")
        link = self.folder / "quarrow-link"
        link.symlink_to(self.folder / "prefix" / "games" / "quarrow")
        self.expect_menu_and_version(link)


if __name__ == "__main__":
    unittest.main(verbosity=2)

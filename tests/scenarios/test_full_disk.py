# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A disk without room while the game saves. Runs in a mount namespace of its own: see CMakeLists.txt."""

import subprocess
import unittest

from game_window import Game, Scenario, wait_until

OLD = "[Settings]\nFullscreen=0\nRaceTimes=83;95;\n"


class FullDiskScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.folder = self.home / ".config" / "quarrow"
        self.folder.mkdir(parents=True)
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", self.folder], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", self.folder], check=True)
        self.file = self.folder / "settings.ini"
        self.file.write_text(OLD)
        self.display = self.open_display()

    def fill(self):
        """Fills the disk to the last byte."""
        with open(self.folder / "filler", "wb", buffering=0) as filler:
            try:
                while True:
                    filler.write(b"x" * 4096)
            except OSError:
                pass

    def toggle_full_screen(self, game, width):
        game.key("F11")
        wait_until(lambda: game.window()[2] == width, f"a window {width} pixels wide")

    def complaints(self, game):
        return [line for line in game.log().splitlines() if "cannot be saved" in line]

    def test_old_file_stays_until_there_is_room_again(self):
        self.fill()
        with Game(self.display, self.home) as game:
            game.wait_for_items(present=range(5))
            self.toggle_full_screen(game, 1280)
            wait_until(lambda: self.complaints(game), "the one line")
            self.toggle_full_screen(game, 1024)
            self.toggle_full_screen(game, 1280)
            game.wait_for_items(present=range(5))
            self.assertEqual(self.file.read_text(), OLD)
            (self.folder / "filler").unlink()
            game.wait_for_setting("Fullscreen", 1)
            self.assertEqual(game.settings()["RaceTimes"], [83, 95])
            self.assertEqual(len(self.complaints(game)), 1, game.log())
            self.assertEqual([path.name for path in self.folder.iterdir()], ["settings.ini"])
            self.assertEqual(game.end(), 0)

    def test_game_that_is_ended_on_a_full_disk_leaves_the_old_file(self):
        self.fill()
        with Game(self.display, self.home) as game:
            game.wait_for_items(present=range(5))
            self.toggle_full_screen(game, 1280)
            self.assertEqual(game.end(), 0)
            self.assertEqual(len(self.complaints(game)), 1, game.log())
        self.assertEqual(self.file.read_text(), OLD)


if __name__ == "__main__":
    unittest.main(verbosity=2)

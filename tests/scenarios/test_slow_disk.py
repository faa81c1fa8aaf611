# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A disk that takes half a second for each sync: a race never waits for it, and a kill costs at most what the race stored."""

import re
import time
import unittest

from game_window import Game, Scenario, preloaded, wait_until

RACE_SECONDS = 4.0
SYNC = 500_000  # microseconds


class SlowDiskScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()

    def start(self):
        game = Game(self.display, self.home, environment=preloaded("SlowDisk", "FrameLog"))
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5))
        return game

    def start_race(self, game):
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))

    def change_and_leave_the_options(self, game):
        """With no more time than that from the change to the race."""
        game.open_graphics()
        game.click_item(0)
        game.click_item(4)
        game.wait_for_items(present=range(4), absent=[4, 5])
        game.click_item(3)
        game.wait_for_items(present=range(5))

    def frames_and_syncs(self, game, since):
        """What the log has behind the first characters."""
        return re.findall(r"^(?:frame \d+|fsync)$", game.log()[since:], re.MULTILINE)

    def test_frames_of_a_race_are_even(self):
        game = self.start()
        self.start_race(game)
        since = len(game.log())
        end = time.monotonic() + RACE_SECONDS
        while time.monotonic() < end:
            game.key("w")
            time.sleep(0.2)
        lines = self.frames_and_syncs(game, since)
        self.assertNotIn("fsync", lines)
        times = sorted(int(line.split()[1]) for line in lines)
        print(f"{len(times)} frames, median {times[len(times) // 2]} us, longest {times[-1]} us")
        self.assertGreater(len(times), 10)
        self.assertLess(times[-1], SYNC)

    def test_what_a_race_stored_is_saved_in_its_pause(self):
        game = self.start()
        self.start_race(game)
        since = len(game.log())
        self.assertNotIn("MusicLastTrackIndex", game.settings())
        game.key("Escape")
        game.wait_for_setting("MusicLastTrackIndex", 0)
        self.assertIn("fsync", self.frames_and_syncs(game, since))

    def test_kill_in_a_race_costs_what_the_race_stored(self):
        game = self.start()
        self.change_and_leave_the_options(game)
        self.start_race(game)
        game.key("F11")
        wait_until(lambda: game.window()[2:] == (1024, 768), "the window")
        game.process.kill()
        game.process.wait()
        self.assertEqual(game.settings(), {"FogEndHigh": 65.0})

    def test_end_in_a_race_saves(self):
        game = self.start()
        self.start_race(game)
        self.assertEqual(game.end(), 0)
        self.assertEqual(game.settings()["MusicLastTrackIndex"], 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The game played with a gamepad alone, from the main menu to the finish and out of the game."""

import os
import subprocess
import unittest

from game_window import MAIN_MENU, MOST_WORK, PAUSE_MENU, Game, Scenario, wait_until
from test_race import RACE_LIMIT, SETTINGS


class GamepadScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()
        self.start_window_manager(self.display)
        self.write_settings(SETTINGS)
        self.game = Game(self.display, self.home, program=os.environ["QUARROW_PAD_FLYER"], stdin=subprocess.PIPE)
        self.addCleanup(self.game.__exit__)
        self.addCleanup(self.game.process.stdin.close)
        self.game.wait_for_items(**MAIN_MENU)
        self.wait_for_focus(self.display)
        self.display.x.move(0, 0)
        self.pad("plug")

    def pad(self, act):
        """One act of the player. Wait for what it does before the next."""
        self.game.process.stdin.write(act.encode() + b"\n")
        self.game.process.stdin.flush()

    def press(self, button):
        self.pad("press " + button)

    def expect_highlight(self, item):
        wait_until(lambda: self.game.is_highlighted(item), lambda: f"item {item} in its frame\n" + self.game.log())

    def expect_race(self):
        self.game.wait_for_items(present=[], absent=range(5))

    def expect_thrust(self, button, change):
        """Of one press, which only a race that runs allows. change: 1 for more, -1 for less."""
        before = self.game.throttle_pixels()
        self.press(button)
        wait_until(lambda: (self.game.throttle_pixels() - before) * change > 0,
                   lambda: "a change of the throttle\n" + self.game.log())

    def choose(self, button, item):
        """Goes to the item with one step of the D-pad, and clicks it."""
        self.press(button)
        self.expect_highlight(item)
        self.press("a")

    def start_race(self):
        self.press("dpdown")
        self.expect_highlight(0)
        self.press("a")
        self.expect_race()

    def test_pad_plays_menus_and_race_and_their_pause(self):
        self.press("dpdown")
        self.expect_highlight(0)
        self.pad("stick 0.073 -0.225")  # 30 pixels to the right of the middle, 52 below it
        self.expect_highlight(1)
        self.pad("stick 0 0")
        self.expect_highlight(0)
        self.press("dpdown")
        self.expect_highlight(1)
        self.choose("dpup", 0)
        self.expect_race()

        self.expect_thrust("rightshoulder", 1)
        self.expect_thrust("dpup", 1)
        self.expect_thrust("leftshoulder", -1)
        self.expect_thrust("dpdown", -1)

        self.press("start")
        self.game.wait_for_items(**PAUSE_MENU)
        self.press("start")
        self.expect_race()
        self.press("start")
        self.game.wait_for_items(**PAUSE_MENU)
        self.choose("dpdown", 0)
        self.expect_race()
        self.expect_thrust("dpup", 1)

        self.pad("unplug")
        self.game.wait_for_items(**PAUSE_MENU)
        self.pad("plug")
        self.press("start")
        self.expect_race()

    @unittest.skipUnless("QUARROW_WHOLE_RACE" in os.environ, "takes minutes")
    def test_whole_race_is_flown_by_pad_alone(self):
        self.start_race()
        self.pad("fly")
        wait_until(lambda: "RaceTimes" in self.game.settings(), "the finish", RACE_LIMIT)
        self.game.wait_for_items(present=[0, 1, 3, 4], absent=[2])
        times = self.game.settings()["RaceTimes"]
        self.assertGreater(times[0], 0)
        self.choose("dpup", 4)
        self.game.wait_for_items(**MAIN_MENU)
        self.choose("dpup", 4)
        self.assertEqual(self.game.wait_exit(), 0)
        self.assertEqual(self.game.settings()["RaceTimes"], times)
        print(f"race time {times[0]} s")

    def test_minimised_game_with_a_pad_rests(self):
        self.press("dpdown")
        self.expect_highlight(0)
        self.minimise(self.display)
        share = self.game.share_of_a_core()
        print(f"{share:.1%} of a core")
        self.assertLess(share, MOST_WORK)


if __name__ == "__main__":
    unittest.main(verbosity=2)

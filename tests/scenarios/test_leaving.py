#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The player minimises the window or turns to another one, beside a window manager."""

import time
import unittest

from game_window import MAIN_MENU, MOST_WORK, PAUSE_MENU, Game, Scenario, preloaded, wait_until


class LeavingScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()
        self.start_window_manager(self.display)
        self.game = Game(self.display, self.home, environment=preloaded("FrameLog"))
        self.addCleanup(self.game.__exit__)
        self.game.wait_for_items(**MAIN_MENU)
        self.wait_for_focus(self.display)

    def click_item(self, item):
        """Moves the pointer away afterwards, hardly beside the middle: its light arrow is in the picture."""
        self.game.click_item(item)
        self.game.point_at(600, 340)

    def start_race(self):
        self.click_item(0)
        self.game.wait_for_items(present=[], absent=range(5))
        self.add_thrust()

    def add_thrust(self):
        """Which only a race that runs allows."""
        before = self.game.throttle_pixels()
        self.game.key("w")
        wait_until(lambda: self.game.throttle_pixels() > before, lambda: "more thrust\n" + self.game.log())

    def activate(self, window):
        self.display.x.activate(window)
        wait_until(lambda: self.display.shows(window), "the window")

    def expect_to_stay(self, items):
        self.game.wait_for_items(**items)
        self.let_pass_half_a_second()
        self.game.wait_for_items(**items)

    def let_pass_half_a_second(self):
        end = time.monotonic() + 0.5
        wait_until(lambda: time.monotonic() > end, "half a second")

    def test_minimised_race_is_paused_until_the_player_goes_on(self):
        self.start_race()
        self.activate(self.minimise(self.display))
        self.expect_to_stay(PAUSE_MENU)
        self.game.key("Escape")
        self.add_thrust()

    def test_race_is_paused_while_another_window_has_the_keyboard(self):
        self.start_race()
        window = self.display.window().identifier
        self.display.x.show_other_window()
        self.game.wait_for_items(**PAUSE_MENU)
        self.activate(window)
        self.expect_to_stay(PAUSE_MENU)
        self.click_item(0)
        self.add_thrust()

    def test_full_screen_and_back_is_no_leaving(self):
        self.start_race()
        for full_screen in (0, 1, 0, 1):
            self.game.key("F11")
            wait_until(lambda: self.game.window()[2:] == ((1280, 720) if full_screen else (1024, 768)),
                       "the other window")
        self.let_pass_half_a_second()
        self.add_thrust()

    def frames(self):
        return self.game.log().count("frame ")

    def test_minimised_window_rests(self):
        window = self.minimise(self.display)
        self.let_pass_half_a_second()
        frames = self.frames()
        share = self.game.share_of_a_core()
        print(f"{share:.1%} of a core")
        self.assertEqual(self.frames(), frames)
        self.assertLess(share, MOST_WORK)
        self.activate(window)
        self.game.wait_for_items(**MAIN_MENU)

    def test_menus_stay_as_they_are(self):
        self.click_item(2)
        self.activate(self.minimise(self.display))
        self.display.x.show_other_window()
        self.expect_to_stay({"present": range(4), "absent": [4, 5]})


if __name__ == "__main__":
    unittest.main(verbosity=2)

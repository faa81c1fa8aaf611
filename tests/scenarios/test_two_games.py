# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Two games of one player at once: each finds in the settings what it changed, whichever ends last."""

import signal
import unittest

from game_window import Game, Scenario, wait_until


class TwoGamesScenario(Scenario):
    def start(self):
        display = self.open_display()
        game = Game(display, self.home)
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5))
        game.open_options()
        return game

    def test_every_key_that_either_changed_is_there(self):
        first, second = self.start(), self.start()
        first.click_item(0)
        first.wait_for_items(present=[0, 1, 2, 4], absent=[3])
        second.click_item(2)
        second.wait_for_items(present=[0, 1, 3], absent=[2])
        first.click_item(0)
        second.click_item(0)
        first.click_item(1)
        second.click_item(1)
        first.click_item(2)
        first.highlight_item(4)
        second.key("F11")
        wait_until(lambda: second.window()[2:] == (1024, 768), "the window")
        second.wait_for_items(present=[0, 1, 3], absent=[2])
        for game in (first, second):
            game.process.send_signal(signal.SIGTERM)
        self.assertEqual([first.wait_exit(), second.wait_exit()], [0, 0])
        expected = {"FogEndHigh": 65.0, "_AsteroidsSmoothness": 9, "_AsteroidsDensityCenter": 0.25, "FogEndLow": 30.0,
                    "SoundVolume": 0.0, "MusicVolume": 1.0, "Fullscreen": 0}
        self.assertEqual(first.settings(), first.settings() | expected)


if __name__ == "__main__":
    unittest.main(verbosity=2)

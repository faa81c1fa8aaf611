# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Two games of one player at once, each flown to the finish on a display of its own: both times rank."""

import os
import signal
import unittest

from game_window import Game, Scenario, wait_until
from test_race import RACE_LIMIT, SETTINGS

RANKED = {"present": [0, 1, 3, 4], "absent": [2]}


class TwoRacesScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.write_settings(SETTINGS)

    def start(self):
        display = self.open_display()
        # The pilot's mouse and keys act on the display that its game runs on, so each game has its own.
        game = Game(display, self.home, program=os.environ["QUARROW_FLYER"])
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5))
        return game

    def test_both_times_are_kept(self):
        games = self.start(), self.start()
        for game in games:
            game.click_item(0)
            game.wait_for_items(present=[], absent=[0, 3, 4])
        wait_until(lambda: 0 not in games[0].settings().get("RaceTimes", [0])[:2], "both finishes", 2 * RACE_LIMIT)
        for game in games:
            game.wait_for_items(**RANKED)
            game.process.send_signal(signal.SIGTERM)
            self.assertEqual(game.wait_exit(), 0)
        times = games[0].settings()["RaceTimes"]
        self.assertEqual(times, sorted(times[:2]) + [0, 0, 0])
        print(f"race times {times[0]} s and {times[1]} s")


if __name__ == "__main__":
    unittest.main(verbosity=2)

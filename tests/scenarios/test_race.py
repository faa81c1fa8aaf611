# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A whole race, flown by a pilot with mouse and keys, up to the ranked finish; and the time after a restart."""

import os
import unittest

from game_window import Game, Scenario, wait_until

# A thin field and a nimble ship: the race is over in about a minute, and a slow machine's long frames do no harm.
SETTINGS = """
_AsteroidsDensityEdge = 0.0
_AsteroidsDensityCenter = 0.02
_PlayerMaxSpeed = 10.0
_PlayerMaxAccel = 3.0
_PlayerRotationsPerSecond = 0.3
MusicVolume = 0.0
"""

RACE_LIMIT = 400.0  # seconds


class RaceScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.write_settings(SETTINGS)
        self.display = self.open_display()

    def start(self, program):
        game = Game(self.display, self.home, program=program)
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5))
        return game

    def test_race_is_flown_to_the_finish_and_its_time_is_kept(self):
        game = self.start(os.environ["QUARROW_FLYER"])
        game.click_item(0)
        game.wait_for_items(present=[], absent=[0, 3, 4])
        wait_until(lambda: "RaceTimes" in game.settings(), "the finish", RACE_LIMIT)
        game.wait_for_items(present=[0, 1, 3, 4], absent=[2])
        times = game.settings()["RaceTimes"]
        self.assertGreater(times[0], 0)
        self.assertEqual(times[1:], [0, 0, 0, 0])
        game.click_item(4)
        game.wait_for_items(present=range(5))
        game.click_item(4)
        self.assertEqual(game.wait_exit(), 0)

        again = self.start(os.environ["QUARROW_PROGRAM"])
        again.click_item(1)
        again.wait_for_items(present=[0, 6, 7], absent=[1, 2, 3, 4, 5])
        self.assertEqual(again.end(), 0)
        self.assertEqual(again.settings()["RaceTimes"], times)
        print(f"race time {times[0]} s")


if __name__ == "__main__":
    unittest.main(verbosity=2)

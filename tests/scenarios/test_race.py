# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A whole race, flown by a pilot with mouse and keys, up to the ranked finish; the race after it; and the time after a
restart."""

import os
import unittest

from game_window import Game, wait_until
from heard import FANFARE, HeardScenario, loudest

# A thin field and a nimble ship: the race is over in one or two minutes, on a slow machine as well.
SETTINGS = """
_AsteroidsDensityEdge = 0.0
_AsteroidsDensityCenter = 0.02
_PlayerMaxSpeed = 20.0
_PlayerMaxAccel = 15.0
_PlayerRotationsPerSecond = 0.5
MusicVolume = 0.0
"""

RACE_LIMIT = 400.0  # seconds
AAI_TOOKAI_AT_HALF = int(0.5 * 0.7 * 256) / 256  # a movie's volume is held in 256ths


class RaceScenario(HeardScenario):
    def test_race_is_flown_to_the_finish_and_its_time_is_kept(self):
        game = self.start(os.environ["QUARROW_FLYER"], SETTINGS.replace("MusicVolume = 0.0", "MusicVolume = 0.5") +
                          "MusicLastTrackIndex = 1\n")
        self.start_race(game)
        wait_until(lambda: "RaceTimes" in game.settings(), "the finish", RACE_LIMIT)
        game.wait_for_items(present=[0, 1, 3, 4], absent=[2])
        times = game.settings()["RaceTimes"]
        self.assertGreater(times[0], 0)
        self.assertEqual(times[1:], [0, 0, 0, 0])

        # The finish stops the track; the next race plays the next one.
        self.recorder.wait(FANFARE)
        silent_from, silent_to = self.recorder.wait(1)
        begun = self.start_race(game, 3)
        self.recorder.wait(5)
        self.quit_race(game)
        game.click_item(4)
        self.assertEqual(game.wait_exit(), 0)
        heard = self.recorder.left()
        self.assertEqual(loudest(heard[silent_from:silent_to]), 0)
        self.expect_track_from_its_beginning(heard, "Aai_Tookai.mp3", AAI_TOOKAI_AT_HALF, begun)

        with Game(self.display, self.home) as again:
            again.wait_for_items(present=range(5))
            again.click_item(1)
            again.wait_for_items(present=[0, 6, 7], absent=[1, 2, 3, 4, 5])
            self.assertEqual(again.end(), 0)
            self.assertEqual(again.settings()["RaceTimes"], times)
        print(f"race time {times[0]} s")


if __name__ == "__main__":
    unittest.main(verbosity=2)

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Two games of one player at once, each flown to the finish on a display of its own: both times rank. And an evening of
a hundred races, each flown to the finish, after which the game holds no more memory than after two."""

import os
import pathlib
import re
import signal
import unittest

from game_window import MAIN_MENU, Game, Scenario, wait_until
from test_race import RACE_LIMIT, SETTINGS


RACES = 100
SETTLED = 2  # races after which everything that is made once exists
SLACK = 2.0  # MiB
FINISH = {"present": [0, 3, 4], "absent": [2]}  # with or without a rank
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


class EveningScenario(Scenario):
    def start(self):
        self.write_settings(SETTINGS)
        game = Game(self.open_display(), self.home, program=os.environ["QUARROW_QUICK_FLYER"])
        self.addCleanup(game.__exit__)
        return game

    @staticmethod
    def fly_a_race(game):
        finished = game.log().count("finished")
        game.wait_for_items(**MAIN_MENU)
        game.click_item(0)
        wait_until(lambda: game.log().count("finished") > finished, "the finish", RACE_LIMIT)
        game.wait_for_items(**FINISH)
        game.click_item(4)
        game.wait_for_items(**MAIN_MENU)

    @staticmethod
    def memory(game):
        """MiB: what is held, and the most that ever was."""
        status = pathlib.Path(f"/proc/{game.process.pid}/status").read_text()
        return [int(re.search(name + r":\s*(\d+) kB", status)[1]) / 1024 for name in ("VmRSS", "VmHWM")]

    def test_a_hundred_races_hold_no_more_than_two(self):
        game = self.start()
        peaks = []
        for race in range(RACES):
            self.fly_a_race(game)
            game.walk_every_screen(rows=range(min(race + 1, 5)))
            held, peak = self.memory(game)
            peaks.append(peak)
            print(f"after race {race + 1}: {held:.1f} MiB, at most {peak:.1f}", flush=True)
        self.assertLessEqual(peaks[-1], peaks[SETTLED - 1] + SLACK)
        self.assertEqual(game.end(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

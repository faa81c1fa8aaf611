# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""An evening of a hundred races, each flown to the finish, with every page of the menus between them: the game holds no
more memory after it than after two."""

import os
import pathlib
import re
import unittest

from game_window import MAIN_MENU, Game, Scenario, wait_until
from test_race import RACE_LIMIT, SETTINGS

RACES = 100
SETTLED = 2  # races after which everything that is made once exists: pages, tracks, effects
SLACK = 2.0  # MiB
FINISH = {"present": [0, 3, 4], "absent": [2]}  # with or without a rank


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
        # The system counts to a quarter of a MiB: a peak may read as less later.
        self.assertLessEqual(max(peaks), max(peaks[:SETTLED]) + SLACK)
        self.assertEqual(game.end(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

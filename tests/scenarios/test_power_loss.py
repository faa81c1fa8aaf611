# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""The running game, killed 500 times while it writes settings and times: after each, the file is whole."""

import os
import random
import re
import time
import unittest

from game_window import Display, Game, Scenario, read_settings, wait_until

KILLS = int(os.environ.get("QUARROW_KILLS", "500"))


class PowerLossScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.folder = self.home / ".config" / "quarrow"
        self.write_settings("_FPSFontSize=1000\n")
        self.display = Display(64, 64)
        self.addCleanup(self.display.close)

    def told(self, game):
        return [int(number) for number in re.findall(r"on the disk: (\d+)\n", game.log())]

    def kill_while_it_writes(self, delay):
        """The last generation that it printed."""
        with Game(self.display, self.home, expect_start=False, program=os.environ["QUARROW_SCRIBBLER"]) as game:
            wait_until(lambda: self.told(game), "the first save")
            time.sleep(delay)
            game.process.kill()
            game.process.wait()
            self.assertNotIn("cannot be used", game.log())
            return self.told(game)[-1]

    def test_file_is_the_old_or_the_new_one_after_every_kill(self):
        moments = random.Random(20260101)
        for _ in range(KILLS):
            last = self.kill_while_it_writes(moments.uniform(0.0, 0.1))
            settings = read_settings(self.folder / "settings.ini")
            generation = settings["_FPSFontSize"]
            self.assertIn(generation, (last, last + 1))
            self.assertEqual(settings["LODDistFar"], generation)
            self.assertEqual(settings["_FPSFontName"], generation)
            self.assertEqual(settings["RaceTimes"], [generation] * 5)
        print(f"{KILLS} kills; generation {generation} is on the disk")


if __name__ == "__main__":
    unittest.main(verbosity=2)

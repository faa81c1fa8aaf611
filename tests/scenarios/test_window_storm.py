# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Random keys, moves, clicks, wheels, resizes, focus changes and full-screen switches in a real window, for a while.

QUARROW_STORM_SECONDS says how long. A game that is quit is followed by another."""

import os
import random
import time
import unittest

from game_window import Game, Scenario

SECONDS = float(os.environ.get("QUARROW_STORM_SECONDS", "20"))
SEED = 20260101
KEYS = ["w", "s", "d", "q", "Escape", "Return", "space", "Tab", "Up", "Down", "Left", "Right", "F1", "F5", "a", "1",
        "Delete", "Home", "Shift_L", "Caps_Lock", "KP_4", "Num_Lock", "adiaeresis", "Print", "Menu"]
MODIFIERS = ["Shift_L", "Control_L", "Alt_L", "Super_L"]


class WindowStorm(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()
        self.random = random.Random(SEED)
        self.counts = {}

    def place(self):
        """Half of them on the column of a menu."""
        if self.random.random() < 0.5:
            return 645 + self.random.randrange(60), 365 + 40 * self.random.randrange(8) + self.random.randrange(20)
        return self.random.randrange(1280), self.random.randrange(720)

    def move(self, connection):
        connection.move(*self.place())

    def press_key(self, connection):
        key = self.random.choice(KEYS)
        modifiers = [] if key == "q" or self.random.random() < 0.8 else [self.random.choice(MODIFIERS)]
        connection.press(*modifiers, key)

    def click(self, connection):
        connection.click(self.random.choice([1, 1, 1, 1, 2, 3]))

    def turn_wheel(self, connection):
        connection.click(self.random.choice([4, 5, 6, 7]))

    def change_window(self, connection):
        windows = connection.titled_windows()
        if not windows:
            return
        window = windows[-1].identifier
        if self.random.random() < 0.5:
            connection.focus(window if self.random.random() < 0.7 else 0)
        else:
            connection.resize(window, self.random.randrange(1, 1280), self.random.randrange(1, 720))

    def switch_full_screen(self, connection):
        if self.random.random() < 0.5:
            connection.press("F11")
        else:
            connection.press("Alt_L", "Return")

    def one_event(self, connection):
        kind = self.random.choices(
            [self.move, self.press_key, self.click, self.turn_wheel, self.change_window,
             self.switch_full_screen],
            [400, 300, 200, 80, 2, 2])[0]
        self.counts[kind.__name__] = self.counts.get(kind.__name__, 0) + 1
        kind(connection)

    def play(self, end):
        """One game in the storm, from before its first frame until the time is over or it has been quit."""
        with Game(self.display, self.home, expect_start=False) as game:
            while time.monotonic() < end and game.process.poll() is None:
                for _ in range(20):
                    self.one_event(self.display.x)
                self.display.x.flush()
                time.sleep(0.01)  # the storm's pace: some two thousand events a second
            if game.process.poll() is None:
                self.assertEqual(game.end(), 0, game.log()[-4000:])
            self.assertEqual(game.process.returncode, 0, game.log()[-4000:])
            return game.log()

    def test_game_stands_the_storm(self):
        end = time.monotonic() + SECONDS
        games = 0
        while time.monotonic() < end:
            log = self.play(end)
            games += 1
            for word in ("Sanitizer", "runtime error", "Assertion", "terminate called"):
                self.assertNotIn(word, log)
        print(f"{sum(self.counts.values())} events in {games} games:", self.counts)
        with Game(self.display, self.home) as game:  # with the settings as they are now
            self.display.window()
            self.assertEqual(game.end(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

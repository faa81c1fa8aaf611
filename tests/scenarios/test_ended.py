# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""In each way to end the game, and in each of its states, it saves what was changed and ends within a second."""

import os
import signal
import time
import unittest

from game_window import SETTINGS_GROUP, Display, Game, Scenario, wait_until

# Sanitizers make a frame several times as long.
LIMIT = 1.0 if "asan" not in os.environ["QUARROW_PROGRAM"] else 5.0  # seconds
TRIES = 3  # another program may take the processor; the test fails when the game is too slow each time


def limit():
    """With more programs running than there are processors, the game gets only a part of each second."""
    return LIMIT * max(1.0, os.getloadavg()[0] / os.cpu_count())


WAYS = ("SIGTERM", "SIGINT", "SIGHUP", "close button", "Ctrl+Q", "display gone")


class EndedScenario(Scenario):
    slowest = 0.0

    def setUp(self):
        super().setUp()
        self.folder = self.home / ".config" / "quarrow"
        self.folder.mkdir(parents=True)

    @classmethod
    def tearDownClass(cls):
        print(f"slowest end: {cls.slowest:.2f} s")

    def end(self, game, how):
        """Ends the game that way; the seconds it took."""
        start = time.monotonic()
        if how.startswith("SIG"):
            game.process.send_signal(getattr(signal, how))
        elif how == "close button":
            game.display.press_close_button()
        elif how == "Ctrl+Q":
            game.key("Control_L", "q")
        else:
            game.display.vanish()
        status = game.wait_exit()
        seconds = time.monotonic() - start
        # When the display is lost, Xlib ends the program with exit(1).
        self.assertEqual(status, 1 if how == "display gone" else 0, game.log())
        return seconds

    def check_time(self, measure):
        """measure() ends a game and tells how long that took."""
        for _ in range(TRIES):
            seconds = measure()
            if seconds < limit():
                EndedScenario.slowest = max(EndedScenario.slowest, seconds)
                return
        self.fail(f"the end took {seconds:.2f} s")

    def check_all_ways(self, prepare, settings="Fullscreen = 0\n"):
        """prepare(game) brings the game where it is to be ended, and names a setting and its new value."""
        for how in WAYS:
            with self.subTest(how=how):
                self.check_time(lambda how=how: self.prepared_and_ended(prepare, settings, how))

    def prepared_and_ended(self, prepare, settings, how):
        self.write_settings(settings)
        display = Display()
        try:
            with Game(display, self.home) as game:
                game.wait_for_items(present=range(5))
                key, value = prepare(game)
                seconds = self.end(game, how)
                self.assertEqual(game.settings().get(key), value)
        finally:
            display.close()
        self.assertEqual([path.name for path in self.folder.iterdir()], ["settings.ini"])
        return seconds

    def to_full_screen(self, game):
        game.key("F11")
        wait_until(lambda: game.window() == (0, 0, 1280, 720), "the full screen")
        game.wait_for_items(present=[0, 1])  # drawn there: the change is complete
        return "Fullscreen", 1

    def to_window(self, game):
        game.key("F11")
        wait_until(lambda: game.window()[2:] == (1024, 768), "the window")
        game.wait_for_items(present=[0, 1])
        return "Fullscreen", 0

    def test_in_a_menu(self):
        self.check_all_ways(self.to_window, "Fullscreen = 1\n")

    def test_in_full_screen(self):
        self.check_all_ways(self.to_full_screen)

    def test_in_a_race(self):
        def start_race(game):
            game.click_item(0)
            game.wait_for_items(present=[], absent=range(5))
            return "MusicLastTrackIndex", 0

        self.check_all_ways(start_race)

    def test_in_a_paused_race(self):
        def pause(game):
            game.click_item(0)
            game.wait_for_items(present=[], absent=range(5))
            game.key("Escape")
            game.wait_for_items(present=[0, 1], absent=[2, 3])
            return self.to_full_screen(game)

        self.check_all_ways(pause)

    def test_while_it_waits_for_a_key_to_bind(self):
        def capture(game):
            game.open_keys()
            game.click_item(0)
            game.key("u")
            game.click_item(1)
            game.highlight_item(5)
            return "KeyDefaultThrustUp", "u"

        self.check_all_ways(capture)

    def test_while_it_loads(self):
        for how in WAYS[:4] + WAYS[5:]:  # before the first frame the window is hidden and gets no keys
            with self.subTest(how=how):
                self.check_time(lambda how=how: self.ended_while_it_loads(how))

    def ended_while_it_loads(self, how):
        self.write_settings("FogStart=12.0\n")
        display = Display()
        try:
            with Game(display, self.home, expect_start=False) as game:
                wait_until(lambda: "end awakeFromNib" in game.log(), "the window")
                seconds = self.end(game, how)
        finally:
            display.close()
        self.assertEqual((self.folder / "settings.ini").read_text(), SETTINGS_GROUP + "FogStart=12.0\n")
        return seconds


if __name__ == "__main__":
    unittest.main(verbosity=2)

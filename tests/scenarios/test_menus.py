# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""What a player meets between start and quit."""

import signal
import subprocess
import unittest

from game_window import LIGHT, Game, Scenario, wait_until

WINDOW = (1024, 768)
FULL_SCREEN = (0, 0, 1280, 720)


class MenuScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()

    def start(self, **options):
        game = Game(self.display, self.home, **options)
        self.addCleanup(game.__exit__)
        return game

    def wait_for_window(self, game):
        """Waits until the game is in its window, with the keyboard."""
        wait_until(lambda: game.window()[2:] == WINDOW, "the window")
        self.wait_for_focus(self.display)

    def wait_for_full_screen(self, game):
        """Waits until the game fills the screen, with the keyboard."""
        wait_until(lambda: game.window() == FULL_SCREEN, "the full screen")
        self.wait_for_focus(self.display)

    def test_first_start_shows_title_and_five_items_full_screen(self):
        game = self.start()
        self.assertEqual(game.window(), FULL_SCREEN)
        game.wait_for_items(present=range(5))
        title = (640, 144, 170, 50)
        wait_until(lambda: game.picture().count(title, LIGHT) > 300, "the title")

    def test_item_under_the_pointer_is_highlighted_and_loses_it_again(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.highlight_item(2)
        self.assertFalse(game.is_highlighted(1))
        game.point_at_item(1)
        wait_until(lambda: game.is_highlighted(1) and not game.is_highlighted(2), "the frame to move to item 1")
        game.point_at(5, 5)
        wait_until(lambda: not game.is_highlighted(1), "no highlight")

    def test_quit_item_ends_the_game_in_order(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.click_item(4)
        self.assertEqual(game.wait_exit(), 0)

    def test_race_is_paused_continued_left_and_started_again(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))
        self.assertEqual(game.settings().get("MusicLastTrackIndex", 0), 0)
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        game.click_item(1)
        game.wait_for_items(present=range(5))
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))
        game.key("Escape")
        game.wait_for_setting("MusicLastTrackIndex", 1)

    def test_throttle_follows_key_and_wheel(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))

        wait_until(lambda: game.throttle_pixels() == 0, "an empty throttle bar")
        game.raise_throttle()
        game.turn_wheel(up=False)
        game.key("s")
        wait_until(lambda: game.throttle_pixels() == 0, "an empty throttle bar again")

    def test_full_screen_key_goes_to_the_window_and_back(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.key("F11")
        self.wait_for_window(game)
        game.wait_for_setting("Fullscreen", 0)
        game.key("F11")
        self.wait_for_full_screen(game)
        game.wait_for_setting("Fullscreen", 1)
        game.wait_for_items(present=range(5))

    def test_windowed_start_stays_in_its_window_and_follows_a_resize(self):
        self.write_settings("Fullscreen = 0\n")
        game = self.start()
        self.wait_for_window(game)
        game.wait_for_items(present=range(5))
        self.display.resize_window(900, 600)
        wait_until(lambda: game.window()[2:] == (900, 600), "the new size")
        game.wait_for_items(present=range(5))
        game.highlight_item(3)

    def test_every_way_to_end_saves_and_leaves_in_order(self):
        for how in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, "Ctrl+Q"):
            with self.subTest(how=how):
                self.write_settings("Fullscreen = 0\n")
                with Game(self.display, self.home) as game:
                    game.wait_for_items(present=range(5))
                    game.key("F11")
                    self.wait_for_full_screen(game)
                    if how == "Ctrl+Q":
                        game.key("Control_L", "q")
                        self.assertEqual(game.wait_exit(), 0)
                    else:
                        self.assertEqual(game.end(how), 0)
                    self.assertEqual(game.settings()["Fullscreen"], 1)

    def test_options_pages_change_what_is_stored(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.open_graphics()
        game.click_item(0)
        game.wait_for_setting("FogEndHigh", 65.0)
        game.click_item(1)
        game.wait_for_setting("_AsteroidsSmoothness", 9)
        game.click_item(2)
        game.wait_for_setting("_AsteroidsDensityCenter", 0.25)
        game.wait_for_setting("FogEndLow", 30.0)
        game.click_item(4)
        game.wait_for_items(present=range(4), absent=[4, 5])
        game.click_item(2)
        game.wait_for_items(present=[0, 1, 3], absent=[2])
        game.click_item(1)
        game.wait_for_setting("MusicVolume", 1.0)
        game.click_item(0)
        game.wait_for_setting("SoundVolume", 0.0)

    def test_every_screen_is_walked_and_every_change_found_again_after_a_restart(self):
        changed = {"FogEndHigh": 65.0, "_AsteroidsSmoothness": 9, "_AsteroidsDensityCenter": 0.25, "FogEndLow": 30.0,
                   "SoundVolume": 0.0, "MusicVolume": 1.0, "KeyDefaultThrustUp": "i", "KeyDefaultThrustDown": "k",
                   "KeyDefaultPause": "p", "MouseInvert": 1}
        game = self.start()
        game.walk_every_screen(change=True)
        for key, value in changed.items():
            game.wait_for_setting(key, value)
        self.assertEqual(game.end(), 0)

        again = self.start()
        again.walk_every_screen()
        self.assertEqual({key: again.settings()[key] for key in changed}, changed)
        # Each page goes on from the value that it shows.
        again.open_graphics()
        again.click_item(0)
        again.wait_for_setting("FogEndHigh", 40.0)
        again.click_item(1)
        again.wait_for_setting("_AsteroidsSmoothness", 5)
        again.click_item(2)
        again.wait_for_setting("_AsteroidsDensityCenter", 0.5)

    def test_rebound_throttle_key_flies_the_next_race(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.open_keys()
        game.click_item(0)
        game.key("Up")
        game.wait_for_setting("KeyDefaultThrustUp", "\uf700")
        self.race_from_keys(game)
        game.key("Up")
        wait_until(game.throttle_pixels, "thrust")

    def race_from_keys(self, game):
        """From the page of the keys into a race."""
        game.click_item(5)
        game.wait_for_items(present=range(4), absent=[4, 5])
        game.click_item(3)
        game.wait_for_items(present=range(5))
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))

    def bind(self, game, item, setting, keys, character):
        game.click_item(item)
        game.key(*keys)
        game.wait_for_setting(setting, character)

    def test_keys_of_full_screen_are_bound_as_any_other(self):
        self.write_settings("Fullscreen = 0\n")
        game = self.start()
        game.wait_for_items(present=range(5))
        game.open_keys()
        self.bind(game, 0, "KeyDefaultThrustUp", ["F11"], "\uf70e")
        self.bind(game, 1, "KeyDefaultThrustDown", ["Alt_L", "Return"], r"\r")
        self.assertEqual(game.window()[2:], WINDOW)
        game.key("F11")  # no menu waits for it any more
        self.wait_for_full_screen(game)
        self.bind(game, 1, "KeyDefaultThrustDown", ["s"], "s")
        self.race_from_keys(game)
        game.key("F11")
        wait_until(game.throttle_pixels, "thrust")
        self.assertEqual(game.window(), FULL_SCREEN)
        game.key("Alt_L", "Return")
        self.wait_for_window(game)
        game.key("Control_L", "q")
        self.assertEqual(game.wait_exit(), 0)

    def test_ctrl_q_quits_while_a_menu_waits_for_a_key(self):
        game = self.start()
        game.wait_for_items(present=range(5))
        game.open_keys()
        game.click_item(0)
        game.key("Control_L", "q")
        self.assertEqual(game.wait_exit(), 0)
        self.assertNotIn("KeyDefaultThrustUp", game.settings())

    def test_dead_key_is_bound_as_any_other(self):
        # An ASCII key: when another is released, SDL 2.26 reads past a string's end, which ends a build with sanitizers.
        subprocess.run(["setxkbmap", "-display", self.display.name, "de"], check=True)
        game = self.start()
        game.wait_for_items(present=range(5))
        game.open_keys()
        game.click_item(0)
        game.key("dead_circumflex")
        game.wait_for_setting("KeyDefaultThrustUp", "^")

    def test_best_times_are_shown_and_cleared(self):
        self.write_settings("RaceTimes=83;95;\n")
        game = self.start()
        game.wait_for_items(present=range(5))
        game.click_item(1)
        game.wait_for_items(present=[0, 1, 6, 7], absent=[2, 3, 4, 5])
        game.click_item(6)
        game.wait_for_items(present=[2, 6, 7], absent=[0, 1, 3, 4, 5])
        game.wait_for_setting("RaceTimes", [0, 0, 0, 0, 0])
        game.click_item(7)
        game.wait_for_items(present=range(5))


if __name__ == "__main__":
    unittest.main(verbosity=2)

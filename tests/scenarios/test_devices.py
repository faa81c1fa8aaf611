# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Displays, drivers and sound devices that lack something, with a clear message or quiet play; and a dense display."""

import unittest

from game_window import LIGHT, Game, Scenario, preloaded, wait_until


class DevicesScenario(Scenario):
    def expect_refusal(self, display, word, **environment):
        with Game(display, self.home, environment=environment, expect_start=False) as game:
            self.assertEqual(game.wait_exit(), 1, game.log())
            self.expect_told(game, [word, "terminating"])

    def expect_told(self, game, words):
        """Beyond the usual the log has one line for each word, and no other."""
        lines = game.unusual_lines()
        self.assertEqual(len(lines), len(words), game.log())
        for word, line in zip(words, lines):
            self.assertIn(word, line)

    def expect_play(self, display, words, **environment):
        """A race is started, and the game left by its menus. The log tells of these words."""
        with Game(display, self.home, environment=environment) as game:
            game.wait_for_items(present=range(5))
            game.click_item(0)
            game.wait_for_items(present=[], absent=range(5))
            game.key("w")
            game.key("Escape")
            game.wait_for_items(present=[0, 1], absent=[2, 3])
            game.click_item(1)
            game.wait_for_items(present=range(5))
            game.click_item(4)
            self.assertEqual(game.wait_exit(), 0)
            self.expect_told(game, words)

    def odd_driver(self, kind):
        return preloaded("OddDriver", ODD_DRIVER=kind)

    def test_no_opengl_is_told_and_ends(self):
        self.expect_refusal(self.open_display(opengl=False), "There is no OpenGL")

    def test_opengl_es_alone_is_told_and_ends(self):
        self.expect_refusal(self.open_display(), "the driver has OpenGL ES only", **self.odd_driver("es"))

    def test_depth_buffer_of_sixteen_bits_is_enough(self):
        self.expect_play(self.open_display(), [], **self.odd_driver("depth16"))

    def test_display_of_sixteen_bits_is_enough(self):
        with Game(self.open_display(depth=16), self.home) as game:
            game.display.window()
            game.key("Control_L", "q")
            self.assertEqual(game.wait_exit(), 0)

    def test_no_sound_device_is_told_once_and_played_without(self):
        self.expect_play(self.open_display(), ["no sound device"], ALSOFT_DRIVERS="none-of-them")

    def test_refused_full_screen_leaves_the_window_visible(self):
        for kind, word in (("framed", "A window could not be made"), ("unlit", "A window could not be drawn into")):
            for at_start in (1, 0):
                with self.subTest(kind=kind, at_start=at_start):
                    self.write_settings(f"Fullscreen = {at_start}\n")
                    self.play_without_full_screen(kind, word, at_start)

    def play_without_full_screen(self, kind, word, at_start):
        def refusals():
            told = game.unusual_lines()
            self.assertTrue(all(word in line for line in told), game.log())
            return len(told)

        def plays_in_its_window():
            self.assertEqual([window[4:] for window in display.x.titled_windows()], [(1024, 768)])
            game.wait_for_items(present=range(5))

        display = self.open_display()
        with Game(display, self.home, environment=self.odd_driver(kind)) as game:
            self.assertEqual(refusals(), 1, game.log())
            plays_in_its_window()
            for full_screen in (0, 1, 0) if at_start else (1, 0, 1):
                game.key("F11")
                game.wait_for_setting("Fullscreen", full_screen)
                plays_in_its_window()
            game.click_item(0)
            game.wait_for_items(present=[], absent=range(5))
            game.key("F11")
            game.key("Escape")
            game.wait_for_items(present=[0, 1], absent=[2, 3])
            self.assertGreaterEqual(refusals(), 2, game.log())
            self.assertEqual(game.end(), 0)

    def test_window_of_one_pixel_grows_again(self):
        self.write_settings("Fullscreen = 0\n_ShowFPS = 1\n")
        display = self.open_display()
        with Game(display, self.home) as game:
            game.wait_for_items(present=range(5))
            game.click_item(0)
            game.wait_for_items(present=[], absent=range(5))
            for width, height in ((1, 1), (700, 1), (1, 500), (1, 1), (800, 600)):
                display.resize_window(width, height)
                wait_until(lambda: game.window()[2:] == (width, height), f"a window of {width} x {height}")
                game.key("w")
            wait_until(lambda: game.picture().count((0, 0, 800, 600), LIGHT) > 100, "the cockpit")
            game.key("Escape")
            game.wait_for_items(present=[0, 1], absent=[2, 3])
            self.assertEqual(game.end(), 0)


class DenseDisplayScenario(Scenario):
    """On 4K, the desktop set to twice the usual density: each pixel of the game is four of the display's."""

    def setUp(self):
        super().setUp()
        self.display = self.open_display(width=3840, height=2160)
        self.display.x.write_resources("Xft.dpi:\t192\n")

    def start(self):
        game = Game(self.display, self.home, scale=2)
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5), absent=[5, 6])
        return game

    def expect_highlight(self, game, item, place, expected):
        game.point_at(*place)
        wait_until(lambda: game.is_highlighted(item) == expected,
                   f"item {item} {'in' if expected else 'without'} its frame, the pointer at {place}")

    def test_item_reacts_in_exactly_its_frame(self):
        game = self.start()
        self.assertEqual(game.window(), (0, 0, 3840, 2160))
        game.highlight_item(2)
        x, y = game.item_position(2)
        width = game.frame_width(2)
        display_pixel = 0.5
        for inside, outside in [((x, y + 12), (x - display_pixel, y + 12)),
                                ((x + 12, y), (x + 12, y - display_pixel)),
                                ((x + width + display_pixel, y + 12), (x + width + 1, y + 12))]:
            self.expect_highlight(game, 2, inside, True)
            self.expect_highlight(game, 2, outside, False)

    def test_cockpit_is_as_large_as_on_other_displays(self):
        game = self.start()
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))
        top_of_clock = game.on_display(1920 * 5 // 9, 1080 * 9 // 10, 40, 1)
        wait_until(lambda: game.picture().count(top_of_clock, LIGHT) == 40 * 4, "the frame of the clock")
        self.assertEqual(game.throttle_pixels(), 0)
        game.raise_throttle()
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])

    def test_window_is_twice_as_large_and_follows_a_resize(self):
        self.write_settings("Fullscreen=0\n")
        game = self.start()
        self.assertEqual(game.window()[2:], (2048, 1536))
        game.highlight_item(3)
        self.display.resize_window(1801, 1201)
        wait_until(lambda: game.window()[2:] == (1801, 1201), "the new size")
        game.wait_for_items(present=range(5))
        game.key("F11")
        wait_until(lambda: game.window() == (0, 0, 3840, 2160), "the full screen")
        game.highlight_item(3)
        game.click_item(4)
        self.assertEqual(game.wait_exit(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

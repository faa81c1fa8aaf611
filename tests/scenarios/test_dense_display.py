# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A display of 4K whose desktop is set to twice the usual density: each pixel of the game is four of the display's."""

import unittest

from game_window import LIGHT, Game, Scenario, wait_until


class DenseDisplayScenario(Scenario):
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
        game.key("w")
        one_step = wait_until(game.throttle_pixels, "the throttle bar to grow by a key")
        game.turn_wheel(up=True)
        wait_until(lambda: game.throttle_pixels() > 1.5 * one_step, "the throttle bar to grow by the wheel")
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

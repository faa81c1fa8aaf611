# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""What a player hears: tracks that follow one another and stop, and the switches of the sound page.

What a finish sounds like is heard in test_race.
"""

import unittest

from heard import HeardScenario, loudest


class SoundScenario(HeardScenario):
    def test_tracks_follow_one_another_and_stop_with_the_way_out_of_the_pause_menu(self):
        game = self.start()
        first = self.start_race(game)
        self.recorder.wait(5)
        self.quit_race(game)
        self.recorder.wait(1)
        silent_from, silent_to = self.recorder.wait(1)
        second = self.start_race(game)
        self.recorder.wait(5)
        self.assertEqual(game.end(), 0)

        heard = self.recorder.left()
        self.expect_track_from_its_beginning(heard, "Sable.mp3", 0.5, first)
        self.assertEqual(loudest(heard[silent_from:silent_to]), 0)
        self.expect_track_from_its_beginning(heard, "Electro0032.mp3", 0.25, second)

    def test_effects_switch_at_once_and_music_volume_with_the_next_race(self):
        game = self.start()
        game.open_options()
        game.click_item(2)
        game.wait_for_items(present=[0, 1, 3], absent=[2])
        game.click_item(0)
        game.wait_for_setting("SoundVolume", 0.0)
        self.recorder.wait(1)
        off_from = self.recorder.length()
        game.click_item(1)
        game.wait_for_setting("MusicVolume", 1.0)
        _, off_to = self.recorder.wait(1)
        game.click_item(0)
        game.wait_for_setting("SoundVolume", 1.0)
        _, on_to = self.recorder.wait(1)
        game.click_item(3)
        game.wait_for_items(present=range(4), absent=[4, 5])
        game.click_item(3)
        game.wait_for_items(present=range(5))
        begun = self.start_race(game)
        self.recorder.wait(5)
        self.assertEqual(game.end(), 0)

        heard = self.recorder.left()
        self.assertEqual(loudest(heard[off_from:off_to]), 0)
        self.assertGreater(loudest(heard[off_to:on_to]), 1000)
        self.expect_track_from_its_beginning(heard, "Sable.mp3", 1.0, begun)


if __name__ == "__main__":
    unittest.main(verbosity=2)

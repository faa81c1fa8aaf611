# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""What a player hears between races: tracks that follow one another and stop, and the switches of the sound page."""

import os
import pathlib
import unittest

from game_window import Game, Scenario, wait_until
from heard import RATE, Recorder, decoded, loudest, place
from test_race import RACE_LIMIT, SETTINGS

MUSIC = pathlib.Path(os.environ["QUARROW_PROGRAM"]).parent / "resources" / "Music"
FANFARE = 4  # seconds until nothing of it is left
AAI_TOOKAI_AT_HALF = int(0.5 * 0.7 * 256) / 256  # a movie's volume is held in 256ths


class SoundScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.display = self.open_display()
        self.recorder = Recorder(self.home)

    def start(self, program=None, settings=""):
        self.write_settings(settings)
        game = Game(self.display, self.home, environment=self.recorder.environment, program=program)
        self.addCleanup(game.__exit__)
        game.wait_for_items(present=range(5))
        self.recorder.wait(FANFARE)
        return game

    def start_race(self, game, item=0):
        """The samples between which the race has begun."""
        begin = self.recorder.length()
        game.click_item(item)
        game.wait_for_items(present=[], absent=[0, 3, 4])
        return begin, self.recorder.length() + RATE

    def quit_race(self, game):
        game.key("Escape")
        game.wait_for_items(present=[0, 1], absent=[2, 3])
        game.click_item(1)
        game.wait_for_items(present=range(5))

    def expect_track_from_its_beginning(self, heard, name, gain, begun):
        """The track's first seconds are heard from the beginning of the race on, none of them early. A machine that
        is too busy to go on playing may miss some of them."""
        piece = decoded(MUSIC / name, 5)
        earliest, latest = begun
        found = []
        for second in (0.5, 1.0, 1.5, 2.0, 2.5, 3.0):
            at = place(heard, piece, second, gain, begin=earliest)
            if at is not None:
                found.append((second, at))
        self.assertGreaterEqual(len(found), 2, f"{name} at {gain} is not heard")
        (second, at), (later_second, later) = found[0], found[-1]
        self.assertLess(at, latest + second * RATE, f"{name} begins late")
        self.assertGreaterEqual(later - at, (later_second - second) * RATE, f"{name} is not played in its order")

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

    def test_finish_stops_the_track_and_the_next_race_plays_the_next_one(self):
        game = self.start(os.environ["QUARROW_FLYER"], SETTINGS.replace("MusicVolume = 0.0", "MusicVolume = 0.5") +
                          "MusicLastTrackIndex = 1\n")
        self.start_race(game)
        wait_until(lambda: "RaceTimes" in game.settings(), "the finish", RACE_LIMIT)
        self.recorder.wait(FANFARE)
        silent_from, silent_to = self.recorder.wait(1)
        begun = self.start_race(game, 3)
        self.recorder.wait(5)
        self.assertEqual(game.end(), 0)

        heard = self.recorder.left()
        self.assertEqual(loudest(heard[silent_from:silent_to]), 0)
        self.expect_track_from_its_beginning(heard, "Aai_Tookai.mp3", AAI_TOOKAI_AT_HALF, begun)

    def test_effects_switch_at_once_and_music_volume_with_the_next_race(self):
        game = self.start()
        game.click_item(2)
        game.wait_for_items(present=range(4), absent=[4])
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
        game.wait_for_items(present=range(4), absent=[4])
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

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""What the game does with a broken installation, a broken settings file, or no display."""

import os
import pathlib
import shutil
import unittest

from game_window import Game, Scenario, wait_until


class BadInputScenario(Scenario):
    def setUp(self):
        super().setUp()
        self.program = os.environ["QUARROW_PROGRAM"]
        self.addCleanup(os.environ.__setitem__, "QUARROW_PROGRAM", self.program)

    def installed_copy(self):
        """A copy of program and resources that may be damaged; the resources' folder."""
        folder = self.home / "installed"
        folder.mkdir()
        resources = pathlib.Path(self.program).parent / "resources"
        shutil.copytree(resources, folder / "resources")
        shutil.copy2(self.program, folder / "quarrow")
        os.environ["QUARROW_PROGRAM"] = str(folder / "quarrow")
        return folder / "resources"

    def settings_file(self):
        folder = self.home / ".config" / "quarrow"
        folder.mkdir(parents=True, exist_ok=True)
        return folder / "settings.ini"

    def expect_refusal(self, display, word, **environment):
        with Game(display, self.home, environment=environment, expect_start=False) as game:
            self.assertEqual(game.wait_exit(), 1, game.log())
            lines = [line for line in game.log().splitlines() if word.lower() in line.lower()]
            self.assertEqual(len(lines), 1, game.log())

    def expect_play(self, display, *words):
        with Game(display, self.home) as game:
            game.wait_for_items(present=range(5))
            game.click_item(4)
            self.assertEqual(game.wait_exit(), 0)
            for word in words:
                self.assertEqual(sum(word in line for line in game.log().splitlines()), 1, game.log())

    def test_no_display_is_told_and_ends(self):
        self.expect_refusal(None, "display")

    def test_invisible_video_driver_counts_as_no_display(self):
        self.expect_refusal(self.open_display(), "display", SDL_VIDEODRIVER="dummy")

    def test_missing_interface_file_is_told_and_ends(self):
        (self.installed_copy() / "Interface" / "Main.ini").unlink()
        self.expect_refusal(self.open_display(), "Main.ini")

    def test_broken_interface_file_is_told_and_ends(self):
        (self.installed_copy() / "Interface" / "Main.ini").write_text("[Window\n")
        self.expect_refusal(self.open_display(), "Main.ini")

    def test_missing_pictures_and_sounds_do_not_stop_play(self):
        resources = self.installed_copy()
        (resources / "Images" / "roid-128.jpg").unlink()
        (resources / "Images" / "starfield-1024.jpg").write_bytes(b"no picture")
        (resources / "Sounds" / "Fanfare.AIFF").write_bytes(b"no sound")
        (resources / "Sounds" / "Wham.AIFF").unlink()
        shutil.rmtree(resources / "Music")
        self.expect_play(self.open_display(), "Unable to load texture roid-128.jpg",
                         "Unable to load texture starfield-1024.jpg", "Fanfare.AIFF", "Wham.AIFF")

    def test_broken_settings_are_set_aside_and_play_goes_on(self):
        display = self.open_display()
        for broken in (b"Fullscreen", b"\xff\xfe\x80\x00" * 100, b"[[[["):
            with self.subTest(broken=broken):
                self.settings_file().write_bytes(broken)
                self.expect_play(display, "settings.ini")
                aside = list(self.settings_file().parent.glob("settings.ini.broken-*"))
                self.assertIn(broken, [path.read_bytes() for path in aside])

    def test_wrong_type_costs_that_key_alone(self):
        self.write_settings("FogEndHigh=far\nMusicVolume=1.0\n")
        self.expect_play(self.open_display(), "FogEndHigh")
        self.assertIn("MusicVolume=1.0", self.settings_file().read_text())

    def test_hostile_values_show_on_every_screen_and_join_their_cycles(self):
        self.write_settings("""\
FogEndHigh = inf
_AsteroidsSmoothness = 2147483647
_AsteroidsDensityCenter = nan
SoundVolume = nan
MusicVolume = -5.0
KeyDefaultThrustUp =
KeyDefaultThrustDown = throttle
KeyDefaultPause = 27
MouseInvert = -2147483648
RaceTimes = -5;soon;1.5;nan;83;84;85
""")
        with Game(self.open_display(), self.home) as game:
            game.wait_for_items(present=range(5))
            game.click_item(1)
            game.wait_for_items(present=[6, 7])
            game.click_item(7)
            game.wait_for_items(present=range(5))
            game.open_graphics()
            game.click_item(0)
            game.wait_for_setting("FogEndHigh", 40.0)
            game.click_item(1)
            game.wait_for_setting("_AsteroidsSmoothness", 5)
            game.click_item(2)
            wait_until(lambda: game.settings()["_AsteroidsDensityCenter"] in (0.25, 0.5), "a density of the cycle")
            game.click_item(4)
            game.wait_for_items(present=range(4), absent=[4, 5])
            game.click_item(2)
            game.wait_for_items(present=[0, 1, 3], absent=[2])
            game.click_item(0)
            game.wait_for_setting("SoundVolume", 0.0)
            game.click_item(1)
            wait_until(lambda: game.settings()["MusicVolume"] in (0.0, 0.2, 0.5, 1.0), "a volume of the cycle")
            game.click_item(3)
            game.wait_for_items(present=range(4), absent=[4, 5])
            game.click_item(1)
            game.wait_for_items(present=[0, 1, 2, 3, 5], absent=[4])
            game.click_item(3)
            game.wait_for_setting("MouseInvert", 0)
            self.assertEqual(game.end(), 0)

    def test_missing_catalogue_means_english(self):
        display = self.open_display()
        english = self.widths_of_the_main_menu(display, "C.UTF-8")
        german = self.widths_of_the_main_menu(display, "de_DE.UTF-8")
        self.assertNotEqual(german, english)
        catalogue = self.installed_copy() / "Locale" / "de" / "LC_MESSAGES" / "quarrow.mo"
        catalogue.unlink()
        self.assertEqual(self.widths_of_the_main_menu(display, "de_DE.UTF-8"), english)

    def widths_of_the_main_menu(self, display, locale):
        """The width of each item's frame under the pointer, pixels."""
        with Game(display, self.home, environment={"LANG": locale}) as game:
            game.wait_for_items(present=range(5))
            widths = []
            for item in range(5):
                game.highlight_item(item)
                widths.append(game.frame_width(item))
            self.assertEqual(game.end(), 0)
            return widths

    def test_configuration_folder_that_is_a_file_is_told_once(self):
        (self.home / ".config").write_text("in the way")
        with Game(self.open_display(), self.home) as game:
            game.wait_for_items(present=range(5))
            for width in (1024, 1280):
                game.key("F11")
                wait_until(lambda: game.window()[2] == width, f"a window {width} pixels wide")
            game.wait_for_items(present=range(5))
            game.click_item(4)
            self.assertEqual(game.wait_exit(), 0)
            told = [line for line in game.log().splitlines() if "settings" in line or ".config" in line]
            self.assertEqual(len(told), 1, game.log())


if __name__ == "__main__":
    unittest.main(verbosity=2)

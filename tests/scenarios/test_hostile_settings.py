# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Settings that nobody would choose: the game starts, draws, stays below 1 GiB, and quits."""

import pathlib
import tempfile
import time
import unittest

from game_window import SETTINGS_GROUP, Display, Game, wait_until

NUMBERS = ["Fullscreen", "FogStart", "FogEndHigh", "FogEndLow", "LODDistMedium", "LODDistFar",
           "_AsteroidsDensityEdge", "_AsteroidsDensityCenter", "_AsteroidsSmoothness", "_AsteroidsMinR",
           "_AsteroidsMaxR", "_PlayerRotationsPerSecond", "_PlayerMaxSpeed", "_PlayerMinSpeed", "_PlayerMaxAccel",
           "_PlayerSize", "_CockpitTimerFontSize", "_CockpitWayptFontSize", "_CockpitArrowX", "_CockpitArrowY",
           "MouseInvert", "MouseSensitivity", "MouseDeadCenterPct", "SoundVolume", "MusicVolume",
           "MusicLastTrackIndex"]
LARGEST_INT = "2147483647"

FARTHEST = {"FogEndHigh": "1e9", "FogEndLow": "1e9"}
DENSEST = {"_AsteroidsDensityEdge": "1.0", "_AsteroidsDensityCenter": "7.0"}
FINEST = {"_AsteroidsSmoothness": "100000", "LODDistMedium": "1e9", "LODDistFar": "1e9"}

LONGEST_FRAME = 10.0  # seconds, with software OpenGL on a busy machine
MOST_MEMORY = 1 << 20  # KiB

CASES = {
    **{f"every number {value}": dict.fromkeys(NUMBERS, value)
       for value in ("nan", "inf", "-inf", "1e30", "-1", "0", "1", LARGEST_INT, "-9223372036854775808")},
    "densities above one": DENSEST,
    "densities below zero": {"_AsteroidsDensityEdge": "-3.0", "_AsteroidsDensityCenter": "-0.5"},
    "a view without end": FARTHEST,
    "a view of nothing": {"FogEndHigh": "0.0", "FogEndLow": "0", "FogStart": "0.0"},
    "a view that ends before it begins": {"FogStart": "1e9", "FogEndHigh": "20.0", "FogEndLow": "90.0"},
    "detail of nothing": {"_AsteroidsSmoothness": "0"},
    "detail of one": {"_AsteroidsSmoothness": "1"},
    "detail of 100,000": {"_AsteroidsSmoothness": "100000"},
    "detail of 100,000 as far as it goes": FINEST,
    "all asteroids in a view without end": {**DENSEST, **FARTHEST},
    "asteroids of any size": {"_AsteroidsMinR": "1e9", "_AsteroidsMaxR": "1e9", **DENSEST},
    "smallest above largest": {"_AsteroidsMinR": "0.6", "_AsteroidsMaxR": "0.1"},
    "a ship of any size": {"_PlayerSize": "1e9"},
    "any speed": {"_PlayerMaxSpeed": "1e9", "_PlayerMinSpeed": "1e9", "_PlayerMaxAccel": "1e9"},
    "least speed above greatest": {"_PlayerMinSpeed": "9.0", "_PlayerMaxSpeed": "0.5"},
    "turns of any speed": {"_PlayerRotationsPerSecond": "1e9", "MouseSensitivity": "1e9"},
    "fonts of nothing": dict.fromkeys(("_FPSFontSize", "_CockpitTimerFontSize", "_CockpitWayptFontSize"), "0"),
    "fonts below nothing": dict.fromkeys(("_FPSFontSize", "_CockpitTimerFontSize", "_CockpitWayptFontSize"), "-7"),
    "fonts of 100,000 pixels": dict.fromkeys(("_FPSFontSize", "_CockpitTimerFontSize", "_CockpitWayptFontSize"),
                                             "100000"),
    "font names of 10,000 characters": dict.fromkeys(("_FPSFontName", "_CockpitTimerFontName"),
                                                     "x" * 10000),
}


class HostileSettingsScenario(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = Display(800, 600)

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    def play(self, settings):
        """Starts a race, and quits after some of its frames. Seconds that a frame took."""
        with tempfile.TemporaryDirectory(prefix="quarrow-home-") as home:
            file = pathlib.Path(home, ".config", "quarrow", "settings.ini")
            file.parent.mkdir(parents=True)
            # The frame rate's read-out changes with every frame, whatever else stands still.
            lines = {"_ShowFPS": "1", **settings}
            file.write_text(SETTINGS_GROUP + "".join(f"{key}={value}\n" for key, value in lines.items()))
            with Game(self.display, home) as game:
                game.click_item(0)
                wait_until(game.has_raced, "the race's music\n" + game.log())
                seconds = self.frame_time(game)
                self.assertLess(self.peak_memory(game), MOST_MEMORY)
                self.assertEqual(game.end(), 0, game.log())
                self.check_log(game.log())
                return seconds

    def check_log(self, log):
        told = [line.split(" is ")[0] for line in log.splitlines() if "The setting" in line]
        self.assertEqual(len(told), len(set(told)), "told more than once\n" + log)
        self.assertNotIn("OpenGL error", log)

    @staticmethod
    def peak_memory(game):
        status = pathlib.Path(f"/proc/{game.process.pid}/status").read_text()
        return int(status.split("VmHWM:")[1].split()[0])

    @staticmethod
    def frame_time(game, frames=3):
        """From the changes of the read-out, which is as wide as its font."""
        left, top, width, _ = game.window()

        def read_out():
            return game.picture().part((left + 30, top + 30, min(width - 60, 400), 240))

        def wait_for_frame():
            last = read_out()
            wait_until(lambda: read_out() != last, lambda: "another frame\n" + game.log())

        wait_for_frame()
        start = time.monotonic()
        for _ in range(frames):
            wait_for_frame()
        return (time.monotonic() - start) / frames

    def test_game_never_hangs(self):
        for name, settings in CASES.items():
            with self.subTest(name):
                seconds = self.play(settings)
                print(f"{name}: {seconds:.3f} seconds a frame", flush=True)
                self.assertLess(seconds, LONGEST_FRAME)


if __name__ == "__main__":
    unittest.main(verbosity=2)

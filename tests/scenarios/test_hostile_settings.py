# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Settings that nobody would choose: the game starts, draws at a tenth of its usual rate or better, and quits."""

import pathlib
import tempfile
import time
import unittest

from game_window import Display, Game, wait_until

NUMBERS = ["Fullscreen", "_FPSFontSize", "FogStart", "FogEndHigh", "FogEndLow", "LODDistMedium", "LODDistFar",
           "_AsteroidsDensityEdge", "_AsteroidsDensityCenter", "_AsteroidsSmoothness", "_AsteroidsMinR",
           "_AsteroidsMaxR", "_PlayerRotationsPerSecond", "_PlayerMaxSpeed", "_PlayerMinSpeed", "_PlayerMaxAccel",
           "_PlayerSize", "_CockpitTimerFontSize", "_CockpitWayptFontSize", "_CockpitArrowX", "_CockpitArrowY",
           "MouseInvert", "MouseSensitivity", "MouseDeadCenterPct", "SoundVolume", "MusicVolume",
           "MusicLastTrackIndex"]
LARGEST_INT = "2147483647"

FARTHEST = {"FogEndHigh": "1e9", "FogEndLow": "1e9"}
DENSEST = {"_AsteroidsDensityEdge": "1.0", "_AsteroidsDensityCenter": "7.0"}
FINEST = {"_AsteroidsSmoothness": "100000", "LODDistMedium": "1e9", "LODDistFar": "1e9"}

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
    "all asteroids in a view without end, in all detail": {**DENSEST, **FARTHEST, **FINEST},
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
                                                     '"' + "x" * 10000 + '"'),
}


class HostileSettingsScenario(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = Display(800, 600)
        cls.usual = cls.frame_rate({})

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    @classmethod
    def frame_rate(cls, settings):
        """Frames per second at the start of a race, which is left by way of Quit."""
        with tempfile.TemporaryDirectory(prefix="quarrow-home-") as home:
            folder = pathlib.Path(home, ".config", "quarrow")
            folder.mkdir(parents=True)
            # The rate is read from the picture: whatever else stands still, this part changes with every frame.
            lines = {"_ShowFPS": "1", **settings}
            (folder / "settings.toml").write_text("".join(f"{key} = {value}\n" for key, value in lines.items()))
            with Game(cls.display, home) as game:
                track = str(game.settings().get("MusicLastTrackIndex"))
                game.click_item(0)
                wait_until(lambda: str(game.settings().get("MusicLastTrackIndex")) != track,
                           "the race's music\n" + game.log())
                rate = cls.count_frames(game)
                game.key("Escape")
                game.click_item(1)
                game.click_item(4)
                status = game.wait_exit()
                if status != 0:
                    raise AssertionError(f"exit status {status}\n{game.log()}")
                cls.check_log(game.log())
                return rate

    @staticmethod
    def check_log(log):
        told = [line for line in log.splitlines() if "The setting" in line]
        if len(told) != len(set(line.split(" is ")[0] for line in told)):
            raise AssertionError("told more than once\n" + log)
        if "OpenGL error" in log:
            raise AssertionError(log)

    @classmethod
    def count_frames(cls, game, least=10, limit=4.0):
        """Counts the changes of the read-out."""
        left, top, width, _ = game.window()

        def read_out():
            return game.picture().part((left + 30, top + 30, min(width - 60, 400), 240))

        last = read_out()
        start = end = None
        frames = 0
        limit_end = time.monotonic() + limit
        while time.monotonic() < limit_end and (frames < least or end - start < 0.25):
            time.sleep(0.001)  # the game needs the processor, too
            now = read_out()
            if now != last:
                last = now
                end = time.monotonic()
                if start is None:
                    start = end
                else:
                    frames += 1
        if frames == 0:
            raise AssertionError("no frames\n" + game.log())
        return frames / (end - start)

    def test_every_case_keeps_a_tenth_of_the_usual_frame_rate(self):
        for name, settings in CASES.items():
            with self.subTest(name):
                for _ in range(3):  # a machine that was busy elsewhere for a moment
                    rate = self.frame_rate(settings)
                    print(f"{name}: {rate:.1f} frames per second, usually {self.usual:.1f}", flush=True)
                    if rate >= self.usual / 10:
                        break
                    type(self).usual = self.frame_rate({})
                else:
                    self.fail(f"{rate:.1f} frames per second, usually {self.usual:.1f}")


if __name__ == "__main__":
    unittest.main(verbosity=2)

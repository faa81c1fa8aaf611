# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""What the game's loudspeakers would have played: OpenAL Soft writes it to a file, in real time."""

import array
import os
import pathlib
import subprocess

from game_window import Game, Scenario, wait_until

RATE = 44100  # samples a second, stereo
SPACING = 7  # samples between two that are compared
COMPARED = 400
TOLERANCE = 3  # of 32768: decoder and mixer round each for themselves

FANFARE = 4  # seconds until it has died away

CONFIGURATION = """[general]
drivers = wave
sample-type = int16
channels = stereo
dither = false
output-limiter = false
[wave]
file = {}
"""


class Recorder:
    """A sound device that writes what it plays to a file. Give its environment to the game."""

    def __init__(self, folder):
        self._file = pathlib.Path(folder) / "heard.wav"
        configuration = pathlib.Path(folder) / "alsoft.conf"
        configuration.write_text(CONFIGURATION.format(self._file))
        self.environment = {"ALSOFT_DRIVERS": "wave", "ALSOFT_CONF": str(configuration)}

    def length(self):
        """Samples so far."""
        return self._file.stat().st_size // 4 if self._file.exists() else 0

    def wait(self, seconds):
        """Waits until that many more seconds were played, and returns the length before and after."""
        begin = self.length()
        wait_until(lambda: self.length() >= begin + seconds * RATE, f"{seconds} s of sound")
        return begin, self.length()

    def left(self):
        """The left channel's samples."""
        data = self._file.read_bytes()
        begin = data.index(b"data") + 8
        samples = array.array("h", data[begin:begin + (len(data) - begin) // 4 * 4])
        return samples[::2]


def decoded(file, seconds):
    """The beginning of a piece of music, the left channel."""
    raw = subprocess.run(["ffmpeg", "-v", "error", "-i", str(file), "-t", str(seconds), "-f", "s16le", "-ac", "2",
                          "-ar", str(RATE), "-"], check=True, capture_output=True).stdout
    return array.array("h", raw)[::2]


def place(heard, piece, second, gain, begin=0):
    """Where in what was heard the piece's second begins, played at that gain, after the sample begin; or None."""
    at = int(second * RATE)
    wanted = [(offset, gain * piece[at + offset]) for offset in range(0, COMPARED * SPACING, SPACING)]
    wanted.sort(key=lambda sample: -abs(sample[1]))  # the loudest first, as they differ most
    first, level = wanted[0]
    for start in range(begin, len(heard) - COMPARED * SPACING):
        if abs(heard[start + first] - level) <= TOLERANCE and \
                all(abs(heard[start + offset] - sample) <= TOLERANCE for offset, sample in wanted):
            return start
    return None


def loudest(samples):
    return max(abs(sample) for sample in samples)


class HeardScenario(Scenario):
    """Games whose sound is recorded."""

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
        music = pathlib.Path(os.environ["QUARROW_PROGRAM"]).parent / "resources" / "Music"
        piece = decoded(music / name, 5)
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

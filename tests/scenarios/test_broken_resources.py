# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Resources broken in every way: each costs one line in the log and its own part of the game, no more."""

import os
import pathlib
import random
import shutil
import struct
import unittest
import zlib

from game_window import Display, Game, Scenario, wait_until

# What a start and a race read. Without the interface file there is no start, which is tried by itself.
FOLDERS = ("Images", "Sounds", "Music")
ICON = "quarrow-64.png"
MODULE = "quarrow_media.so"
MOST_MEMORY = 1 << 20  # KiB at the most, the software OpenGL's and all


def huge_picture():
    """A well-formed PNG of 30,000 x 30,000 pixels, one bit each."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = zlib.compressobj()
    line = bytes(1 + 30000 // 8)
    data = b"".join(rows.compress(line) for _ in range(30000)) + rows.flush()
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 30000, 30000, 1, 0, 0, 0, 0)) +
            chunk(b"IDAT", data) + chunk(b"IEND", b""))


def empty(path):
    path.write_bytes(b"")


def truncated(path):
    path.write_bytes(path.read_bytes()[:path.stat().st_size * random.Random(path.name).randrange(10, 90) // 100])


def noise(path):
    path.write_bytes(random.Random(path.name).randbytes(path.stat().st_size))


def a_folder(path):
    path.unlink()
    path.mkdir()


def huge(path):
    os.truncate(path, 2 << 30)


class BrokenResourcesScenario(Scenario):
    @classmethod
    def setUpClass(cls):
        cls.display = Display(800, 600)
        cls.program = pathlib.Path(os.environ["QUARROW_PROGRAM"])

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    def setUp(self):
        super().setUp()
        self.installed = self.home / "installed"
        self.installed.mkdir()
        shutil.copytree(self.program.parent / "resources", self.installed / "resources")
        shutil.copy2(self.program, self.installed / "quarrow")
        shutil.copy2(self.program.parent / MODULE, self.installed)

    def files(self):
        for folder in FOLDERS:
            yield from sorted(path for path in (self.installed / "resources" / folder).iterdir()
                              if not path.name.endswith(".license"))
        yield self.installed / "resources" / "Icons" / ICON

    def play(self):
        """A start, a race and an end. The log. Without pictures the sky is as white as a menu's frame: what shows is
        of no help here."""
        with Game(self.display, self.home, program=str(self.installed / "quarrow")) as game:
            def is_racing():
                game.point_at_item(0)
                game.press_button()
                return game.settings().get("MusicLastTrackIndex") == 0

            wait_until(is_racing, "the race\n" + game.log())
            game.key("w")
            game.key("Escape")
            memory = self.peak_memory(game)
            self.assertGreater(memory, 0)
            self.assertLess(memory, MOST_MEMORY)
            self.assertEqual(game.end(), 0, game.log())
            return game.log().splitlines()

    @staticmethod
    def peak_memory(game):
        status = pathlib.Path(f"/proc/{game.process.pid}/status").read_text()
        return int(status.partition("VmHWM:")[2].split()[0])

    def expect_one_line_each(self, lines, paths):
        for path in paths:
            told = [line for line in lines if path.name in line]
            self.assertEqual(len(told), 1, path.name + "\n" + "\n".join(lines))

    def break_all(self, how):
        paths = list(self.files())
        for path in paths:
            how(path)
        self.expect_one_line_each(self.play(), paths)

        interface = self.installed / "resources" / "Interface" / "Main.toml"
        how(interface)
        with Game(self.display, self.home, program=str(self.installed / "quarrow"), expect_start=False) as game:
            self.assertEqual(game.wait_exit(), 1, game.log())
            self.expect_one_line_each(game.log().splitlines(), [interface])

    def test_missing_files(self):
        self.break_all(pathlib.Path.unlink)

    def test_empty_files(self):
        self.break_all(empty)

    def test_truncated_files(self):
        self.break_all(truncated)

    def test_noise(self):
        self.break_all(noise)

    def test_folders_in_place_of_files(self):
        self.break_all(a_folder)

    def test_files_of_two_gibibytes(self):
        self.break_all(huge)

    def test_huge_pictures(self):
        picture = huge_picture()
        self.break_all(lambda path: path.write_bytes(picture))

    def test_missing_module(self):
        (self.installed / MODULE).unlink()
        self.expect_one_line_each(self.play(), [self.installed / MODULE])

    def test_module_of_noise(self):
        noise(self.installed / MODULE)
        self.expect_one_line_each(self.play(), [self.installed / MODULE])


if __name__ == "__main__":
    unittest.main(verbosity=2)

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""take_screenshots.py BUILD_FOLDER FOLDER [SECONDS...]: takes the pictures that README.md and the metainfo show.

FOLDER/menu.png is the main menu; FOLDER/race-N.png a race flown by the pilot, N seconds after its start. The best of
them become race.png and field.png in docs/images.
"""

import pathlib
import struct
import sys
import tempfile
import time
import zlib

from game_window import Display, Game


def write_png(picture, width, height, path):
    rows = b"".join(b"\0" + bytes(value for x in range(width) for value in picture.pixel(x, y)) for y in range(height))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                     chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def main():
    build, folder = map(pathlib.Path, sys.argv[1:3])
    moments = sorted(map(float, sys.argv[3:] or ["5", "60"]))
    display = Display()
    with tempfile.TemporaryDirectory() as home, Game(display, home, program=build / "race_flyer") as game:
        game.wait_for_items(present=range(5))
        write_png(game.picture(), display.width, display.height, folder / "menu.png")
        game.click_item(0)
        game.wait_for_items(present=[], absent=range(5))
        start = time.monotonic()
        for moment in moments:
            time.sleep(max(0.0, start + moment - time.monotonic()))
            write_png(game.picture(), display.width, display.height, folder / f"race-{moment:g}.png")
    display.close()


main()

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""try_as_new_user.py [--check]: does what README.md tells a newcomer, in a bare Debian system with git and the last
commit.

That is ./play, and a race in the game that it starts; with --check, ./check after that, which takes its time.
"""

import pathlib
import subprocess
import sys

from bare_root import BareRoot, Display, Game, play_a_race, wait_until

CHECKOUT = pathlib.Path(__file__).parents[2]
BUILD_LIMIT = 3600.0  # seconds for packages and build on a slow machine


def main():
    root = BareRoot()
    display = Display()
    try:
        root.apt("update")
        root.apt("install", "git")
        subprocess.run(["git", "clone", "--quiet", f"file://{CHECKOUT}", root.path / "root" / "quarrow"], check=True)
        with Game(display, root.path / "root", program=root.starter("/root/quarrow/play", "root"),
                  expect_start=False) as game:
            wait_until(lambda: "Alpha bits" in game.log() or game.process.poll() is not None, "the game's first frame",
                       BUILD_LIMIT)
            print(game.log(), flush=True)
            play_a_race(game)
        print("./play built the game; a race was started, paused and left; the game ended in order", flush=True)
        if "--check" in sys.argv[1:]:
            print(root.run("/root/quarrow/check"))
    finally:
        display.close()
        root.close()


main()

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Does what README.md tells a newcomer, in a bare Debian system of the release with that name: ./play and a race in the
game that it starts; then ./check, which takes its time.

The system has the last commit as a checkout, or with --archive as an unpacked release, and no git.
--package FILE: keeps the package that ./check made there as that file.
--tests: no race and no ./check, but a build that ends on warnings, and the unit tests.
--or-skip: exit status 77, not 1, where the system cannot be made or its packages cannot be installed.
"""

import argparse
import contextlib
import shutil
import sys

from bare_root import BareRoot, Display, Game, NoSystem, play_a_race, wait_until

BUILD_LIMIT = 3600.0  # seconds for packages and build on a slow machine
VERSIONS = ("libc6", "g++", "clang", "clang-format", "cmake", "gettext", "groff-base", "libopenal1", "libsdl2-2.0-0",
            "libpango-1.0-0", "libgl1-mesa-dri")


def show_versions(root):
    """Of those that are installed: not every trial installs them all."""
    for package in VERSIONS:
        root.run("sh", "-c", "dpkg-query --show $1 || :", "sh", package, show=True)


def play(root):
    with contextlib.closing(Display()) as display, \
            Game(display, root.path / "root", program=root.starter("/root/quarrow/play", "root"),
                 expect_start=False) as game:
        wait_until(lambda: "Alpha bits" in game.log() or game.process.poll() is not None, "the game's first frame",
                   BUILD_LIMIT)
        print(game.log(), flush=True)
        play_a_race(game)
    print("./play built the game; a race was started, paused and left; the game ended in order", flush=True)


def build_and_test(root):
    try:
        root.run("/root/quarrow/scripts/install-packages", "play", "test")
    except AssertionError as error:
        raise NoSystem("its packages cannot be installed: " + str(error).strip().splitlines()[-1]) from error
    show_versions(root)
    root.run("cmake", "-S", "/root/quarrow", "-B", "/root/build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
             "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON", "-DQUARROW_BUILD_TOOLS=OFF", "-DQUARROW_BUILD_BENCHMARKS=OFF",
             show=True)
    root.run("cmake", "--build", "/root/build", show=True)
    root.run("ctest", "--test-dir", "/root/build", "-R", "_test$", "--output-on-failure", show=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("release")
    parser.add_argument("--package")
    for option in ("--archive", "--tests", "--or-skip"):
        parser.add_argument(option, action="store_true")
    chosen = parser.parse_args()
    try:
        with BareRoot(chosen.release) as root:
            (root.bring_archive if chosen.archive else root.bring_checkout)()
            if chosen.tests:
                build_and_test(root)
                return
            play(root)
            try:
                root.run("/root/quarrow/check", show=True)
            finally:
                show_versions(root)
            if chosen.package:
                made, = (root.path / "root" / "quarrow" / "build" / "release" / "packages").glob("*.deb")
                shutil.copy(made, chosen.package)
    except NoSystem as error:
        print(f"try_as_new_user.py: {error}", file=sys.stderr)
        sys.exit(77 if chosen.or_skip else 1)
    except AssertionError as error:
        sys.exit(f"try_as_new_user.py: {error}")


main()

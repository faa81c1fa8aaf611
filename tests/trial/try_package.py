#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""try_package.py RELEASE PACKAGE: installs the Debian package into a bare system of the Debian release with that name,
plays a race there, and removes it.

Nothing but the player's settings may be left of it afterwards.
"""

import contextlib
import pathlib
import shutil
import sys

from bare_root import BareRoot, Display, Game, NoSystem, play_a_race

# Files that the package tools keep about any package.
BOOKKEEPING = ("/var/lib/dpkg", "/var/lib/apt", "/var/cache/apt", "/var/log", "/var/cache/debconf", "/tmp",
               "/var/cache/ldconfig", "/etc/ld.so.cache")
# Caches that libraries keep for the player, whatever program uses them.
LIBRARY_CACHES = ("/home/player/.cache",)


def try_package(root, package):
    root.apt("update")
    shutil.copy(package, root.path / "root" / "quarrow.deb")
    # Its dependencies are installed first, so that the difference afterwards is the package's own.
    depends = root.run("dpkg-deb", "--field", "/root/quarrow.deb", "Depends")
    wanted = [choice.split("|")[0].split("(")[0].strip() for choice in depends.split(",")]
    root.apt("install", *wanted)
    print(f"installed {len(wanted)} dependencies", flush=True)
    before = root.files()

    root.apt("install", "/root/quarrow.deb")
    print("installed", root.run("dpkg-query", "--show", "quarrow").strip(), flush=True)
    assert root.run("dpkg", "--verify", "quarrow") == ""

    home = root.path / "home" / "player"
    with contextlib.closing(Display()) as display, \
            Game(display, home, program=root.starter("quarrow", "player")) as game:
        play_a_race(game)
    print("a race was started, paused and left; the game ended in order", flush=True)

    root.apt("purge", "quarrow")
    after = root.files()
    left = sorted(name for name in before.keys() | after.keys()
                  if before.get(name) != after.get(name) and
                  not name.startswith(BOOKKEEPING + LIBRARY_CACHES) and not name.startswith("/home/player/log-"))
    print("left behind:", *left)
    assert left == ["/home/player/.config", "/home/player/.config/quarrow",
                    "/home/player/.config/quarrow/settings.ini"], left


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: try_package.py RELEASE PACKAGE")
    package = pathlib.Path(sys.argv[2])
    if not package.is_file():
        sys.exit(f"try_package.py: there is no package {package}")
    try:
        with BareRoot(sys.argv[1]) as root:
            try_package(root, package)
    except (AssertionError, NoSystem) as error:
        sys.exit(f"try_package.py: {error}")


main()

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A Debian system in a folder, with only the packages that every Debian has, and a player who uses it.

The trials in this folder need root, debootstrap and a Debian mirror, and run for many minutes.
QUARROW_BARE_ROOT names a finished root to copy; else debootstrap makes one.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "scenarios"))

from game_window import Display, Game, wait_until  # noqa: E402

__all__ = ["BareRoot", "Display", "Game", "play_a_race", "wait_until"]

MIRROR = "http://deb.debian.org/debian"

# Enters the system with its own mounts and processes, all of which end with the command.
ENTER = """
root=$1; shift
mount --bind "$root" "$root"
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mkdir -p "$root/tmp/.X11-unix"
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
exec chroot "$root" "$@"
"""


class BareRoot:
    def __init__(self):
        self._folder = tempfile.mkdtemp(prefix="quarrow-root-")
        self.path = pathlib.Path(self._folder, "root")
        finished = os.environ.get("QUARROW_BARE_ROOT")
        if finished:
            subprocess.run(["cp", "-a", finished, self.path], check=True)
        else:
            subprocess.run(["debootstrap", "--variant=minbase", "--include=ca-certificates", "bookworm", self.path,
                            MIRROR], check=True, stdout=subprocess.DEVNULL)
        shutil.copy("/etc/resolv.conf", self.path / "etc" / "resolv.conf")
        # Services are not started, and the player is the first user of the system.
        (self.path / "usr" / "sbin" / "policy-rc.d").write_text("#!/bin/sh\nexit 101\n")
        (self.path / "usr" / "sbin" / "policy-rc.d").chmod(0o755)
        self.run("useradd", "--create-home", "--uid", "1000", "player")

    def close(self):
        shutil.rmtree(self._folder, ignore_errors=True)

    def _command(self, *arguments):
        return ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-ec", ENTER, "sh", str(self.path),
                *map(str, arguments)]

    def run(self, *arguments):
        """Runs a command as root in the system; its output."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "DEBIAN_FRONTEND": "noninteractive",
                       "LC_ALL": "C.UTF-8"}
        done = subprocess.run(self._command(*arguments), env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True)
        if done.returncode != 0:
            raise AssertionError(f"{arguments} failed:\n{done.stdout}")
        return done.stdout

    def apt(self, *arguments):
        return self.run("apt-get", "-q", "-y", "--no-install-recommends", *arguments)

    def starter(self, command, user):
        """A script outside the system that runs a command of the system in the caller's display."""
        home = "/root" if user == "root" else f"/home/{user}"
        script = pathlib.Path(self._folder, "start-" + pathlib.Path(command).name)
        quoted = " ".join(f"'{word}'" for word in self._command(
            "runuser", "--user", user, "--", "env", "--unset=FONTCONFIG_FILE", f"HOME={home}",
            "LIBGL_ALWAYS_SOFTWARE=1", "ALSOFT_DRIVERS=null",
            "PATH=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games:/usr/sbin:/sbin", command))
        script.write_text(f"#!/bin/sh\nexec {quoted}\n")
        script.chmod(0o755)
        return script

    def files(self):
        """Every file, folder and link of the system with its size or target, without those of the kernel."""
        found = {}
        for folder, folders, files in os.walk(self.path):
            folders[:] = [name for name in folders if pathlib.Path(folder, name) not in
                          (self.path / "proc", self.path / "dev", self.path / "sys")]
            for name in folders + files:
                path = pathlib.Path(folder, name)
                state = path.lstat()
                what = os.readlink(path) if path.is_symlink() else "" if path.is_dir() else state.st_size
                found["/" + str(path.relative_to(self.path))] = what
        return found


def play_a_race(game):
    """From the main menu through the first seconds of a race and out again in order."""
    game.wait_for_items(present=range(5))
    game.click_item(0)
    game.wait_for_items(present=[], absent=range(5))
    wait_until(lambda: game.throttle_pixels() == 0, "an empty throttle bar")
    game.key("w")
    wait_until(game.throttle_pixels, "the throttle to go up")
    game.key("Escape")
    game.wait_for_items(present=[0, 1], absent=[2, 3])
    game.click_item(1)
    game.wait_for_items(present=range(5))
    game.click_item(4)
    status = game.wait_exit()
    assert status == 0, game.log()
    assert "Unable to load" not in game.log(), game.log()
    assert game.settings()["MusicLastTrackIndex"] == 0, game.settings()

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A Debian system in a folder, with only the packages that every Debian has, and a player who uses it.

The trials in this folder need root, debootstrap and a Debian mirror, and run for many minutes. A finished root in the
folder QUARROW_BARE_ROOTS, by the name of its release, is copied; else debootstrap makes one.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "scenarios"))

from game_window import Display, Game, wait_until  # noqa: E402

__all__ = ["BareRoot", "Display", "Game", "NoSystem", "play_a_race", "wait_until"]

CHECKOUT = pathlib.Path(__file__).parents[2]
MIRROR = "http://deb.debian.org/debian"
RELEASES = ("bookworm", "trixie", "sid")

# A command in it has its own mounts and processes, all of which end with the command.
APART = ["unshare", "--mount", "--pid", "--fork", "--kill-child"]
ENTER = """
root=$1; shift
mkdir -p -m 1777 /tmp/.X11-unix
mount --bind "$root" "$root"
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mkdir -p "$root/tmp/.X11-unix"
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
exec chroot "$root" "$@"
"""


class NoSystem(Exception):
    """There is no such system to be had. Its text is one line."""


class BareRoot:
    """In a folder of its own, which goes at the end of the with statement."""

    def __init__(self, release):
        """release: its name. Throws NoSystem."""
        if release not in RELEASES:
            raise NoSystem(f"'{release}' is no release that is tried: {', '.join(RELEASES)}")
        if os.geteuid() != 0:
            raise NoSystem("a bare system needs root")
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self._folder = tempfile.mkdtemp(prefix="quarrow-root-")
        self.path = pathlib.Path(self._folder, "root")
        try:
            self._make(release)
            shutil.copy("/etc/resolv.conf", self.path / "etc" / "resolv.conf")
            # The mirror may lag behind the archive: its lists are then older than they say they may be.
            (self.path / "etc" / "apt" / "apt.conf.d" / "90mirror").write_text('Acquire::Check-Valid-Until "false";\n')
            # Services are not started, and the player is the first user of the system.
            (self.path / "usr" / "sbin" / "policy-rc.d").write_text("#!/bin/sh\nexit 101\n")
            (self.path / "usr" / "sbin" / "policy-rc.d").chmod(0o755)
            self.run("useradd", "--create-home", "--uid", "1000", "player")
        except BaseException:
            self.__exit__()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self._folder, ignore_errors=True)

    def _make(self, release):
        finished = pathlib.Path(os.environ.get("QUARROW_BARE_ROOTS", "/nonexistent"), release)
        if finished.is_dir():
            subprocess.run(["cp", "-a", finished, self.path], check=True)
            return
        if not shutil.which("debootstrap"):
            raise NoSystem("debootstrap is missing: scripts/install-packages trial")
        made = subprocess.run([*APART, "debootstrap", "--variant=minbase", "--include=ca-certificates", release,
                               self.path, MIRROR], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if made.returncode != 0:
            raise NoSystem(f"debootstrap made no {release}: {(made.stdout.strip().splitlines() or ['no word why'])[-1]}")

    def _command(self, *arguments):
        return [*APART, "sh", "-ec", ENTER, "sh", str(self.path), *map(str, arguments)]

    def run(self, *arguments, show=False):
        """Runs a command as root in the system; its output, unless that is shown as it comes."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "DEBIAN_FRONTEND": "noninteractive",
                       "LC_ALL": "C.UTF-8"}
        done = subprocess.run(self._command(*arguments), env=environment,
                              stdout=None if show else subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode != 0:
            raise AssertionError(f"{arguments} failed:\n{done.stdout or ''}")
        return done.stdout

    def apt(self, *arguments):
        return self.run("apt-get", "-q", "-y", "--no-install-recommends", *arguments)

    def bring_checkout(self):
        """A clone of this checkout, in /root/quarrow."""
        subprocess.run(["git", "clone", "--quiet", f"file://{CHECKOUT}", self.path / "root" / "quarrow"], check=True)

    def bring_archive(self):
        """The release of the last commit, unpacked in /root/quarrow."""
        release = self.path / "root" / "release"
        subprocess.run([CHECKOUT / "packaging" / "make-release", release], check=True)
        archive, = release.glob("*.tar.gz")
        (self.path / "root" / "quarrow").mkdir()
        subprocess.run(["tar", "-xf", archive, "-C", self.path / "root" / "quarrow", "--strip-components=1"], check=True)

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

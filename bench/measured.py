# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Programs that are measured from outside, with a log of their frames."""

import os
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests" / "scenarios"))

from game_window import Display, Game, wait_until


class Run:
    """One run of a program, with a log of its frames."""

    def __init__(self, build, display, program, *arguments, files=None):
        """program: in the build folder, or its whole path. files: their texts, by their paths in the new home folder."""
        self._folder = tempfile.TemporaryDirectory(prefix="quarrow-bench-")
        home = pathlib.Path(self._folder.name)
        for path, text in (files or {}).items():
            (home / path).parent.mkdir(parents=True, exist_ok=True)
            (home / path).write_text(text)
        self._log = home / "frames"
        environment = {"LD_PRELOAD": f"{build}/libquarrow_frame_log.so:{build}/libquarrow_own_home.so",
                       "FRAME_LOG": str(self._log), "SDL_AUDIODRIVER": "dummy",
                       "MESA_SHADER_CACHE_DIR": os.environ.get("MESA_SHADER_CACHE_DIR", f"{build}/shader-cache")}
        self.begin = time.monotonic_ns()
        self.game = Game(display, home, environment, expect_start=False, program=str(build / program),
                         arguments=arguments)

    def __enter__(self):
        return self

    def __exit__(self, *arguments):
        self.game.__exit__(*arguments)
        self._folder.cleanup()

    def frames(self):
        """Each frame so far: when it was shown, and the processor time that the process had taken until then."""
        lines = self._log.read_text().split("\n")[:-1] if self._log.exists() else []
        return [tuple(map(int, line.split())) for line in lines]

    def first_frame(self):
        """Milliseconds from the process's start, and those of processor time."""
        shown, taken = wait_until(self.frames, "the first frame")[0]
        return (shown - self.begin) / 1e6, taken / 1e6

    def peak(self):
        """The process's peak of memory, MiB."""
        status = pathlib.Path(f"/proc/{self.game.process.pid}/status").read_text()
        return next(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")) / 1024

    def start_race(self):
        self.game.wait_for_items(present=range(5))
        self.game.click_item(0)
        self.game.wait_for_items(present=[], absent=range(5))

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""try_arm.py: builds the last commit for 64-bit ARM in a bare Debian 12, with Debian's cross compiler, and runs there the
tests that need no picture, on an emulated processor; the seeded race in a debug build as well.
"""

import pathlib
import sys

from bare_root import BareRoot, NoSystem

TESTS = ("math", "settings", "world", "gfx", "ui", "core", "audio")
PACKAGES = pathlib.Path(__file__).parents[2] / "packaging" / "debian-packages.txt"


def install(root):
    """The libraries for ARM, everything else for the machine that compiles."""
    rows = [line.split() for line in PACKAGES.read_text().splitlines() if not line.startswith("#")]
    names = [name for name, purpose in rows if purpose in ("play", "test")]
    libraries = [name + ":arm64" for name in names if name.startswith("lib") and name.endswith("-dev")]
    programs = [name for name in names if not name.startswith("lib")]
    root.run("dpkg", "--add-architecture", "arm64")
    root.apt("update")
    root.apt("install", "crossbuild-essential-arm64", "qemu-user", *programs, *libraries)


def build(root, kind, *targets):
    folder = f"/root/{kind}"
    root.run("env", "PKG_CONFIG_LIBDIR=/usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig",
             "cmake", "-S", "/root/quarrow", "-B", folder, "-G", "Ninja", f"-DCMAKE_BUILD_TYPE={kind}",
             "-DCMAKE_SYSTEM_NAME=Linux", "-DCMAKE_SYSTEM_PROCESSOR=aarch64",
             "-DCMAKE_C_COMPILER=aarch64-linux-gnu-gcc", "-DCMAKE_CXX_COMPILER=aarch64-linux-gnu-g++",
             "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON", "-DQUARROW_BUILD_TOOLS=OFF", "-DQUARROW_BUILD_BENCHMARKS=OFF",
             show=True)
    root.run("cmake", "--build", folder, "--target", *targets, show=True)
    return folder


def run_test(root, program, *options):
    root.run("/root/quarrow/tests/support/with-display", "qemu-aarch64", program, *options, show=True)


def main():
    try:
        with BareRoot("bookworm") as root:
            root.bring_checkout()
            install(root)
            release = build(root, "Release", "quarrow", *(name + "_test" for name in TESTS))
            for name in TESTS:
                run_test(root, f"{release}/{name}_test")
            run_test(root, build(root, "Debug", "world_test") + "/world_test", "--gtest_filter=*Determinism*")
    except (AssertionError, NoSystem) as error:
        sys.exit(f"try_arm.py: {error}")


main()

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""Builds the last commit for arm64 with Debian's cross compiler, in a bare Debian 12, and runs there under QEMU the tests
that need no OpenGL driver, and the same seeded race once more in a debug build.
"""

import pathlib
import sys

from bare_root import CHECKOUT, BareRoot, NoSystem

PACKAGES = CHECKOUT / "packaging" / "debian-packages.txt"
TESTS = [folder + "_test" for folder in ("math", "settings", "world", "gfx", "ui", "core", "audio")]
TEST_LIMIT = 3600  # seconds for a program under QEMU

# Some tests start their own program again, by the name that it was started with: it has to be one that this system runs.
EMULATED = """#!/bin/sh
exec qemu-aarch64 -0 "$0" {program} "$@"
"""


def needed_packages():
    """The compiler, QEMU and what the checkout names: libraries for arm64, programs for this machine."""
    lines = [line.split() for line in PACKAGES.read_text().splitlines()]
    names = [words[0] for words in lines if words[1:] in (["play"], ["test"])]
    return ["crossbuild-essential-arm64", "qemu-user",
            *(name + ":arm64" if name.startswith("lib") else name for name in names)]


def install(root):
    try:
        root.run("dpkg", "--add-architecture", "arm64")
        root.apt("update")
        root.apt("install", *needed_packages())
    except AssertionError as error:
        raise NoSystem("the packages cannot be installed: " + str(error).strip().splitlines()[-1]) from error
    root.run("dpkg-query", "--show", "g++-aarch64-linux-gnu", "libc6:arm64", "qemu-user", show=True)


def build(root, build_type, *targets):
    root.run("cmake", "-S", "/root/quarrow", "-B", f"/root/{build_type}", "-G", "Ninja",
             "-DCMAKE_TOOLCHAIN_FILE=/root/quarrow/tests/trial/arm64.cmake", f"-DCMAKE_BUILD_TYPE={build_type}",
             "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON", "-DQUARROW_BUILD_TOOLS=OFF", "-DQUARROW_BUILD_BENCHMARKS=OFF",
             show=True)
    root.run("cmake", "--build", f"/root/{build_type}", "--target", *targets, show=True)


def test(root, build_type, name, tests="*"):
    program = pathlib.Path("/root", build_type, name)
    start = root.path / "root" / name
    start.write_text(EMULATED.format(program=program))
    start.chmod(0o755)
    print(f"{build_type}, {name}", flush=True)
    output = root.run("timeout", TEST_LIMIT, "/root/quarrow/tests/support/with-display", f"/root/{name}",
                      "--gtest_brief=1", f"--gtest_filter={tests}")
    print(output.splitlines()[-1], flush=True)
    assert "PASSED  ] 0 tests" not in output, f"{name} has no test {tests}"


def main():
    if len(sys.argv) != 1:
        sys.exit("usage: try_arm64.py")
    try:
        with BareRoot("bookworm") as root:
            install(root)
            root.bring_checkout()
            build(root, "Release", "quarrow", *TESTS)
            for name in TESTS:
                test(root, "Release", name)
            build(root, "Debug", "world_test")
            test(root, "Debug", "world_test", "DeterminismTest.*")
    except (AssertionError, NoSystem) as error:
        sys.exit(f"try_arm64.py: {error}")


main()

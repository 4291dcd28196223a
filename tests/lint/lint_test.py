#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What .ci/lint lints again, and what it leaves out, in a small checkout with a linter that writes
down what it was asked to look at and finds fault with the word "careless" in a source or its header.
Then on a machine that remembers nothing.

usage: lint_test.py LINT COMPILER"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

LINTER = """#!/bin/sh
[ "$1" != --version ] || { echo "$LINTER_VERSION"; exit; }
for source; do :; done
echo "$source" >>"$LINTED"
! grep -H careless "$source" ./*.h
"""
RULES = """
rule pch
  command = $compiler -x c++-header $in -MD -MF $out.d -o $out
  depfile = $out.d
  deps = gcc
rule compile
  command = $compiler $flags -include-pch all.pch -c $in -MD -MF $out.d -o $out
  depfile = $out.d
  deps = gcc
build all.pch: pch ../all.h
build one.o: compile ../one.cpp | all.pch
build two.o: compile ../two.cpp | all.pch
"""
ALL, NONE = ["one.cpp", "two.cpp"], []


class Checkout:
    def __init__(self, folder, lint, compiler):
        self.folder, self.lint, self.compiler = folder, lint, compiler
        self.flags, self.version = "-DA", "1"

    def begin(self):
        for name, text in {
            "all.h": "int all();", "own.h": "int own();", ".clang-tidy": "Checks: '*'",
            "one.cpp": '#include "own.h"\n#include "../middle/their.h"', "two.cpp": "int two() { return 2; }",
            ".gitignore": "build",
        }.items():  # fmt: skip
            self.write(name, text)
        (self.folder / ".ci").mkdir()
        self.git("init", "--quiet")
        self.commit()

    def git(self, *words):
        who = ["-c", "user.name=A", "-c", "user.email=a@example.com"]
        subprocess.run(["git", *who, *words], cwd=self.folder, check=True)

    def commit(self):
        self.git("add", "--all")
        self.git("commit", "--quiet", "--message", "All")

    def write(self, name, text):
        (self.folder / name).write_text(text)

    def linted(self, *options):
        """Whether all was clean, and what the linter was asked to look at."""
        build = self.folder / "build"
        build.mkdir(exist_ok=True)
        (build / "build.ninja").write_text(f"compiler = {self.compiler}\nflags = {self.flags}\n{RULES}")
        command = f"{self.compiler} -I{self.folder} {self.flags} -o {{0}}.o -c {self.folder}/{{0}}.cpp"
        entries = [
            {"directory": str(build), "file": f"{self.folder}/{name}.cpp", "command": command.format(name)}
            for name in ("one", "two")
        ]
        (build / "compile_commands.json").write_text(json.dumps(entries))
        subprocess.run(["ninja", "-C", build], check=True, stdout=subprocess.DEVNULL)
        log = self.folder.parent / "linted"
        log.write_text("")
        environment = {
            **os.environ, "PATH": f"{self.folder.parent}:{os.environ['PATH']}", "LINTED": str(log),
            "LINTER_VERSION": self.version, "XDG_CACHE_HOME": str(self.folder.parent / "cache"),
        }  # fmt: skip
        ended = subprocess.run(
            [self.lint, "build", "2", *options, *ALL], cwd=self.folder, env=environment, capture_output=True
        )
        return ended.returncode == 0, sorted(log.read_text().split())


def problems(root, lint, compiler):
    linter = root / "clang-tidy-19"
    linter.write_text(LINTER)
    linter.chmod(0o755)
    for name in ("here", "middle"):
        (root / name).mkdir()
    (root / "middle/their.h").touch()
    here = Checkout(root / "here", lint, compiler)
    here.begin()

    def elsewhere():
        nonlocal here
        shutil.copytree(root / "here", root / "there", ignore=shutil.ignore_patterns("build"))
        here = Checkout(root / "there", lint, compiler)

    steps = [
        ("first", lambda: None, (True, ALL)),
        ("again", lambda: None, (True, NONE)),
        ("another checkout, beyond their headers by name", elsewhere, (True, NONE)),
        ("a source changed", lambda: here.write("two.cpp", "int two() { return 3; }"), (True, ["two.cpp"])),
        ("a header changed", lambda: here.write("own.h", "int own(int);"), (True, ["one.cpp"])),
        ("in the precompiled header", lambda: here.write("all.h", "int all(int);"), (True, ALL)),
        ("configuration", lambda: here.write(".clang-tidy", "Checks: 'a'"), (True, ALL)),
        ("flags", lambda: setattr(here, "flags", "-DB"), (True, ALL)),
        ("another version", lambda: setattr(here, "version", "2"), (True, ALL)),
        ("a finding", lambda: here.write("own.h", "int careless();"), (False, ["one.cpp"])),
        ("it stays", lambda: None, (False, ["one.cpp"])),
        ("mended as it was", lambda: here.write("own.h", "int own(int);"), (True, NONE)),
    ]
    for name, change, expected in steps:
        change()
        if (found := here.linted()) != expected:
            yield f"{name}: {found} instead of {expected}"
    if (found := here.linted("--all")) != (True, ALL):
        yield f"--all: {found}"
    if (here.folder / ".ci/linted").exists():
        yield "what no commit holds was noted as one"
    yield from problems_without_memory(here, root / "cache")


def problems_without_memory(here, cache):
    here.commit()
    here.linted("--all")
    steps = [
        ("all of a commit is clean", lambda: None, NONE),
        ("a source changed since", lambda: here.write("two.cpp", "int two() { return 4; }"), ["two.cpp"]),
        ("and a header", lambda: here.write("own.h", "int own(long);"), ALL),
        ("configuration since", lambda: here.write(".clang-tidy", "Checks: 'b'"), ALL),
        ("an unknown commit", lambda: here.write(".ci/linted", "0" * 40), ALL),
    ]
    for name, change, expected in steps:
        shutil.rmtree(cache)
        change()
        if (found := here.linted()) != (True, expected):
            yield f"{name}: {found} instead of {expected}"


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        wrong = list(problems(pathlib.Path(folder).resolve(), *sys.argv[1:3]))
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)

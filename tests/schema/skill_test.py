#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Holds the skill for AI agents against the program.

Runs each command line of SKILL.md on the sample store and a sample library: it must end with the
status that the file states, 0 where it states none, and with the error code, if it names one. Each
key of the file's table must be in the schema of its command.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

LINE = re.compile(r"(?P<command>quillet .*?)\s*(?:# status (?P<status>\d): *(?P<said>.*))?")


def command_lines(text):
    for block in re.findall(r"^```sh\n(.*?)^```", text, re.MULTILINE | re.DOTALL):
        for line in block.splitlines():
            yield LINE.fullmatch(line)


def wrong_runs(text, sandbox, environment, folder):
    for line in command_lines(text):
        if "| jq" in line["command"] and not shutil.which("jq"):
            continue
        run = subprocess.run(
            [sandbox, "--library", f"{folder}/library", "--",
             "bash", "-o", "pipefail", "-c", line["command"]],
            env=environment, capture_output=True, text=True, stdin=subprocess.DEVNULL,
        )  # fmt: skip
        code = re.match(r"[A-Z_]*", line["said"] or "")[0]
        if run.returncode != int(line["status"] or 0) or code not in run.stderr:
            yield f"{line[0]}: status {run.returncode}: {run.stderr}"


def unknown_keys(text, schemas):
    shared = (schemas / "common.json").read_text()
    for command, *cells in re.findall(r"^\| `([a-z-]+)` \| (.*) \| (.*) \|$", text, re.MULTILINE):
        schema = (schemas / f"{command}.json").read_text() + shared
        for key in re.findall(r"`(\w+)`", " ".join(cells)):
            if f'"{key}": {{' not in schema:
                yield f"{command} has no key {key}"


def main():
    quillet, sandbox, skill, schemas = sys.argv[1:]
    text = Path(skill).read_text()
    kept = {k: v for k, v in os.environ.items() if not k.startswith(("QUILLET_", "XDG_", "LC_"))}
    with tempfile.TemporaryDirectory(prefix="quillet-skill-") as folder:
        path = f"{Path(quillet).parent}:{kept['PATH']}"
        environment = {**kept, "HOME": folder, "LANG": "en_US.UTF-8", "PATH": path}
        problems = [*wrong_runs(text, sandbox, environment, folder), *unknown_keys(text, Path(schemas))]
    print(*problems, sep="\n")
    return 1 if problems else 0


sys.exit(main())

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Holds the skill for AI agents, and the documents' examples, against the program.

Runs each command line of SKILL.md on the sample store and a sample library: it must end with the
status that the file states, 0 where it states none, and with the error code, if it names one. Each
key of the file's table must be in the schema of its command. Each example of json.md and of the
manual page must print something.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

LINE = re.compile(r"(?P<command>quillet .*?)\s*(?:# status (?P<status>\d): *(?P<said>.*))?")


def blocks(text):
    return re.findall(r"^```sh\n(.*?)^```", text, re.MULTILINE | re.DOTALL)


def command_lines(text):
    for block in blocks(text):
        for line in block.splitlines():
            yield LINE.fullmatch(line)


def blocks_of_page(page):
    """Without what roff needs."""
    marks = {"-": "-", "e": "\\", "(aq": "'", "(dq": '"', "(ti": "~", "(ga": "`", "&": ""}
    for block in re.findall(r"^\.nf\n(.*?)^\.fi", page, re.MULTILINE | re.DOTALL):
        yield re.sub(r"\\(\(..|.)", lambda mark: marks[mark[1]], block)


class Shell:
    """Runs command lines on a sample store, with nothing of the user's own."""

    def __init__(self, quillet, sandbox, folder):
        kept = {k: v for k, v in os.environ.items() if not k.startswith(("QUILLET_", "XDG_", "LC_"))}
        path = f"{Path(quillet).parent}:{kept['PATH']}"
        self.environment = {**kept, "HOME": folder, "LANG": "en_US.UTF-8", "PATH": path}
        self.words = [sandbox, "--library", f"{folder}/library", "--", "bash", "-o", "pipefail", "-c"]

    def run(self, command):
        """None where the command needs jq and there is none."""
        if re.search(r"\|\s+jq", command) and not shutil.which("jq"):
            return None
        return subprocess.run([*self.words, command], env=self.environment, capture_output=True,
                              text=True, stdin=subprocess.DEVNULL)  # fmt: skip


def wrong_runs(text, shell):
    for line in command_lines(text):
        run = shell.run(line["command"])
        code = re.match(r"[A-Z_]*", line["said"] or "")[0]
        if run and (run.returncode != int(line["status"] or 0) or code not in run.stderr):
            yield f"{line[0]}: status {run.returncode}: {run.stderr}"


def wrong_examples(examples, shell):
    for command in examples:
        run = shell.run(command)
        if run and (run.returncode or not run.stdout):
            yield f"{command}status {run.returncode}: {run.stderr}"


def unknown_keys(text, schemas):
    shared = (schemas / "common.json").read_text()
    for command, *cells in re.findall(r"^\| `([a-z-]+)` \| (.*) \| (.*) \|$", text, re.MULTILINE):
        schema = (schemas / f"{command}.json").read_text() + shared
        for key in re.findall(r"`(\w+)`", " ".join(cells)):
            if f'"{key}": {{' not in schema:
                yield f"{command} has no key {key}"


def main():
    quillet, sandbox, skill, schemas, page = sys.argv[1:]
    text = Path(skill).read_text()
    examples = blocks((Path(schemas).parent / "json.md").read_text())
    examples += blocks_of_page(Path(page).read_text())
    with tempfile.TemporaryDirectory(prefix="quillet-skill-") as folder:
        shell = Shell(quillet, sandbox, folder)
        problems = [
            *wrong_runs(text, shell),
            *unknown_keys(text, Path(schemas)),
            *wrong_examples(examples, shell),
        ]
    print(*problems, sep="\n")
    return 1 if problems else 0


sys.exit(main())

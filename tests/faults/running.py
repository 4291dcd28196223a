# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Runs one command, and tells whether it ended as it should."""

import json
import os
import re
import shlex
import signal
import sqlite3
import subprocess
import tempfile
import threading
import time
from collections import namedtuple
from contextlib import contextmanager
from pathlib import Path

from rules import INTERNAL, INTERRUPTED, MESSAGES, NOT_FOUND, OK, WHOLE_OR_INTERNAL

STORE = ["--no-pictures", "--apps", "60", "--today", "2026-11-21"]
# Seconds, on a busy machine too; the sanitizers take thrice as long. What drips may take a request's whole
# time: ten minutes for a price file, three times two for a lookup, of which one command makes two in turn.
HANGS, HANGS_LONG, HANGS_DRIPPING = 60, 240, 900
NOBODY = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}

Run = namedtuple("Run", "status out err passed memory")
Cell = namedtuple("Cell", "shown problems run")


class Programs:
    """The programs, and a folder in which everything lies that they read and write."""

    def __init__(self, quillet, sandbox, folder, is_sanitized):
        self.patience = 3 if is_sanitized else 1
        self.quillet, self.sandbox, self.folder = quillet, sandbox, Path(folder)
        self.folder.chmod(0o755)
        for name in ("home", "tmp", "data"):
            (self.folder / name).mkdir()
        (self.folder / "tmp").chmod(0o1777)
        self.library = self.folder / "data/default.store"
        kept = {name: value for name, value in os.environ.items()
                if not re.match(r"(QUILLET|XDG|LC)_|.*_proxy$", name, re.I)}  # fmt: skip
        self.environment = {
            **kept, "HOME": str(self.folder / "home"), "TMPDIR": str(self.folder / "tmp"),
            "LANG": "en_US.UTF-8", "QUILLET_DATA_DIR": str(self.folder / "data"),
        }  # fmt: skip
        subprocess.run([sandbox, *STORE, "--library", self.folder / "data", "--", "true"], check=True)
        with sqlite3.connect(self.library) as library:
            library.execute("DELETE FROM ZCACHEDAPP")  # so that rank-history asks the store for a name
        library.close()

    @contextmanager
    def store(self, faults=()):
        """The variables that name a sample store with these faults; None: that nobody listens."""
        process, address = None, "http://127.0.0.1:1"
        if faults is not None:
            options = [word for fault in faults for word in ("--fault", fault)]
            process = subprocess.Popen([self.sandbox, *STORE, *options], stdout=subprocess.PIPE, text=True)
            address = process.stdout.readline().strip()
        try:
            yield {f"QUILLET_{name}_URL": address for name in ("ITUNES", "APP_STORE", "PRICE_DATA")}
        finally:
            if process:
                process.terminate()
                process.communicate()

    def run(self, row, form, variables, limit=HANGS, until=None, user=None, wrap=(), out=None):
        words = [*wrap, self.quillet, *shlex.split(row.command), *form]
        with tempfile.TemporaryFile() as outfile, tempfile.TemporaryFile() as errfile:
            start = time.monotonic()
            process = subprocess.Popen(
                words, stdin=subprocess.DEVNULL, stdout=out or outfile, stderr=errfile, cwd=self.folder,
                env={**self.environment, **variables}, **(user or {}),
            )  # fmt: skip
            alarm = threading.Timer(limit * self.patience, os.kill, (process.pid, signal.SIGKILL))
            alarm.start()
            ended, raw, usage = os.wait4(process.pid, os.WNOHANG if until else 0)
            while not ended:
                time.sleep(0.05)
                if until and until(os.pread(errfile.fileno(), 1 << 16, 0), time.monotonic() - start):
                    os.kill(process.pid, signal.SIGINT)
                    until = None
                ended, raw, usage = os.wait4(process.pid, os.WNOHANG)
            alarm.cancel()
            process.returncode = os.waitstatus_to_exitcode(raw)
            out_text, err_text = (
                os.pread(file.fileno(), 1 << 24, 0).decode() for file in (outfile, errfile)
            )
            passed = time.monotonic() - start
            return Run(process.returncode, out_text, err_text, passed, usage.ru_maxrss / 1024)


class Judge:
    """What is documented, and therefore expected."""

    def __init__(self, docs, is_sanitized):
        rows = re.findall(r"^\| (\d) \|[^|]*\|(.*)\|$", Path(docs, "json.md").read_text(), re.M)
        self.status = {code: int(status) for status, codes in rows
                       for code in re.findall(r"\w+", codes) or [OK]}  # fmt: skip
        self.is_sanitized = is_sanitized

    def cell(self, run, form, ending, memory=48, **more):
        if ending == WHOLE_OR_INTERNAL:
            ending = INTERNAL if run.status else OK
        try:
            problems = list(self.problems(run, form, ending, **more))
        except (AssertionError, KeyError, TypeError, ValueError) as error:
            problems = [f"not what is documented ({error!r})"]
        if not self.is_sanitized and run.memory > memory:
            problems.append(f"took {run.memory:.0f} MiB, more than {memory}")
        seen = f"status {run.status}, {run.out[:80]!r}, {run.err[:300]!r}"
        problems = [f"{problem}: {seen}" for problem in problems]
        code = re.search(r'"code": "(\w)', run.err) if run.status == 3 else None
        shown = "^C" if run.status == -signal.SIGINT else str(run.status)
        return Cell(shown + (code[1].lower() if code else ""), problems, run)

    def problems(self, run, form, ending, status=None, lacks=False, whole=None):
        """`status`: of the store's answers. `lacks`: whether something is missing, which must be told.
        `whole`: the output that it must have, if any."""
        own = re.match(r"(quillet: .*; waiting \d+s, then retrying \(\d of \d\)\n)*", run.err).end()
        err = run.err[own:]
        if run.status != self.status.get(ending, -signal.SIGINT):
            yield f"expected {ending}" + (f", ran for {run.passed:.0f} s" if run.status < 0 else "")
        elif ending == INTERRUPTED:
            if run.out or err:
                yield "said more than that it waits"
        elif ending == OK:
            if not run.out.endswith("\n") or (form and not isinstance(json.loads(run.out), dict)):
                yield "no whole answer"
            if whole not in (None, run.out):
                yield "another answer than when all is well"
            told = re.fullmatch(r"(quillet: .+\n)+", err) or "Checked\": false" in run.out
            told = told or "purchase lookup" in run.out
            if bool(told) != lacks or (err and not told):
                yield "what is missing must be told, and nothing else"
        elif ending == NOT_FOUND and run.out:  # some commands print what they found: nothing
            if err or (form and json.loads(run.out)["count"] != 0):
                yield "found nothing, but says something else"
        else:
            code, message = self.error(err, form)
            if run.out or code not in (ending, None) or not message.startswith(MESSAGES[ending]):
                yield f"expected the message of {ending} alone"
            if "returned HTTP" in message and not message.endswith(f"HTTP {status}."):
                yield f"expected HTTP {status}"

    @staticmethod
    def error(err, form):
        """Code and message; text does not tell the code."""
        if not form:
            return None, re.fullmatch(r"quillet: (.+)\n(?:  try: .+\n)*", err)[1]
        error = json.loads(err)["error"]
        assert sorted(error) == ["code", "message", "suggestions"]
        return error["code"], error["message"]

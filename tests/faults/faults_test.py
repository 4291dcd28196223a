#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Runs every command under everything that can go wrong around it, and prints how each ends.

A cell holds the exit status, after a 3 with the initial of the error's code. Each cell is two runs, as
JSON and as text (against a store that fails in every way, as JSON alone). What is expected follows from
the rules in rules.py; a cell that deviates bears a "!" and is explained below its row. "-": not run,
because a person would wait for half a minute or more, or as explained above the table.

usage: faults_test.py QUILLET SANDBOX DOCS [--sanitized] [--all]
"""

import os
import random
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
from collections import namedtuple
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from rules import (DAMAGES, INTERNAL, NOT_FOUND, OK, ONE_SERVICE, REFUSALS, ROWS, WHOLE_OR_INTERNAL,
                   ending_of, memory_for, takes_long)  # fmt: skip
from running import HANGS, HANGS_DRIPPING, HANGS_LONG, NOBODY, Judge, Programs

AT_ONCE = 24  # most of them wait for a retry
FORMS = (["--json"], [])


class Matrix:
    """Runs tables, prints them, and remembers what deviates."""

    def __init__(self, programs, judge, runs_all):
        self.programs, self.judge, self.runs_all = programs, judge, runs_all
        self.pool = ThreadPoolExecutor(AT_ONCE)
        self.problems, self.count, self.longest = 0, 0, (0, "")
        self.largest, self.largest_of_huge = (0, ""), (0, "")
        with programs.store() as well:
            runs = {(row, *form): self.pool.submit(programs.run, row, form, well)
                    for row in ROWS for form in FORMS}  # fmt: skip
            self.whole = {key: run.result().out for key, run in runs.items()}

    def table(self, title, rows, columns, job, forms=FORMS):
        """`job(row, column, form)`: what gives a cell; None: it is not run."""
        jobs = {}
        for row in rows:
            for column in columns:
                wanted = [job(row, column, form) for form in forms]
                jobs[row, column.label] = [self.pool.submit(each) for each in wanted if each]
        width = max(len(row.command) for row in ROWS)
        print(f"\n{title}\n\n{'':{width}}", *(f"{column.label:>5}" for column in columns))
        for row in rows:
            cells = [[job.result() for job in jobs[row, column.label]] for column in columns]
            print(f"{row.command:{width}}", *(f"{self.shown(each):>5}" for each in cells), flush=True)
            for column, each in zip(columns, cells):
                self.note(f"{row.command} ({column.label})", each)

    @staticmethod
    def shown(cells):
        deviates = any(cell.problems for cell in cells)
        return (cells[0].shown if cells else "-") + ("!" if deviates else "")

    def note(self, where, cells):
        self.count += len(cells)
        for cell in cells:
            if where.endswith("(huge)"):
                self.largest_of_huge = max(self.largest_of_huge, (cell.run.memory, where))
            else:
                self.largest = max(self.largest, (cell.run.memory, where))
            self.longest = max(self.longest, (cell.run.passed, where))
            self.problems += len(cell.problems)
            for problem in cell.problems:
                print(f"    {where}: {problem}")

    def under_fault(self, row, fault, form):
        is_long = takes_long(row, fault)
        drips = fault.label == "drip"
        if is_long and not self.runs_all or drips and not form:
            return None
        ending, lacks = ending_of(row, fault)
        more = [] if fault.label in ("429^C", "429x1") else ["--no-retry"]
        is_survived = not lacks and (fault.label == "slow" or "x1" in fault.label)
        whole = self.whole[row, *form] if is_survived else None
        status = re.search(r"status=(\d+)|$", fault.text or "")[1]
        faults = fault.text and [f"path={path} {fault.text}" for path in fault.paths]

        def job():
            with self.programs.store(faults) as address:
                limit = HANGS_DRIPPING if drips else HANGS_LONG if is_long else HANGS
                run = self.programs.run(row, form + more, address, limit, fault.until)
            memory = memory_for(row, fault)
            return self.judge.cell(run, form, ending, memory, status=status, lacks=lacks, whole=whole)

        return job


# What becomes of a library, and how commands that need it end then. `user`: as whom they run.
Library = namedtuple("Library", "label make ending user", defaults=(None,))


def rewritten(change):
    return lambda database: database.write_bytes(change(database.read_bytes()))


def noise(start, end):
    """Random bytes from one page to another, told in parts of the file."""
    def change(content):
        first, last = (int(len(content) * part) // 4096 * 4096 for part in (start, end))
        return content[:first] + random.Random(1).randbytes(last - first) + content[last:]
    return rewritten(change)  # fmt: skip


def sql(text):
    """The connection stays open, in case it is kept."""
    def make(database):
        connection = sqlite3.connect(database, isolation_level=None, check_same_thread=False)
        connection.executescript(text)
        return connection
    return make  # fmt: skip


def closed(make):
    return lambda database: make(database).close()


def instead(make):
    return lambda database: (database.unlink(), make(database))


def modes(file, folder):
    return lambda database: (database.chmod(file), database.parent.chmod(folder))


LIBRARIES = [
    Library("none", Path.unlink, NOT_FOUND),
    Library("empty", rewritten(lambda content: b""), INTERNAL),
    Library("text", rewritten(lambda content: b"This is no database. " * 100), INTERNAL),
    Library("dir", instead(Path.mkdir), INTERNAL),
    Library("pipe", instead(os.mkfifo), INTERNAL),
    Library("other", instead(closed(sql("CREATE TABLE notes (text)"))), INTERNAL),
    Library("newer", closed(sql("PRAGMA user_version = 99; CREATE TABLE new (x)")), OK),
    Library("head", rewritten(lambda content: content[:100]), INTERNAL),
    Library("half", rewritten(lambda content: content[: len(content) // 2]), WHOLE_OR_INTERNAL),
    Library("noise", noise(0.4, 0.6), WHOLE_OR_INTERNAL),
    Library("junk", noise(0.007, 1), INTERNAL),  # all but the first page
    Library("locks", sql("PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; DELETE FROM ZWATCHEDAPP"), OK),
    Library("r/o", modes(0o444, 0o555), OK, NOBODY),
    Library("000", modes(0o000, 0o755), INTERNAL, NOBODY),
    Library("000/", modes(0o644, 0o000), INTERNAL, NOBODY),
]


def with_libraries(matrix, well, may_be_nobody):
    folders, held = {}, []
    for library in LIBRARIES:
        folder = folders[library.label] = matrix.programs.folder / f"library{len(folders)}"
        folder.mkdir()
        shutil.copy(matrix.programs.library, folder / "default.store")
        held.append(library.make(folder / "default.store"))

    def cell(row, library, form):
        if library.user is not None and not may_be_nobody:
            return None
        ending = OK if row.reads == "likes" else library.ending
        whole = matrix.whole[row, *form] if row.reads == "needs" else None
        variables = {**well, "QUILLET_DATA_DIR": str(folders[library.label])}

        def job(_held=held):
            run = matrix.programs.run(row, form, variables, user=library.user)
            return matrix.judge.cell(run, form, ending, whole=whole)

        return job

    return cell


# `ending`: of all commands; that of those that need the library, in case it differs.
Around = namedtuple("Around", "label variables more ending with_library", defaults=({}, OK, None))

# A small disk of its own with a library, which is full when the command runs.
FULL_DISK = """mount -t tmpfs -o size=2m none "$0" && mkdir -m 1777 "$0/tmp" && cp "$1" "$0" && shift &&
    { cat /dev/zero >"$0/rest" 2>/dev/null || :; } && exec "$@" """


def surroundings(programs):
    folder, disk = programs.folder, str(programs.folder / "disk")
    Path(disk).mkdir()
    (folder / "file").touch()
    (folder / "closed").mkdir(mode=0o555)
    on_disk = {"wrap": ["unshare", "-m", "sh", "-c", FULL_DISK, disk, str(programs.library)]}
    home = {"XDG_CACHE_HOME": disk, "QUILLET_DATA_DIR": disk}
    return [
        Around("file", {"XDG_CACHE_HOME": str(folder / "file")}),
        Around("r/o", {"XDG_CACHE_HOME": str(folder / "closed")}, {"user": NOBODY}),
        Around("spoil", {"XDG_CACHE_HOME": str(folder / "spoilt")}),
        Around("cache", {"XDG_CACHE_HOME": disk}, on_disk),
        Around("home", home, on_disk),
        Around("all", {**home, "TMPDIR": f"{disk}/tmp"}, on_disk, OK, INTERNAL),
        Around("out", {}, {"out": open("/dev/full", "w")}, INTERNAL),
    ]  # fmt: skip


def keep_and_spoil(matrix, well, cache):
    """Fills a cache with what all commands keep, and damages the second half of every file in it."""
    for row in ROWS:
        matrix.programs.run(row, [], {**well, "XDG_CACHE_HOME": str(cache)})
    kept = [path for path in cache.rglob("*") if path.is_file()]
    for path in kept:
        path.write_bytes(path.read_bytes()[: path.stat().st_size // 2] + bytes(path.stat().st_size // 2))
    assert kept, "no command keeps anything"


def with_surroundings(matrix, well, may_be_nobody, may_mount):
    def cell(row, around, form):
        if (around.more.get("user") and not may_be_nobody) or ("wrap" in around.more and not may_mount):
            return None
        ending = around.with_library or around.ending if row.reads == "needs" else around.ending
        whole = None if row.reads == "likes" and around.with_library else matrix.whole[row, *form]
        variables = {**well, **around.variables}

        def job():
            with tempfile.TemporaryDirectory(dir=matrix.programs.folder) as own:
                if around.label == "spoil":  # whoever reads it repairs it
                    shutil.copytree(around.variables["XDG_CACHE_HOME"], own, dirs_exist_ok=True)
                    variables["XDG_CACHE_HOME"] = own
                run = matrix.programs.run(row, form, variables, **around.more)
            return matrix.judge.cell(run, form, ending, whole=whole)

        return job

    return cell


def works(*words, **more):
    try:
        return subprocess.run(words, capture_output=True, **more).returncode == 0
    except OSError:
        return False


def missing_rows(quillet):
    text = subprocess.run([quillet, "help"], capture_output=True, text=True, check=True).stdout
    listed = re.findall(r"^  ([a-z-]+) ", text.split("COMMANDS:")[1].split("GLOBAL OPTIONS:")[0], re.M)
    return {row.command.split()[0] for row in ROWS} ^ set(listed) - {"help"}


def run_tables(matrix):
    online = [row for row in ROWS if row.asks and "--hide-owned" not in row.command]
    forms = FORMS if matrix.runs_all else FORMS[:1]
    matrix.table("The store refuses", online, REFUSALS, matrix.under_fault, forms)
    matrix.table("The store's answers are damaged", online, DAMAGES, matrix.under_fault, forms)
    matrix.table("One service is out of order", online, ONE_SERVICE, matrix.under_fault)
    may_be_nobody = works(matrix.programs.quillet, "--version", **NOBODY)
    if not may_be_nobody:
        print("\nskipped: what needs another user, who may not run the programs where they lie")
    may_mount = works("unshare", "-m", "mount", "-t", "tmpfs", "none", "/mnt")
    if not may_mount:
        print("\nskipped: full disks, because this process may not mount one")
    with matrix.programs.store() as well:
        readers = [row for row in ROWS if row.reads]
        matrix.table("The library", readers, LIBRARIES, with_libraries(matrix, well, may_be_nobody))
        columns = surroundings(matrix.programs)
        keep_and_spoil(matrix, well, matrix.programs.folder / "spoilt")
        cell = with_surroundings(matrix, well, may_be_nobody, may_mount)
        matrix.table("Caches, full disks, and a full output", ROWS, columns, cell)


def main():
    quillet, sandbox, docs = (os.path.abspath(path) for path in sys.argv[1:4])
    missing, start = missing_rows(quillet), time.monotonic()
    with tempfile.TemporaryDirectory(prefix="quillet-faults-", ignore_cleanup_errors=True) as folder:
        is_sanitized = "--sanitized" in sys.argv
        programs = Programs(quillet, sandbox, folder, is_sanitized)
        matrix = Matrix(programs, Judge(docs, is_sanitized), "--all" in sys.argv)
        run_tables(matrix)
        left = os.listdir(Path(folder, "tmp"))
    print(f"\n{matrix.count} runs in {time.monotonic() - start:.0f} s, {matrix.problems} deviations")
    print(f"The largest took {matrix.largest[0]:.0f} MiB: {matrix.largest[1]}")
    print(f"The largest of a huge answer: {matrix.largest_of_huge[0]:.0f} MiB: {matrix.largest_of_huge[1]}")
    print(f"The longest took {matrix.longest[0]:.1f} s: {matrix.longest[1]}")
    if missing:
        print(f"commands without a row, or rows without a command: {sorted(missing)}")
    if left:
        print(f"left behind: {left}")
    return 1 if matrix.problems or missing or left else 0


sys.exit(main())

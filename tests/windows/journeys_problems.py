# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""A library that cannot be opened: the window says so and what to do, and changes nothing."""

import fcntl
import os
import sqlite3

import access
from main_window import MainWindow
from window import until

UNTOUCHED = "Nothing was changed in\n"


def files_of(home):
    """The library, and what SQLite keeps beside it for it."""
    found = {name: home.data / f"default.store{name}" for name in ("", "-wal")}
    return {name: path.read_bytes() for name, path in found.items() if path.exists() and path.stat().st_size}


def expect_problem(home, reason, advice):
    """A start shows this, and leaves the library as it is to the byte."""
    before = files_of(home)
    app = home.start()
    window = MainWindow(app)
    problem = window.part("Library")
    until(lambda: problem.has("showing"), "what is the matter")
    labels = [label.name for label in problem.find_all("label")]
    assert labels[0] == "The library could not be opened.", labels
    assert reason in labels[1] and advice in labels[2] and UNTOUCHED in labels[2], labels
    assert str(home.library) in labels[2], labels
    access.expect_readable(window)
    problem.find("push button", "Try Again").press()
    assert files_of(home) == before, {name: len(content) for name, content in files_of(home).items()}
    return app, window, problem


def expect_end(home, app, problem, before):
    reason = problem.find_all("label")[1].name
    problem.find("push button", "Quit Quillet").press()
    assert app.wait(5) == 3, app.said()
    assert set(app.said().splitlines()) == {f"quillet: {reason}"}, (app.said(), reason)
    assert files_of(home) == before


def says_that_the_library_is_damaged(home):
    home.library.write_bytes(b"This is no database, but someone's letter. " * 100)
    before = files_of(home)
    app, _, problem = expect_problem(home, "", "put a copy of the library in its place")
    expect_end(home, app, problem, before)


def says_that_the_library_is_newer(home):
    home.edit("fill", 3)
    with sqlite3.connect(home.library) as database:
        database.execute("PRAGMA user_version = 9999")
    database.close()
    before = files_of(home)
    app, _, problem = expect_problem(home, "newer", "Update Quillet, or start the newer one.")
    expect_end(home, app, problem, before)


def says_that_the_library_is_locked_until_it_is_not(home):
    home.edit("fill", 3)
    with open(home.data / "default.store.lock", "rb") as other:
        fcntl.flock(other, fcntl.LOCK_EX)
        app, window, problem = expect_problem(home, "Another Quillet is writing", "End the other one, then try again.")
    problem.find("push button", "Try Again").press()
    assert window.list().row_count() == 3
    assert not problem.has("showing")
    assert app.end() == 0, app.said()


def says_that_the_folder_is_read_only(home):
    home.edit("fill", 3)
    before = files_of(home)
    home.data.chmod(0o500)
    if os.geteuid() == 0:  # to whom nothing is read-only
        home.under = ["setpriv", "--bounding-set", "-dac_override"]
    try:
        app, _, problem = expect_problem(home, "readonly", "See that its folder can be read and written")
        expect_end(home, app, problem, before)
    finally:
        home.data.chmod(0o700)


JOURNEYS = [
    says_that_the_library_is_damaged,
    says_that_the_library_is_newer,
    says_that_the_library_is_locked_until_it_is_not,
    says_that_the_folder_is_read_only,
]

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Scrolls while price data is imported, and prints one JSON object: how many milliseconds of processor
time the longest event held the application, 0 where none took longer than a frame of a display lasts.

usage: import_holds.py BUILD-BIN-FOLDER PRICE-DATA-ADDRESS

Once over the watchlist of a large library, while the deals are read for the first time; then over the
deals, while the same ones are read as another edition.
"""

import json
import os
import sqlite3
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/windows"))

from session import Desktop, Home, Programs, Store  # noqa: E402

APPS = 10_000
LONGEST_SECONDS = 120
STEPS_AT_ONCE = 5  # of the wheel, then somebody looks
START_SECONDS = 4  # an import begins five seconds after the window was painted
REST_SECONDS = 1  # after the import, for what follows from it


def imported(home):
    """How many deals there are, once all of them are."""
    with sqlite3.connect(f"file:{home.library}?mode=ro", uri=True, timeout=10) as library:
        known = library.execute("SELECT count(*) FROM ZIMPORTRECORD WHERE ZSTAMP <> 'older'").fetchone()[0]
        return library.execute("SELECT count(*) FROM ZDEAL").fetchone()[0] if known else 0


def wheel(home, button):
    words = ["xdotool", "mousemove", "500", "400", "click", "--delay", "15", "--repeat", str(STEPS_AT_ONCE), button]
    subprocess.run(words, env=home.environment, check=True)


def scroll_while_importing(home, section):
    """Steps of the wheel that were taken, and what held the application meanwhile."""
    app = home.start("--section", section)
    time.sleep(START_SECONDS)
    before = len(app.holds())  # while it started
    steps, begun = 0, time.monotonic()
    while not (deals := imported(home)):
        assert time.monotonic() - begun < LONGEST_SECONDS, app.said()
        wheel(home, "5" if steps % 200 < 100 else "4")
        steps += STEPS_AT_ONCE
    time.sleep(REST_SECONDS)
    holds = sorted(app.holds()[before:], reverse=True)
    assert app.end() == 0, app.said()
    return {"deals": deals, "steps": steps, "longest": holds[0][0] if holds else 0, "holds": holds[:5]}


def as_if_older(home):
    """All of it is read once more, and each deal is told by another edition."""
    with sqlite3.connect(home.library, timeout=10) as library:
        library.execute("UPDATE ZIMPORTRECORD SET ZSTAMP = 'older'")
        library.execute("UPDATE ZDEAL SET ZEDITION = 'older'")
    home.set()


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    os.environ.pop("DISPLAY", None)
    programs = Programs(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="quillet-bench-") as place, Desktop(is_accessible=False) as desktop:
        with Store(programs, desktop.environment, place) as store:
            with Home(programs, desktop, store, Path(place) / "home") as home:
                home.environment["QUILLET_PRICE_DATA_URL"] = sys.argv[2]
                home.edit("fill", APPS)
                first = scroll_while_importing(home, "watchlist")
                as_if_older(home)
                again = scroll_while_importing(home, "deals")
    json.dump({"first": first, "again": again}, sys.stdout, indent=1)
    print()


if __name__ == "__main__":
    main()

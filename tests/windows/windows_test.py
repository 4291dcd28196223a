#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Drives the real application from outside, as a person at a desktop would: each journey starts it on
folders of its own, and looks at its windows as a screen reader does.

usage: windows_test.py BUILD-BIN-FOLDER [--sanitized] [journey...]

Of a journey that fails, the screen, the accessible tree and what the application said are kept in
the folder "windows-failures" below the current one.
"""

import argparse
import importlib
import shutil
import signal
import sys
import tempfile
import time
import traceback
from pathlib import Path

THEMES = [f"journeys_{theme}"
          for theme in ("start", "problems", "lists", "places", "keys", "library", "edits", "watching", "collecting", "transfer", "search", "charts", "deals", "page", "memory", "compare", "scan", "keeping", "report", "outside",
                        "faults", "ends", "reviews", "background", "choices", "upkeep", "large")]  # fmt: skip
WHOLE_SECONDS = 540
LONGEST_HOLDS = 5  # that are told
SLOWER = 3  # what the sanitizers take
TOOLS = ["Xvfb", "openbox", "dbus-daemon", "xdotool", "xprop", "xmessage", "import"]
PACKAGES = "xvfb openbox dbus-daemon at-spi2-core xdotool x11-utils imagemagick python3-gi gir1.2-atspi-2.0"
FAILURES = Path("windows-failures")


def missing():
    """What the tests need and this machine lacks."""
    from session import A11Y_SERVICE

    lacking = [tool for tool in TOOLS if not shutil.which(tool)]
    try:
        importlib.import_module("window")
    except (ImportError, ValueError) as error:
        lacking.append(f"a module of Python ({error})")
    return lacking + ([] if A11Y_SERVICE.exists() else [str(A11Y_SERVICE)])


class OutOfTime(BaseException):
    """The whole has taken too long: nothing may catch this but the end."""


def give_up(*_):
    raise OutOfTime


def keep_failure(name, home):
    from window import tree_of

    folder = FAILURES / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    home.desktop.screenshot(folder / "screen.png")
    for number, app in enumerate(home.started):
        (folder / f"said-{number}.txt").write_text(app.said())
        root = tree_of(app) if app.process.poll() is None else None
        if root:
            (folder / f"tree-{number}.txt").write_text(root.tree())
    print(f"  the screen and what it held: {folder.resolve()}")


def run(journey, home):
    """Whether it went well."""
    begun = time.monotonic()
    name = journey.__name__
    try:
        journey(home)
        print(f"ok      {time.monotonic() - begun:4.1f} s  {name}", flush=True)
        return True
    except Exception as error:
        print(f"FAILED  {time.monotonic() - begun:4.1f} s  {name}: {error}", flush=True)
        if not isinstance(error, AssertionError) or not str(error):
            traceback.print_exc()
        try:
            keep_failure(name, home)
        except Exception as more:
            print(f"  what the screen held could not be kept: {more}")
        return False


def tell_holds(holds):
    """What held windows for longer than a frame; of no journey a failure, for machines differ."""
    print(f"{len(holds)} events held a window for more than 16 ms" + (", the longest:" if holds else ""))
    for milliseconds, event, journey in sorted(holds, reverse=True)[:LONGEST_HOLDS]:
        print(f"  {milliseconds:4} ms  {event} in {journey}")


def run_all(programs, wanted):
    """How many went wrong, of how many."""
    import window
    from session import Desktop, Home, Store

    journeys = [each for theme in THEMES for each in importlib.import_module(theme).JOURNEYS
                if not wanted or each.__name__ in wanted]  # fmt: skip
    failed = 0
    holds = []
    with tempfile.TemporaryDirectory(prefix="quillet-windows-") as folder, Desktop() as desktop:
        window.join(desktop)
        with Store(programs, desktop.environment, folder) as store:
            for number, journey in enumerate(journeys):
                with Home(programs, desktop, store, Path(folder) / str(number)) as home:
                    failed += not run(journey, home)
                    holds += [(*hold, journey.__name__) for app in home.started for hold in app.holds()]
    tell_holds(holds)
    return failed, len(journeys)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--sanitized", action="store_true")
    parser.add_argument("journeys", nargs="*")
    given = parser.parse_args()
    if lacking := missing():
        sys.exit(f"The windows cannot be tested without {', '.join(lacking)}: install {PACKAGES}.")

    import window
    from session import Programs

    slower = SLOWER if given.sanitized else 1
    window.patience *= slower
    signal.signal(signal.SIGALRM, give_up)
    signal.signal(signal.SIGTERM, give_up)
    signal.alarm(WHOLE_SECONDS * slower)
    begun = time.monotonic()
    try:
        failed, count = run_all(Programs(given.folder), given.journeys)
    except OutOfTime:
        sys.exit(f"The journeys took more than {WHOLE_SECONDS * slower} s.")
    print(f"{count - failed} of {count} journeys went well, in {time.monotonic() - begun:.0f} s")
    sys.exit(1 if failed or not count else 0)


if __name__ == "__main__":
    main()

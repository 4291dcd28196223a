#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Draws the pictures of the windows that the documentation shows: the real application on the sample
library, with the sample store's own pictures.

usage: pictures.py BUILD-BIN-FOLDER OUT-FOLDER [NAME...]

A name is SECTION-THEME or SECTION-THEME-WIDTHxHEIGHT, with "@2" behind it for twice the pixels; without
any, all those that the documentation shows are drawn.
"""

import re
import subprocess
import sys
import tempfile
import time
from collections import namedtuple
from pathlib import Path

from session import Desktop, Home, Programs, Store

SECTIONS = ["watchlist", "alerts", "collections", "my-apps", "history"]
THEMES = ["light", "dark"]
USUAL = (1280, 800)
NARROW = (760, 520)
# From where a section begins to what its picture shows: the collection with notes, a usual app.
KEYS = {"collections": ["End", "Return"], "my-apps": ["Down", "Down"]}
SCREEN = (2720, 1720)  # holds the usual window at twice the pixels, and its frame
STILL_SECONDS, LONGEST_SECONDS = 0.6, 15

Picture = namedtuple("Picture", "name section theme size ratio")


def picture(name):
    found = re.fullmatch(r"([a-z-]+)-(light|dark)(?:-(\d+)x(\d+))?(?:@([\d.]+))?", name)
    if not found or found[1] not in SECTIONS:
        sys.exit(f"{name} is no picture; sections are {', '.join(SECTIONS)}")
    size = (int(found[3]), int(found[4])) if found[3] else USUAL
    return Picture(name, found[1], found[2], size, float(found[5] or 1))


def documented():
    narrow = "{}x{}".format(*NARROW)
    usual = [f"{section}-{theme}" for section in SECTIONS for theme in THEMES]
    return usual + [f"watchlist-{theme}-{narrow}" for theme in THEMES]


def until_still(home, window):
    """Waits until nothing in the window has moved for a while: its pictures have come."""
    grab = ["import", "-silent", "-window", window.handle, "rgb:-"]
    started = rested = time.monotonic()
    before = None
    while time.monotonic() - rested < STILL_SECONDS:
        assert time.monotonic() - started < LONGEST_SECONDS, "the window never rests"
        seen = subprocess.run(grab, env=home.environment, capture_output=True, check=True).stdout
        if seen != before:
            before, rested = seen, time.monotonic()


def draw(home, wanted, out):
    import window

    home.forget_windows()
    home.set(appearance=wanted.theme, storefrontCountry="us")
    window.xdotool("mousemove", *SCREEN)  # where it hovers over nothing
    app = home.start("--section", wanted.section, QT_SCALE_FACTOR=f"{wanted.ratio:g}")
    shown = window.main_window_of(app)
    shown.resize(*(round(length * wanted.ratio) for length in wanted.size))
    until_still(home, shown)
    if wanted.section in KEYS:
        window.keys(*KEYS[wanted.section])
        until_still(home, shown)
    shown.screenshot(out / f"{wanted.name}.png")
    assert app.end() == 0, app.said()
    print(out / f"{wanted.name}.png", flush=True)


def draw_all(programs, out, wanted):
    import window

    with tempfile.TemporaryDirectory(prefix="quillet-pictures-") as place, Desktop(SCREEN) as desktop:
        window.join(desktop)
        folder = Path(place) / "home"
        # The library's pictures are those of the store that keeps it.
        keeps = ["--apps", "2000", "--library", folder / "data"]
        with Store(programs, desktop.environment, place, *keeps) as store:
            with Home(programs, desktop, store, folder) as home:
                del home.environment["FONTCONFIG_FILE"]  # the names need more letters than tests do
                for each in wanted:
                    draw(home, each, out)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    wanted = [picture(name) for name in sys.argv[3:] or documented()]
    draw_all(Programs(sys.argv[1]), Path(sys.argv[2]), wanted)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Draws the pictures of the windows that the documentation shows: the real application on the sample
library, with the sample store's own pictures.

usage: pictures.py BUILD-BIN-FOLDER OUT-FOLDER [NAME...]

A name is SCENE-THEME or SCENE-THEME-WIDTHxHEIGHT, with "@2" behind it for twice the pixels and "+200" for
texts of 200 %, and "~" for one who reads from right to left; without any, all those that the documentation shows are drawn. A size is the main window's,
or that of the window which the scene is about.
"""

import re
import subprocess
import sys
import tempfile
import time
from collections import namedtuple
from pathlib import Path

import shelf
from services import Notifications
from session import Desktop, Home, Programs, Store

Scene = namedtuple("Scene", "words steps window after", defaults=[[], None, []])
Press = namedtuple("Press", "name")  # what can be pressed and has a name that begins so
Read = namedtuple("Read", "name")  # a list of that name, which has rows
SEARCH = ["--new-search", "markdown"]
PAGE_ALONE = ["ctrl+F9", "Return"]
WRITING = ["End", "Return"]  # the last collection, which has notes
SKIP_STORE = ["Tab", "Tab", "Tab", "space"]  # the first step of Welcome
Rest = namedtuple("Rest", "seconds")  # until what was said has gone
File = namedtuple("File", "name")  # an exported library, its path typed into a panel
COMPARED = ["ctrl+t", *["Down", "ctrl+t"] * 2, "ctrl+9", Rest(11)]
# How each is come to: what the application is started with, the steps that are taken then, one after the
# other once all rests (a text is a key), and how the title of the window that shows it begins, if it is
# not the main one; and the steps that leave the library as it was.
SCENES = {
    "search": Scene(SEARCH, ["ctrl+shift+b"]),
    "search-start": Scene(["--section", "search"]),
    "results": Scene(SEARCH, ["Down", "Down"]),
    "page": Scene(SEARCH, PAGE_ALONE),
    "page-lower": Scene(SEARCH, [*PAGE_ALONE, "Next"]),
    "page-ranks": Scene(["--section", "history"], ["Home", *PAGE_ALONE, Press("Show Rank History")]),
    "page-storefronts": Scene(SEARCH, [*PAGE_ALONE, Press("Compare Storefronts")]),
    "page-prices": Scene(["--section", "watchlist"], ["Home", *PAGE_ALONE]),
    "page-end": Scene(SEARCH, [*PAGE_ALONE, "End"]),
    "charts": Scene(["--section", "charts"], ["Down", "Down"]),
    "charts-filters": Scene(["--section", "charts"], ["ctrl+shift+f"]),
    "charts-paid": Scene(["--section", "charts"], [Press("Top Paid")]),
    "charts-category": Scene(["--section", "charts"], [Press("iPhone"), Press("Top Grossing")]),
    "reviews": Scene(SEARCH, [*PAGE_ALONE, Press("All Reviews")], "Reviews of "),
    "viewer": Scene(SEARCH, [*PAGE_ALONE, Press("Screenshot 1")], "Screenshots of "),
    "deals": Scene(["--section", "deals"], [Read("Deals"), "ctrl+F9", "Down", "Down"]),
    "deals-page": Scene(["--section", "deals"], [Read("Deals"), "Down", "Down"]),
    "watchlist": Scene(["--section", "watchlist"]),
    "watch-options": Scene(["--section", "watchlist"], ["Home", "ctrl+shift+d"]),
    "watch-several": Scene(["--section", "watchlist"], ["Home", "shift+Down", "shift+Down", "ctrl+shift+d"], "Watch Options"),  # fmt: skip
    "undo": Scene(["--section", "watchlist"], ["Home", "Down", "Delete"], after=["ctrl+z"]),
    "add-to-collection": Scene(["--section", "watchlist"], ["Home", "ctrl+shift+l"]),
    "go-to-app": Scene(["--section", "watchlist"], ["ctrl+k", "p", "a"]),
    "several": Scene(["--section", "watchlist"], ["Down", "shift+Down", "shift+Down"]),
    "alerts": Scene(["--section", "alerts"]),
    "collections": Scene(["--section", "collections"], WRITING),
    "note": Scene(["--section", "collections"], [*WRITING, "Down", "Down", "ctrl+i"], after=["Escape"]),
    "new-collection": Scene(["--section", "collections"], ["ctrl+n"], "New Collection"),
    "details": Scene(["--section", "my-apps"], ["Down", "Down", Press("Edit Details")], "Details"),
    "my-apps": Scene(["--section", "my-apps"], ["Down", "Down"]),  # a usual app
    "upkeep": Scene(["--section", "my-apps"], [Press("Upkeep"), "Home", "Right", "Right", "Right", "Down"]),
    "add-by-hand": Scene(["--section", "my-apps"], [Press("Add App by Hand…")]),
    "history": Scene(["--section", "history"]),
    "compare": Scene(SEARCH, COMPARED),
    "compare-one": Scene(SEARCH, ["ctrl+t", "ctrl+9"]),
    "compare-many": Scene(SEARCH, ["Down", "ctrl+t"] * 8 + ["ctrl+9", Rest(11)]),
    "compare-empty": Scene(["--section", "compare"]),
    "report": Scene(SEARCH, ["Down", "Down", "ctrl+e"], "Report on "),
    "report-html": Scene(SEARCH, ["Down", "Down", "ctrl+e", "Down"], "Report on "),
    "tool": Scene(["--section", "search"], [Press("Install Command-Line Tool…")], "Command-Line Tool"),
    "skill": Scene(["--section", "search"], [Press("Install Agent Skill…")], "Agent Skill"),
    "updates": Scene(["--section", "search"], [Press("Check for Updates…")], "Updates"),
    "diagnostics": Scene(["--section", "search"], [Press("Diagnostics…"), Rest(2)], "Diagnostics"),
    "settings": Scene(["--section", "search"], ["ctrl+comma"], "Settings"),
    **{f"settings-{page}": Scene(["--section", "search"], ["ctrl+comma", *["Down"] * number], "Settings")
       for number, page in enumerate(["watchlist", "notifications", "maintenance", "appearance", "data", "privacy", "updates"], 1)},
    "import": Scene(["--section", "watchlist"], ["ctrl+o", Rest(1), File("library-2026-11-20.json"), "Return", Rest(1)], "Import Library"),
    "export": Scene(["--section", "watchlist"], ["ctrl+shift+s", Rest(1)], "Export Library"),
    "remove-everything": Scene(["--section", "search"], ["ctrl+comma", *["Down"] * 6, *["Tab"] * 2, "space"], "Remove all"),
    "welcome": Scene(["--section", "search"], [Press("Welcome…")], "Welcome"),
    "welcome-notifications": Scene(["--section", "search"], [Press("Welcome…"), *SKIP_STORE], "Welcome"),
    "welcome-my-apps": Scene(["--section", "search"], [Press("Welcome…"), *SKIP_STORE, "Tab", "space"], "Welcome"),
    "welcome-background": Scene(["--section", "search"], [Press("Welcome…"), *SKIP_STORE, *["Tab", "space"] * 2], "Welcome"),
    "help": Scene(["--section", "search"], ["F1"], "Quillet Help"),
    "about": Scene(["--section", "search"], [Press("About Quillet")], "About Quillet"),
    "shortcuts": Scene(["--section", "search"], ["ctrl+question"], "Keyboard Shortcuts"),
}
SECTIONS = ["search", "charts", "deals", "watchlist", "alerts", "collections", "my-apps", "history"]
IN_WINDOWS_DOCUMENT = ["upkeep", "report", "watch-options", "undo", "note", "settings-watchlist", "import",
                       "remove-everything", "welcome", "welcome-notifications", "welcome-my-apps",
                       "welcome-background"]
THEMES = ["light", "dark"]
USUAL = (1280, 800)
NARROW = (760, 520)
SCREEN = (2720, 1720)  # holds the usual window at twice the pixels, and its frame
READ_SECONDS = 30  # for price data, which is read once everything else is there
STILL_SECONDS, LONGEST_SECONDS = 0.4, 15  # shorter than a caret blinks

Picture = namedtuple("Picture", "name scene theme size ratio percent words")


def picture(name):
    found = re.fullmatch(r"([a-z-]+)-(light|dark)(?:-(\d+)x(\d+))?(?:@([\d.]+))?(?:\+(\d+))?(~)?", name)
    if not found or found[1] not in SCENES:
        sys.exit(f"{name} is no picture; scenes are {', '.join(SCENES)}")
    size = (int(found[3]), int(found[4])) if found[3] else None
    return Picture(name, SCENES[found[1]], found[2], size, float(found[5] or 1), int(found[6] or 100),
                   ["-reverse"] if found[7] else [])  # fmt: skip


def documented():
    narrow = "{}x{}".format(*NARROW)
    usual = [f"{section}-{theme}" for section in SECTIONS for theme in THEMES]
    usual += [f"{scene}-{theme}" for scene in ("page", "compare", "reviews", "viewer") for theme in THEMES]
    usual += [f"{scene}-light" for scene in IN_WINDOWS_DOCUMENT]
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


def take(step, shown, home):
    import window

    if isinstance(step, Read):
        has_rows = lambda: any(node.row_count() for node in shown.find_all("list", step.name))  # noqa: E731
        window.until(has_rows, step.name, READ_SECONDS)
    elif isinstance(step, Press):
        fitting = lambda: [node for node in shown.walk() if node.name.startswith(step.name)]  # noqa: E731
        # Entries of menus are pressed unseen; another section may have tools of the same name.
        found = max(window.until(fitting, step.name), key=lambda node: node.has("showing"))
        found.press("Toggle" if found.role == "radio button" else "Press")
    elif isinstance(step, Rest):
        time.sleep(step.seconds)
    elif isinstance(step, File):
        window.type_text(str(shelf.write_shelf(home, home.folder / step.name)))
    else:
        window.keys(step)


def draw(home, wanted, out):
    import window

    def resize(shown, size):
        shown.resize(*(round(length * wanted.ratio) for length in size))
        until_still(home, shown)

    home.forget_windows()
    home.set(appearance=wanted.theme, storefrontCountry="us", textPercent=wanted.percent)
    window.xdotool("mousemove", *SCREEN)  # where it hovers over nothing
    app = home.start(*wanted.words, *wanted.scene.words, QT_SCALE_FACTOR=f"{wanted.ratio:g}")
    shown = window.main_window_of(app)
    resize(shown, wanted.size if wanted.size and not wanted.scene.window else USUAL)
    for step in wanted.scene.steps:
        take(step, shown, home)
        until_still(home, shown)
    if title := wanted.scene.window:
        shown = window.until(lambda: window.shown_window(app, lambda said: said.startswith(title)), title)
        until_still(home, shown)
        if wanted.size:
            resize(shown, wanted.size)
    shown.screenshot(out / f"{wanted.name}.png")
    for step in wanted.scene.after:
        take(step, shown, home)
        until_still(home, shown)
    assert app.end() == 0, app.said()
    print(out / f"{wanted.name}.png", flush=True)


def draw_all(programs, out, wanted):
    import window

    with tempfile.TemporaryDirectory(prefix="quillet-pictures-") as place, Desktop(SCREEN) as desktop:
        window.join(desktop)
        folder = Path(place) / "home"
        # The library's pictures are those of the store that keeps it.
        keeps = ["--apps", "2000", "--library", folder / "data"]
        with Store(programs, desktop.environment, place, *keeps) as store, Notifications(desktop):
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

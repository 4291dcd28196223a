# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Ends and turns while the store is still to answer, at moments drawn at random: QUILLET_WINDOWS_SEED
draws the same ones again."""

import os
import random
import signal
import time

from main_window import MainWindow
from rows import plain
from window import keys, type_text, until, window_of

SEED = int(os.environ.get("QUILLET_WINDOWS_SEED", time.time_ns() // 1000))  # before the user's environment is left
RESULTS = "Search results"
APP = 1480068668
ROUNDS = 5
TURNS = 4
LONGEST_MOMENT = 0.4  # seconds
SLOW = ["stall", "drip", "delay=400", "delay=20000", "drop"]


def search_anew(window):
    keys("ctrl+f", "ctrl+a")
    type_text("photo")
    keys("Return")


def go(*combinations):
    return lambda window: keys(*combinations)


TURNINGS = {
    "search anew": search_anew,
    "refresh": go("F5"),
    "to the next app": go("ctrl+Down"),
    "open the app": go("ctrl+Down", "Return"),
    "back": go("alt+Left"),
    "to the watchlist": go("ctrl+4"),
    "to the history": go("ctrl+8"),
    "to search": go("ctrl+1"),
    "other filters": go("ctrl+shift+b"),
}


ENDINGS = {
    "SIGTERM": lambda app: app.process.send_signal(signal.SIGTERM),
    "SIGINT": lambda app: app.process.send_signal(signal.SIGINT),
    "Ctrl+Q": lambda app: keys("ctrl+q"),
    "Alt+F4": lambda app: keys("alt+F4"),
}


def expect_end(app, what):
    """Long before an answer that does not come is given up, after 20 seconds."""
    begun = time.monotonic()
    until(lambda: app.process.poll() is not None, f"the end: {what}")
    assert (app.process.returncode, app.said()) == (0, ""), (what, app.process.returncode, app.said())
    return time.monotonic() - begun


def ends_at_any_moment(home):
    home.use_sample_library()
    chance = random.Random(SEED)
    longest = 0
    for number in range(ROUNDS):
        app = home.start("--new-search", "editor")
        window = MainWindow(app)
        window.list(RESULTS).focus()
        turns = chance.choices(list(TURNINGS), k=chance.randrange(TURNS + 1))
        slow, ending = chance.choice(SLOW), chance.choice(list(ENDINGS))
        what = f"QUILLET_WINDOWS_SEED={SEED}, round {number}, {slow}: {', '.join(turns)}, {ending}"
        with home.store.faults(slow):
            for turn in ["refresh", *turns]:
                TURNINGS[turn](window)
                time.sleep(chance.uniform(0, LONGEST_MOMENT))
            assert app.process.poll() is None, (what, app.said())
            ENDINGS[ending](app)
            longest = max(longest, expect_end(app, what))
    print(f"        ended within {longest:.1f} s, QUILLET_WINDOWS_SEED={SEED}")


def closes_what_is_still_to_be_read(home):
    name = plain(home.json("info", str(APP))["app"]["name"])
    app = home.start("--open", str(APP))
    main = MainWindow(app)
    page = main.part("App page")
    page.find("push button", "All 25 releases")
    with home.store.faults("stall"):
        # The page may be filled anew while it is pressed.
        until(lambda: page.find("push button", "All Reviews").press() or True, "a press")
        reviews = window_of(app, f"Reviews of {name}")
        since = len(home.store.requests())
        reviews.find("radio button", "Most Recent").press("Toggle")
        keys("End", "Return")
        until(lambda: len(home.store.requests()) > since, "a question")
        keys("Escape")
        until(lambda: page.find("push button", "All Reviews").has("showing"), "the page")
        keys("ctrl+q")
        expect_end(app, "after the reviews' window")


JOURNEYS = [ends_at_any_moment, closes_what_is_still_to_be_read]

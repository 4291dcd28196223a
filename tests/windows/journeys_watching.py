# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Watching apps: what the window changes, undoes and does again is what the command line reads."""

from main_window import MainWindow
from window import keys, type_text, until, window_of

RESULTS = "Search results"
TERM = "photo"
FLAGS = "ZALERTONANYDROP, ZALERTONFREE, ZALERTONNEWVERSION, ZALERTONPURCHASEPRICES"


def watched(home):
    """Each watched app as the command line prints it, by its ID."""
    return {app["trackId"]: app for app in home.json("watchlist", "-n", "200")["items"]}


def stored(home, track):
    """The row's key and what the command line does not print."""
    rows = home.query(f"SELECT Z_PK, {FLAGS}, ZMUTEDUNTIL FROM ZWATCHEDAPP WHERE ZTRACKID = {track}")
    return rows[0] if rows else None


def first_unwatched(home, count):
    """Results of the search that follow one another and that nobody watches: where the first stands, and all."""
    found = home.json("search", TERM, "-n", "50")["results"]
    known = watched(home)
    for first in range(len(found) - count):
        apps = found[first : first + count]
        if not any(app["trackId"] in known for app in apps):
            return first, apps
    raise AssertionError("all results are watched")


def choose(window, index):
    rows = window.list(RESULTS)
    until(lambda: rows.row_count() > index, "results")
    rows.focus()
    keys("Home", *["Down"] * index)
    until(lambda: rows.row(index).has("selected"), f"row {index}")


def expect(home, track, what, **told):
    """That the command line tells this of the app, and of a value of None nothing."""

    def fits():
        app = watched(home).get(track)
        return app is not None and all(app.get(key) == value for key, value in told.items())

    until(fits, f"{what}: {told}, not {watched(home).get(track)}")


def expect_none(home, track, what):
    until(lambda: track not in watched(home), what)


def expect_entry(window, text):
    entries = lambda: [node.name for node in window.menu_item("App").walk()]  # noqa: E731
    until(lambda: text in entries(), f"{text!r} in the menu App, not {entries()}")


def an_app_is_watched_changed_and_left(home):
    home.use_sample_library()
    before = watched(home)
    index, (app,) = first_unwatched(home, 1)
    track = app["trackId"]
    window = MainWindow(home.start("--new-search", TERM))
    choose(window, index)
    expect_entry(window, "Watch")
    keys("ctrl+d")
    expect(home, track, "watched", alertOnAnyDrop=True, alertOnFree=True, alertOnNewVersion=False, name=app["name"],
           priceWhenAdded=app["price"], targetPrice=None)  # fmt: skip
    fresh = stored(home, track)
    assert fresh[1:] == (1, 1, 0, 1, None), fresh
    expect_entry(window, "Stop Watching")

    until(lambda: window.part("App page").find_all("push button", "Watching"), "the page's button")
    keys("ctrl+shift+d")
    until(lambda: shown_options(window), "the options")
    keys("space", *["Tab"] * 4)
    type_text("2,49")
    keys("Return")
    expect(home, track, "changed", alertOnAnyDrop=False, alertOnFree=True, targetPrice=2.49)
    keys("ctrl+z")
    expect(home, track, "the change undone", alertOnAnyDrop=True, targetPrice=None)
    keys("ctrl+z")
    expect_none(home, track, "the watch undone")
    assert watched(home) == before, "nothing else is another"
    keys("ctrl+shift+z", "ctrl+shift+z")
    expect(home, track, "both done again", alertOnAnyDrop=False, targetPrice=2.49)
    assert stored(home, track)[0] == fresh[0], "under the same key"

    window.menu_item("App", "Mute Alerts", "Until I turn them on").press()
    until(lambda: stored(home, track)[-1], "muted")
    done = watched(home)[track], stored(home, track)
    keys("ctrl+d")
    expect_none(home, track, "stopped")
    keys("ctrl+z")
    until(lambda: track in watched(home), "watched again")
    assert (watched(home)[track], stored(home, track)) == done, "as it was"


def shown_options(window):
    """The check boxes of the options that stand over the page."""
    return window.find_all("check box", "Any drop in price", "Watch options")


def several_apps_are_watched_at_once(home):
    home.use_sample_library()
    before = watched(home)
    index, apps = first_unwatched(home, 3)
    tracks = [app["trackId"] for app in apps]
    app = home.start("--new-search", TERM)
    window = MainWindow(app)
    choose(window, index)
    keys("ctrl+d")
    expect(home, tracks[0], "the first")
    keys("ctrl+shift+d")
    until(lambda: shown_options(window), "the options")
    keys("space", "Escape")
    expect(home, tracks[0], "changed", alertOnAnyDrop=False)
    keys("shift+Down", "shift+Down")
    expect_entry(window, "Watch 2 Apps")
    keys("ctrl+d")
    for track in tracks[1:]:
        expect(home, track, "watched too", alertOnAnyDrop=True)
    expect(home, tracks[0], "left as it was", alertOnAnyDrop=False)
    expect_entry(window, "Stop Watching 3 Apps")

    keys("ctrl+shift+d")
    dialog = window_of(app, "Watch Options of 3 apps")
    boxes = {node.name: node for node in dialog.find_all("check box")}
    assert boxes["Any drop in price"].has("indeterminate"), "they differ"
    boxes["A new version"].press("Toggle")
    dialog.find("push button", "Done").press()
    for track, drops in zip(tracks, [False, True, True], strict=True):
        expect(home, track, "changed together", alertOnNewVersion=True, alertOnAnyDrop=drops)
    window.raise_()
    keys("ctrl+z")
    for track in tracks:
        expect(home, track, "undone together", alertOnNewVersion=False)
    keys("ctrl+d")
    until(lambda: watched(home) == before, "none of them is left")


JOURNEYS = [an_app_is_watched_changed_and_left, several_apps_are_watched_at_once]

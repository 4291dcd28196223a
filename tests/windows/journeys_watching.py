# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Watching apps: what the window changes, undoes and does again is what the command line reads."""

import json
import sqlite3
import time
import urllib.request

from main_window import MainWindow
from window import keys, type_text, until, window_of

RESULTS = "Search results"
TERM = "photo"
FLAGS = "ZALERTONANYDROP, ZALERTONFREE, ZALERTONNEWVERSION, ZALERTONPURCHASEPRICES"


def watched_items(home):
    return home.json("watchlist", "-n", "200")["items"]


def watched(home):
    """Each watched app as the command line prints it, by its ID."""
    return {app["trackId"]: app for app in watched_items(home)}


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


# ---- A pass and a person at once

RISE = 100  # dearer than anything that is watched and sold there
COUNTRIES = "us", "de"  # two lookups a pass: more passes than one have their place in a minute
PASSES = 2
SLOW = ["path=/lookup delay=1500", "path=/api delay=700"]
EPOCH = 978307200  # from which the library counts seconds
DECISIONS = f"Z_PK, {FLAGS}, ZTARGETPRICE, ZTARGETCURRENCY, ZMUTEDUNTIL, ZADDEDAT"


def write(home, *statements):
    """By another program, which the application may have the library open beside."""
    with sqlite3.connect(home.library, timeout=5) as library:
        for statement in statements:
            library.execute(statement)
    library.close()


def prices_of_store(home):
    """By ID and storefront, of all that is watched."""
    prices = {}
    opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
    for country in COUNTRIES:
        ids = ",".join(str(track) for (track,) in home.query(
            f"SELECT ZTRACKID FROM ZWATCHEDAPP WHERE ZCOUNTRY = '{country}'"))  # fmt: skip
        with opener.open(f"{home.store.address}/lookup?id={ids}&country={country}", timeout=10) as answer:
            prices |= {(app["trackId"], country): app["price"] for app in json.load(answer)["results"]}
    return prices


def prices_of_library(home):
    return {(track, country): price for track, country, price in
            home.query("SELECT ZTRACKID, ZCOUNTRY, ZCURRENTPRICE FROM ZWATCHEDAPP")}  # fmt: skip


def price_points(home):
    """How many there are of each watched app."""
    rows = home.query("SELECT w.ZTRACKID, w.ZCOUNTRY, count(p.Z_PK) FROM ZWATCHEDAPP w LEFT JOIN ZPRICEPOINT p "
                      "ON p.ZTRACKID = w.ZTRACKID AND p.ZCOUNTRY = w.ZCOUNTRY GROUP BY w.Z_PK")  # fmt: skip
    return {(track, country): count for track, country, count in rows}


def decisions(home):
    """What is the person's, by the app."""
    rows = home.query(f"SELECT ZTRACKID, ZCOUNTRY, {DECISIONS} FROM ZWATCHEDAPP")
    return {tuple(row[:2]): row[2:] for row in rows}


class Person:
    """Changes one app after the other, and knows what comes of it."""

    def __init__(self, home, window):
        self.home, self.window = home, window
        self.rows = window.list()
        self.undoable = [decisions(home)]  # what there was before each change
        self.stopped = set()
        self.during = 0  # changes that were made while a pass ran

    def choose(self, name):
        self.window.filter(name)
        until(lambda: self.rows.row_count() == 1 and self.rows.row(0).name.startswith(name), f"{name!r} alone")
        self.rows.focus()
        keys("Home")
        until(lambda: self.rows.row(0).has("selected"), f"{name!r} chosen")
        until(lambda: self.window.page_name() == name, f"the page of {name!r}")

    def changes(self, what, act):
        """Does it, and waits until it shows in what is the person's."""
        before = decisions(self.home)
        act()
        until(lambda: decisions(self.home) != before, what)
        self.undoable.append(decisions(self.home))

    def mute(self):
        self.changes("muted", self.window.menu_item("App", "Mute Alerts", "Until I turn them on").press)

    def set_options(self):
        keys("ctrl+shift+d")
        until(lambda: shown_options(self.window), "the options")

        def act():
            keys("space", *["Tab"] * 4, "ctrl+a")
            type_text("2,49")
            keys("Return")

        self.changes("options", act)

    def stop_and_undo(self):
        """The row comes back as it was, but that the pass goes on beside it."""
        before = decisions(self.home)
        keys("ctrl+d")
        until(lambda: len(decisions(self.home)) == len(before) - 1, "one app fewer")
        self.stopped |= before.keys() - decisions(self.home).keys()
        keys("ctrl+z")
        until(lambda: decisions(self.home) == before, "it is watched again, as it was")

    def undo_and_redo(self):
        for key, state in (("ctrl+z", self.undoable[-2]), ("ctrl+shift+z", self.undoable[-1])):
            keys(key)
            until(lambda: decisions(self.home) == state, f"what {key} leaves")


def is_checking(home, since):
    """Whether an app that nobody touches waits for the pass yet: the last storefront's are written at once."""
    return bool(home.query(f"SELECT 1 FROM ZWATCHEDAPP WHERE ZCOUNTRY = '{COUNTRIES[1]}' "
                           f"AND ZLASTCHECKEDAT < {since - EPOCH}"))  # fmt: skip


def a_pass_and_a_person_change_the_same_apps(home):
    home.use_sample_library()
    write(home, f"DELETE FROM ZWATCHEDAPP WHERE ZCOUNTRY NOT IN {COUNTRIES}",
          f"UPDATE ZWATCHEDAPP SET ZLASTCHECKEDAT = {time.time() - EPOCH} - 9000 + (ZCOUNTRY = '{COUNTRIES[1]}')",
          f"UPDATE ZCACHEDAPP SET ZUPDATEDAT = {time.time() - EPOCH}")  # fmt: skip
    home.set(importPriceData="false")
    real = prices_of_store(home)
    first = decisions(home)
    app = home.start()
    window = MainWindow(app)
    person = Person(home, window)
    names = [name for (name,) in home.query("SELECT ZNAME FROM ZWATCHEDAPP WHERE ZCOUNTRY = 'us' AND ZPLATFORMRAW = "
                                            "'mac' AND ZCURRENTPRICE > 0 GROUP BY ZTRACKID HAVING count(*) = 1")]  # fmt: skip
    acts = [Person.stop_and_undo, Person.mute, Person.set_options, Person.stop_and_undo, Person.undo_and_redo]
    points = price_points(home)
    with home.store.faults(*SLOW):
        for turn in range(PASSES):
            write(home, f"UPDATE ZWATCHEDAPP SET ZCURRENTPRICE = ZCURRENTPRICE + {RISE}")
            since = time.time()
            window.menu_item("Library", "Check Prices Now").press()
            for act in acts:
                person.choose(names.pop())
                act(person)
                person.during += is_checking(home, since)
            until(lambda: not is_checking(home, since), "the end of the pass", 60)
    print(f"        {person.during} of {PASSES * len(acts)} changes while a pass ran")
    assert person.during >= PASSES, "a pass is over before anything is changed"
    for key, count in price_points(home).items():
        assert key in person.stopped or count == points[key] + PASSES, f"{count - points[key]} prices of {key}"

    # What was not watched when its answer came is checked now.
    window.menu_item("Library", "Check Prices Now").press()
    until(lambda: prices_of_library(home) == real, "the store's prices", 60)
    assert decisions(home) == person.undoable[-1]
    for state in reversed(person.undoable[:-1]):
        keys("ctrl+z")
        until(lambda: decisions(home) == state, "a change undone")
    assert decisions(home) == first
    told = {(app["trackId"], app["country"]): app["currentPrice"] for app in watched_items(home)}
    assert prices_of_library(home) == told == real, "no undo brings an old price back"
    assert app.end() == 0, app.said()


JOURNEYS = [
    an_app_is_watched_changed_and_left,
    several_apps_are_watched_at_once,
    a_pass_and_a_person_change_the_same_apps,
]

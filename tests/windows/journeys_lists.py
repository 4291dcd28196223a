# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether the window says what the command line prints of the same library, and the database beyond."""

import re
import time

from main_window import APPS_OF_COLLECTION, MainWindow
from rows import (EPOCH, Known, alerted, collected, differences, expect_equal, key_of, owned, sentence, totals, viewed,
                  watched)  # fmt: skip
from window import NotThere, keys, until

NEW_DAYS = 30
IMPORT_SECONDS = 30  # price data is read once everything else is there


def printed(home, *words):
    return home.json(*words, "-n", "200")


def apps_of(home, name):
    """Of a collection: the command line names each app's storefront."""
    return printed(home, "collections", name)["apps"]


def expect_rows(rows, expected):
    """Equal to these, in this order; what is read late has its time. A function tells what may change meanwhile: a
    page that one rests on is a visit, and its app is then known better."""
    told = expected if callable(expected) else lambda fixed=list(expected): fixed
    try:
        until(lambda: not differences(told(), rows.rows()), "the rows")
    except NotThere:
        expect_equal(told(), rows.rows())


def expect_watched(rows, home, apps):
    expect_rows(rows, lambda: [watched(app, Known(home)) for app in apps])


def sections_say_what_the_command_line_prints(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    expect_watched(window.section("watchlist"), home, printed(home, "watchlist")["items"])
    expect_rows(window.section("my-apps"), [owned(app) for app in printed(home, "my-apps")["items"]])
    alerts = home.query("SELECT ZAPPNAME, ZKINDRAW, ZOLDPRICETEXT, ZNEWPRICETEXT, ZVERSION, ZPURCHASENAME, ZISREAD,"
                        " ZDATE FROM ZALERTRECORD ORDER BY ZDATE DESC, Z_PK DESC")  # fmt: skip
    expect_rows(window.section("alerts"), map(alerted, alerts))
    views = ("SELECT ZTRACKID, ZCOUNTRY, ZNAME, ZSELLERNAME, ZLASTVIEWEDAT FROM ZCACHEDAPP"
             " WHERE ZLASTVIEWEDAT IS NOT NULL ORDER BY ZLASTVIEWEDAT DESC")  # fmt: skip
    expect_rows(window.section("history"), lambda: [viewed(row, Known(home)) for row in home.query(views)])


def collections_say_what_the_command_line_prints(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    names = [each["name"] for each in printed(home, "collections")["items"]]
    apps = {name: apps_of(home, name) for name in names}

    def head(name):  # of those that are shown the store tells the prices of the day
        return sentence(name, " · ".join(totals(map(key_of, apps[name]), Known(home))))

    expect_rows(window.section("collections"), lambda: [head(name) for name in names])
    for name in names:
        window.place_of(name).click()
        until(lambda name=name: window.lists.find_all("filler", head(name)), f"the head of {name!r}")
        if apps[name]:
            expect_rows(window.list(APPS_OF_COLLECTION),
                        lambda shown=apps[name]: [collected(app, Known(home)) for app in shown])  # fmt: skip
        else:
            window.lists.find(name="Nothing in this collection yet. Drag apps here, or press Ctrl+Shift+L on any app.")
            bars = window.part("App page").find_all("scroll bar")
            assert not any(bar.has("showing") for bar in bars), "nothing is there to scroll to"


def sidebar_counts_what_is_there(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    collections = printed(home, "collections")["items"]
    updates = sum(app.get("updateAvailable", False) for app in printed(home, "my-apps")["items"])
    unread = home.query("SELECT count(*) FROM ZALERTRECORD WHERE NOT ZISREAD")[0][0]
    saved = [name for (name,) in home.query("SELECT ZNAME FROM ZSAVEDSEARCH ORDER BY ZNAME COLLATE NOCASE")]
    deals = home.json("deals", "-n", "1")["total"]  # of the day whose file the window reads after its start
    expected = ["Discover", "Search", "Charts", f"Deals, {deals}", "Library", f"Watchlist, {printed(home, 'watchlist')['total']}", f"Alerts, {unread} unread",
                f"Collections, {len(collections)}", *(f"{each['name']}, {each['count']}" for each in collections),
                f"My Apps, {updates} updates", "History", "Compare", "Saved Searches", *saved]  # fmt: skip
    until(lambda: [node.name for node in window.places()] == expected, "the counts", IMPORT_SECONDS)


def matching_chips(items, known):
    """Which watched apps each chip leaves."""
    month_ago = time.time() - EPOCH.timestamp() - NEW_DAYS * 86400
    tests = {
        "Dropped": lambda app: app.get("changeSinceAdded", 0) < 0,
        "At lowest": lambda app: known.is_lowest(key_of(app), app["currentPrice"]),
        "Target set": lambda app: "targetPrice" in app,
        "Free now": lambda app: app["currentPrice"] == 0 and not app["unavailable"],
        "New version": lambda app: (known.released.get(key_of(app)) or 0) > month_ago,
        "In-app price changed": lambda app: app["purchasesChanged"] > 0,
        "No longer sold": lambda app: app["unavailable"],
        "Mac": lambda app: app["platform"] == "mac",
        "iPhone & iPad": lambda app: app["platform"] != "mac",
    }
    return {chip: [app for app in items if test(app)] for chip, test in tests.items()}


def expect_shown(window, apps, items, home):
    said = f"{len(apps)} of {len(items)}" if len(apps) < len(items) else f"{len(items)} apps"
    until(lambda: window.count() == said, f"{said!r}")
    if apps:
        expect_watched(window.list(), home, apps)


def chips_and_words_leave_what_they_say(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    items = printed(home, "watchlist")["items"]
    keys("ctrl+F9")  # the whole width is the list's: room for all chips
    kept = matching_chips(items, Known(home))
    chips = {chip.name: chip for chip in window.chips().find_all("check box")}
    for name, apps in kept.items():
        chips[name].click()
        expect_shown(window, apps, items, home)
        chips[name].click()
    chips["Dropped"].press("Toggle")
    chips["At lowest"].press("Toggle")
    both = [app for app in kept["Dropped"] if app in kept["At lowest"]]
    expect_shown(window, both, items, home)
    window.filter(both[0]["name"].upper())
    expect_shown(window, both[:1], items, home)
    window.chips().find("push button", "Clear filters").press()
    expect_shown(window, [app for app in items if app["name"] == both[0]["name"]], items, home)
    window.filter("")
    expect_shown(window, items, items, home)


def chips_of_other_lists_leave_as_many_as_there_are(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    updates = sum(app.get("updateAvailable", False) for app in printed(home, "my-apps")["items"])
    unread = home.query("SELECT count(*) FROM ZALERTRECORD WHERE NOT ZISREAD")[0][0]
    for section, title, chip, count in [("my-apps", "My Apps", "Update available", updates),
                                        ("alerts", "Alerts", "Unread", unread)]:  # fmt: skip
        rows = window.section(section)
        said = f"{count} of {rows.row_count()}"
        window.chips(title).find("check box", chip).press("Toggle")
        until(lambda: window.count(title) == said and rows.row_count() == count, f"{said!r} in {title}")


def lists_ask_apple_nothing(home):
    home.use_sample_library()
    before = len(home.store.requests())
    app = home.start()
    window = MainWindow(app)
    for section in ["watchlist", "alerts", "my-apps", "history", "collections"]:
        window.section(section)
        keys("Down", "Down", "Page_Down")
        if section != "collections":  # of the apps in one that is opened the prices are asked for
            keys("Return", "Escape")
    assert app.end() == 0, app.said()
    # On a slow machine a page rests long enough between two keys to be read.
    read = re.compile(r".*[.](jpg|png|webp)|/lookup[?]id=[0-9]+&.*|/api/apps/v1/catalog/[a-z]+/apps/[0-9]+[?].*")
    asked = [path for path in home.store.requests()[before:] if not read.fullmatch(path)]
    assert not asked, asked


JOURNEYS = [
    sections_say_what_the_command_line_prints,
    collections_say_what_the_command_line_prints,
    sidebar_counts_what_is_there,
    chips_and_words_leave_what_they_say,
    chips_of_other_lists_leave_as_many_as_there_are,
    lists_ask_apple_nothing,
]

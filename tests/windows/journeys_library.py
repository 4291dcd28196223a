# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What becomes of windows whatever the library holds and whoever writes to it meanwhile."""

from datetime import datetime, timedelta, timezone

import access
import layout
from main_window import SECTIONS, MainWindow
from rows import Known, beginning_of, name_line, plain, watched
from session import Store
from window import keys, until

FIRST = 1_000_000_001  # of the apps that library_edit makes up
CHANGED_DAYS = 45  # since when some prices have changed
PRICES = "SELECT ZTRACKID, ZCURRENTPRICE FROM ZWATCHEDAPP ORDER BY Z_PK"
SIZES = [(1280, 800), (760, 520)]


def expected_rows(home):
    known = Known(home)
    return [watched(app, known) for app in home.json("watchlist", "-n", "200")["items"]]


def follows_another_process_that_writes(home):
    home.edit("fill", 60)
    app = home.start()
    window = MainWindow(app)
    rows = window.list()
    rows.click()
    keys("Page_Down", "Page_Down", "Up", "Up")
    until(lambda: rows.row_at_top()[0] != rows.rows()[0], "another row at the top")
    items = home.json("watchlist", "-n", "200")["items"]
    chosen = rows.selected_rows()
    at = rows.rows().index(chosen[0])
    above, below = items[at - 2]["trackId"], items[at + 2]["trackId"]

    def expect(same):
        until(lambda: rows.rows() == expected_rows(home), "the rows that the command line prints")
        assert (rows.row_at_top(), rows.selected_rows()) == same, (rows.row_at_top(), rows.selected_rows(), same)

    still = rows.row_at_top(), chosen
    home.edit("price", below, "us", 0.99)
    expect(still)
    home.edit("add", 42, "us", "Newcomer, the second", 12.5)
    expect(still)
    home.edit("remove", items[0]["trackId"], "us")
    expect(still)
    until(lambda: window.count() == "60 apps", "the number of apps")
    home.edit("price", items[at]["trackId"], "us", 0.49)
    until(lambda: rows.selected_rows()[0].split(", ")[1] == "$0.49", "the chosen app's new price")
    until(lambda: window.part("App page").find_all("label", "$0.49, down from $%.2f when added"
                                                   % items[at]["priceWhenAdded"]), "it on the page")  # fmt: skip
    home.edit("remove", items[at]["trackId"], "us")
    until(lambda: rows.selected_rows() and rows.selected_rows()[0].startswith(items[at + 1]["name"]), "the next row")
    until(lambda: window.page_name() == items[at + 1]["name"], "its page")
    home.edit("remove", above, "us")
    until(lambda: window.place_of("Watchlist").name == "Watchlist, 58", "the number in the sidebar")
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()
    assert home.query("PRAGMA integrity_check") == [("ok",)]


def shows_what_a_price_check_finds(home):
    home.use_sample_library()
    then = (datetime.now(timezone.utc) - timedelta(days=CHANGED_DAYS)).date()
    with Store(home.programs, home.environment, home.folder, "--prices-of", str(then)) as store:
        home.environment.update(store.environment)
        app = home.start()
        window = MainWindow(app)
        rows = window.list()
        keys("Down", "Down", "Down")
        until(lambda: rows.row(3).has("selected"), "the fourth row")
        before = home.query(PRICES), rows.selected_rows()[0].split(",")[0]
        assert home.start("--check-prices", "--background").wait(10) == 0
        until(lambda: home.query(PRICES) != before[0], "other prices", 10)
        foot = until(lambda: next((node.name for node in window.part("Sidebar").children()
                                   if node.name.startswith("Checked just now")), None), "the end of the check", 10)  # fmt: skip
        assert ", Next " in foot, foot
        until(lambda: rows.rows() == expected_rows(home), "the rows that the command line prints")
        assert rows.selected_rows()[0].split(",")[0] == before[1]
        unread = home.query("SELECT count(*) FROM ZALERTRECORD WHERE NOT ZISREAD")[0][0]
        until(lambda: window.place_of("Alerts").name == f"Alerts, {unread} unread", f"{unread} unread alerts")
        assert app.end() == 0, app.said()


def shows_hostile_texts_in_one_plain_line(home):
    home.edit("hostile")
    app = home.start()
    window = MainWindow(app)
    names = [beginning_of(item) for item in home.json("watchlist", "-n", "200")["items"]]
    assert len(names) > 10 and any(name.startswith("Unnamed app") for name in names), names
    for size in SIZES:
        window.resize(*size)
        for section, title in SECTIONS.items():
            rows = window.section(section)
            said = rows.rows()
            assert all(sentence == plain(sentence) for sentence in said), said
            if section == "watchlist":
                assert all(sentence.startswith(name) for sentence, name in zip(said, names)), said
            window.expect_title(title)
            layout.expect_in_place(window.lists, rows)
        layout.expect_in_place(window, rows)
        access.expect_readable(window)
    window.resize(*SIZES[0])
    collections = home.json("collections", "-n", "200")["items"]
    lines = [name_line(each["name"], "Unnamed collection") for each in collections]
    all_said = [place.name for place in window.places()]
    first = next(number for number, name in enumerate(all_said) if name.startswith("Collections")) + 1
    end = next(number for number, name in enumerate(all_said) if name.startswith("My Apps"))
    said = [name.rpartition(", ")[0] for name in all_said[first:end]]
    assert said == lines, (said, lines)
    shown = [row.rpartition(", ")[0] for row in window.section("collections").rows()]
    assert sorted(shown) == sorted(lines), (shown, lines)
    keys("Home")
    for name in shown:
        keys("Return")
        window.expect_title(name)
        keys("alt+Left")
        window.expect_title("Collections")
        keys("Down")
    rows = window.section("watchlist")
    keys("Home")
    for number, name in enumerate(names):
        until(lambda: rows.row(number).has("selected"), f"row {number}")
        until(lambda: window.page_name() == name.rpartition(", ")[0], f"the page of {name}")
        layout.expect_in_place(window.part("App page"))
        keys("Down")
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


JOURNEYS = [
    follows_another_process_that_writes,
    shows_what_a_price_check_finds,
    shows_hostile_texts_in_one_plain_line,
]

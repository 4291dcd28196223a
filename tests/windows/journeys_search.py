# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Search: its rows against the command line's, what it asks of Apple, and a buyer's way through it."""

import json
import random
import sqlite3
import time

from main_window import MainWindow
from rows import plain
from window import KEY_MILLISECONDS, NotThere, keys, type_text, until

FILTER_SETS = 20
ARROWS = 200
REST_SECONDS = 0.3  # after which a row's page is asked for
AT_ONCE = 10  # in the sidebar without scrolling
RESULTS = "Search results"
TERMS = ["markdown", "photo", "notes", "timer"]
SORTS = {"relevance": "relevance", "priceAscending": "price-low", "priceDescending": "price-high", "rating": "rating",
         "popularity": "popularity", "recentlyUpdated": "updated", "newest": "newest", "name": "name"}  # fmt: skip
# Of each filter: what a saved search holds for a choice, and what the command line takes for it.
CHOICES = [
    [({}, [])] * 2 + [({"price": "free"}, ["--free"]), ({"price": "paid"}, ["--paid"])],
    [({}, [])] * 3 + [({"maxPrice": 9.99}, ["--max-price", "9.99"])],
    [({}, [])] * 2 + [({"minRating": 4}, ["--min-rating", "4"]), ({"minRating": 3.5}, ["--min-rating", "3.5"])],
    [({}, [])] * 3 + [({"minRatingCount": 10}, ["--min-ratings", "10"])],
    [({}, [])] * 2 + [({"updatedWithin": "year"}, ["--updated-within", "year"])],
    [({}, [])] * 3 + [({"maxSize": "under100MB"}, ["--max-size", "100mb"])],
    [({}, [])] * 3 + [({"purchases": "buyOutright"}, ["--purchases", "buy-outright"]),
                      ({"purchases": "noSubscription"}, ["--purchases", "no-subscription"])],
    [({}, [])] * 4 + [({"released": {"from": {"year": 2020}}}, ["--released-after", "2020"])],
    [({}, [])] * 4 + [({"hideOwned": True}, ["--hide-owned"])],
]  # fmt: skip


def drawn(number):
    """A search: its name, what is kept of it, and the command line's words for the same."""
    chance = random.Random(number)
    filters, words = {}, []
    for choices in CHOICES:
        kept, said = chance.choice(choices)
        filters |= kept
        words += said
    sort = chance.choice(list(SORTS))
    platform = chance.choice(["mac", "mac", "iphone"])
    term = chance.choice(TERMS)
    name = f"Drawn {number:02}"
    return name, (term, platform, sort, filters), [term, "-p", platform, "-s", SORTS[sort], *words]


def keep_searches(home, searches):
    """The only ones in the library, which nobody has open."""
    with sqlite3.connect(home.library) as database:
        database.execute("DELETE FROM ZSAVEDSEARCH")
        for name, (term, platform, sort, filters), _ in searches:
            database.execute(
                "INSERT INTO ZSAVEDSEARCH (ZNAME, ZQUERY, ZPLATFORMRAW, ZCOUNTRY, ZSORTRAW, ZFILTERSJSON, ZCREATEDAT)"
                " VALUES (?, ?, ?, 'us', ?, ?, 0)", (name, term, platform, sort, json.dumps(filters)))  # fmt: skip
    database.close()


def shown_names(window, count):
    """The names in all rows; scrolling lets the last ones come."""
    rows = window.list(RESULTS)
    if rows.row_count() < count:
        rows.focus()
        keys("End")
    return [rows.row(index).name for index in range(rows.row_count())]


def expect_found(window, found, what):
    def is_shown():
        said = shown_names(window, len(found))
        return len(said) == len(found) and all(
            row.startswith(plain(app["name"])) for row, app in zip(said, found, strict=True))  # fmt: skip

    try:
        until(is_shown, "the rows")
    except NotThere:
        said = [row.split(",")[0] for row in shown_names(window, len(found))]
        raise AssertionError(f"{what}: {said[:12]}, expected {[app['name'] for app in found][:12]}") from None


def finds_what_the_command_line_finds(home):
    home.use_sample_library()
    for first in range(0, FILTER_SETS, AT_ONCE):
        expect_all_found(home, [drawn(number) for number in range(first, first + AT_ONCE)])


def expect_all_found(home, searches):
    keep_searches(home, searches)
    app = home.start("--section", "search")
    window = MainWindow(app)
    window.resize(1280, 960)
    for name, _, words in searches:
        ended = home.run("search", *words, "-n", "200", "--json")
        assert ended.returncode in (0, 1), ended.stderr
        found = json.loads(ended.stdout)["results"]
        until(lambda name=name: window.place_of(name), name).click()
        if found:
            expect_found(window, found, f"{name} {words}")
        else:
            until(lambda: "Nothing" in str([node.name for node in window.lists.find_all("label")]), f"{name}: nothing")
    assert app.end() == 0, app.said()


def asked_of_search(home, since):
    """What the search service was asked, pictures and the catalog aside."""
    return [path for path in home.store.requests()[since:] if path.startswith(("/search", "/lookup"))]


def finds_an_app_to_buy_in_a_few_keys(home):
    home.use_sample_library()
    since = len(home.store.requests())
    window = MainWindow(home.start("--section", "search"))
    pressed = []

    def press(*combinations):
        pressed.extend(combinations)
        keys(*combinations)

    press("ctrl+f")
    type_text("markdown")
    press("Return")
    rows = window.list(RESULTS)
    press("ctrl+shift+b")
    until(lambda: 0 < rows.row_count() < 12, "what the preset leaves")
    for number in (1, 2):
        press("Down")
        until(lambda number=number: rows.row(number).has("selected"), f"row {number}")
    name = rows.row(2).name
    until(lambda: name.startswith(window.page_name()) and window.page_name(), "the page beside it")
    until(lambda: window.part("App page").find_all("label", "In-app purchases"), "all of the page")
    asked = asked_of_search(home, since)
    assert len(pressed) <= 12, pressed
    assert len(asked) <= 4, asked


def arrowing_asks_nothing(home):
    home.use_sample_library()
    window = MainWindow(home.start("--new-search", "game"))
    rows = window.list(RESULTS)
    last = until(lambda: rows.row_count() > 10 and rows.row_count(), "results") - 1
    rows.focus()
    keys("Home")
    time.sleep(1)  # the first one's page is asked for
    since, began = len(home.store.requests()), time.monotonic()
    keys(*(["Down"] * last + ["Up"] * last) * (ARROWS // (2 * last) + 1))
    rests = int((time.monotonic() - began - ARROWS * KEY_MILLISECONDS / 1000) / REST_SECONDS)
    asked = [path for path in home.store.requests()[since:] if "/v1/catalog" in path or path.startswith("/lookup")]
    assert len(asked) <= max(1, 2 * rests), f"only what one rests on is asked for: {asked}"


JOURNEYS = [finds_what_the_command_line_finds, finds_an_app_to_buy_in_a_few_keys, arrowing_asks_nothing]

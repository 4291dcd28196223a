# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What becomes of the library, and of windows on it, whatever it holds and whoever writes to it."""

from rows import beginning_of
from window import main_window_of

FIRST = 1_000_000_001  # of the apps that library_edit makes up


def opens_a_library_of_hostile_texts(home):
    home.edit("hostile")
    printed = home.json("watchlist", "-n", "200")
    assert printed["total"] > 10 and "Unnamed app" in {beginning_of(item).split(",")[0] for item in printed["items"]}
    app = home.start()
    main_window_of(app)
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


def bears_another_process_that_writes(home):
    home.edit("fill", 20)
    app = home.start()
    main_window_of(app)
    home.edit("price", FIRST + 1, "us", 0.99)
    home.edit("remove", FIRST + 2, "us")
    home.edit("add", 42, "us", "Newcomer, the second", 12.5)
    prices = {item["trackId"]: item["formattedPrice"] for item in home.json("watchlist", "-n", "200")["items"]}
    assert (len(prices), prices[FIRST + 1], prices[42]) == (20, "$0.99", "$12.50"), prices
    assert FIRST + 2 not in prices
    assert app.end() == 0, app.said()
    assert home.query("PRAGMA integrity_check") == [("ok",)]


JOURNEYS = [
    opens_a_library_of_hostile_texts,
    bears_another_process_that_writes,
]

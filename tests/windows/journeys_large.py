# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""A window on ten thousand apps."""

import time

from main_window import MainWindow
from window import keys, until

APPS = 10_000
WORD = "amber ledger"  # names of every 110th app
FOUND = sum(number % 10 == 0 and number % 11 == 0 for number in range(APPS))


def waits_while(condition, ask):
    """How long each call waited, in milliseconds: as long as the event loop was held."""
    found, deadline = [], time.monotonic() + 5
    while not condition() and time.monotonic() < deadline:
        begun = time.monotonic()
        ask()
        found.append((time.monotonic() - begun) * 1000)
    return sorted(found)


def names(rows):
    """Of the first rows; what else they say may be read later."""
    return [row.split(",")[0] for row in rows.rows(20)]


def filters_ten_thousand_apps_while_one_types(home):
    home.edit("fill", APPS)
    app = home.start()
    window = MainWindow(app, 10)
    rows = window.list()
    assert rows.row_count() == APPS
    before = names(rows)
    label = window.chips().find("label")
    until(lambda: label.name == "10,000 apps", "the number of apps")
    keys("ctrl+f")
    until(lambda: window.find_field().has("focused"), "the field")
    typist = home.desktop.start(["xdotool", "type", "--delay", "150", WORD])
    waits = waits_while(lambda: label.name == f"{FOUND} of 10,000", lambda: rows.row_count())
    typist.wait(5)
    print(f"        10,000 apps: {len(waits)} calls while typing, the longest waited {waits[-1]:.0f} ms,"
          f" 99 of 100 less than {waits[len(waits) * 99 // 100]:.0f} ms")  # fmt: skip
    assert rows.row_count() == FOUND
    assert all(name.startswith("Amber Ledger") for name in rows.rows()), rows.rows()
    keys("Escape")
    until(lambda: rows.row_count() == APPS, "all apps")
    assert names(rows) == before
    assert app.end() == 0, app.said()


JOURNEYS = [filters_ten_thousand_apps_while_one_types]

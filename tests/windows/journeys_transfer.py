# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""The user's lists as files: from one account to another, and what is no such file."""

import shelf
from main_window import MainWindow
from session import Home
from window import keys, until, window_of


def said(window, text):
    until(lambda: any(node.name == text for node in window.walk()), text)


def choose_file(app, title, file, button):
    """Not by keys: Return may be for the names that the panel proposes."""
    panel = window_of(app, title)
    panel.find("text").set_text(str(file))
    until(lambda: panel.find("push button", button).has("enabled"), f"{button} of a chosen file")
    panel.find("push button", button).press()


def export_all(app, file):
    keys("ctrl+shift+s")
    sheet = window_of(app, "Export Library")
    button = sheet.find("push button", "Export…")
    until(lambda: button.has("enabled"), "the size of the export")
    button.press()
    choose_file(app, "Export to File", file, "Save")


def takes_its_lists_to_another_account(home):
    home.use_sample_library()
    file = home.folder / "moved.json"
    first = home.start()
    window = MainWindow(first)
    export_all(first, file)
    until(file.exists, "the exported library")
    assert first.end() == 0, first.said()
    exported = shelf.lists_of(home)
    assert exported[0] and exported[1], "nothing was exported"

    with Home(home.programs, home.desktop, home.store, home.folder / "other") as other:
        app = other.start()
        window = MainWindow(app)
        window.find("push button", "Import Library…")  # of the empty watchlist
        empty = shelf.lists_of(other)
        keys("ctrl+o")
        choose_file(app, "Import From File", file, "Open")
        preview = window_of(app, "Import Library")
        preview.find("push button", "Import").press()
        until(lambda: shelf.lists_of(other) == exported, "the lists of the first account")
        keys("ctrl+z")
        until(lambda: shelf.lists_of(other) == empty, "the lists as they were")
        keys("ctrl+shift+z")
        until(lambda: shelf.lists_of(other) == exported, "the lists again")
        assert app.end() == 0, app.said()


def imports_what_is_ticked(home):
    home.use_sample_library()
    file = shelf.write_shelf(home, home.folder / "shelf.json")
    before = shelf.lists_of(home)
    app = home.start()
    window = MainWindow(app)
    keys("ctrl+o")
    choose_file(app, "Import From File", file, "Open")
    preview = window_of(app, "Import Library")
    rows = preview.find("tree", "What the file holds")
    until(lambda: rows.has("focused"), "the focus in the rows")
    keys("Down", "space")  # the first app
    preview.find("label", "Adds 24 of 30 items. Nothing of yours is replaced; one undo takes all back.")
    keys("Return")
    said(window, "Imported 3 watched apps, 2 collections, 21 collected apps, 5 already present.")
    watchlist, collections = shelf.lists_of(home)
    assert len(watchlist) == len(before[0]) + 3 and len(collections) == len(before[1]) + 2
    assert shelf.FIRST_NEW not in {each["trackId"] for each in watchlist}, "what had no tick"
    keys("ctrl+z")
    until(lambda: shelf.lists_of(home) == before, "the lists as they were")
    assert app.end() == 0, app.said()


def tells_what_is_no_library(home):
    home.use_sample_library()
    before = shelf.lists_of(home)
    large, bad = home.folder / "large.json", home.folder / "bad.json"
    large.write_bytes(b'{"version": 1, "watchlist": [' + b" " * 32_000_000)
    shelf.write(bad, [{**shelf.watched(1, "One"), "country": "../etc"}])
    app = home.start()
    window = MainWindow(app)
    for file, why in ((bad, f"“bad.json” is no exported library: 'watchlist[0].country' is not two lower-case letters."),
                      (large, f"'{large}' could not be read: it holds more than 32000000 bytes.")):  # fmt: skip
        keys("ctrl+o")
        choose_file(app, "Import From File", file, "Open")
        said(window, f"Nothing was imported. {why}")
    assert shelf.lists_of(home) == before
    assert app.end() == 0, app.said()


JOURNEYS = [takes_its_lists_to_another_account, imports_what_is_ticked, tells_what_is_no_library]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""From what is installed to what is to take its place, by the keyboard alone."""

from journeys_scan import put
from main_window import APPS_OF_COLLECTION, KEYS, MainWindow
from window import NAME, active_title, keys, titles_of, type_text, until, window_of

OLD, ITS_BUNDLE = 6400191887, "com.lumastix.handyapitester-8n"  # without an update for years
CATEGORY = "Developer Tools"
RESULTS = "Search results"
NOTE = "Opens what the old one saved"


def focused(window):
    """What has the focus, by role and name. Asked again where a part vanishes meanwhile."""
    def look():
        return (next(((node.role, node.name) for node in window.part("Content").walk()
                      if node.has("focused") and node.has("showing")), None),)  # fmt: skip

    return until(look, "what has the focus")[0]


def tab_to(window, role, name):
    seen = []
    while (at := focused(window)) != (role, name):
        assert seen.count(at) < 3, f"{role} {name!r} is not among {seen}"
        seen.append(at)
        keys("Tab")
        until(lambda at=at: focused(window) != at, f"the focus behind {at}")


def choose_from_menu(window, name):
    """From the menu of what is chosen, which begins as the menu of apps does."""
    before = titles_of(window.app)
    keys("Menu")
    until(lambda: len(titles_of(window.app)) > len(before), "the menu")
    entries = next(iter(window.menu_item("App").children())).children()
    names = [node.name for node in entries if node.name and node.has("enabled")]
    keys(*["Down"] * (names.index(name) + 1), "Return")


def scan_by_keys(window):
    tab_to(window, "push button", "Scan Applications Folder")
    keys("space")
    rows = window_of(window.app, "Scan Result", 30).find("list", "Found apps").rows()
    keys("Return")
    until(lambda: active_title().endswith(NAME), "the window in front again")
    return rows


def replaces_what_is_abandoned_by_keys(home):
    folder = home.folder / "Applications"
    put(folder, "Handy API Tester", ITS_BUNDLE, "1.9")
    put(folder, "Draftlark", "se.larkendahl.draftlark", "2.8")
    home.set(applicationsFolders=folder, scanAtStart="false")
    app = home.start("--section", "my-apps")
    window = MainWindow(app)
    assert scan_by_keys(window)[0] == "Matched, 2"

    keys("shift+F6")  # from the list to the toolbar
    tab_to(window, "radio button", "List")
    keys("Right")
    tab_to(window, "list", "Fine")
    keys("Right")  # over two columns without a card
    abandoned = window.list("Likely abandoned")
    until(lambda: abandoned.selected_rows() == abandoned.rows(), "the abandoned one")
    assert abandoned.rows()[0].startswith("Handy API Tester,"), abandoned.rows()
    choose_from_menu(window, "Find a Replacement")
    window.expect_title(CATEGORY)
    wanted = ["search", CATEGORY, "--genre", CATEGORY, "--purchases", "buy-outright", "--updated-within", "6months"]
    found = home.json(*wanted, "-n", "200")["results"]
    rows = window.list(RESULTS)
    until(lambda: rows.row_count() == len(found), f"{len(found)} to choose from")

    tab_to(window, "list", RESULTS)
    keys("Home", "Down")
    until(lambda: rows.selected_rows() == [rows.row(1).name], "the second one")
    chosen = found[1]
    assert rows.row(1).name.startswith(chosen["name"]), rows.row(1).name
    keys("ctrl+shift+l")
    until(lambda: window.part("Add to Collection").find("text").has("focused"), "the field for a name")
    type_text("Instead")
    keys("Return")
    window_of(app, "New Collection")
    keys("Return")
    held = lambda: home.json("collections", "Instead")["apps"]  # noqa: E731
    until(lambda: home.json("collections")["total"] == 1 and len(held()) == 1, "it in a collection")

    keys(KEYS["collections"])
    cards = window.list("Collections")
    until(lambda: cards.has("focused") or cards.row(0).has("focused"), "the focus in the collections")
    keys("Return")
    apps = window.list(APPS_OF_COLLECTION)
    until(lambda: apps.has("focused"), "the focus in the collection")
    keys("Home", "ctrl+i")
    until(lambda: not apps.has("focused"), "the focus in the note")
    type_text(NOTE)
    keys("Return")
    until(lambda: held()[0].get("note") == NOTE, "the note")
    kept = held()[0]
    assert (kept["trackId"], kept["name"]) == (chosen["trackId"], chosen["name"]), kept
    owned = {(each["trackId"], each["installedVersion"]) for each in home.json("my-apps")["items"]}
    assert owned == {(OLD, "1.9"), (1507733121, "2.8")}, owned
    keys("ctrl+q")
    assert app.wait(5) == 0, app.said()
    assert app.said() == "", app.said()


JOURNEYS = [replaces_what_is_abandoned_by_keys]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""How the apps that one owns are cared for: the board, what it offers, and updates that are skipped."""

from main_window import MainWindow
from window import keys, until

INTEL = ("SELECT o.ZNAME FROM ZOWNEDAPP o JOIN ZCACHEDAPP c USING (ZTRACKID, ZCOUNTRY)"
         " WHERE c.ZNEEDSROSETTA = 1")  # fmt: skip
SKIPPED = "SELECT ZNAME FROM ZOWNEDAPP WHERE ZSKIPPEDVERSION IS NOT NULL ORDER BY ZNAME"


def show_board(window):
    window.part("Toolbar").find("radio button", "Upkeep").press("Toggle")


def board_agrees_with_the_list_and_leads_to_a_replacement(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    rows = window.section("my-apps")
    window.chips("My Apps").find("check box", "Likely abandoned").press("Toggle")
    until(lambda: " of " in window.count("My Apps"), "fewer apps")
    abandoned = rows.row_count()
    window.chips("My Apps").find("check box", "Likely abandoned").press("Toggle")
    show_board(window)
    until(lambda: window.list("Likely abandoned").row_count() == abandoned, f"{abandoned} abandoned apps")
    intel = [name for (name,) in home.query(INTEL)]
    until(lambda: window.list("Needs Rosetta").row_count() == len(intel), f"{len(intel)} apps for Intel")
    window.lists.find("push button", f"{len(intel)} apps stop")
    window.menu_item("App", "Find a Replacement").press()
    genres = {app.get("genre") for app in home.json("my-apps", "-n", "200")["items"]}
    until(lambda: window.title.removesuffix(" — Quillet") in genres, "a search for the category")
    until(lambda: window.find_all("check box", "Can be bought outright"), "the filters of the search")
    assert app.end() == 0, app.said()
    again = MainWindow(home.start("--section", "my-apps"))
    again.list("Needs Rosetta")  # the board is remembered


def updates_are_skipped_and_heeded(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    rows = window.section("my-apps")
    updates = sum(app.get("updateAvailable", False) for app in home.json("my-apps", "-n", "200")["items"])
    before = home.query(SKIPPED)
    window.chips("My Apps").find("check box", "Update available").press("Toggle")
    until(lambda: rows.row_count() == updates, f"{updates} updates")
    keys("Home")
    window.menu_item("App", "Skip This Version").press()
    until(lambda: rows.row_count() == updates - 1, "one less")
    assert len(home.query(SKIPPED)) == len(before) + 1
    keys("ctrl+z")
    until(lambda: rows.row_count() == updates and home.query(SKIPPED) == before, "all of them again")


JOURNEYS = [board_agrees_with_the_list_and_leads_to_a_replacement, updates_are_skipped_and_heeded]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Collections and My Apps by hand: after each edit, undo and redo what the command line then reads."""

import json

from main_window import APPS_OF_COLLECTION, MainWindow
from window import NotThere, keys, type_text, until, window_of, xdotool

NOTE = "Wait for the sale"
ROWS = ["SELECT * FROM ZAPPCOLLECTION ORDER BY Z_PK", "SELECT * FROM ZCOLLECTIONENTRY ORDER BY Z_PK",
        "SELECT Z_PK, ZTRACKID, ZPRICEWHENADDED, ZTRACKVIEWURL FROM ZOWNEDAPP ORDER BY Z_PK"]  # fmt: skip


class Edits:
    """What the library held after each edit: as the command line reads it, and to the last row."""

    def __init__(self, home):
        self.home = home
        self.states = [(self.collections(), self.owned(), self.rows())]

    def collections(self):
        names = [each["name"] for each in self.home.json("collections")["items"]]
        return {name: self.apps_of(name) for name in names}

    def apps_of(self, collection):
        """`NotThere` where an edit took the collection away since it was listed."""
        ended = self.home.run("collections", collection, "--json")
        if ended.returncode:
            raise NotThere(ended.stderr)
        return [(app["trackId"], app.get("note", "")) for app in json.loads(ended.stdout)["apps"]]

    def owned(self):
        return {app["trackId"]: app.get("pricePaid") for app in self.home.json("my-apps", "-n", "200")["items"]}

    def rows(self):
        return [self.home.query(sql) for sql in ROWS]

    def expect(self, collections=None, owned=None):
        before = self.states[-1]
        expected = before[0] if collections is None else collections, before[1] if owned is None else owned
        try:
            until(lambda: (self.collections(), self.owned()) == expected, "what the edit leaves")
        except NotThere:
            now = self.collections(), self.owned()
            for told, wanted in zip(now, expected):
                different = {key for key in told.keys() | wanted.keys() if told.get(key, ()) != wanted.get(key, ())}
                assert not different, [(key, told.get(key), "not", wanted.get(key)) for key in different]
            raise
        self.states.append((*expected, self.rows()))

    def expect_again(self, state):
        until(lambda: (self.collections(), self.owned(), self.rows()) == state, "the library as it was")


def answer(app, title, text):
    window_of(app, title)
    keys("ctrl+a")
    type_text(text)
    keys("Return")


def drag(row, onto, key=None):
    """A row onto a place, with a key held at the end."""
    for node, acts in [(row, ["mousedown", 1]), (onto, [])]:
        left, top, width, height = node.box
        x, y = left + width // 2, top + height // 2
        xdotool("mousemove", x, y, *acts)
        for step in range(1, 6):  # a drag begins once the pointer has moved far enough
            xdotool("mousemove", x + 2 * step, y + step, "sleep", 0.03)
        if key and not acts:
            xdotool("keydown", key, "mousemove", x, y, "sleep", 0.05)
    xdotool("mouseup", 1)
    if key:
        xdotool("keyup", key)


def collects_and_takes_it_back(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    edits = Edits(home)
    watched = home.json("watchlist", "-n", "200")["items"]
    mine = edits.owned()
    at = next(i for i in range(len(watched)) if watched[i]["trackId"] not in mine)
    first, second = watched[at]["trackId"], watched[at + 1]["trackId"]
    before = edits.collections()
    other = next(name for name, apps in before.items() if first not in dict(apps) and second not in dict(apps))

    def choose_watched():
        rows = window.section("watchlist")
        until(lambda: rows.has("focused"), "the focus in the list")
        keys("Home", *["Down"] * at)
        until(lambda: rows.selected_rows() == [rows.row(at).name], "the row")

    keys("ctrl+n")
    answer(app, "New Collection", "Shortlist")
    edits.expect(collections={**before, "Shortlist": []})
    window.expect_title("Shortlist")

    choose_watched()
    keys("shift+Down", "ctrl+shift+l")
    until(lambda: window.part("Add to Collection").find("text").has("focused"), "the field for a name")
    type_text("SHORT")
    keys("Return")
    edits.expect(collections={**before, "Shortlist": [(first, ""), (second, "")]})

    choose_watched()
    keys("ctrl+shift+o")
    until(lambda: first in edits.owned(), "the app in My Apps")
    edits.expect(owned={**mine, first: watched[at]["currentPrice"]})

    held = edits.owned()
    found = next(each for each in home.json("search", "photo", "--paid")["results"] if each["trackId"] not in held)
    window.menu_item("Library", "Add App by Hand…").press()
    until(lambda: window.part("Add to My Apps").find("text").has("focused"), "the field for an app")
    type_text(f"https://apps.apple.com/us/app/id{found['trackId']}")
    keys("Return")
    edits.expect(owned={**held, found["trackId"]: found["price"]})

    window.place_of("Shortlist").click()
    rows = window.list(APPS_OF_COLLECTION)
    rows.row(0).click()
    until(lambda: rows.has("focused"), "the focus in the list")
    keys("ctrl+i")
    until(lambda: not rows.has("focused"), "the focus in the note")  # rows are all that a list tells
    type_text(NOTE)
    keys("Return")
    held = [(first, NOTE), (second, "")]
    edits.expect(collections={**before, "Shortlist": held})

    keys("F2")
    answer(app, "Rename Collection", "To buy")
    edits.expect(collections={**before, "To buy": held})
    window.expect_title("To buy")

    window.menu_item("Edit", "Duplicate Collection").press()
    edits.expect(collections={**before, "To buy": held, "To buy copy": held})

    drag(rows.row(0), window.place_of(other), "shift")
    moved = {other: None, "To buy": [(second, "")], "To buy copy": held}
    until(lambda: (first, NOTE) in edits.collections()[other], "the app in the other collection")
    moved[other] = edits.collections()[other]
    assert sorted(moved[other]) == sorted([*before[other], (first, NOTE)]), moved[other]
    edits.expect(collections={**before, **moved})

    window.place_of("To buy").click()
    keys("Delete")
    del moved["To buy"]
    edits.expect(collections={**before, **moved})
    window.expect_title("Collections")

    for state in reversed(edits.states[:-1]):
        keys("ctrl+z")
        edits.expect_again(state)
    for state in edits.states[1:]:
        keys("ctrl+shift+z")
        edits.expect_again(state)
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


JOURNEYS = [collects_and_takes_it_back]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether what the user changes is changed in the library, undone and done again, as another program reads it."""

from main_window import APPS_OF_COLLECTION, MainWindow
from window import keys, type_text, until, window_of

# What holds the rows of each list, whole and with their keys.
TABLES = {
    "watchlist": ["SELECT * FROM ZWATCHEDAPP ORDER BY Z_PK"],
    "alerts": ["SELECT * FROM ZALERTRECORD ORDER BY Z_PK"],
    "my-apps": ["SELECT * FROM ZOWNEDAPP ORDER BY Z_PK"],
    "history": ["SELECT * FROM ZCACHEDAPP WHERE ZLASTVIEWEDAT IS NOT NULL ORDER BY Z_PK"],
    "collections": ["SELECT * FROM ZAPPCOLLECTION ORDER BY Z_PK", "SELECT * FROM ZCOLLECTIONENTRY ORDER BY Z_PK"],
}


def stored(home, section):
    return [home.query(query) for query in TABLES[section]]


def takes_out(home, rows, section):
    """Removes the two rows chosen first, takes that back, does it again, and takes it back."""
    keys("Home", "shift+Down")
    until(lambda: len(rows.selected_rows()) == 2, f"two rows of {section} chosen")
    before, count = stored(home, section), rows.row_count()
    keys("Delete")
    until(lambda: rows.row_count() == count - 2, f"two rows fewer in {section}")
    after = stored(home, section)
    assert len(after[-1]) <= len(before[-1]) - 2, f"{section}: still stored"
    for key, expected in (("ctrl+z", before), ("ctrl+shift+z", after), ("ctrl+z", before)):
        keys(key)
        until(lambda: stored(home, section) == expected, f"{section} after {key}")
    until(lambda: rows.row_count() == count, f"all rows of {section} again")


def takes_rows_out_and_brings_them_back(home):
    home.use_sample_library()
    # A page that is rested on is a visit, and opens an alert: nothing else shall change what is compared.
    home.set(keepHistory="false")
    app = home.start("--section", "history")
    window = MainWindow(app)
    for section in TABLES:
        takes_out(home, window.section(section), section)
    name = home.json("collections", "-n", "1")["items"][0]["name"]
    window.place_of(name).click()
    window.expect_title(name)
    keys("Return")  # from the sidebar into the list
    takes_out(home, window.list(APPS_OF_COLLECTION), "collections")
    assert home.json("watchlist")["total"] == len(stored(home, "watchlist")[0])
    assert app.end() == 0, app.said()


def saved_searches(home):
    """As the command line reads them, but for when they were used."""
    return {each["name"]: each["commandLine"] for each in home.json("saved-searches")["items"]}


def keeps_searches_and_takes_it_back(home):
    home.use_sample_library()
    app = home.start("--section", "search")
    window = MainWindow(app)
    rows = ["SELECT Z_PK, ZNAME, ZQUERY, ZFILTERSJSON, ZCREATEDAT FROM ZSAVEDSEARCH ORDER BY Z_PK"]

    def answer(title, name):
        window_of(app, title)
        keys("ctrl+a")
        type_text(name)
        keys("Return")

    def stored():
        return [home.query(query) for query in rows]

    states = [(saved_searches(home), stored())]

    def expect(searches):
        until(lambda: saved_searches(home) == searches, "what the edit leaves")
        states.append((searches, stored()))

    keys("ctrl+f")
    type_text("tidepool notes")
    keys("Return", "ctrl+shift+b")
    window.expect_title("tidepool notes")
    keys("ctrl+s")
    answer("Save Search", "Tides")
    until(lambda: "Tides" in saved_searches(home), "the saved search")
    command = saved_searches(home)["Tides"]
    assert "tidepool notes" in command and "--purchases" in command, command
    expect({**states[0][0], "Tides": command})
    until(lambda: window.place_of("Tides"), "it in the sidebar").click()
    keys("F2")
    answer("Rename Search", "Shores")
    expect({**states[0][0], "Shores": command})
    until(lambda: window.place_of("Shores"), "its other name").click()
    keys("Delete")
    expect(states[0][0])

    for key, turned in (("ctrl+z", states[-2::-1]), ("ctrl+shift+z", states[1:])):
        for state in turned:
            keys(key)
            until(lambda: (saved_searches(home), stored()) == state, f"the saved searches after {key}")  # noqa: B023
    assert app.end() == 0, app.said()


JOURNEYS = [takes_rows_out_and_brings_them_back, keeps_searches_and_takes_it_back]

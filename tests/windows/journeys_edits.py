# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether what the user changes is changed in the library, undone and done again, as another program reads it."""

from main_window import APPS_OF_COLLECTION, MainWindow
from window import keys, until

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


JOURNEYS = [takes_rows_out_and_brings_them_back]

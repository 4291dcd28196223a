# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Where the user is: history, restarts, and what a start is told to show."""

import access
from main_window import APPS_OF_COLLECTION, SECTIONS, MainWindow
from window import active_title, keys, until, xdotool

NARROW = (760, 520)


def scroll(rows, presses):
    """Down by so many pages, with a row chosen there."""
    rows.click()
    before = rows.row_at_top()
    keys(*["Page_Down"] * presses)
    until(lambda: rows.row_at_top() != before, "another row at the top")


def look(window, name):
    rows = window.list(name)
    return window.title, rows.rows(), rows.row_at_top(), rows.selected_rows(), window.page_name()


def sight(window, name):
    """All that a place brings back, once it rests: title, rows, which is uppermost and where, which is
    chosen, and whose page is shown."""

    def rested():
        *_, chosen, page = seen = look(window, name)
        return seen if chosen and chosen[0].startswith(page) and look(window, name) == seen else None

    return until(rested, f"{name} to rest")


def expect_sight(window, name, expected):
    until(lambda: look(window, name) == expected, f"the same sight of {name}")


def goes_back_and_forward_to_the_same_sight(home):
    home.use_sample_library()
    window = MainWindow(home.start())
    scroll(window.section("watchlist"), 2)
    first = sight(window, "Watchlist")
    scroll(window.section("my-apps"), 5)
    second = sight(window, "My Apps")
    window.place_of("Writing").click()
    third = sight(window, APPS_OF_COLLECTION)
    for key, name, expected in [("alt+Left", "My Apps", second), ("alt+Left", "Watchlist", first),
                                ("alt+Right", "My Apps", second), ("alt+Right", APPS_OF_COLLECTION, third)]:  # fmt: skip
        keys(key)
        expect_sight(window, name, expected)
    assert not window.part("Toolbar").find("push button", "Forward").has("enabled")


def restarts_where_it_was(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    rows = window.section("my-apps")
    window.menu_item("View", "Sort By", "Size").press()
    window.filter("a")
    until(lambda: rows.row_count() < 120, "fewer rows")
    scroll(rows, 3)
    window.resize(1200, 700)
    before = sight(window, "My Apps"), window.size(), window.count("My Apps")
    assert app.end() == 0, app.said()

    home.environment.update({name: "http://127.0.0.1:9" for name in home.store.environment})  # nobody is there
    app = home.start()
    window = MainWindow(app)
    until(lambda: (look(window, "My Apps"), window.size(), window.count("My Apps")) == before, "the same sight")
    assert window.find_field().text == "a"
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


def narrow_windows_show_the_page_in_the_place_of_the_list(home):
    home.use_sample_library()
    window = MainWindow(home.start("--section", "my-apps"))
    window.resize(*NARROW)
    rows = window.list("My Apps")
    scroll(rows, 3)
    before = sight(window, "My Apps")
    chosen = before[3][0]
    keys("Return")
    name = until(window.page_name, "the page")
    assert chosen.startswith(name), (chosen, name)
    window.expect_title(name)
    assert not rows.has("showing")
    access.expect_readable(window)
    keys("alt+Left")
    expect_sight(window, "My Apps", before)
    until(lambda: rows.has("focused"), "the focus in the list")
    keys("Return", "ctrl+Down")
    until(lambda: window.page_name() not in ("", name), "the next app's page")
    keys("Escape")
    until(lambda: rows.has("showing") and rows.selected_rows()[0] != chosen, "the next row")


def expect_page(window, app):
    """Beside its list, where it is the row that is chosen."""
    until(lambda: window.page_name() == app["name"], f"the page of {app['name']}")
    until(lambda: window.list().selected_rows()[0].startswith(app["name"]), "its row")


def opens_what_it_is_told(home):
    home.use_sample_library()
    apps = {app["name"]: app for app in home.json("watchlist", "-n", "200")["items"]}
    first, second = apps["Riverrook RSS"], apps["Brackethorn"]
    app = home.start("--open", str(first["trackId"]))
    window = MainWindow(app)
    expect_page(window, first)
    other = home.desktop.start(["xmessage", "-title", "In front", "text"])
    until(lambda: active_title() == "In front", "another window in front")
    link = f"https://apps.apple.com/us/app/brackethorn/id{second['trackId']}?mt=12"
    assert home.start("--open", link).wait(10) == 0
    expect_page(window, second)
    until(lambda: active_title() == window.title, "the window in front")
    for word, title in SECTIONS.items():
        xdotool("search", "--name", "In front", "windowactivate", "--sync")
        assert home.start("--section", word).wait(10) == 0
        window.expect_title(title)
        until(lambda: window.list(title).has("focused"), f"the focus in {title}")
    other.terminate()
    assert home.start("--open", "nonsense").wait(10) == 0
    window.part("Content").find("filler", "That is no link to an app.")
    assert home.start("--section", "elsewhere", "--no-such-option").wait(10) == 0
    window.expect_title("History")
    for words in [("--open", "42"), ("--new-search", "markdown")]:
        assert home.start(*words).wait(10) == 0
        window.expect_title(words[1])
    assert app.end() == 0, app.said()


def begins_with_a_search(home):
    home.forget_windows()
    app = home.start()
    MainWindow(app).expect_title("Search")
    assert app.end() == 0, app.said()


JOURNEYS = [
    goes_back_and_forward_to_the_same_sight,
    restarts_where_it_was,
    narrow_windows_show_the_page_in_the_place_of_the_list,
    opens_what_it_is_told,
    begins_with_a_search,
]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""How the application starts, is started again, and ends."""

import signal

import access
from main_window import MainWindow
from window import NAME, active_title, keys, main_window_of, titles_of, until


def lookups(store):
    """How often apps were asked for."""
    return sum(path.startswith("/lookup") for path in store.requests())


def expect_watched(app, count):
    """The library is open, and this many apps are watched; returns the window."""
    window = MainWindow(app)
    assert window.list().row_count() == count
    until(lambda: window.place_of("Watchlist").name == f"Watchlist, {count}", f"{count} in the sidebar")
    return window


def starts_with_a_window_that_can_be_read(home):
    home.use_sample_library()
    app = home.start()
    window = expect_watched(app, home.json("watchlist", "-n", "200")["total"])
    access.expect_readable(window)
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


def starts_without_a_library(home):
    app = home.start()
    nothing = "Nothing on the watchlist yet. Watch an app to hear when it gets cheaper."
    MainWindow(app).lists.find("filler", nothing)
    assert home.json("watchlist")["total"] == 0
    assert app.end(by=signal.SIGINT) == 0, app.said()


def is_raised_by_a_second_start(home):
    app = home.start()
    main_window_of(app)
    other = home.desktop.start(["xmessage", "-title", "In front", "text"])
    until(lambda: active_title() == "In front", "another window in front")
    second = home.start()
    assert second.wait(10) == 0, second.said()
    until(lambda: active_title().endswith(NAME), "the window in front again")
    assert len(titles_of(app)) == 1
    other.terminate()
    assert app.end() == 0, app.said()


def opens_its_window_for_a_later_start(home):
    app = home.start("--background")
    until(lambda: home.library.exists(), "the library")
    assert home.start("--check-prices", "--background").wait(10) == 0
    assert titles_of(app) == {}
    assert home.start().wait(10) == 0
    main_window_of(app)
    assert app.end() == 0, app.said()


def ends_when_its_window_is_closed(home):
    app = home.start()
    main_window_of(app).raise_()
    keys("alt+F4")
    assert app.wait(5) == 0, app.said()


def says_where_there_is_no_display(home):
    said = "quillet: there is no display to open a window on; quillet --background runs without one.\n"
    ended = home.run(DISPLAY="")
    assert (ended.returncode, ended.stdout, ended.stderr) == (3, "", said), ended
    ended = home.run(DISPLAY=":987")
    assert (ended.returncode, ended.stdout) == (3, ""), ended
    assert ended.stderr.startswith("quillet: the display to open a window on does not answer; "), ended
    assert ended.stderr.count("\n") == 1, ended


def checks_prices_when_a_later_start_asks(home):
    home.edit("fill", 150)
    app = home.start()
    main_window_of(app)
    before = lookups(home.store)
    assert home.start("--check-prices", "--background").wait(10) == 0
    until(lambda: lookups(home.store) > before, "a lookup")
    assert app.end() == 0, app.said()


def looks_no_app_up_by_being_opened(home):
    home.edit("fill", 150)
    before = lookups(home.store)
    app = home.start()
    expect_watched(app, 150)
    assert app.end() == 0, app.said()
    assert lookups(home.store) == before


JOURNEYS = [
    starts_with_a_window_that_can_be_read,
    starts_without_a_library,
    is_raised_by_a_second_start,
    opens_its_window_for_a_later_start,
    ends_when_its_window_is_closed,
    says_where_there_is_no_display,
    checks_prices_when_a_later_start_asks,
    looks_no_app_up_by_being_opened,
]

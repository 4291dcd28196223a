# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Life without a window: the tray, notifications, and ends whatever the desktop's services do."""

import signal
import sqlite3
import time

from main_window import MainWindow
from services import NetworkManager, Notifications, Tray
from window import keys, main_window_of, titles_of, until

LONGEST_END = 2  # seconds


def has_window(app):
    return bool(titles_of(app))


def let_price_fall(home):
    """A watched app is sold at its target price, which the next check finds; returns its ID and name."""
    app = next(each for each in home.json("watchlist", "-n", "200")["items"]
               if each["country"] == "us" and each["currentPrice"] > 0)  # fmt: skip
    with sqlite3.connect(home.library) as library:
        library.execute("UPDATE ZWATCHEDAPP SET ZCURRENTPRICE = 100 + ZCURRENTPRICE, ZTARGETPRICE = 100, "
                        "ZTARGETCURRENCY = NULL, ZLASTNOTIFIEDPRICE = NULL, ZMUTEDUNTIL = NULL "
                        "WHERE ZTRACKID = ? AND ZCOUNTRY = 'us'", [app["trackId"]])  # fmt: skip
    library.close()
    return app["trackId"], app["name"]


def unread(home, track_id):
    return home.query(f"SELECT count(*) FROM ZALERTRECORD WHERE ZISREAD = 0 AND ZTRACKID = {track_id}")[0][0]


def browser_of(home):
    """What opens pages of the web in place of a browser: the environment, and what it was asked to open."""
    opened = home.folder / "opened"
    opener = home.folder / "bin/xdg-open"
    opener.parent.mkdir()
    opener.write_text(f'#!/bin/sh\necho "$1" >> {opened}\n')
    opener.chmod(0o755)
    environment = {"PATH": f"{opener.parent}:{home.environment['PATH']}", "BROWSER": str(opener)}
    return environment, lambda: opened.read_text().split() if opened.exists() else []


def leads_from_a_notification_to_the_store(home):
    home.use_sample_library()
    home.set(notificationsEnabled="true")
    track_id, name = let_price_fall(home)
    environment, opened = browser_of(home)
    with Notifications(home.desktop) as service:
        app = home.start("--background", "--check-prices", **environment)
        title = f"{name} hit your target price"
        number = until(lambda: service.number_of(title), f"the notification {title!r}")
        assert service.shown[number]["actions"] == {
            "default": "Show App", "show-app": "Show App", "open-in-store": "Open in App Store"}  # fmt: skip
        assert unread(home, track_id) == 1 and not has_window(app)

        service.choose(number)
        window = MainWindow(app)
        until(lambda: window.page_name() == name, f"the page of {name}")
        page = window.part("App page")
        until(lambda: [node for node in page.walk() if node.name == f"Price history of {name}"], "the chart of its prices")
        until(lambda: not unread(home, track_id) and number not in service.shown, "the notification to go")
        page.find(name="App Store").press()
        until(opened, "the App Store")
        assert f"/id{track_id}" in opened()[0], opened()
        assert app.end() == 0, app.said()


def opens_the_store_at_once(home):
    home.use_sample_library()
    home.set(notificationsEnabled="true")
    track_id, name = let_price_fall(home)
    environment, opened = browser_of(home)
    with Notifications(home.desktop) as service:
        app = home.start("--background", "--check-prices", **environment)
        number = until(lambda: service.number_of(f"{name} hit your target price"), "the notification")
        service.choose(number, "open-in-store")
        until(opened, "the App Store")
        assert f"/id{track_id}" in opened()[0], opened()
        until(lambda: not unread(home, track_id) and number not in service.shown, "the notification to go")
        assert not has_window(app)
        assert app.end() == 0, app.said()


def withdraws_what_another_program_marked_as_read(home):
    home.use_sample_library()
    home.set(notificationsEnabled="true")
    track_id, name = let_price_fall(home)
    with Notifications(home.desktop) as service:
        app = home.start("--background", "--check-prices")
        number = until(lambda: service.number_of(f"{name} hit your target price"), "the notification")
        with sqlite3.connect(home.library) as library:
            library.execute("UPDATE ZALERTRECORD SET ZISREAD = 1 WHERE ZTRACKID = ?", [track_id])
        library.close()
        until(lambda: number not in service.shown, "the notification to go")
        assert app.end() == 0, app.said()


def marks_alerts_and_takes_it_back(home):
    home.use_sample_library()
    keys_of = "SELECT Z_PK FROM ZALERTRECORD WHERE ZISREAD = 0 ORDER BY Z_PK"
    before = home.query(keys_of)
    assert len(before) > 1
    app = home.start("--section", "alerts")
    window = MainWindow(app)
    window.list("Alerts")
    until(lambda: window.menu_item("Library", "Mark All as Read").has("enabled"), "unread alerts")
    keys("ctrl+shift+u")
    until(lambda: home.query(keys_of) == [], "all to be read")
    keys("ctrl+z")
    until(lambda: home.query(keys_of) == before, "the same to be unread")
    keys("ctrl+shift+z")
    until(lambda: home.query(keys_of) == [], "all to be read again")
    window.list("Alerts").focus()
    keys("Home")
    until(lambda: window.menu_item("Library", "Mark as Unread").has("enabled"), "a read alert")
    window.menu_item("Library", "Mark as Unread").press()
    until(lambda: len(home.query(keys_of)) == 1, "an unread alert")
    time.sleep(0.5)  # longer than one rests on a page that counts as read
    assert len(home.query(keys_of)) == 1, "what was marked by hand stays so"
    keys("Down")
    keys("Home")
    until(lambda: home.query(keys_of) == [], "the alert whose page was opened to be read")
    assert app.end() == 0, app.said()


def lives_in_the_tray(home):
    home.use_sample_library()
    home.set(notificationsEnabled="true")
    unread_ones = home.query("SELECT count(*) FROM ZALERTRECORD WHERE ZISREAD = 0")[0][0]
    with Notifications(home.desktop) as service:
        app = home.start()
        window = main_window_of(app)
        with Tray(home.desktop) as tray:
            until(lambda: tray.items, "an icon")
            head = until(lambda: next((text for text in tray.menu() if "unread" in text), None), "the unread alerts")
            assert head == f"{unread_ones} unread alerts", head
            menu = tray.menu()
            fixed = ["Check Prices Now", "Watchlist", "Deals", "Open Quillet", "Settings…", "Quit Quillet"]
            assert [text for text in menu if text in fixed] == fixed, menu
            assert menu[menu.index("Check Prices Now") + 1].startswith("Checked "), menu
            assert 1 <= menu.index("Check Prices Now") - 1 <= 5, menu

            window.raise_()
            keys("alt+F4")
            until(lambda: not has_window(app), "the window to go")
            until(lambda: service.number_of("Quillet keeps running"), "a word about it")
            tray.click()
            main_window_of(app).raise_()
            keys("alt+F4")
            until(lambda: not has_window(app), "the window to go again")
            assert len(service.shown) == 1, service.shown
            name = menu[1]
            tray.press(name)
            shown = MainWindow(app)
            until(lambda: shown.page_name() == name, f"the page of {name}")
            tray.press("Watchlist")
            shown.list("Watchlist")
            tray.press("Deals")
            shown.list("Deals")
        with Tray(home.desktop) as tray:
            until(lambda: tray.items, "the icon to return")
            tray.press("Quit Quillet")
            assert app.wait(LONGEST_END) == 0, app.said()


def quits_with_its_window_where_no_tray_is_left(home):
    with Tray(home.desktop) as tray:
        app = home.start()
        until(lambda: tray.items, "an icon")
    main_window_of(app).raise_()
    keys("alt+F4")
    assert app.wait(LONGEST_END) == 0, app.said()


def quits_with_its_window_where_that_is_wanted(home):
    home.set(keepRunning="false")
    with Tray(home.desktop) as tray:
        app = home.start()
        until(lambda: tray.items, "an icon")
        main_window_of(app).raise_()
        keys("alt+F4")
        assert app.wait(LONGEST_END) == 0, app.said()


def stays_without_a_window_after_a_start_in_the_background(home):
    app = home.start("--background")
    until(lambda: home.library.exists(), "the library")
    assert home.start().wait(10) == 0
    main_window_of(app).raise_()
    keys("alt+F4")
    until(lambda: not has_window(app), "the window to go")
    assert home.start().wait(10) == 0
    main_window_of(app).raise_()
    keys("ctrl+q")
    assert app.wait(LONGEST_END) == 0, app.said()


def ends_whatever_hangs(home):
    """In the middle of a check, with services that never answer."""
    home.edit("fill", 1000)
    home.set(notificationsEnabled="true")
    with (Notifications(home.desktop, answers=False) as service, Tray(home.desktop, answers=False) as tray,
          home.store.faults("stall")):  # fmt: skip
        before = len(home.store.requests())
        app = home.start("--check-prices")
        main_window_of(app)
        until(lambda: service.asked and tray.asked.is_set() and len(home.store.requests()) > before, "a check under way")
        begun = time.monotonic()
        app.process.send_signal(signal.SIGTERM)
        assert app.wait(LONGEST_END) == 0, app.said()
        print(f"        ended within {time.monotonic() - begun:.1f} s")


def leaves_metered_networks_alone(home):
    system = {"DBUS_SYSTEM_BUS_ADDRESS": home.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]}
    yes, no = 1, 2

    def charts():
        return sum("/charts/" in path for path in home.store.requests())

    with NetworkManager(home.desktop, yes):
        before = charts()
        app = home.start("--background", **system)
        until(lambda: home.library.exists(), "the library")
        time.sleep(1.5)  # thrice as long as it waits for the manager
        assert charts() == before, home.store.requests()
        assert app.end() == 0, app.said()
    with NetworkManager(home.desktop, no):
        app = home.start("--background", **system)
        until(lambda: charts() > before, "charts to be recorded")
        assert app.end() == 0, app.said()


def runs_without_a_bus(home):
    none = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere", "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere"}
    app = home.start(**none)
    handle = until(lambda: next(iter(titles_of(app)), None), "a window")
    assert home.start("--check-prices", "--background", **none).wait(10) == 0
    home.desktop.output(["xdotool", "windowactivate", "--sync", handle])
    keys("alt+F4")
    assert app.wait(LONGEST_END) == 0, app.said()


def starts_once_where_two_start_at_once(home):
    home.edit("fill", 3)
    before = sum(path.startswith("/lookup") for path in home.store.requests())
    starts = [home.start("--section", "history"), home.start("--section", "history", "--check-prices")]
    until(lambda: any(app.process.poll() == 0 for app in starts), "one of them to hand over")
    first = next(app for app in starts if app.process.poll() is None)
    MainWindow(first).expect_title("History")
    until(lambda: sum(path.startswith("/lookup") for path in home.store.requests()) > before, "a check")
    assert len(titles_of(first)) == 1
    assert first.end() == 0, first.said()


JOURNEYS = [
    leads_from_a_notification_to_the_store,
    opens_the_store_at_once,
    withdraws_what_another_program_marked_as_read,
    marks_alerts_and_takes_it_back,
    lives_in_the_tray,
    quits_with_its_window_where_no_tray_is_left,
    quits_with_its_window_where_that_is_wanted,
    stays_without_a_window_after_a_start_in_the_background,
    ends_whatever_hangs,
    leaves_metered_networks_alone,
    runs_without_a_bus,
    starts_once_where_two_start_at_once,
]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What is chosen in the settings and asked of somebody new, and a library that is emptied."""

import http.server
import json
import threading

from main_window import MainWindow
from window import keys, titles_of, type_text, until, window_of

RECORDED = ("ZPRICEPOINT", "ZRANKPOINT", "ZCHARTSNAPSHOT", "ZPURCHASEPRICEPOINT")
LISTS = ("watchlist", "my-apps", "collections", "saved-searches")
REMOVAL = "Remove all library data?"


def kept(home, key):
    """What the settings file says; empty where it says nothing."""
    file = home.folder / "config/quillet/quillet.conf"
    lines = file.read_text().splitlines() if file.exists() else []
    return dict(line.split("=", 1) for line in lines if "=" in line).get(key, "").strip('"')


def go_to(words):
    """To the row of the settings that has these words."""
    keys("ctrl+f", "ctrl+a")
    type_text(words)
    keys("Return")


def next_check(window):
    return [node.name for node in window.part("Sidebar").walk() if "Next" in node.name]


def held(home, command):
    said = home.run(command, "--json").stdout
    return next(iter(value for value in json.loads(said).values() if isinstance(value, list)), None) if said else []


def sets_each_page_by_keys(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    before = until(lambda: next_check(window), "the time of the next check")
    keys("ctrl+comma")
    settings = window_of(app, "Settings")
    for words, presses, key, value in [
        ("window closed", ["space"], "keepRunning", "false"),
        ("check prices every", ["Down"], "priceCheckIntervalHours", "6"),
        ("new watches alert", ["space"], "watchAnyDrop", "false"),
        ("metered", ["space"], "checkOnMetered", "true"),
        ("keep alerts", ["Down"], "keepAlertsDays", "30"),
        ("record charts", ["space"], "recordCharts", "false"),
        ("cache limit", ["Up", "Return"], "imageCacheMB", "320"),
    ]:
        assert kept(home, key) == "", key
        go_to(words)
        keys(*presses)
        until(lambda: kept(home, key) == value, f"{key}={value}, not {kept(home, key)!r}")
    until(lambda: next_check(window) != before, "another time of the next check")
    go_to("search service")
    type_text("ftp://nowhere")
    until(lambda: [node for node in settings.walk() if node.name.startswith("Not usable")], "what is wrong with it")
    keys("Return")
    assert kept(home, "itunesURL") == ""
    keys("ctrl+a")
    type_text("http://localhost:9")
    keys("Return")
    until(lambda: kept(home, "itunesURL") == "http://localhost:9", "the address")
    go_to("notify")
    settings.find("label", "This desktop has no notification service; alerts stay in the list.")
    assert app.end() == 0, app.said()


def empties_the_library_and_keeps_what_was_recorded(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    window.list()
    watched = home.json("watchlist", "-n", "200")["items"]
    recorded = {table: set(home.query(f"SELECT Z_PK FROM {table}")) for table in RECORDED}

    def ask():
        keys("ctrl+comma")
        window_of(app, "Settings")
        go_to("erase")
        keys("space")
        return window_of(app, REMOVAL)

    def expect_gone():
        until(lambda: REMOVAL not in titles_of(app).values(), "the question gone")

    ask()
    keys("Return")
    expect_gone()
    assert home.json("watchlist", "-n", "200")["items"] == watched, "Enter is Cancel"

    question = ask()
    assert any(f"• {len(watched)} watched apps\n" in node.name for node in question.find_all("label"))
    exported = home.folder / "kept.json"
    question.find("push button", "Export First…").press()
    window_of(app, "Export Library")
    keys("ctrl+a")
    type_text(str(exported))
    keys("Return")
    question.find("label", "Exported to kept.json.")
    assert len(json.loads(exported.read_text())["watchlist"]) == len(watched)
    question.find("push button", "Remove Everything").press()
    expect_gone()
    for command in LISTS:
        until(lambda: not held(home, command), f"nothing in {command}")
    until(lambda: window.place_of("Watchlist").name in ("Watchlist", "Watchlist, 0"), "an empty watchlist")
    for table, rows in recorded.items():  # charts of today may have come
        assert rows and rows <= set(home.query(f"SELECT Z_PK FROM {table}")), table
    assert not window.menu_item("Edit", "Undo").has("enabled")
    assert app.end() == 0, app.said()


def asks_somebody_new_step_by_step(home):
    home.is_new = True
    home.forget_windows()
    app = home.start()
    MainWindow(app)
    welcome = window_of(app, "Welcome")
    type_text("fran")
    welcome.find("push button", "Continue").press()
    until(lambda: kept(home, "storefrontCountry") == "fr", "the storefront")
    welcome.find("radio button", "Not now")
    welcome.find("push button", "Skip").press()
    until(lambda: welcome.find_all("radio button", "Later"), "whether apps are to be added")
    welcome.find("radio button", "Add some now").press("Toggle")
    welcome.find("push button", "Continue").press()
    welcome.find("check box", "Read published price data").press("Toggle")
    welcome.find("push button", "Done").press()
    until(lambda: kept(home, "importPriceData") == "false", "no price data")
    until(lambda: "Welcome" not in titles_of(app).values(), "the question gone")
    assert kept(home, "notificationsEnabled") == "" and kept(home, "keepRunning") == ""
    until(lambda: "My Apps — Quillet" in titles_of(app).values(), "My Apps, to add some")
    assert app.end() == 0, app.said()


class ReleaseList:
    """A server with a list of releases; what it answers can be changed, and what it was asked is kept."""

    def __init__(self, body):
        self.body, self.paths = body, []
        listed = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                listed.paths.append(self.path)
                self.send_response(200)
                self.send_header("Content-Length", str(len(listed.body)))
                self.end_headers()
                self.wfile.write(listed.body.encode())

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def address(self):
        return f"http://127.0.0.1:{self.server.server_port}/releases.json"


def hears_of_a_newer_release_once_a_day(home):
    listed = ReleaseList(json.dumps({"releases": [
        {"version": "99.1", "notes": "<b>Faster</b>", "page": "https://quillet.example/99.1"}]}))
    home.set(updateFeedURL=listed.address())
    app = home.start()
    window = MainWindow(app)
    until(lambda: listed.paths == ["/releases.json"], "the list, asked for by itself")
    until(lambda: "Quillet 99.1 is there." in [node.name for node in window.walk()], "the news")
    window.menu_item("Tools", "Check for Updates…").press()
    updates = window_of(app, "Updates")
    updates.find("label", "Quillet 99.1 is there.")
    until(lambda: updates.find("push button", "Check Now").has("enabled"), "the answer")
    updates.find("push button", "Skip This Version").press()
    updates.find("push button", "No Longer Skip")
    listed.body = json.dumps({"releases": [{"version": "100", "page": "http://quillet.example"}]})
    updates.find("push button", "Check Now").press()
    updates.find("label", "The list of releases could not be read: a 'page' is no https address.")
    assert app.end() == 0, app.said()
    asked = len(listed.paths)
    app = home.start()
    window = MainWindow(app)
    window.menu_item("Tools", "Diagnostics…").press()
    told = window_of(app, "Diagnostics")
    until(lambda: told.find("push button", "Copy").has("enabled"), "what is known")
    assert len(listed.paths) == asked, "asked more than once a day"
    assert app.end() == 0, app.said()


JOURNEYS = [sets_each_page_by_keys, empties_the_library_and_keeps_what_was_recorded, asks_somebody_new_step_by_step,
            hears_of_a_newer_release_once_a_day]

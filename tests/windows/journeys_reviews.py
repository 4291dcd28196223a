# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether the window of an app's reviews says what the command line prints of them."""

from datetime import datetime

from main_window import MainWindow
from rows import differences, expect_equal, plain, sentence
from window import NotThere, keys, shown_window, until

PAGE = 20
TOLD_FIRST = 10  # with the page


def day(date):
    if not date:
        return ""
    then = datetime.fromisoformat(date)
    return f"{then.day} {then:%b}" + ("" if then.year == datetime.now().year else f" {then.year}")


def reviewed(item):
    """What its row says of a review that the command line prints."""
    stars = f"{item['rating']} of 5 stars" if item.get("rating") else ""
    parts = [item["userName"], item.get("version"), "edited" if item["isEdited"] else ""]
    byline = " · ".join(part for part in map(plain, filter(None, parts)) if part)
    reply = item.get("developerResponse") or ""
    head = " · ".join(filter(None, ["Developer", day(item.get("developerResponseDate"))])) if reply else ""
    return sentence(plain(item["title"]), stars, byline, day(item.get("date")), item["body"].strip(), head, reply.strip())


def printed(home, app, *words):
    return home.json("reviews", str(app["trackId"]), "--country", app["country"], *words)


def much_reviewed(home):
    """A watched app with more than two pages of reviews."""
    for app in home.json("watchlist", "-n", "200")["items"]:
        if printed(home, app, "-n", str(3 * PAGE))["count"] == 3 * PAGE:
            return app
    raise AssertionError("no watched app has so many reviews")


def expect_reviews(window, expected):
    """These, and a row that leads to more."""
    rows = window.find("list", "Reviews")
    shown = lambda: [row for row in rows.rows() if not row.startswith(("Read More", "Reading"))]  # noqa: E731
    try:
        until(lambda: not differences(expected, shown()), "the reviews")
    except NotThere:
        expect_equal(expected, shown())


def reviews_say_what_the_command_line_prints(home):
    home.use_sample_library()
    app = much_reviewed(home)
    by_the_store = [reviewed(each) for each in printed(home, app, "-n", str(2 * PAGE), "--versions")["reviews"]]
    newest = [reviewed(each) for each in printed(home, app, "-n", "50", "--recent")["reviews"]]
    running = home.start("--open", str(app["trackId"]))
    main = MainWindow(running)
    title = f"Reviews of {plain(app['name'])}"

    all_reviews = main.part("App page").find("push button", "All Reviews", seconds=20)
    until(lambda: all_reviews.has("showing"), "the reviews on the page")
    all_reviews.press()
    window = until(lambda: shown_window(running, title.__eq__), f"the window {title!r}")
    asked = len(home.store.requests())
    expect_reviews(window, by_the_store[:TOLD_FIRST])
    assert len(home.store.requests()) == asked, "what the page knows is not asked again"
    for shown in (PAGE, 2 * PAGE):
        keys("End", "Return")
        expect_reviews(window, by_the_store[:shown])
    window.find("radio button", "Most Recent").press("Toggle")
    expect_reviews(window, newest)
    window.find("check box", pane="Stars").press("Toggle")
    expect_reviews(window, [each for each in newest if ", 5 of 5 stars, " in each])
    exports = ("File", "Export Reviews…")
    until(lambda: main.menu_item(*exports).has("enabled"), "a list to export")
    keys("Escape")
    main.part("App page").find("push button", "All Reviews")
    until(lambda: not main.menu_item(*exports).has("enabled"), "no list to export")


JOURNEYS = [reviews_say_what_the_command_line_prints]

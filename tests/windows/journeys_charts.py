# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Charts: places, movement and best places against the command line's, and a store that fails."""

import json
from datetime import datetime

from main_window import MainWindow
from rows import name_line, price_text, sentence
from window import NotThere, keys, titles_of, until

CHARTS = "Charts"
LIMITED = r"Apple is limiting requests\. Trying again in \d+ s\."
UNLIMITED = r"Apple's server returned an error \(HTTP 429\)\."


def printed(home, *words):
    ended = home.run("charts", *words, "-n", "200", "--json")
    assert ended.returncode == 0, ended.stderr
    return json.loads(ended.stdout)


def place_text(result):
    change = result.get("change") or 0
    movement = {"up": f"up {change}", "down": f"down {-change}", "same": "unchanged", "new": "new in the chart",
                None: ""}[result.get("movement")]  # fmt: skip
    return sentence(f"rank {result['rank']}", movement)


def beginning_of(result):
    app = result["app"]
    price = price_text(app.get("price"), app.get("currency"), app.get("formattedPrice"))
    return sentence(name_line(app["name"]), price, place_text(result))


def expect_shown(window, results, what):
    """The rows, each of which goes on with what the chart's list does not print."""
    expected = [beginning_of(result) for result in results]

    def is_shown():
        rows = window.list(CHARTS)
        if rows.row_count() != len(expected):
            return False
        said = rows.rows()
        return all((row + ",").startswith(wanted + ",") for row, wanted in zip(said, expected, strict=True))

    try:
        until(is_shown, what, 20)
    except NotThere:
        raise AssertionError(f"{what}: {window.list(CHARTS).rows(6)}, expected {expected[:6]}") from None


def press(window, pane, name):
    toolbar = window.part("Toolbar")
    shown = lambda: [node for node in toolbar.find_all("radio button", name, pane) if node.has("showing")]  # noqa: E731
    until(shown, name)[0].press("Toggle")


def caption(window):
    return next((node.name for node in window.lists.find_all("label")
                 if node.name.startswith("Movement") and node.has("showing")), "")  # fmt: skip


def expect_recorded_movement(window, chart):
    since = datetime.fromisoformat(chart["movementSince"].replace("Z", "+00:00"))
    told = f"Movement since {since.day} {since:%b}, from Quillet's daily record of the top {chart['movementDepth']} · "
    until(lambda: caption(window).startswith(told), told)


def expect_best(home, window, chart, count):
    """Beside the first places, the best that the record of the same chart has."""
    query = chart["query"]
    for number, result in enumerate(chart["results"][:count]):
        ended = home.run("rank-history", str(result["app"]["trackId"]), "--json")
        best = next(each["best"] for each in json.loads(ended.stdout)["daily"]
                    if (each["chart"], each["platform"]) == (query["chart"], query["platform"]))  # fmt: skip
        until(lambda number=number, best=best: f", best #{best}," in window.list(CHARTS).row(number).name + ",",
              f"best #{best} of row {number + 1}")  # fmt: skip


def choose_category(window, name, *combinations):
    """By keys in the menu of all."""
    before = len(titles_of(window.app))
    window.part("Toolbar").find("push button", "Category: All Categories").click()
    until(lambda: len(titles_of(window.app)) > before, "the menu of categories")
    keys(*combinations)
    window.part("Toolbar").find("push button", f"Category: {name}")


def shows_the_charts_of_the_command_line(home):
    home.use_sample_library()
    home.set(importPriceData="false")
    window = MainWindow(home.start("--section", "charts"))
    window.resize(1280, 960)
    chart = printed(home)
    assert {result["movement"] for result in chart["results"]} >= {"up", "down", "same"}
    expect_shown(window, chart["results"], "top free for Macs")
    expect_recorded_movement(window, chart)
    expect_best(home, window, chart, 3)
    assert not window.part("Toolbar").find("radio button", "Top Grossing").has("enabled")

    press(window, "Platform", "iPhone")
    press(window, "Chart", "Top Paid")
    chart = printed(home, "-p", "iphone", "--chart", "top-paid")
    expect_shown(window, chart["results"], "top paid for iPhones")
    expect_recorded_movement(window, chart)
    count = len(chart["results"])
    until(lambda: window.count(CHARTS) == ("200 apps" if count == 200 else f"{count} available"), "their number")

    window.part("Toolbar").find("check box", "Filters").press("Toggle")
    window.lists.find("radio button", "4+ stars").press("Toggle")
    rated = printed(home, "-p", "iphone", "--chart", "top-paid", "--min-rating", "4")
    assert 0 < len(rated["results"]) < count
    expect_shown(window, rated["results"], "those with four stars")
    until(lambda: window.count(CHARTS) == f"{len(rated['results'])} of {count}", "how many of them")
    rising = [result for result in rated["results"] if result["movement"] == "up"]
    window.chips(CHARTS).find("check box", "Rising").press("Toggle")
    expect_shown(window, rising, "those that rise")
    keys("alt+Left")
    keys("alt+Left")
    expect_shown(window, printed(home)["results"], "the first chart again")


def shows_other_charts_without_a_record(home):
    home.use_sample_library()
    home.set(importPriceData="false")
    window = MainWindow(home.start("--section", "charts"))
    window.resize(1280, 960)
    window.list(CHARTS)
    press(window, "Platform", "iPad")
    press(window, "Chart", "Top Grossing")
    chart = printed(home, "-p", "ipad", "--chart", "top-grossing")
    assert not chart.get("movementSince")
    expect_shown(window, chart["results"], "top grossing for iPads")
    choose_category(window, "Utilities", "Up", "Up", "Return")
    chart = printed(home, "-p", "ipad", "--chart", "top-grossing", "--genre", "Utilities")
    expect_shown(window, chart["results"], "those of a category")
    until(lambda: not caption(window), "no word of movement")
    press(window, "Platform", "Mac")
    expect_shown(window, printed(home, "--genre", "Utilities")["results"], "its free ones for Macs")


def keeps_its_rows_while_the_store_fails(home):
    home.use_sample_library()
    home.set(importPriceData="false")
    window = MainWindow(home.start("--section", "charts"))
    window.list(CHARTS)
    until(lambda: caption(window), "movement")
    before = window.list(CHARTS).rows(20)
    refresh = window.part("Toolbar").find("push button", "Refresh")
    with home.store.faults("path=/lookup status=429"):
        refresh.press()
        window.expect_strip("lists", LIMITED, 20)
        assert window.list(CHARTS).rows(20) == before
        window.press_strip("lists", "Stop")
        window.expect_strip("lists", UNLIMITED)
    window.press_strip("lists", "Try Again")
    until(lambda: not window.strip("lists"), "no strip")
    assert window.list(CHARTS).rows(20) == before
    # Without its pages the store still has feeds, which are shorter; where there is none, there is no chart.
    with home.store.faults("path=/us/mac/charts status=404", "path=/us/iphone/charts status=404"):
        press(window, "Chart", "Top Paid")
        window.expect_strip("lists", r"This chart is not available\.")
        press(window, "Platform", "iPhone")
        feed = printed(home, "-p", "iphone", "--chart", "top-paid")["results"]
        expect_shown(window, feed, "the feed of the chart")
        until(lambda: window.count(CHARTS) == f"{len(feed)} available", "how many the feed has")
    press(window, "Platform", "Mac")
    expect_shown(window, printed(home, "--chart", "top-paid")["results"], "the chart once the store is well")


JOURNEYS = [shows_the_charts_of_the_command_line, shows_other_charts_without_a_record,
            keeps_its_rows_while_the_store_fails]  # fmt: skip

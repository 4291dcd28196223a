# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Compare: each figure against the command line's, and all that is done with columns, cells and files."""

import csv
import re

import access
from journeys_collecting import drag
from main_window import APPS_OF_COLLECTION, MainWindow
from rows import money, size_text
from window import keys, type_text, until, window_of

MOST = 8


class Table:
    """The comparison as the accessibility bus has it."""

    def __init__(self, window):
        self.window = window

    def lines(self):
        """By the text at the beginning of each line, the names first."""
        node = self.window.lists.find("table", "Compare", seconds=2)
        width = node._it.get_table_iface().get_n_columns() + 1
        names = [child.name for child in node.children()]
        return {names[at]: names[at + 1:at + width] for at in range(0, len(names), width)}

    def names(self):
        return self.lines()[""]

    def expect(self, label, texts):
        until(lambda: self.lines().get(label) == texts, f"{label}: {texts}; there is {self.lines().get(label)}")


def cost(entry, years):
    """What some years of an app cost, from what the command prints of it."""
    app, currency = entry["app"], entry["app"].get("currency")
    if "firstYearCost" not in entry:
        return None
    plans = [each["pricePerYear"] for each in entry["purchases"] if "pricePerYear" in each and each.get("currency") == currency]
    return app.get("price", 0) + min(plans, default=0) * years, plans


def expect_figures(table, printed):
    """What the command says of these apps is what the table shows."""
    entries = printed["entries"]
    dash = lambda found: found if found else "—"  # noqa: E731
    amount = lambda value, app: "Free" if value == 0 else money(value, app["currency"])  # noqa: E731
    table.expect("", [entry["app"]["name"] for entry in entries])
    table.expect("Price", [entry["app"]["formattedPrice"] for entry in entries])
    first = [amount(entry["firstYearCost"], entry["app"]) if "firstYearCost" in entry else "—" for entry in entries]
    table.expect("First year", first)
    years = []
    for entry in entries:
        total, plans = cost(entry, 1)
        assert abs(total - entry["firstYearCost"]) < 0.001, entry
        years.append(money(min(plans), entry["app"]["currency"]) if plans else "—")
    table.expect("Per year", years)
    table.expect("Size", [dash(size_text(entry["app"]["sizeBytes"])) for entry in entries])
    needs = ["macOS" if entry["app"]["kind"] == "mac-software" else "iOS" for entry in entries]
    table.expect("Needs", [f"{system} {entry['app']['minimumOS']}" for system, entry in zip(needs, entries)])
    ratings = [f"{entry['app']['rating']:.1f} ({entry['app']['ratingCount']:,})" if entry["app"].get("ratingCount") else "—"
               for entry in entries]  # fmt: skip
    shown = table.lines()["Rating"]
    for printed_text, text in zip(ratings, shown):
        assert printed_text.split(" ")[-1] == text.split(" ")[-1], (ratings, shown)


def compare(home, ids):
    return home.json("compare", *map(str, ids), "-c", "us")


def compares_as_the_command_line_does(home):
    home.use_sample_library()
    app = home.start("--section", "compare")
    window = MainWindow(app)
    window.lists.find(name="Compare two to eight apps. Press Ctrl+T on any app, or drag apps onto Compare.")
    window.place_of("Watchlist").click()
    rows = window.list("Watchlist")
    watched = [item for item in home.json("watchlist", "-n", "200")["items"]
               if item["country"] == "us" and not item["unavailable"]][:MOST]  # fmt: skip
    # Of an ID that a Mac app and another one share, the command tells what its record says.
    kinds = {entry["app"]["trackId"]: entry["app"]["kind"]
             for entry in compare(home, [item["trackId"] for item in watched])["entries"]}  # fmt: skip
    names = {item["name"]: item["trackId"] for item in watched
             if (item["platform"] == "mac") == (kinds.get(item["trackId"]) == "mac-software")}  # fmt: skip
    ids = []

    def add(name):
        window.filter(name)
        until(lambda: rows.row_count() > 0 and rows.row(0).name.startswith(name), name)
        rows.row(0).click()
        until(lambda: rows.row(0).has("selected"), "a chosen row")
        keys("ctrl+t")

    for name, number in list(names.items())[:3]:
        add(name)
        ids.append(number)
        until(lambda: window.place_of("Compare").name == f"Compare, {len(ids)}", f"{len(ids)} compared")
    window.filter("")

    keys("ctrl+9")
    table = Table(window)
    expect_figures(table, compare(home, ids))
    access.expect_readable(window)

    # The years: what the slider says is what is summed up.
    slider = window.part("Compare").find("slider", "Years of use")
    slider.click()
    keys("Home")
    until(lambda: "1 year" in table.lines(), "one year of use")
    for line, first, entry in zip(table.lines()["1 year"], table.lines()["First year"], compare(home, ids)["entries"]):
        total = line.split(",")[0].split(" ✓")[0]
        unlock = re.search(r"(\S+) from month \d+$", line)
        prices = [each["price"] for each in entry["purchases"] if not each["subscription"] and "price" in each]
        bought = [money(entry["app"]["price"] + price, "USD") for price in prices if unlock and money(price, "USD") == unlock[1]]
        assert total in (bought if unlock else [first]), (line, first, entry)
    keys("End")
    until(lambda: "5 years" in table.lines(), "five years of use")
    for line, entry in zip(table.lines()["5 years"], compare(home, ids)["entries"]):
        total, _ = cost(entry, 5)
        if "from month" not in line:
            assert line.split(",")[0].split(" ✓")[0] == (money(total, "USD") if total else "Free"), (line, entry)
    said = window.lists.find(name="Years to own")._it.get_description
    assert said().startswith("After 5 years – "), said()
    for text in table.lines()["5 years"]:
        assert text.split(",")[0].split(" ✓")[0].replace("Free", "$0.00") in said(), (text, said())

    # Columns: moved, removed, and all of it taken back.
    window.lists.find("table", "Compare").click()
    before = table.names()
    keys("ctrl+Home", "ctrl+shift+Right")
    moved = [before[1], before[0], before[2]]
    until(lambda: table.names() == moved, f"the order {moved}")
    keys("Delete")
    until(lambda: table.names() == [before[1], before[2]], "a column fewer")
    keys("ctrl+z")
    until(lambda: table.names() == moved, "the column again")
    keys("ctrl+z")
    until(lambda: table.names() == before, "the first order again")

    # Its page stands in the table's place, and back.
    keys("ctrl+Home", "Return")
    until(lambda: window.page_name() == before[0], "the page of the app")
    keys("alt+Left")
    until(lambda: table.names() == before, "the table again")

    # A column is watched as a row is.
    watched = lambda: before[0] in [item["name"] for item in home.json("watchlist", "-n", "200")["items"]]  # noqa: E731
    assert watched()
    keys("ctrl+d")
    until(lambda: not watched(), f"{before[0]} is watched no longer")
    keys("ctrl+d")
    until(watched, f"{before[0]} is watched again")

    # A file for spreadsheets holds the command's numbers.
    window.menu_item("File", "Export Comparison as CSV…").press()
    window_of(app, "Export Comparison")
    file = home.folder / "apps.csv"
    keys("ctrl+a")
    type_text(str(file))
    keys("Return")
    until(file.exists, "the file")
    with open(file, newline="") as opened:
        kept = {line[0]: line[1:] for line in csv.reader(opened)}
    for column, entry in enumerate(compare(home, ids)["entries"]):
        assert kept["App"][column].lstrip("'") == entry["app"]["name"], kept
        assert abs(float(kept["Price"][column]) - entry["app"]["price"]) < 0.005, kept
        assert abs(float(kept["First year"][column]) - entry["firstYearCost"]) < 0.005, kept
        assert int(kept["Size"][column]) == entry["app"]["sizeBytes"], kept
        assert kept["Currency"][column] == entry["app"]["currency"], kept

    # What was copied is a table, of which a field has one line.
    window.menu_item("Edit", "Copy as Markdown").press()
    window.place_of("Watchlist").click()
    window.list("Watchlist")
    keys("ctrl+f", "ctrl+v")
    until(lambda: "| First year |" in window.find_field().text, "the table as Markdown")
    keys("ctrl+a", "BackSpace", "ctrl+9")

    # It is remembered.
    assert app.end() == 0, app.said()
    app = home.start()
    window = MainWindow(app)
    expect_figures(Table(window), compare(home, ids))
    assert "5 years" in Table(window).lines()
    assert app.end() == 0, app.said()
    assert app.said() == "", app.said()


def compares_what_is_dropped_and_refuses_a_ninth(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    rows = window.list("Watchlist")
    drag(rows.row(0), window.place_of("Compare"))
    until(lambda: window.place_of("Compare").name == "Compare, 1", "one that was dropped")
    collections = home.json("collections")["items"]
    name = max(collections, key=lambda each: each["count"])["name"]
    window.place_of(name).click()
    window.list(APPS_OF_COLLECTION)
    window.menu_item("Edit", "Compare First 8").press()
    table = Table(window)
    until(lambda: 2 <= len(table.names()) <= MOST, "the collection's apps")
    keys("ctrl+z")
    until(lambda: window.place_of("Compare").name == "Compare, 1", "what was compared before")
    assert app.end() == 0, app.said()


JOURNEYS = [compares_as_the_command_line_does, compares_what_is_dropped_and_refuses_a_ninth]

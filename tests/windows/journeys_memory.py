# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What Quillet remembers of prices and ranks: the page says what the command line prints."""

from datetime import datetime, timedelta, timezone

from journeys_page import date_of, day
from main_window import MainWindow
from rows import money, plain
from window import keys, until

IMPORT_SECONDS = 30  # published prices are read once the window has come to rest
LIST = "-n", "200"


def page_of(home, track, name):
    window = MainWindow(home.start("--open", str(track)))
    until(lambda: window.page_name() == plain(name), f"the page of {name}")
    return window, window.part("App page")


def chart_of(page, name):
    return page.find("chart", name)


def expect_table(page, name, rows, what):
    """That the chart of that name has these points; `rows` is asked each time."""
    shown = []

    def fits():
        shown[:] = chart_of(page, name).table()
        return shown == rows()

    until(fits, what)


def choose_last(page, name):
    """Of what a button with a menu offers."""
    button = until(lambda: next((node for node in page.find_all("push button") if node.name.startswith(f"{name}: ")), None), name)
    button.focus()
    keys("space", "End", "Return")


def price_rows(points, currency, source):
    """What the table of a chart says of prices by their dates."""
    days = [day(date, always=True) for date, _ in points]
    return [[since, until_, money(price, currency) if price else f"{money(0, currency).partition('.')[0]}", source]
            for since, until_, (_, price) in zip(days, [*days[1:], "now"], points, strict=True)]  # fmt: skip


def an_apps_prices_are_those_published(home):
    home.use_sample_library()
    known = {row[0] for row in home.query("SELECT ZTRACKID FROM ZPRICEPOINT")}
    deal = next(each for each in home.json("deals", *LIST)["deals"] if each["trackId"] not in known)
    told = home.json("price-history", str(deal["trackId"]))
    window, page = page_of(home, deal["trackId"], deal["name"])
    name = f"Price history of {plain(deal['name'])}"
    until(lambda: any(node.role == "chart" and node.name == name for node in page.walk()), "published prices", IMPORT_SECONDS)
    if any(node.name.startswith("Range: ") for node in page.find_all("push button")):
        choose_last(page, "Range")
    points = [(point["date"], point["price"]) for point in told["points"]]
    expect_table(page, name, lambda: price_rows(points, told["currency"], "published price data"), "the published prices")
    low = money(told["lowestRecorded"], told["currency"]) if told["lowestRecorded"] else "Free"
    said = chart_of(page, name).description
    assert low in said and f"Now {money(told['currentPrice'], told['currency'])}." in said, said


def keys_alone_set_a_target(home):
    home.use_sample_library()
    watched = lambda: {app["trackId"]: app for app in home.json("watchlist", *LIST)["items"]}  # noqa: E731
    prices = dict(home.query("SELECT ZTRACKID, count(DISTINCT ZPRICE) FROM ZPRICEPOINT WHERE ZCOUNTRY = 'us' GROUP BY 1"))
    app = next(app for app in watched().values() if "targetPrice" not in app and prices.get(app["trackId"], 0) > 1
               and app["country"] == "us" and not app["unavailable"])  # fmt: skip
    track = app["trackId"]
    window, page = page_of(home, track, app["name"])
    chart_of(page, f"Price history of {plain(app['name'])}").focus()
    keys("alt+Down")
    target = until(lambda: watched()[track].get("targetPrice"), "a target")
    assert target < app["currentPrice"], target
    keys("ctrl+z")
    until(lambda: "targetPrice" not in watched()[track], "no target again")


def another_currency_is_named_and_not_drawn(home):
    home.use_sample_library()
    app = next(app for app in home.json("watchlist", *LIST)["items"] if app["country"] == "us" and not app["unavailable"])
    track = str(app["trackId"])
    first = home.query(f"SELECT min(ZDATE) FROM ZPRICEPOINT WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us'")[0][0]
    ago = (datetime.now(timezone.utc) - datetime(2001, 1, 1, tzinfo=timezone.utc) - timedelta(seconds=first)).days
    home.edit("point", track, "us", "97.5", "BGN", str(ago + 90))
    home.edit("point", track, "us", "88.5", "BGN", str(ago + 30))
    home.edit("point", track, "gb", "7.49", "GBP", "40")
    home.edit("point", track, "gb", "5.49", "GBP", "20")
    window, page = page_of(home, track, app["name"])
    name = f"Price history of {plain(app['name'])}"
    said = until(lambda: next((node.name for node in page.find_all("label") if "its price was in BGN" in node.name), None), "the currency")
    assert "7.5" not in said and "8.5" not in said, said
    choose_last(page, "Range")
    prices = home.query(f"SELECT ZPRICE, ZCURRENCY FROM ZPRICEPOINT WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us' ORDER BY ZDATE")
    kept = [money(price, currency) for price, currency in prices if currency == app["currency"]]
    until(lambda: [row[2] for row in chart_of(page, name).table()] == kept, f"prices of one currency: {kept}")
    choose_last(page, "Storefront")
    expect_table(page, name, lambda: price_rows(
        [(f"{datetime.now(timezone.utc) - timedelta(days=days):%Y-%m-%dT%H:%M:%SZ}", price) for days, price in ((40, 7.49), (20, 5.49))],
        "GBP", "seen by Quillet"), "the prices of gb")  # fmt: skip


def purchases_show_how_their_prices_changed(home):
    home.use_sample_library()
    item = next(app for app in home.json("watchlist", *LIST)["items"] if app["purchasesChanged"])
    told = home.json("purchase-history", str(item["trackId"]), "-c", item["country"])
    sold = next(each for each in told["storefronts"][0]["purchases"] if each["changes"])
    window, page = page_of(home, item["trackId"], item["name"])
    row = until(lambda: next((node for node in page.find_all("push button")
                              if node.name.startswith(plain(sold["name"]) + ", ") and "price" in node.description), None),
                f"the row of {sold['name']}")  # fmt: skip
    row.focus()
    keys("Return")
    wanted = [[day(point["date"], always=True), money(point["price"], sold["currency"])] for point in sold["history"]]
    name = f"Price history of {plain(sold['name'])} in {plain(item['name'])}"

    def fits():
        return [[cells[0], cells[2]] for cells in chart_of(page, name).table()][: len(wanted)] == wanted

    until(fits, f"the prices of {sold['name']}: {wanted}")


def storefronts_are_compared_once_a_day(home):
    home.use_sample_library()
    app = next(app for app in home.json("watchlist", *LIST)["items"] if app["country"] == "us" and app["currentPrice"])
    told = home.json("storefronts", str(app["trackId"]))
    window, page = page_of(home, app["trackId"], app["name"])
    asked = lambda: sum(f"id={app['trackId']}&" in path for path in home.store.requests())  # noqa: E731
    until(lambda: window.menu_item("App", "Compare Storefronts").has("enabled"), "the action")
    before = asked()
    window.menu_item("App", "Compare Storefronts").press()
    rows = until(lambda: storefront_rows(page), "the storefronts")
    for each in told["storefronts"]:
        row = next(row for row in rows if each["country"] in row.split(", "))
        assert (each["formattedPrice"] if each["available"] else "not sold") in row, (each, row)
        expect_standing(home, app["trackId"], each, row)
    count = asked()
    assert count >= before + len(told["storefronts"]), (before, count)
    window.menu_item("App", "Compare Storefronts").press()
    until(lambda: page.find_all("push button", "Compare Again"), "what was compared")
    assert asked() == count, "it is kept"


def storefront_rows(page):
    block = next(iter(page.find_all("filler", "Storefronts")), None)
    named = [node.name for node in block.find_all("label")] if block else []
    return named[1:] if any("not sold" in each or "Dollar" in each for each in named) else None


def expect_standing(home, track, told, row):
    points = home.query(f"SELECT ZPRICE, ZCURRENCY FROM ZPRICEPOINT WHERE ZTRACKID = {track} AND ZCOUNTRY = '{told['country']}' ORDER BY ZDATE")
    if not told["available"] or not points or points[-1][1] != told["currency"]:
        return
    low = min(price for price, currency in points if currency == points[-1][1])
    if told["price"] <= low:
        assert "at its lowest" in row, (told, row)
    elif low:
        assert f"+{int((told['price'] - low) / low * 100 + 0.5)}\xa0%" in row, (told, low, row)


def ranks_are_those_recorded(home):
    home.use_sample_library()
    home.set(recordCharts="false")
    track, _ = home.query("SELECT ZTRACKID, count(*) FROM ZRANKPOINT WHERE ZCOUNTRY = 'us' GROUP BY 1 ORDER BY 2 DESC")[0]
    told = home.json("rank-history", str(track))
    window, page = page_of(home, track, told["name"])
    until(lambda: window.menu_item("App", "Show Rank History").has("enabled"), "recorded ranks")
    window.menu_item("App", "Show Rank History").press()
    name = f"Rank history of {plain(told['name'])}"
    chart = chart_of(page, name)
    until(lambda: chart_of(page, name).has("focused"), "the chart")
    standing = lambda: [node.name for node in page.find_all("label")]  # noqa: E731
    for ranks in told["daily"]:
        title = f"{ranks['chart'].replace('-', ' ').title()}, {dict(mac='Mac', iphone='iPhone', ipad='iPad')[ranks['platform']]}"
        placed = any(each.startswith(f"{title}, #{ranks['latest']}, ") or each.startswith(f"{title}, not placed") for each in standing())
        assert placed, (ranks, standing())
    for seen in {point["genreName"]: point for point in told["observed"]}.values():
        until(lambda title=f"{seen['chart']}, {seen['genreName']}, #": any(each.startswith(title) for each in standing()), seen)
    if told["daily"]:
        ranks = told["daily"][0]
        text = f"placed on {ranks['daysPlaced']} of {ranks['recordedDays']} recorded days."
        said = chart.description
        assert said.endswith(text) and f"#{ranks['best']}" in said and f"#{ranks['latest']}" in said, (said, ranks)
        points = [[day(point["date"], always=True), f"#{point['rank']}"] for point in ranks["points"]
                  if date_of(point["date"]) > datetime.now(timezone.utc) - timedelta(days=59)]  # fmt: skip
        shown = [cells for cells in chart.table() if cells[1] != "not placed"]
        assert shown[-len(points):] == points, (shown, points)


JOURNEYS = [an_apps_prices_are_those_published, keys_alone_set_a_target, another_currency_is_named_and_not_drawn,
            purchases_show_how_their_prices_changed, storefronts_are_compared_once_a_day, ranks_are_those_recorded]  # fmt: skip

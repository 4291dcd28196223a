# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What Quillet remembers of prices and ranks: the page says what the command line prints."""

from datetime import datetime, timedelta, timezone

from journeys_page import date_of, day
from main_window import MainWindow
from rows import EPOCH, money, plain
from window import NotThere, keys, until

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


def shown_button(page, name):
    """One with a menu of choices."""
    return next((node for node in page.walk() if node.name.startswith(f"{name}: ") and node.has("showing")), None)


def has_choice(page, name):
    """Whether it has one, at a time at which nothing goes from under the look."""
    return until(lambda: [shown_button(page, name)], name)[0] is not None


def choose(page, name, number):
    """Of what a button with a menu offers."""
    until(lambda: shown_button(page, name), name).focus()
    keys("space", *["Down"] * (number + 1), "Return")


def choose_last(page, name):
    until(lambda: shown_button(page, name), name).focus()
    keys("space", "Up", "Return")


def price_rows(points, currency, source):
    """What the table of a chart says of prices by their dates."""
    days = [day(date, always=True) for date, _ in points]
    return [[since, until_, money(price, currency) if price else f"{money(0, currency).partition('.')[0]}", source]
            for since, until_, (_, price) in zip(days, [*days[1:], "now"], points, strict=True)]  # fmt: skip


def unseen_deal(home):
    """A deal of which nothing but its published prices is known."""
    known = {row[0] for row in home.query("SELECT ZTRACKID FROM ZPRICEPOINT")}
    return next(each for each in home.json("deals", *LIST)["deals"] if each["trackId"] not in known)


def an_apps_prices_are_those_published(home):
    home.use_sample_library()
    home.environment["TZ"] = "America/Los_Angeles"  # a published day is that day there, too
    expect_published(home, unseen_deal(home))


def prices_of_a_former_currency_stay_out_of_those_published(home):
    home.use_sample_library()
    deal = unseen_deal(home)
    first = date_of(home.json("price-history", str(deal["trackId"]))["points"][0]["date"])
    ago = (datetime.now(timezone.utc) - first).days
    for price, days in ((0.25, ago + 90), (0.75, ago + 30)):
        home.edit("point", deal["trackId"], "us", price, "BGN", days)
    page = expect_published(home, deal)
    said = [node.name for node in page.find_all("label") if "its price was in BGN" in node.name]
    assert len(said) == 1 and "0.25" not in said[0] and "0.75" not in said[0], said


def expect_published(home, deal):
    """That the page tells what the command line does, which knows of published prices alone."""
    told = home.json("price-history", str(deal["trackId"]))
    window, page = page_of(home, deal["trackId"], deal["name"])
    name = f"Price history of {plain(deal['name'])}"
    until(lambda: any(node.role == "chart" and node.name == name for node in page.walk()), "published prices", IMPORT_SECONDS)
    if has_choice(page, "Range"):
        choose_last(page, "Range")
    points = [(point["date"], point["price"]) for point in told["points"]]
    expect_table(page, name, lambda: price_rows(points, told["currency"], "published price data"), "the published prices")
    low = money(told["lowestRecorded"], told["currency"]) if told["lowestRecorded"] else "Free"
    said = chart_of(page, name).description
    now = money(told["currentPrice"], told["currency"]) if told["currentPrice"] else "free"
    assert low in said and f"Now {now}." in said, said
    return page


def keys_alone_set_a_target(home):
    home.use_sample_library()
    home.set(importPriceData="false")
    watched = lambda: {app["trackId"]: app for app in home.json("watchlist", *LIST)["items"]}  # noqa: E731
    prices = dict(home.query("SELECT ZTRACKID, count(DISTINCT ZPRICE) FROM ZPRICEPOINT WHERE ZCOUNTRY = 'us' GROUP BY 1"))
    app = next(app for app in watched().values() if "targetPrice" not in app and prices.get(app["trackId"], 0) > 1
               and app["country"] == "us" and not app["unavailable"] and app["currentPrice"] > 1)  # fmt: skip
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
    home.set(importPriceData="false")
    app = next(app for app in home.json("watchlist", *LIST)["items"] if app["country"] == "us" and not app["unavailable"]
               and home.query(f"SELECT DISTINCT ZCOUNTRY FROM ZPRICEPOINT WHERE ZTRACKID = {app['trackId']}") == [("us",)])  # fmt: skip
    track = app["trackId"]
    first = home.query(f"SELECT min(ZDATE) FROM ZPRICEPOINT WHERE ZTRACKID = {track}")[0][0]
    ago = (datetime.now(timezone.utc) - EPOCH - timedelta(seconds=first)).days
    for country, price, currency, days in [("us", 97.5, "BGN", ago + 90), ("us", 88.5, "BGN", ago + 30),
                                           ("gb", 7.49, "GBP", 40), ("gb", 5.49, "GBP", 20)]:  # fmt: skip
        home.edit("point", track, country, price, currency, days)
    window, page = page_of(home, track, app["name"])
    name = f"Price history of {plain(app['name'])}"
    texts = lambda: [node.name for node in page.find_all("label") if "its price was in BGN" in node.name]  # noqa: E731
    said = until(texts, "the currency")[0]
    assert "97.5" not in said and "88.5" not in said, said
    choose_last(page, "Range")
    points = f"SELECT ZPRICE, ZCURRENCY FROM ZPRICEPOINT WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us' ORDER BY ZDATE"
    wanted = lambda: [money(*point) for point in home.query(points) if point[1] != "BGN"]  # noqa: E731
    until(lambda: [row[2] for row in chart_of(page, name).table()] == wanted(), "prices of one currency")
    choose_last(page, "Storefront")
    seen = [(f"{datetime.now(timezone.utc) - timedelta(days=days):%Y-%m-%dT%H:%M:%SZ}", price)
            for days, price in ((40, 7.49), (20, 5.49))]  # fmt: skip
    expect_table(page, name, lambda: price_rows(seen, "GBP", "seen by Quillet"), "the prices of gb")
    until(lambda: not texts(), "nothing of that currency")


def purchases_show_how_their_prices_changed(home):
    home.use_sample_library()
    item = next(app for app in home.json("watchlist", *LIST)["items"] if app["purchasesChanged"])
    told = home.json("purchase-history", str(item["trackId"]), "-c", item["country"])
    sold = next(each for each in told["storefronts"][0]["purchases"] if each["changes"])
    window, page = page_of(home, item["trackId"], item["name"])

    def row_of():
        for folded in page.find_all("push button"):
            if folded.name.startswith("Show all "):
                folded.press()
        return next((node for node in page.find_all("push button") if "has cost" in node.description
                     and node.name.startswith(plain(sold["name"]) + ", ")), None)  # fmt: skip

    wanted = [[day(point["date"], always=True), money(point["price"], sold["currency"])] for point in sold["history"]]
    name = f"Price history of {plain(sold['name'])} in {plain(item['name'])}"
    is_open = lambda: bool(page.find_all("chart", name))  # noqa: E731

    def opened():
        """What the store tells late makes the rows anew, and closes the chart."""
        if not is_open():
            if not (row := row_of()):
                return False
            row.focus()
            keys("Return")
        return until(is_open, "the chart", 1)

    until(opened, f"the row of {sold['name']}", 10)
    shown = lambda: [[cells[0], cells[2]] for cells in chart_of(page, name).table()]  # noqa: E731
    until(lambda: shown()[: len(wanted)] == wanted, f"the prices of {sold['name']}: {wanted}")


def storefronts_are_compared_once_a_day(home):
    home.use_sample_library()
    app = next(app for app in home.json("watchlist", *LIST)["items"] if app["country"] == "us" and app["currentPrice"])
    told = home.json("storefronts", str(app["trackId"]))
    window, page = page_of(home, app["trackId"], app["name"])
    asked = lambda: sum(f"id={app['trackId']}&country=jp" in path for path in home.store.requests())  # noqa: E731
    until(lambda: window.menu_item("App", "Compare Storefronts").has("enabled"), "the action")
    before = asked()
    window.menu_item("App", "Compare Storefronts").press()
    left, every = [], {each["country"]: each for each in told["storefronts"]}

    def fits():
        rows = storefront_rows(page)
        left[:] = [each for each in every.values() if not is_told(home, app["trackId"], each, rows, every)]
        return not left

    try:
        until(fits, "the storefronts")
    except NotThere:
        raise AssertionError(f"{storefront_rows(page)} lack {left}") from None
    assert asked() == before + 1, home.store.requests()
    window.menu_item("App", "Compare Storefronts").press()
    until(lambda: page.find_all("push button", "Compare Again"), "what was compared")
    assert asked() == before + 1, "it is kept"


def storefront_rows(page):
    block = next(iter(page.find_all("filler", "Storefronts")), None)
    return [node.name for node in block.find_all("label")] if block else []


def is_told(home, track, told, rows, every):
    """Those of one price stand in one row, which has it as the store of the first wrote it."""
    row = next((row for row in rows if told["country"] in row.split(", ")), "")
    if not told["available"]:
        return "not sold" in row
    first = every.get(row.split(", ")[0], {})
    return (first.get("price") == told["price"] and plain(first["formattedPrice"]) in plain(row)
            and standing(home, track, told) in row)  # fmt: skip


def standing(home, track, told):
    """How a price stands against the lowest that is recorded there."""
    points = home.query(f"SELECT ZPRICE, ZCURRENCY FROM ZPRICEPOINT WHERE ZTRACKID = {track}"
                        f" AND ZCOUNTRY = '{told['country']}' ORDER BY ZDATE")  # fmt: skip
    if not points or points[-1][1] != told["currency"]:
        return ""
    low = min(price for price, currency in points if currency == points[-1][1])
    if told["price"] <= low:
        return "at its lowest"
    return f"+{int((told['price'] - low) / low * 100 + 0.5)}\xa0%" if low else "was free"


PLATFORMS = {"mac": "Mac", "iphone": "iPhone", "ipad": "iPad"}


def ranks_are_those_recorded(home):
    home.use_sample_library()
    home.set(recordCharts="false")
    tracks = home.query("SELECT ZTRACKID FROM ZRANKPOINT WHERE ZCOUNTRY = 'us' GROUP BY 1 ORDER BY count(*) DESC")
    every = [home.json("rank-history", str(track)) for (track,) in tracks]
    told = max(every, key=lambda each: len(each["daily"]))
    assert len(told["daily"]) > 1, f"{told['name']} is in one recorded chart alone"
    window, page = page_of(home, told["trackId"], told["name"])
    until(lambda: window.menu_item("App", "Show Rank History").has("enabled"), "recorded ranks")
    window.menu_item("App", "Show Rank History").press()
    chart = chart_of(page, f"Rank history of {plain(told['name'])}")
    until(lambda: chart.has("focused"), "the chart")
    left = []

    def fits():
        now = home.json("rank-history", str(told["trackId"]))  # the visit adds to it
        labels = [node.name for node in page.find_all("label")]
        left[:] = [begin for begin in standings(now) if not any(each.startswith(begin) for each in labels)]
        return not left

    until(fits, "where it stands")
    for number, ranks in enumerate(told["daily"]):
        choose(page, "Chart", number)
        if has_choice(page, "Range"):
            choose_last(page, "Range")
        expect_ranks(chart, ranks)


def standings(told):
    """How the rows of where it stands begin."""
    for ranks in told["daily"]:
        yield f"{ranks['chart'].replace('-', ' ').title()}, {PLATFORMS[ranks['platform']]}, "
    for seen in {(point["chart"], point["genreName"]): point for point in told["observed"]}.values():
        chart = seen["chart"].replace("-", " ").title() if seen["chart"].islower() else seen["chart"]
        yield f"{chart}, {seen['genreName']}, #{seen['position']}, "


def expect_ranks(chart, ranks):
    """That the chart shows these places, all of them."""
    count = f"placed on {ranks['daysPlaced']} of {ranks['recordedDays']} recorded days."
    points = [[day(point["date"], always=True), f"#{point['rank']}"] for point in ranks["points"]]
    seen = []

    def fits():
        said = chart.description
        seen[:] = said, [cells for cells in chart.table() if cells[1] != "not placed"]
        return (said.endswith(count) and f"#{ranks['best']}" in said and f"#{ranks['latest']}" in said
                and seen[1] == points)  # fmt: skip

    try:
        until(fits, f"the ranks of {ranks['chart']} for {ranks['platform']}")
    except NotThere:
        raise AssertionError(f"{seen}, expected {ranks}") from None


JOURNEYS = [an_apps_prices_are_those_published, prices_of_a_former_currency_stay_out_of_those_published, keys_alone_set_a_target, another_currency_is_named_and_not_drawn,
            purchases_show_how_their_prices_changed, storefronts_are_compared_once_a_day, ranks_are_those_recorded]  # fmt: skip

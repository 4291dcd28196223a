# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Deals: the rows are the drops that the command line prints, and one is watched at its price."""

import gzip
import json
import urllib.request
from datetime import datetime, timedelta

from main_window import MainWindow
from rows import deal, differences, expect_equal
from window import NotThere, keys, until

IMPORT_SECONDS = 30  # price data is read once everything else is there
PRICE_FILE = "/file/quillbase-prices/v1/changes-us.json.gz"
PLATFORMS = {"Mac": ["-p", "mac"], "iPhone & iPad": ["-p", "iphone"], "All": []}


def printed(home, *words):
    return home.json("deals", *words, "-n", "200")


def expect_deals(home, window, deals, all):
    """These rows in this order, and their number."""
    said = f"{len(deals)} of {all}" if len(deals) < all else f"{all} drops"
    until(lambda: window.part("Filters of the deals").find_all("label", said), f"{said!r}", IMPORT_SECONDS)
    if not deals:
        return
    rows = window.list("Deals")
    told = lambda: [deal(each, home) for each in deals]  # noqa: E731
    try:
        until(lambda: not differences(told(), rows.rows()), "the deals")
    except NotThere:
        expect_equal(told(), rows.rows())


def deals_are_what_the_command_line_prints(home):
    home.use_sample_library()
    window = MainWindow(home.start("--section", "deals"))
    window.resize(1280, 800)
    all = printed(home)["total"]
    for name, words in PLATFORMS.items():
        window.find("radio button", name, "Platform").press("Toggle")
        expect_deals(home, window, printed(home, *words)["deals"], all)
    chips = {name: window.find("check box", name, "Filters of the deals") for name in ("Free", "At lowest", "Watched")}
    deals = printed(home)["deals"]
    lows = dict(home.query("SELECT ZTRACKID, ZLOWESTPRICE FROM ZDEAL WHERE ZCOUNTRY = 'us'"))
    watched = {app["trackId"] for app in home.json("watchlist", "-n", "200")["items"] if app["country"] == "us"}
    tests = {"Free": lambda each: each["nowPrice"] == 0,
             "At lowest": lambda each: each["nowPrice"] <= lows[each["trackId"]] + 0.001,
             "Watched": lambda each: each["trackId"] in watched}  # fmt: skip
    for name, test in tests.items():
        chips[name].press("Toggle")
        expect_deals(home, window, list(filter(test, deals)), all)
        chips[name].press("Toggle")
    slider = window.find("slider", "Drop at least")
    slider.focus()
    keys("Prior", *["Right"] * 3)  # by a quarter, and by three steps
    expect_deals(home, window, printed(home, "--min-drop", "40")["deals"], all)


def a_deal_is_watched_at_its_price(home):
    home.use_sample_library()
    window = MainWindow(home.start("--section", "deals"))
    window.resize(1280, 800)
    watched = lambda: {app["trackId"]: app for app in home.json("watchlist", "-n", "200")["items"]}  # noqa: E731
    known = watched()
    deals = printed(home, "-p", "mac")["deals"]
    expect_deals(home, window, deals, printed(home)["total"])
    index, wanted = next((index, each) for index, each in enumerate(deals) if each["trackId"] not in known)
    rows = window.list("Deals")
    rows.focus()
    keys("Home", *["Down"] * index)
    until(lambda: window.page_name() == wanted["name"], f"the page of {wanted['name']!r}")
    window.menu_item("App", "Watch with This Price as Target").press()
    until(lambda: watched().get(wanted["trackId"], {}).get("targetPrice") == wanted["nowPrice"], "the target")
    until(lambda: ", watched" in rows.row(index).name, "the mark")
    until(lambda: window.part("App page").find_all("push button", "Watching"), "the page's button")
    keys("ctrl+z")
    until(lambda: watched() == known, "the watch undone")


def what_cannot_be_read_leaves_the_deals_that_were(home):
    home.use_sample_library()
    window = MainWindow(home.start("--section", "deals"))
    deals, all = printed(home, "-p", "mac")["deals"], printed(home)["total"]
    expect_deals(home, window, deals, all)
    for fault, said in [("status=500", "The price data server returned HTTP 500."),
                        ("status=404", "No published price data at .*changes-us.json.gz."),
                        ("garbage", "The published price data for 'us' could not be read.")]:  # fmt: skip
        with home.store.faults(f"path={PRICE_FILE} {fault}"):
            window.menu_item("Library", "Check for Price Data").press()
            window.expect_strip("lists", said, IMPORT_SECONDS)
        expect_deals(home, window, deals, all)
    window.press_strip("lists", "Try Again")
    until(lambda: window.strip("lists") is None, "the message gone", IMPORT_SECONDS)


class PriceFolder:
    """The store's price data as files of this machine, which can be written anew."""

    def __init__(self, home):
        self.manifest, self.prices = "manifest.json", PRICE_FILE.rpartition("/")[2]
        self._folder = home.folder / "published" / PRICE_FILE.rpartition("/")[0].lstrip("/")
        self._folder.mkdir(parents=True)
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        for name in (self.manifest, self.prices):
            with opener.open(f"{home.store.address}{PRICE_FILE.rpartition('/')[0]}/{name}", timeout=30) as answer:
                self.write(name, answer.read())
        self.address = f"file://{home.folder / 'published'}"

    def read(self, name):
        return (self._folder / name).read_bytes()

    def write(self, name, text):
        (self._folder / name).write_bytes(text)


def day_after(data):
    return datetime.fromisoformat(data["generatedAt"].replace("Z", "+00:00")) + timedelta(days=1)


def a_day_later(data):
    return {**data, "generatedAt": f"{day_after(data):%Y-%m-%dT%H:%M:%SZ}"}


def without_apps(data, missing, gone):
    """Without the one; the other one is there, and no longer sold."""
    apps = [{**each, "g": "2026-11-20"} if each["a"] == str(gone) else each
            for each in data["storefront"]["apps"] if each["a"] != str(missing)]  # fmt: skip
    return {**data, "storefront": {**data["storefront"], "apps": apps}}


def looked_at(listed, moment):
    return {**listed, "storefronts": [{**each, "lookedAt": moment} for each in listed["storefronts"]]}


def packed(data):
    return gzip.compress(json.dumps(data).encode(), 1)


def data_of_other_editions_is_read_where_it_can_be(home):
    home.use_sample_library()
    folder = PriceFolder(home)
    manifest, prices = folder.read(folder.manifest), folder.read(folder.prices)
    listed, told = json.loads(manifest), json.loads(gzip.decompress(prices))
    window = MainWindow(home.start("--section", "deals", QUILLET_PRICE_DATA_URL=folder.address))
    deals, all = printed(home, "-p", "mac")["deals"], printed(home)["total"]
    expect_deals(home, window, deals, all)
    newer = "The price data is newer than this build understands."
    damaged = "The published price data for 'us' could not be read."
    later = packed(a_day_later(without_apps(told, *[each["trackId"] for each in deals[:2]])))
    half = len(later) // 2
    for name, text, said in [
        (folder.manifest, json.dumps({**listed, "schema": 2}).encode(), newer),
        (folder.prices, gzip.compress(bytes(257 << 20), 1), damaged),
        (folder.prices, packed({**told, "schema": 2}), newer),
        (folder.prices, later[:half] + prices[half:], damaged),  # written anew while it was read
    ]:
        whole = folder.read(name)
        folder.write(name, text)
        window.menu_item("Library", "Check for Price Data").press()
        window.expect_strip("lists", said, IMPORT_SECONDS)
        expect_deals(home, window, deals, all)
        folder.write(name, whole)

    # A list of files that is ahead of them says nothing of what is in them, nor does one that is behind.
    folder.write(folder.manifest, json.dumps(a_day_later(listed)).encode())
    window.press_strip("lists", "Try Again")
    until(lambda: window.strip("lists") is None, "the message gone", IMPORT_SECONDS)
    expect_deals(home, window, deals, all)
    folder.write(folder.manifest, json.dumps(looked_at(listed, "2026-01-02T03:00:00Z")).encode())
    folder.write(folder.prices, later)
    window.menu_item("Library", "Check for Price Data").press()
    expect_deals(home, window, deals[2:], all - 2)
    recorded = f"{day_after(told).day} {day_after(told):%b %Y}"
    window.part("Filters of the deals").find("label", f"Prices recorded {recorded}, last looked at 2 Jan 2026")


JOURNEYS = [deals_are_what_the_command_line_prints, a_deal_is_watched_at_its_price,
            what_cannot_be_read_leaves_the_deals_that_were, data_of_other_editions_is_read_where_it_can_be]  # fmt: skip

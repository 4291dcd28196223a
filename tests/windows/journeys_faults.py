# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""A store that fails: what is on screen stays, the window tells what is wrong, and one press mends it
once the store is well."""

from collections import namedtuple

from main_window import MainWindow
from rows import plain
from window import keys, titles_of, type_text, until

RESULTS = "Search results"
LISTS, PAGE = "lists", "App page"
SEARCH, LOOKUP, CATALOG = "/search", "/lookup", "/api/apps/v1/catalog"

APP = "1480068668"  # sold for Macs and phones, with purchases and 25 releases

# What the strip says of a fault, and whether it waits by itself for the store to be well.
Trouble = namedtuple("Trouble", "fault told waits", defaults=(False,))
LIMITED = r"Apple is limiting requests\. Trying again in \d+ s\."
REFUSED = r"Apple's server returned an error \(HTTP {}\)\."
UNREADABLE = r"(Apple's|The catalog's) answer could not be read: .+\."
TROUBLES = {
    "429": Trouble("status=429", LIMITED, True),
    "403": Trouble("status=403", LIMITED, True),
    "400": Trouble("status=400", REFUSED.format(400)),
    "html": Trouble("garbage", UNREADABLE),
    "utf8": Trouble("body=invalid-utf8", UNREADABLE),
    "cut": Trouble("truncate=40", UNREADABLE),
    "huge": Trouble("body=huge", "The answer is larger than 64 MiB"),
    "drop": Trouble("drop", "The connection was lost"),
}


def asked(home, path):
    return sum(each.startswith(path) for each in home.store.requests())


def press_refresh(window):
    window.part("Toolbar").find("push button", "Refresh").press()


def expect_told(window, part, name):
    """What is wrong; the press that mends it is the only one that is left."""
    trouble = TROUBLES[name]
    window.expect_strip(part, trouble.told, 20)
    if trouble.waits:
        window.press_strip(part, "Stop")
        window.expect_strip(part, REFUSED.format(name))


def expect_mended(window, part):
    window.press_strip(part, "Try Again")
    until(lambda: not window.strip(part), "no strip")


# ---- Search


def searched(home, *words):
    """A window that shows what was found; no price history comes to it meanwhile."""
    home.set(importPriceData="false")
    window = MainWindow(home.start("--new-search", "editor", *words))
    window.list(RESULTS)
    return window


def tells_more(window):
    window.press_strip(LISTS, "Details")
    until(lambda: "Details" in titles_of(window.app).values(), "a window with the details")
    keys("Escape")
    until(lambda: "Details" not in titles_of(window.app).values(), "it closed again")


def rows_stay_while_the_store_fails(home):
    window = searched(home)
    before = window.list(RESULTS).rows(20)
    for name in ["429", "403", "html", "utf8", "cut", "huge"]:
        with home.store.faults(f"path={SEARCH} {TROUBLES[name].fault}"):
            press_refresh(window)
            expect_told(window, LISTS, name)
            assert window.list(RESULTS).rows(20) == before, name
            if not TROUBLES[name].waits:
                tells_more(window)
        since = asked(home, SEARCH)
        expect_mended(window, LISTS)
        until(lambda since=since: asked(home, SEARCH) > since, "another search")
        assert window.list(RESULTS).rows(20) == before, name


def mends_itself_where_asking_again_helps(home):
    window = searched(home)
    before = window.list(RESULTS).rows(20)
    since = asked(home, SEARCH)
    with home.store.faults(f"path={SEARCH} drop count=1"):
        press_refresh(window)
        until(lambda: asked(home, SEARCH) == since + 2, "a second try")
    assert window.list(RESULTS).rows(20) == before
    window.raise_()
    with home.store.faults(f"path={SEARCH} stall"):
        keys("ctrl+f", "ctrl+a")
        type_text("photo")
        keys("Return")
        until(lambda: asked(home, SEARCH) == since + 3, "another search")
        keys("alt+Left")
        until(lambda: window.list(RESULTS).rows(20) == before, "what was found before")
        keys("alt+Right")
        until(lambda: asked(home, SEARCH) == since + 4, "the other search again")
    press_refresh(window)
    until(lambda: any("photo" in row.lower() for row in window.list(RESULTS).rows(5)), "what the other one finds")
    assert not window.strip(LISTS)


# ---- The library


def tells_why_prices_were_not_read(home):
    home.use_sample_library()
    app = home.start("--section", "watchlist")
    window = MainWindow(app)
    with home.store.faults(f"path={LOOKUP} status=400"):
        until(lambda: window.menu_item("Library", "Check Prices Now").has("enabled"), "no check to run")
        keys("ctrl+shift+r")
        for section in ("alerts", "watchlist"):
            window.section(section)
            window.expect_strip(LISTS, r".+")
    expect_mended(window, LISTS)
    window.section("alerts")
    until(lambda: not window.strip(LISTS), "no strip")
    assert app.end() == 0, app.said()


# ---- The page

BLOCKS = {"In-app purchases", "Ratings", "Releases", "Information"}


def facts(window):
    """What the page says of the app, but for how old that is; blocks that ask for themselves aside."""

    def read():
        told = [node.name for block in window.part(PAGE).walk() if block.role == "filler" and block.name in BLOCKS
                for node in block.walk() if node.role == "label" and node.has("showing")]  # fmt: skip
        return [window.page_name(), *told]

    return until(read, "the page")  # of which nothing goes away while it is read


def expect_facts(window, expected):
    until(lambda: facts(window) == expected, "all that was known of the app")


def read_page(window):
    """What it says once it rests."""
    until(lambda: window.part(PAGE).find_all("push button", "All 25 releases"), "all of the page")
    seen = []

    def rests():
        seen.append(facts(window))
        return len(seen) > 1 and seen[-1] == seen[-2]

    until(rests, "the page at rest")
    return seen[-1]


def expect_refreshed_over_a_stall(home, window, before):
    """What waits for an answer is given up by another press."""
    since = asked(home, CATALOG)
    with home.store.faults(f"path={CATALOG} stall"):
        press_refresh(window)
        until(lambda: asked(home, CATALOG) > since, "a question")
        assert facts(window) == before, "while it waits"
    since = asked(home, CATALOG)
    press_refresh(window)
    until(lambda: asked(home, CATALOG) > since, "another question")
    expect_facts(window, before)


def facts_stay_while_the_store_fails(home):
    window = MainWindow(home.start("--open", APP))
    before = read_page(window)
    window.part(PAGE).focus()  # what is refreshed then
    troubles = [("html", [LOOKUP]), ("huge", [LOOKUP]), ("403", [CATALOG]), ("drop", [CATALOG]), ("cut", [CATALOG]),
                ("429", [LOOKUP, CATALOG])]  # fmt: skip
    for name, paths in troubles:
        with home.store.faults(*(f"path={path} {TROUBLES[name].fault}" for path in paths)):
            press_refresh(window)
            expect_told(window, PAGE, name)
            assert facts(window) == before, (name, facts(window))
        since = [asked(home, path) for path in paths]
        expect_mended(window, PAGE)
        assert all(asked(home, path) > count for path, count in zip(paths, since, strict=True)), (name, "not asked again")
        expect_facts(window, before)
    expect_refreshed_over_a_stall(home, window, before)


def opens_an_app_once_the_store_answers(home):
    name = plain(home.json("info", APP)["app"]["name"])
    with home.store.faults(f"path={LOOKUP} garbage", f"path={CATALOG} status=400"):
        window = MainWindow(home.start("--open", APP))
        expect_told(window, LISTS, "html")
    with home.store.faults(f"path={CATALOG} status=400"):
        expect_mended(window, LISTS)
        expect_told(window, PAGE, "400")
        assert window.page_name() == name, "what the list knows is shown"
    expect_mended(window, PAGE)
    read_page(window)


JOURNEYS = [
    rows_stay_while_the_store_fails,
    mends_itself_where_asking_again_helps,
    tells_why_prices_were_not_read,
    facts_stay_while_the_store_fails,
    opens_an_app_once_the_store_answers,
]

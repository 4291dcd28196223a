# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Which commands run, what goes wrong, and how a command must end then."""

from collections import namedtuple

APP, OTHER_APP, APP_WITHOUT_PICTURES, APP_WITH_PRICES = "1176895641", "1289001744", "1318800951", "1611200458"

# How a command ends: with one of the codes of docs/json.md, or in one of these ways.
OK, INTERRUPTED, WHOLE_OR_INTERNAL = "OK", "INTERRUPTED", "WHOLE_OR_INTERNAL"
NOT_FOUND, RATE_LIMITED, OFFLINE, UPSTREAM, INTERNAL = (
    "NOT_FOUND", "RATE_LIMITED", "OFFLINE", "UPSTREAM", "INTERNAL"
)  # fmt: skip

# How the messages of a code begin.
MESSAGES = {
    NOT_FOUND: ("",),
    RATE_LIMITED: ("Apple is rate limiting this address (HTTP 429).",),
    OFFLINE: ("Could not reach Apple: ",),
    UPSTREAM: (
        "Apple's server returned HTTP ", "The price data server returned HTTP ", "Request failed: ",
        "This chart is not available.", "The published price data for ", "The App Store page for ",
    ),
    INTERNAL: (
        "Apple's answer could not be read: ", "The catalog's answer could not be read: ",
        "The chart's feed could not be read: ", "The output could not be written: ",
        "Quillet's database could not be opened for reading.", "Could not read Quillet's database: ",
    ),
}  # fmt: skip

# `asks`: the services that it asks, in order. "|": the next one helps out; "?": it does without.
# `reads`: whether it needs the library, or only likes to have it.
Row = namedtuple("Row", "command asks reads")
ROWS = [
    Row("search notes", "search", ""),
    Row("search notes --purchases no-subscription", "search catalog", ""),
    Row("search notes --hide-owned", "search", "needs"),
    Row(f"info {APP}", "lookup catalog?", ""),
    Row(f"versions {APP}", "lookup catalog", ""),
    Row(f"reviews {APP} -n 30", "lookup catalog", ""),
    Row(f"reviews {APP} --recent", "lookup feed", ""),
    Row(f"reviews {APP} --countries us,gb", "lookup catalog|british-catalog", ""),
    Row(f"screenshots {APP_WITHOUT_PICTURES}", "lookup page", ""),
    Row("charts", "chart|feed lookup", "likes"),
    Row("charts --chart top-paid", "chart lookup", "likes"),
    Row("charts --chart top-grossing -p iphone", "feed lookup", "likes"),
    Row("charts --hide-owned", "chart|feed lookup", "needs"),
    Row(f"compare {APP} {OTHER_APP}", "lookup catalog?", ""),
    Row(f"storefronts {APP}", "lookup", ""),
    Row(f"price-history {APP_WITH_PRICES}", "prices", ""),
    Row("deals", "prices", ""),
    Row(f"rank-history {APP}", "lookup?", "needs"),
    Row("watchlist", "", "needs"),
    Row("my-apps", "", "needs"),
    Row("collections", "", "needs"),
    Row("collections Writing", "", "needs"),
    Row("saved-searches", "", "needs"),
    Row(f"purchase-history {APP}", "", "needs"),
]

PATHS = {
    "search": "/search", "lookup": "/lookup", "feed": "/us/rss", "page": "/us/app/",
    "chart": "/us/mac/charts/", "catalog": "/api/apps/v1/catalog/us", "british-catalog": "/api/apps/v1/catalog/gb",
    "prices": "/file/",
}  # fmt: skip

# `text`: of the sample store's option; None: no store at all. `code`: what it makes of a service that
# answers in JSON. `kind`: where another fault has the same consequences. `until`: when a person
# interrupts, given what stands on standard error and the seconds that passed.
Fault = namedtuple("Fault", "label text code paths kind until", defaults=(("/",), None, None))


def at(service, label, text, code, kind):
    return Fault(label, text, code, (PATHS[service],), kind)


REFUSALS = [
    Fault("400", "status=400", UPSTREAM),
    Fault("403", "status=403", UPSTREAM),
    Fault("404", "status=404", UPSTREAM),
    Fault("429", "status=429", RATE_LIMITED),
    Fault("429^C", "status=429", RATE_LIMITED, kind="429", until=lambda err, _: b"; waiting " in err),
    Fault("429x1", "status=429 count=1", RATE_LIMITED, kind="429"),
    Fault("500", "status=500", UPSTREAM),
    Fault("503", "status=503", UPSTREAM),
    Fault("503x1", "status=503 count=1", UPSTREAM, kind="503"),
    Fault("shut", None, OFFLINE),
]
DAMAGES = [
    Fault("slow", "delay=1500", OK),
    Fault("stale", "stale", OK),
    Fault("drop", "drop", OFFLINE),
    Fault("stl^C", "stall", OFFLINE, kind="stall", until=lambda _, passed: passed > 3),
    Fault("stall", "stall", OFFLINE),
    Fault("drip", "drip", OFFLINE, kind="stall"),
    Fault("cut", "truncate=40", INTERNAL),
    Fault("html", "garbage", INTERNAL),
    Fault("none", "empty", INTERNAL),
    Fault("utf8", "body=invalid-utf8", INTERNAL),
    Fault("deep", "body=deep", INTERNAL),
    Fault("huge", "body=huge", UPSTREAM),
    Fault("loop", "redirect=circle", UPSTREAM),
]
ONE_SERVICE = [
    at("catalog", "c403", "status=403", UPSTREAM, "403"),
    at("catalog", "c429", "status=429", RATE_LIMITED, "429"),
    at("catalog", "cdrop", "drop", OFFLINE, "drop"),
    at("catalog", "chtml", "garbage", INTERNAL, "html"),
    at("british-catalog", "gb", "status=403", UPSTREAM, "403"),
    at("page", "p403", "status=403", UPSTREAM, "403"),
    at("page", "phtml", "garbage", INTERNAL, "html"),
    at("chart", "h429", "status=429", RATE_LIMITED, "429"),
    at("chart", "hdrop", "drop", OFFLINE, "drop"),
    at("feed", "f403", "status=403", UPSTREAM, "403"),
]

ASKED_THRICE = {"500", "503", "shut", "drop", "stall", "loop"}
ASKED_ONCE = {"prices", "page", "chart"}
UNREADABLE = {"cut", "html", "none", "utf8", "deep"}


def kind_of(fault):
    return fault.kind or fault.label


def outcome(service, fault, decides):
    """What a fault makes of one service's answer. `decides`: the very first answer is all that counts."""
    kind = kind_of(fault)
    if not any(PATHS[service].startswith(path) for path in fault.paths):
        return OK
    if "count=1" in (fault.text or "") and not decides:
        return OK  # only the first answer was struck
    if service == "prices" and kind == "404":
        return NOT_FOUND  # nothing is published for this storefront
    if service == "feed" and kind == "deep":
        return NOT_FOUND  # a feed that lists no app is a chart that is not there
    if service == "prices" and kind == "utf8":
        return OK  # the bytes stand after the end of the packed file, which ends where it says
    if service in ("prices", "chart") and kind == "429":
        return UPSTREAM  # it is no limit of Apple's; a page without a list is a chart that is not there
    if service in ASKED_ONCE and kind in UNREADABLE:
        return UPSTREAM  # each says so in its own words
    return fault.code


def ending_of(row, fault):
    """How a command ends, and whether it had to do without something."""
    is_first, lacks, stalls = True, False, kind_of(fault) == "stall"
    for need in row.asks.split():
        codes = []
        for service in need.rstrip("?").split("|"):
            is_asked_once = service in ASKED_ONCE or (need.endswith("?") and kind_of(fault) == "429")
            codes.append(outcome(service, fault, is_first and is_asked_once))
            is_first = False
        if OK in codes:
            continue
        # A rate limit is waited out for what is needed; info waits for the catalog too.
        can_do_without = need.endswith("?")
        if codes[-1] == RATE_LIMITED and row.command.startswith("info"):
            can_do_without = False
        if fault.until and (stalls or (codes[-1] == RATE_LIMITED and not can_do_without)):
            return INTERRUPTED, False
        if not can_do_without:
            return codes[-1], False
        lacks = True
    return OK, lacks


def takes_long(row, fault):
    """Half a minute or more: of stalls and answers that drip, of a rate limit that is waited out, and where
    asking again takes more than the 15 requests of a minute."""
    is_many = row.command.startswith("storefronts") and fault.label in ASKED_THRICE
    return fault.label in ("stall", "drip", "429x1") or is_many


def memory_for(row, fault):
    """MiB that a command may take. Of each huge answer 64 are read, six answers at a time, and one is copied
    while it grows."""
    if fault.label != "huge":
        return 48
    answers = 6 if row.command.startswith("storefronts") else 1
    return 48 + 64 * (answers + 1)

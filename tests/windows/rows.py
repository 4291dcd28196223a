# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What the rows of lists are to say: from what the command line prints of the same library and, where
that does not say it, from the database."""

import re
from datetime import datetime, timedelta, timezone
from itertools import zip_longest

EPOCH = datetime(2001, 1, 1, tzinfo=timezone.utc)  # of the database's dates
SHOWN = 5  # differences; more are counted
UNPRINTED = "[\\x00-\\x08\\x0b-\\x1f\\x7f-\\x9f\\u061c\\u200e\\u200f\\u202a-\\u202e\\u2066-\\u2069]"
SIGNS = {"USD": "$", "EUR": "€", "JPY": "¥", "GBP": "£"}
CENTS = {"JPY": 0}
UNITS = [("KB", 1e3, 0), ("MB", 1e6, 1), ("GB", 1e9, 2), ("TB", 1e12, 2)]


def plain(text):
    """As a row has it: in one line, without what is not printed or turns the direction of others."""
    return " ".join(re.sub(UNPRINTED, "", text).split())


def money(amount, currency):
    return f"{SIGNS[currency]}{amount:,.{CENTS.get(currency, 2)}f}"


def money_beside(amount, currency, printed):
    """Written as the store wrote a price below 1,000, of which the window has to find out how."""
    told = re.fullmatch(r"(\D*)\d{1,3}(?:([.,])(\d\d))?(\D*)", printed or "")
    if not told or amount >= 1000:
        return money(amount, currency)
    before, point, cents, after = told.groups("")
    return before + f"{amount:.{len(cents)}f}".replace(".", point) + after


def price_text(amount, currency, printed=None):
    if printed:
        return printed
    return "" if amount is None else "Free" if amount == 0 else money(amount, currency)


def size_text(size):
    """In the first unit of which there are fewer than a thousand."""
    if size < 1000:
        return f"{size} byte{'' if size == 1 else 's'}"
    unit, shown = next((unit, round(size / length, digits)) for unit, length, digits in UNITS
                       if round(size / length, digits) < 1000)  # fmt: skip
    return f"{shown:g} {unit}"


def sentence(*parts):
    return plain(", ".join(part for part in parts if part))


class Known:
    """What only the database says of apps, by track ID and country."""

    def __init__(self, home):
        self.ratings, self.prices, self.released = {}, {}, {}
        for *key, rating, count, price, text, currency, released in home.query(
                "SELECT ZTRACKID, ZCOUNTRY, ZRATING, ZRATINGCOUNT, ZPRICE, ZFORMATTEDPRICE, ZCURRENCY,"
                " ZCURRENTVERSIONRELEASEDATE FROM ZCACHEDAPP"):  # fmt: skip
            self.ratings[*key] = f"{int(rating * 2 + 0.5) / 2:g} of 5 stars" if rating and count else ""
            self.prices[*key] = (price, currency, text)
            self.released[*key] = released
        self.recorded = {}
        for *key, price, currency, date in home.query(
                "SELECT ZTRACKID, ZCOUNTRY, ZPRICE, ZCURRENCY, ZDATE FROM ZPRICEPOINT ORDER BY ZDATE"):  # fmt: skip
            self.recorded.setdefault(tuple(key), []).append((price, currency, date))

    def series(self, key):
        """Prices in the latest currency, and when each was recorded."""
        points = self.recorded.get(key, [])
        return [(price, date) for price, currency, date in points if currency == points[-1][1]]

    def is_lowest(self, key, price):
        """Where the price ever changed."""
        prices = [each for each, _ in self.series(key)]
        return len(set(prices)) > 1 and price == min(prices)

    def price_at(self, key, date):
        return next((price for price, since in reversed(self.series(key)) if since <= date), None)


def name_line(name, without="Unnamed app"):
    """Joiners and marks alone leave nothing to read."""
    line = plain(name)
    return line if line.strip("\u200b\u200d\ufeff ") else without


def beginning_of(item):
    """How the sentence of an item begins."""
    price = price_text(item.get("currentPrice"), item.get("currency"), item.get("formattedPrice"))
    return sentence(name_line(item["name"]), price)


def key_of(item):
    return item["trackId"], item["country"]


def change_text(item):
    """What a watched app's row says of what changed most."""
    if item["unavailable"]:
        return "no longer sold"
    before, change = item.get("priceWhenAdded"), item.get("changeSinceAdded")
    if change:
        return f"{'−' if change < 0 else '+'}{int(abs(change) / before * 100 + 0.5)} %" if before else "was free"
    if target := item.get("targetPrice"):
        written = money_beside(target, item["currency"], item.get("formattedPrice"))
        return f"target {written}" + (" hit" if item["currentPrice"] <= target else "")
    count = item["purchasesChanged"]
    return f"{count} in-app price{'s' if count > 1 else ''}" if count else ""


def watched(item, known):
    key = key_of(item)
    return sentence(item["name"], price_text(item["currentPrice"], item["currency"], item.get("formattedPrice")),
                    change_text(item), "at its lowest" if known.is_lowest(key, item["currentPrice"]) else "",
                    item.get("seller"), known.ratings.get(key))  # fmt: skip


def collected(item, known):
    key = key_of(item)
    return sentence(item["name"], price_text(*known.prices.get(key, (None, None))), item.get("seller"),
                    known.ratings.get(key), item["note"])  # fmt: skip


def viewed(row, known):
    *key, name, seller, date = row
    price, currency, text = known.prices[*key]
    then = known.price_at(tuple(key), date)
    was = "" if then in (None, price) else f"was {price_text(then, currency)}"
    return sentence(name, price_text(price, currency, text), was, seller, known.ratings[*key], *moment(date))


def deal(item, home):
    """What is known besides changes while one looks: the records of apps that are seen are kept."""
    track = item["trackId"]
    low, = home.query(f"SELECT ZLOWESTPRICE FROM ZDEAL WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us'")[0]
    genre = home.query(f"SELECT ZPRIMARYGENRENAME FROM ZCACHEDAPP WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us'")
    is_watched = home.query(f"SELECT 1 FROM ZWATCHEDAPP WHERE ZTRACKID = {track} AND ZCOUNTRY = 'us'")
    was, now, currency = item["wasPrice"], item["nowPrice"], item["currency"]
    is_lowest = now <= low + 0.001
    above = f"{int((now - low) / low * 100 + 0.5)} % above its lowest" if low else "was free before"
    day = datetime.fromisoformat(item["changedOn"].replace("Z", "+00:00")).date()
    today = datetime.now(timezone.utc).date()
    year = "" if day.year == today.year else f" {day.year}"
    return sentence(name_line(item["name"]), price_text(now, currency), price_text(was, currency),
                    f"−{int((was - now) / was * 100 + 0.5)} %", "at its lowest" if is_lowest else "",
                    "watched" if is_watched else "", "" if is_lowest else above,
                    " · ".join(part for part in (plain(item["seller"]), genre[0][0] if genre else "") if part),
                    "today" if day == today else f"{day.day} {day:%b}{year}")  # fmt: skip


def alerted(row):
    name, kind, before, now, version, purchase, is_read, date = row
    title, body = {
        "priceDrop": (f"{name} dropped in price", f"{before} → {now}"),
        "wentFree": (f"{name} is now free", f"Was {before} — now free."),
        "targetReached": (f"{name} hit your target price", f"{before} → {now}"),
        "newVersion": (f"{name} was updated", f"Version {version} is now available."),
        "purchaseDrop": (f"{name}: {purchase} is cheaper", f"{before} → {now}"),
        "purchaseRise": (f"{name}: {purchase} costs more", f"{before} → {now}"),
    }[kind]
    return sentence(title, "" if is_read else "unread", body, *moment(date))


def moment(date):
    """Under which day something stands, and its time."""
    then = EPOCH + timedelta(seconds=date)
    days = (datetime.now(timezone.utc).date() - then.date()).days
    if days < 2:
        return ["Today", "Yesterday"][days], f"{then:%H:%M}"
    return ("This week", f"{then:%a}") if days < 7 else (f"{then:%B %Y}", f"{then.day} {then:%b}")


def totals(keys, known):
    """What apps cost together, by currency."""
    sums = {}
    prices = [known.prices.get(key, (None, None))[:2] for key in keys]
    for price, currency in prices:
        if price is not None and currency:
            sums.setdefault(currency, []).append(price)
    in_order = sorted(sums.items(), key=lambda each: (-len(each[1]), each[0]))
    unknown = sum(price is None or not currency for price, currency in prices)
    return [f"{len(prices)} app{'' if len(prices) == 1 else 's'}",
            *(money(sum(amounts), currency) for currency, amounts in in_order),
            *([f"{unknown} unknown"] if unknown else [])]  # fmt: skip


def owned(item):
    """A pattern: its upkeep and its ratings are known by country, which is not printed."""
    size = item.get("installedSizeBytes")
    update = f"{item['storeVersion']} available" if item.get("updateAvailable") else ""
    begins = sentence(item["name"], price_text(item.get("pricePaid"), item.get("currency")), update,
                      size_text(size) if size else "")  # fmt: skip
    version = f"Version {item['installedVersion']} · " if item.get("installedVersion") else ""
    return re.compile(re.escape(f"{begins}, {version}") + "([A-Za-z0-9 ]+ · )?" + re.escape(plain(item["seller"]))
                      + "(, [0-9.]+ of 5 stars)?")  # fmt: skip


def differences(expected, sentences):
    """Where sentences are not the expected texts or patterns, in their order; a line for each."""
    found = []
    for number, (wanted, said) in enumerate(zip_longest(expected, sentences), 1):
        if wanted is None:
            found.append(f"row {number} is one too many: {said!r}")
        elif said is None:
            found.append(f"row {number} is missing: {wanted!r}")
        elif plain(said) != wanted and not (isinstance(wanted, re.Pattern) and wanted.fullmatch(plain(said))):
            found.append(f"row {number} is {said!r}, expected {wanted!r}")
    return found


def expect_equal(expected, sentences):
    found = differences(list(expected), sentences)
    more = f"\n  and {len(found) - SHOWN} more" if len(found) > SHOWN else ""
    assert not found, "the rows differ:\n  " + "\n  ".join(found[:SHOWN]) + more

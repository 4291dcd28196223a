# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Exported libraries, made here, and what the command line reads of the lists that an import fills."""

import json

FIRST_NEW = 900001  # the ID of an app that only a shelf has
DAY = "2026-11-20T09:00:00Z"


def watched(track_id, name, country="us", target=None):
    item = {"trackId": track_id, "country": country, "platform": "mac", "name": name, "priceWhenAdded": 9.99,
            "alertOnAnyDrop": True, "alertOnFree": True, "alertOnNewVersion": False, "addedAt": DAY}  # fmt: skip
    return {**item, "targetPrice": target} if target is not None else item


def kept(track_id, name, note=""):
    return {"trackId": track_id, "country": "us", "platform": "mac", "name": name, "note": note, "addedAt": DAY}


def collection(name, symbol, entries):
    return {"name": name, "symbolName": symbol, "entries": entries}


def write(file, watchlist=(), collections=()):
    document = {"version": 1, "exportedAt": DAY, "watchlist": list(watchlist), "collections": list(collections)}
    file.write_text(json.dumps(document))
    return file


def write_shelf(home, file):
    """Some of what the library has, and more."""
    present = [watched(each["trackId"], each["name"], each["country"]) for each in home.json("watchlist", "-n", "3")["items"]]
    own = home.json("collections", "-n", "1")["items"][0]["name"]
    held = [kept(each["trackId"], each["name"]) for each in home.json("collections", own)["apps"][:2]]
    new = [("Riverrook RSS", "us", 7.99), ("Chordbadger", "de", 159.99), ("Fostoltora – Rain Radar", "us", None),
           ("Ledgerline Budget", "gb", 4.49)]  # fmt: skip
    more = [watched(FIRST_NEW + i, name, country, target) for i, (name, country, target) in enumerate(new)]
    several = lambda count: [kept(910001 + i, f"App {i + 1}") for i in range(count)]  # noqa: E731
    write(file, [*more, *present], [collection(own, "pencil", [*held, *several(4)]),
                                    collection("Band practice", "musicnote", several(6)),
                                    collection("For the shop", "house", several(11))])  # fmt: skip
    return file


def lists_of(home):
    """But for what a price check writes."""
    own = ("trackId", "country", "name", "platform", "addedAt", "targetPrice", "priceWhenAdded", "alertOnAnyDrop",
           "alertOnFree", "alertOnNewVersion")  # fmt: skip
    pick = lambda item, keys: {key: item[key] for key in keys if key in item}  # noqa: E731
    watchlist = [pick(each, own) for each in home.json("watchlist", "-n", "200")["items"]]
    collections = {}
    for each in home.json("collections", "-n", "200")["items"]:
        apps = home.json("collections", each["name"], "-n", "200")["apps"]
        collections[each["name"]] = [pick(app, ("trackId", "country", "name", "note", "addedAt")) for app in apps]
    return watchlist, collections

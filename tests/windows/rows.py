# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether a list on screen says what the command line prints of the same library.

A row's sentence begins with the app's name and its price, "Name, price, …".
"""

import re
from itertools import zip_longest

SHOWN = 5  # differences; more are counted

# What one may ask of each section by the command line, and under which key it answers.
COMMANDS = {
    "watchlist": (["watchlist", "-n", "200"], "items"),
    "my-apps": (["my-apps", "-n", "200"], "items"),
    "collections": (["collections"], "items"),
}


def plain(text):
    """As a sentence has it: in one line, and without the marks around foreign texts."""
    return re.sub(r"\s+", " ", re.sub("[\u2066-\u2069\u202a-\u202e\u200e\u200f]", "", text)).strip()


def beginning_of(item):
    """How the sentence of an item begins."""
    name = plain(item["name"]) or "Unnamed app"
    price = plain(item.get("formattedPrice") or "")
    if not price and item.get("currentPrice") == 0:
        price = "Free"
    return f"{name}, {price}" if price else name


def differences(items, sentences):
    """Where sentences are not those of the items, in their order; a line for each."""
    found = []
    for number, (item, sentence) in enumerate(zip_longest(items, sentences), 1):
        if item is None:
            found.append(f"row {number} is one too many: {sentence!r}")
        elif sentence is None:
            found.append(f"row {number} is missing: {beginning_of(item)!r}")
        elif not begins_with(sentence, beginning_of(item)):
            found.append(f"row {number} is {sentence!r}, expected {beginning_of(item)!r}, …")
    return found


def begins_with(sentence, beginning):
    """Whether the sentence goes on, if at all, with a part of its own."""
    said = plain(sentence)
    return said == beginning or said.startswith(beginning + ",")


def expect_equal(items, sentences):
    found = differences(items, sentences)
    more = f"\n  and {len(found) - SHOWN} more" if len(found) > SHOWN else ""
    assert not found, "the rows differ:\n  " + "\n  ".join(found[:SHOWN]) + more


def expect_as_printed(home, section, rows_list):
    """The rows of a section's list against what the command line prints of the same library."""
    words, key = COMMANDS[section]
    printed = home.json(*words)
    expect_equal(printed[key], rows_list.rows(200))
    assert rows_list.row_count() == printed["total"], (rows_list.row_count(), printed["total"])

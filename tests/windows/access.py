# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""The walk through a window's accessible tree: what takes the focus has a name, unique by role in
its pane."""

from collections import Counter
from pathlib import Path

from window import expect_none

DOCUMENT = Path(__file__).resolve().parents[2] / "docs/windows.md"

# A menu's entries are told apart by their menu; rows and list entries by their sentences.
UNTOLD = {"menu item", "check menu item", "radio menu item", "list item", "table cell", "tree item"}


def widgets(window):
    """Pane, role and name of all that is shown and takes the focus, in reading order."""
    return [(node.pane(), node.role, node.name) for node in window.walk()
            if node.role not in UNTOLD and node.has("focusable") and node.has("showing")]  # fmt: skip


def problems(window):
    found = widgets(window)
    nameless = [f"a {role} in {pane!r} has no name" for pane, role, name in found if not name.strip()]
    twice = [f"{count} times {role} {name!r} in {pane!r}"
             for (pane, role, name), count in Counter(found).items() if count > 1 and name.strip()]  # fmt: skip
    return nameless + twice


def documented(heading):
    """Pane, role and name by the table under a heading of the document, in the order of the tab key."""
    text = DOCUMENT.read_text().partition(f"\n## {heading}\n")[2].partition("\n## ")[0]
    lines = [line for line in text.splitlines() if line.startswith("|")]
    assert len(lines) > 2, f"no table under {heading!r}"
    return [tuple(cell.strip() for cell in line.strip("|").split("|")) for line in lines[2:]]


def expect_readable(window):
    expect_none(lambda: problems(window), "a window")
    assert widgets(window), "nothing takes the focus"

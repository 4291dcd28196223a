# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""The main window by its parts. What they are called is said here alone."""

import re
from collections import deque

from window import NotThere, Window, keys, main_window_of, titles_of, until

SECTIONS = {"watchlist": "Watchlist", "alerts": "Alerts", "collections": "Collections", "my-apps": "My Apps",
            "history": "History"}  # fmt: skip
APPS_OF_COLLECTION = "Apps of the collection"
KEYS = dict(zip(SECTIONS, ["ctrl+4", "ctrl+5", "ctrl+6", "ctrl+7", "ctrl+8"]))


class MainWindow(Window):
    def __init__(self, app, seconds=None):
        found = main_window_of(app, seconds)
        super().__init__(app, found._it, found.handle)
        self._parts = {}

    def part(self, name):
        """The pane of that name: "Toolbar", "Sidebar", "Content", "App page" or "Library"."""
        return self._known(name, lambda node: node.name == name and node.role == "filler")

    @property
    def lists(self):
        """What holds the lists of all sections, one of which is seen."""
        return self._known("lists", lambda node: node.role == "layered pane")

    def _known(self, what, fits):
        if what not in self._parts:
            self._parts[what] = until(lambda: self._search(fits), what)
        return self._parts[what]

    def _search(self, fits):
        """Level by level: panes stand high, and below them is much."""
        left = deque(self.children())
        while left:
            node = left.popleft()
            if fits(node):
                return node
            if node.role != "menu bar":
                left.extend(node.children())
        return None

    @property
    def title(self):
        return titles_of(self.app).get(self.handle, "")

    def expect_title(self, title):
        until(lambda: self.title == f"{title} — Quillet", f"the title {title!r}")

    # ---- Lists

    def list(self, name="Watchlist"):
        """The list of that name once it shows rows."""

        def find():
            found = next(iter(self.lists.find_all("list", name)), None)
            return found if found and found.has("showing") and found.row_count() else None

        return until(find, f"the list {name!r}")

    def section(self, word):
        """Goes there by its key, and returns its list."""
        keys(KEYS[word])
        return self.list(SECTIONS[word])

    def chips(self, section="Watchlist"):
        return next(iter(self.lists.find_all(name=f"Filters of {section}")))

    def count(self, section="Watchlist"):
        """What is said of how many rows are shown."""
        return self.chips(section).find("label").name

    def filter(self, text):
        self.find_field().set_text(text)

    def find_field(self):
        return next(node for node in self.part("Toolbar").children() if node.role == "text")

    # ---- How they stand

    def strip(self, part):
        """The line that tells how a list ("lists") or the page ("App page") stands; none where all is well."""
        return next((node for node in self._strips(part) if node.name and node.has("showing")), None)

    def _strips(self, part):
        """They hold nothing but two buttons, what to do and "Details"."""
        for node in (self.lists if part == "lists" else self.part(part)).walk():
            if node.role == "filler":
                below = list(node.children())
                if len(below) == 2 and all(each.role == "push button" for each in below):
                    yield node

    def expect_strip(self, part, pattern, seconds=None):
        """That it tells this; returns it."""

        def told():
            strip = self.strip(part)
            return strip if strip and re.fullmatch(pattern, strip.name) else None

        return until(told, f"a strip of {part!r} that says {pattern!r}", seconds)

    def press_strip(self, part, button):
        strip = until(lambda: self.strip(part), "a strip")
        strip.find("push button", button).press()

    # ---- Around them

    def page_name(self):
        """Whose page is shown; none where no page is."""
        page = self.part("App page")
        names = page.find_all("label") if page.has("showing") else []
        return names[0].name if names else ""

    def places(self):
        """What the sidebar says, from above."""
        tree = self.part("Sidebar").find("tree", "Places")
        return [node for node in tree.children() if node.role == "table cell"]

    def place_of(self, name):
        found = next((node for node in self.places() if node.name.split(",")[0] == name), None)
        if not found:
            raise NotThere(f"no place {name!r}")
        return found

    def menu_item(self, *path):
        """An entry by the menu that it is in: menu_item("Go", "Back")."""
        node = next(node for node in self.children() if node.role == "menu bar")
        for name in path:
            if node.role == "menu item":
                node = next(iter(node.children()))
            node = next(child for child in node.children() if child.name == name)
        return node

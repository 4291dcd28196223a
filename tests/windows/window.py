# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What a screen reader sees of an application's windows, and what a hand does to them.

A node is found by role, name and pane: the nearest ancestor that is a named pane. Nothing is
remembered between two looks; a call waits while the application's event loop is held.
"""

import os
import subprocess
import time
from itertools import islice

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

NAME = "Quillet"
POLL_SECONDS = 0.01
CALL_MILLISECONDS = 5000
MOST_TOLD = 100  # children of one node
PANES = {"filler", "panel", "frame", "dialog", "window", "tool bar", "menu bar", "status bar"}

KEY_MILLISECONDS = 5
patience = 5  # seconds for what is to appear; the sanitizers take thrice as long
_desktop = None  # the one that this process has joined


class NotThere(AssertionError):
    """What was waited for did not come."""


def join(desktop):
    """Makes this process a client of the desktop's buses; for good, so it is done once."""
    global _desktop
    assert _desktop in (None, desktop), "one desktop a process"
    _desktop = desktop
    os.environ.clear()
    os.environ.update(desktop.environment)
    Atspi.init()
    Atspi.set_timeout(CALL_MILLISECONDS, CALL_MILLISECONDS)
    keys("shift")  # with the first key the keyboard changes, and the window manager takes its keys anew


def until(condition, what, seconds=None):
    """Asks again and again until the answer is true, and returns it. A node that vanishes meanwhile is
    only a reason to ask again."""
    deadline = time.monotonic() + (seconds or patience)
    while True:
        try:
            if answer := condition():
                return answer
        except (GLib.Error, NotThere):
            pass
        if time.monotonic() > deadline:
            raise NotThere(f"waited in vain for {what}")
        time.sleep(POLL_SECONDS)


def expect_none(problems, what):
    """That there are none. A window that is laid out anew while it is read is read again."""
    found = []

    def is_right():
        found[:] = problems()
        return not found

    try:
        until(is_right, f"{what} without a fault")
    except NotThere as vain:
        raise AssertionError("; ".join(found) or vain) from None


class Node:
    """One accessible thing."""

    def __init__(self, accessible):
        self._it = accessible

    def __repr__(self):
        return f"{self.role} {self.name!r}"

    # ---- What it is

    @property
    def role(self):
        return self._it.get_role_name()

    @property
    def name(self):
        return self._it.get_name() or ""

    @property
    def description(self):
        return self._it.get_description() or ""

    @property
    def text(self):
        """What is written in a field."""
        text = self._it.get_text_iface()
        return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))

    @property
    def box(self):
        """Left, top, width and height on the screen."""
        component = self._it.get_component_iface()
        if component is None:
            raise NotThere(f"{self.role} is gone")
        found = component.get_extents(Atspi.CoordType.SCREEN)
        return found.x, found.y, found.width, found.height

    def has(self, state):
        """A state by its name: "focused", "selected", "checked", "showing" …"""
        return self._it.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    # ---- What is around it

    def children(self):
        for index in range(self._it.get_child_count()):
            if child := self._it.get_child_at_index(index):
                yield Node(child)

    def parent(self):
        above = self._it.get_parent()
        return Node(above) if above else None

    def pane(self):
        """The name of the pane that it stands in."""
        above = self.parent()
        while above and not (above.role in PANES and above.name):
            above = above.parent()
        return above.name if above else ""

    def walk(self):
        """Everything below it that is shown, in reading order. Rows and charts are leaves."""
        for child in self.children():
            yield child
            if child.role not in ("list", "table", "tree", "chart"):
                yield from child.walk()

    def find_all(self, role=None, name=None, pane=None):
        return [node for node in self.walk()
                if role in (None, node.role) and name in (None, node.name)
                and (pane is None or node.pane() == pane)]  # fmt: skip

    def find(self, role=None, name=None, pane=None, seconds=None):
        """The first of them, once it is there."""
        wanted = f"{role or 'anything'} {name or ''!r}" + (f" in {pane!r}" if pane else "")
        return until(lambda: next(iter(self.find_all(role, name, pane)), None), wanted, seconds)

    def tree(self, indent=0):
        """All of it as lines, but for long lists, for who has to find out what went wrong."""
        try:
            states = [state for state in ("focused", "selected", "checked") if self.has(state)]
            line = f"{'  ' * indent}{self!r}{' ' + ', '.join(states) if states else ''}\n"
            return line + "".join(child.tree(indent + 1) for child in islice(self.children(), MOST_TOLD))
        except GLib.Error as gone:
            return f"{'  ' * indent}(gone: {gone.message})\n"

    # ---- Lists

    def row_count(self):
        return self._it.get_child_count()

    def rows(self, limit=200):
        """The sentences of its first rows."""
        return [self.row(index).name for index in range(min(limit, self.row_count()))]

    def row(self, index):
        if found := self._it.get_child_at_index(index):
            return Node(found)
        raise NotThere(f"row {index} is gone")

    def selected_rows(self, limit=200):
        """The sentences of those of its first rows that are selected."""
        shown = (self.row(index) for index in range(min(limit, self.row_count())))
        return [row.name for row in shown if row.has("selected")]

    def row_at_top(self):
        """The uppermost row that is seen, and how many of its pixels are above the list's edge."""
        left, top, _, _ = self.box
        found = self._it.get_component_iface().get_accessible_at_point(left + 20, top + 2, Atspi.CoordType.SCREEN)
        return (found.get_name() or "", top - Node(found).box[1]) if found else None

    def table(self):
        """What the cells of a table or of a chart say, row by row."""
        table = self._it.get_table_iface()
        size = Atspi.Table.get_n_rows(table), Atspi.Table.get_n_columns(table)
        return [[Atspi.Table.get_accessible_at(table, row, column).get_name() for column in range(size[1])]
                for row in range(size[0])]  # fmt: skip

    # ---- What is done to it

    def press(self, action="Press"):
        actions = self._it.get_action_iface()
        offered = [actions.get_action_name(index) for index in range(actions.get_n_actions())]
        assert action in offered, f"{self!r} offers {offered}, not {action}"
        actions.do_action(offered.index(action))

    def focus(self):
        self._it.get_component_iface().grab_focus()
        until(lambda: self.has("focused"), f"the focus in {self!r}")

    def set_text(self, text):
        self._it.get_editable_text_iface().set_text_contents(text)

    def click(self, times=1):
        left, top, width, height = self.box
        xdotool("mousemove", left + width // 2, top + height // 2, "click", "--repeat", times, 1)


class Window(Node):
    """A top-level window of an application, by its title."""

    def __init__(self, app, accessible, handle):
        super().__init__(accessible)
        self.app, self.handle = app, handle

    def raise_(self):
        xdotool("windowactivate", "--sync", self.handle)

    def size(self):
        """Width and height without the frame."""
        lines = xdotool("getwindowgeometry", "--shell", self.handle).splitlines()
        values = dict(line.split("=") for line in lines)
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def resize(self, width, height):
        xdotool("windowsize", self.handle, width, height)
        until(lambda: self.size() == (width, height), f"a size of {width} x {height}")

    def screenshot(self, path):
        _desktop.screenshot(path, self.handle)


def xdotool(*words):
    ended = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, timeout=10)
    return ended.stdout


def keys(*combinations):
    """Presses keys, as xdotool calls them, in the window that is active: keys("ctrl+f", "Tab")."""
    xdotool("key", "--delay", KEY_MILLISECONDS, *combinations)


def type_text(text):
    xdotool("type", "--delay", KEY_MILLISECONDS, "--", text)


def tree_of(app):
    """Its accessible root; absent while the bus does not know it."""
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        found = desktop.get_child_at_index(index)
        if found and found.get_process_id() == app.pid:
            # What is kept would be renewed by signals that nobody here waits for.
            found.set_cache_mask(Atspi.Cache.NONE)
            found.clear_cache()
            return Node(found)
    return None


def titles_of(app):
    """The titles of its windows that are shown, as the window manager has them."""
    return {handle: xdotool("getwindowname", handle).rstrip("\n")
            for handle in xdotool("search", "--onlyvisible", "--pid", app.pid).split()}  # fmt: skip


def shown_window(app, fits):
    """A window whose title fits, once it is readable under the title that it has now."""
    assert app.process.poll() is None, f"the application has ended: {app.said()}"
    handle, title = next(((handle, title) for handle, title in titles_of(app).items() if fits(title)), (None, None))
    root = tree_of(app) if handle else None
    tops = [node for node in root.children() if node.name == title] if root else []
    return Window(app, tops[0]._it, handle) if tops else None


def window_of(app, title, seconds=None):
    """The window of that title once it is shown and readable."""
    return until(lambda: shown_window(app, title.__eq__), f"a window {title!r} of the application", seconds)


def main_window_of(app, seconds=None):
    """The application's window, whatever it shows: all its titles end with the application's name."""
    return until(lambda: shown_window(app, lambda title: title.endswith(NAME)), "the application's window", seconds)


def active_title():
    return xdotool("getactivewindow", "getwindowname").rstrip("\n")

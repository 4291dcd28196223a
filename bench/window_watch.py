# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""When a program's window is up, as its display server sees it: the same yardstick for any program."""

import select
import time

from Xlib import X, display, error
from Xlib.ext import damage

SMALLEST = 100  # pixels; what is smaller is no window to work with
CARET = 2500  # square pixels; what blinks or spins changes no more at once
REST_SECONDS = 0.7
LONGEST_SECONDS = 20


class WindowWatch:
    """Begins to watch when it is made, so it is made before the program is started."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.damage_query_version()
        self.display.set_error_handler(lambda *_: None)  # windows come and go
        self.display.sync()
        self.atoms = {name: self.display.intern_atom(name) for name in
                      ("_NET_WM_PID", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_NORMAL")}  # fmt: skip

    def close(self):
        self.display.close()

    def times(self, pid, begun):
        """Seconds since `begun` until a window of the process was first painted, and until it was painted
        for the last time before it rested."""
        self.begun, self.painted, self.last = begun, None, None
        deadline = begun + LONGEST_SECONDS
        while time.monotonic() < deadline:
            wait = REST_SECONDS if self.painted is None else self.last + REST_SECONDS - time.monotonic()
            if self.painted is not None and wait <= 0:
                return self.painted - begun, self.last - begun
            if not self.display.pending_events():
                select.select([self.display.fileno()], [], [], max(0, wait))
            while self.display.pending_events():
                self._take(self.display.next_event(), pid)
        raise TimeoutError("no window was painted" if self.painted is None else "the window never rests")

    def _take(self, event, pid):
        now = time.monotonic()
        if event.type == X.CreateNotify and not event.override:
            event.window.damage_create(damage.DamageReportRawRectangles)
        elif event.type == self.display.extension_event.DamageNotify:
            self._take_damage(event, pid, now)

    def _take_damage(self, event, pid, now):
        window = self.display.create_resource_object("window", event.drawable.id)
        if self.painted is not None:
            if window.id == self.window.id and event.area.width * event.area.height > CARET:
                self.last = now
        elif self._is_up(window, pid):
            self.painted, self.last, self.window = now, now, window

    def _is_up(self, window, pid):
        """Whether it is a window to work with, seen, and more than one colour."""
        try:
            if not self._is_main(window, pid):
                return False
            shape = window.get_geometry()
            if shape.width < SMALLEST or shape.height < SMALLEST:
                return False
            if window.get_attributes().map_state != X.IsViewable:
                return False
            image = window.get_image(0, 0, shape.width, shape.height, X.ZPixmap, 0xFFFFFF).data
        except error.XError:
            return False  # gone meanwhile
        return image != image[:4] * (len(image) // 4)

    def _is_main(self, window, pid):
        def value(name):
            found = window.get_full_property(self.atoms[name], X.AnyPropertyType)
            return list(found.value) if found else []

        types = value("_NET_WM_WINDOW_TYPE")
        is_normal = not types or self.atoms["_NET_WM_WINDOW_TYPE_NORMAL"] in types
        return is_normal and pid in value("_NET_WM_PID")

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Services of a desktop that stand in on the run's own bus for those of a real one: they note what they
are told, and come and go as a journey wants. Each has a thread and a connection of its own.

    with Notifications(home.desktop) as service:
        shown = until(lambda: service.shown, "a notification")
"""

import threading

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

ANSWER_SECONDS = 5


class Service:
    """On the bus from `with` on until its end."""

    NAME, PATH, XML = "", "", ""

    def __init__(self, desktop):
        self._address = desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        self._loop = None

    def __enter__(self):
        ready = threading.Event()
        self._thread = threading.Thread(target=self._run, args=[ready], daemon=True)
        self._thread.start()
        assert ready.wait(ANSWER_SECONDS), f"{self.NAME} did not start"
        return self

    def __exit__(self, *_):
        self._loop.quit()
        self._thread.join(ANSWER_SECONDS)

    def _run(self, ready):
        self._context = context = GLib.MainContext.new()
        context.push_thread_default()
        self.bus = Gio.DBusConnection.new_for_address_sync(
            self._address,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None, None)  # fmt: skip
        interface = Gio.DBusNodeInfo.new_for_xml(self.XML).interfaces[0]
        self.bus.register_object(self.PATH, interface, self._take, self._value, None)
        self._daemon_call("RequestName", GLib.Variant("(su)", (self.NAME, 0)))
        self._loop = GLib.MainLoop.new(context, False)
        ready.set()
        self._loop.run()
        self.bus.close_sync(None)
        context.pop_thread_default()

    def _daemon_call(self, method, arguments):
        return self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                                  arguments, None, Gio.DBusCallFlags.NONE, ANSWER_SECONDS * 1000, None)  # fmt: skip

    def _take(self, _bus, sender, _path, _interface, method, arguments, invocation):
        answer = self.answer(sender, method, arguments.unpack())
        if answer is not None:
            invocation.return_value(answer)

    def _value(self, _bus, _sender, _path, _interface, name):
        return self.value(name)

    def answer(self, sender, method, arguments):
        """A variant; None for no answer at all."""
        raise NotImplementedError

    def value(self, name):
        raise NotImplementedError

    def tell(self, signal, arguments):
        """By the service's own thread, so that an answer under way is sent before."""
        source = GLib.idle_source_new()
        source.set_callback(lambda *_: not self.bus.emit_signal(None, self.PATH, self.NAME, signal, arguments))
        source.attach(self._context)


class Notifications(Service):
    """The notification service. `shown` holds what is, by its ID."""

    NAME, PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
    XML = """<node><interface name="org.freedesktop.Notifications">
      <method name="GetCapabilities"><arg type="as" direction="out"/></method>
      <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
        <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="as" direction="in"/><arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
        <arg type="u" direction="out"/></method>
      <method name="CloseNotification"><arg type="u" direction="in"/></method>
    </interface></node>"""

    def __init__(self, desktop, answers=True):
        super().__init__(desktop)
        self.answers = answers  # or leaves whoever asks waiting
        self.asked = 0
        self.shown = {}
        self._last = 0

    def answer(self, sender, method, arguments):
        self.asked += 1
        if not self.answers:
            return None
        if method == "GetCapabilities":
            return GLib.Variant("(as)", (["body", "actions"],))
        if method == "CloseNotification":
            self.shown.pop(arguments[0], None)
            return GLib.Variant("()", ())
        _, replaces, _, title, body, actions, _, _ = arguments
        number = replaces or self._last + 1
        self._last = max(self._last, number)
        self.shown[number] = {"title": title, "body": body, "actions": dict(zip(actions[::2], actions[1::2]))}
        return GLib.Variant("(u)", (number,))

    def number_of(self, title):
        """The ID of the one that is titled so."""
        return next((number for number, each in self.shown.items() if each["title"] == title), None)

    def choose(self, number, action="default"):
        self.tell("ActivationToken", GLib.Variant("(us)", (number, "token")))
        self.tell("ActionInvoked", GLib.Variant("(us)", (number, action)))


class NetworkManager(Service):
    """What of it tells whether the network is metered."""

    NAME, PATH = "org.freedesktop.NetworkManager", "/org/freedesktop/NetworkManager"
    XML = """<node><interface name="org.freedesktop.NetworkManager">
      <property name="Metered" type="u" access="read"/>
    </interface></node>"""

    def __init__(self, desktop, metered):
        super().__init__(desktop)
        self.metered = metered

    def value(self, name):
        return GLib.Variant("u", self.metered)


class Tray(Service):
    """A status notifier's watcher with a host. `items` holds the bus names of the icons."""

    NAME, PATH = "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher"
    XML = """<node><interface name="org.kde.StatusNotifierWatcher">
      <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
      <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
      <property name="ProtocolVersion" type="i" access="read"/>
    </interface></node>"""

    def __init__(self, desktop, answers=True):
        super().__init__(desktop)
        self.answers = answers  # or leaves whoever asks waiting
        self.asked = threading.Event()
        self._end = threading.Event()
        self.items = []

    def __exit__(self, *how):
        self._end.set()
        super().__exit__(*how)

    def answer(self, sender, method, arguments):
        self.items.append(sender)
        return GLib.Variant("()", ())

    def value(self, name):
        self.asked.set()
        if not self.answers:
            self._end.wait()
        return GLib.Variant("i", 0) if name == "ProtocolVersion" else GLib.Variant("b", True)

    def _call(self, path, interface, method, arguments):
        return self.bus.call_sync(self.items[-1], path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                  ANSWER_SECONDS * 1000, None).unpack()  # fmt: skip

    def click(self):
        self._call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", GLib.Variant("(ii)", (0, 0)))

    def _entries(self):
        """Of the menu and its menus: IDs and properties, without those that are not seen."""
        layout = self._call("/MenuBar", "com.canonical.dbusmenu", "GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        left = list(layout[1][2])
        while left:
            number, properties, below = left.pop(0)
            if properties.get("visible", True):
                yield number, properties
                left = list(below) + left

    def menu(self):
        """Its texts, in order, those of a menu's own menu after it."""
        return [each["label"].replace("_", "") for _, each in self._entries() if each.get("type") != "separator"]

    def press(self, text):
        number = next(number for number, each in self._entries() if each.get("label", "").replace("_", "") == text)
        arguments = GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0))
        self._call("/MenuBar", "com.canonical.dbusmenu", "Event", arguments)

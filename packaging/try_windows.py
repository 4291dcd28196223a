#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Opens the windows of a Quillet that is installed in a root of its own, on a display of this machine.

usage: try_windows.py ROOT PICTURE

A new user looks at the window, makes the command-line tool and the agent skill and removes them again,
and searches from the desktop. Ends with 1 at the first thing that is not as it should be. Needs to be
root. PICTURE is where the window's picture goes.
"""

import json
import os
import subprocess
import sys
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent / "tests/windows"
sys.path.insert(0, str(TESTS))

import window  # noqa: E402
from gi.repository import Gio, GLib  # noqa: E402
from main_window import MainWindow  # noqa: E402
from session import Desktop, Home  # noqa: E402
from window import until, window_of  # noqa: E402

SEARCH = "org.example.Quillet.SearchProvider"
OWN = ("application-0.log", "cache/", "config/quillet/", "data/", "state/")  # of every start


class Installed:
    """Where its programs are in the root."""

    quillet, sandbox = Path("/usr/bin/quillet"), Path("/usr/bin/quillet-sandbox")


def run(*words, **options):
    return subprocess.run([str(word) for word in words], check=True, timeout=60, **options)


def say(line):
    print(f"    {line}", flush=True)


def files(home):
    """All that the user has, but for folders and for what every start makes. Folders may go meanwhile."""
    every = (Path(folder, name) for folder, folders, names in os.walk(home.folder) for name in folders + names
             if name in names or Path(folder, name).is_symlink())  # fmt: skip
    return sorted(str(path) for path in every if not str(path.relative_to(home.folder)).startswith(OWN))  # fmt: skip


def paint(home, picture):
    """A start with its window."""
    app = home.start("--section", "search", QUILLET_LOG="start")
    main = MainWindow(app, 30)
    main.expect_title("Search")
    told = until(lambda: [line for line in app.said().splitlines() if "first paint" in line], "the first paint")
    say(told[0])
    main.resize(1280, 800)
    main.screenshot(picture)
    return app, main


def make_and_remove(home, app, main, entry, title, button, made):
    """That one press makes all of it and another one leaves nothing of it."""
    before = files(home)
    main.menu_item("Tools", entry).press()
    dialog = window_of(app, title)
    dialog.find("push button", button).press()
    until(lambda: all(any(path.endswith(each) for path in files(home)) for each in made), f"{made} of {title}")
    for path in sorted(set(files(home)) - set(before)):
        say(f"{title}: {Path(path).relative_to(home.folder)}")
    for path in map(Path, set(files(home)) - set(before)):
        assert not path.is_symlink() or Path(f"{home.root}{path.readlink()}").exists(), f"{path} leads nowhere"
    dialog.find("push button", "Remove").press()
    until(lambda: files(home) == before, f"nothing of {title}, but for {set(files(home)) - set(before)}")
    window.keys("Escape")


def ask(bus, method, types, *values):
    path = "/" + SEARCH.replace(".", "/")
    return bus.call_sync(SEARCH, path, "org.gnome.Shell.SearchProvider2", method, GLib.Variant(types, values),
                         None, Gio.DBusCallFlags.NONE, 10_000, None).unpack()  # fmt: skip


def search(home, desktop, main):
    """As GNOME's shell does: the session's bus starts what the package names."""
    service = Path(f"{home.root}/usr/share/dbus-1/services/{SEARCH}.service").read_text()
    environment = " ".join(f"{name}={value}" for name, value in home.environment.items()
                           if name.startswith(("QUILLET_", "XDG_", "DBUS_", "HOME")))  # fmt: skip
    here = service.replace("Exec=", f"Exec={' '.join(home.under)} /usr/bin/env {environment} ")
    (desktop.folder / f"services/{SEARCH}.service").write_text(here)
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    words = home.watched.split()
    until(lambda: ask(bus, "GetInitialResultSet", "(as)", words)[0], f"{words} on the bus", 10)
    hit = ask(bus, "GetInitialResultSet", "(as)", words)[0][0]
    say(str(ask(bus, "GetResultMetas", "(as)", [hit])[0][0]))
    ask(bus, "ActivateResult", "(sasu)", hit, words, 0)
    main.expect_title("Watchlist")


def main():
    root, picture = Path(sys.argv[1]).resolve(), sys.argv[2]
    with Desktop() as desktop:
        window.join(desktop)
        inside = Path(f"{root}{desktop.folder}")
        inside.mkdir()
        run("mount", "--bind", desktop.folder, inside)
        try:
            with Home(Installed, desktop, None, desktop.folder / "visitor") as home:
                use(home, desktop, root, picture)
        finally:
            run("umount", "--lazy", inside)


def use(home, desktop, root, picture):
    home.root, home.under = root, ["/usr/sbin/chroot", str(root)]
    del home.environment["FONTCONFIG_FILE"]
    (home.folder / ".wren/skills").mkdir(parents=True)
    run(*home.under, "/usr/bin/quillet-sandbox", "--library", home.data, "--", "true", env=home.environment)
    listed = run(*home.under, "/usr/bin/quillet", "watchlist", "--json", env=home.environment, capture_output=True)
    home.watched = json.loads(listed.stdout)["items"][0]["name"]
    app, main_window = paint(home, picture)
    make_and_remove(home, app, main_window, "Install Command-Line Tool…", "Command-Line Tool", "Install",
                    [".local/bin/quillet", "man1/quillet.1.gz"])  # fmt: skip
    make_and_remove(home, app, main_window, "Install Agent Skill…", "Agent Skill", "Install",
                    [".wren/skills/quillet/SKILL.md"])  # fmt: skip
    search(home, desktop, main_window)
    assert app.end() == 0, app.said()


if __name__ == "__main__":
    main()

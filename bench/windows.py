#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Measures windows from outside, and prints one JSON object.

usage: windows.py BUILD-BIN-FOLDER [--rounds N] [--idle SECONDS]

A round starts each program in turn, each on a profile of its own that it has used before, and takes
the time from its start until its window is painted; figures are medians. Then Quillet rests with and
without a large library, and in the background without a window, and it is told what memory and processor
time that takes; then, what memory it takes once so many pages of apps were read. At last a screen reader
asks it one thing after another while it checks the prices of all apps.
"""

import argparse
import json
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from urllib.parse import parse_qs, urlsplit

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/windows"))

import processes  # noqa: E402
from session import Desktop, Home, Programs, Store  # noqa: E402
from window_watch import WindowWatch  # noqa: E402

APPS = 10_000
FEW_PAGES, MANY_PAGES = 20, 200
STORE_APPS = 20_000  # a search finds the most that the service gives
TERM = "app"  # that most of them match
PAGE_SECONDS = 20  # for one to be read, on a busy machine
PICTURE_SECONDS, REST_SECONDS = 0.3, 3
LOOKUPS = 10  # that a pass may send in a minute
PASSES = 5
CALM_SECONDS = 3
SETTLE_SHARE = 3  # a third of the idle time is given to it before, to finish what it does at its start

KEEPASSXC_CONFIG = """[General]
SingleInstance=false
UpdateCheckMessageShown=true
[GUI]
CheckForUpdates=false
"""
# It is neither to ask anything nor to look for anybody.
QBITTORRENT_CONFIG = """[LegalNotice]
Accepted=true
[BitTorrent]
Session\\DHTEnabled=false
Session\\LSDEnabled=false
Session\\PeXEnabled=false
[Preferences]
Connection\\ResolvePeerCountries=false
General\\NoSplashScreen=true
"""


class Subject:
    """A program to measure: its command, and the folder that is its home."""

    def __init__(self, words, environment):
        self.words, self.environment = [str(word) for word in words], environment

    def start(self, *more):
        with open(Path(self.environment["HOME"]) / "said", "ab") as log:
            return processes.start([*self.words, *more], env=self.environment, stdout=log, stderr=log)

    def up(self):
        """Seconds until its window is painted, and until that rests."""
        watch = WindowWatch(self.environment["DISPLAY"])
        begun = time.monotonic()
        process = self.start()
        try:
            return watch.times(process.pid, begun)
        finally:
            processes.end(process, seconds=10)
            watch.close()


def quillet(programs, desktop, store, folder, apps):
    home = Home(programs, desktop, store, folder)
    home.edit("fill", apps)
    del home.environment["FONTCONFIG_FILE"]  # the fonts that everybody else has
    return Subject([programs.quillet], home.environment)


def other_home(desktop, folder):
    folder.mkdir()
    places = {f"XDG_{name}_HOME": str(folder / name.lower()) for name in ("CONFIG", "CACHE", "DATA", "STATE")}
    return {**desktop.environment, "HOME": str(folder), **places}


def keepassxc(desktop, folder):
    environment = other_home(desktop, folder)
    config, database = folder / "keepassxc.ini", folder / "empty.kdbx"
    config.write_text(KEEPASSXC_CONFIG)
    subprocess.run(["keepassxc-cli", "db-create", "--set-password", database], input="word\nword\n", text=True,
                   env=environment, check=True, capture_output=True)  # fmt: skip
    return Subject(["keepassxc", "--config", config, "--localconfig", folder / "local.ini", database], environment)


def qbittorrent(desktop, folder):
    environment = other_home(desktop, folder)
    config = folder / "config/qBittorrent/qBittorrent.conf"
    config.parent.mkdir(parents=True)
    config.write_text(QBITTORRENT_CONFIG)
    return Subject(["qbittorrent"], environment)


def start_times(subjects, rounds):
    """For each subject its times in milliseconds; all of them take turns."""
    times = {name: [] for name in subjects}
    for number in range(rounds + 1):
        for name, subject in subjects.items():
            found = subject.up()
            if number > 0:  # the first one makes the profile and warms the disk
                times[name].append([round(seconds * 1000, 1) for seconds in found])
    return times


def ratio(times, one, other):
    """The median of the rounds' ratios: a machine that is slow for a second is so for both."""
    painted = zip(times[one], times[other], strict=True)
    return round(statistics.median(ours[0] / theirs[0] for ours, theirs in painted), 2)


def proportional_memory(pid):
    """In MiB."""
    lines = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return next(int(line.split()[1]) / 1024 for line in lines if line.startswith("Pss:"))


def resident_memory(pid):
    """In MiB: all of it, and what is the process's own. Whoever starts or ends beside it, sharing its
    libraries, changes neither."""
    kilobytes = dict(re.findall(r"^(\w+): +(\d+) kB$", Path(f"/proc/{pid}/smaps_rollup").read_text(), re.M))
    return [round(int(kilobytes[name]) / 1024, 1) for name in ("Rss", "Anonymous")]


def processor_ticks(pid):
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def idle(subject, seconds, *more):
    """Memory and processor time of a program that runs alone, after and during so many seconds in which
    nobody does anything."""
    process = subject.start(*more)
    try:
        time.sleep(seconds / SETTLE_SHARE)
        before = processor_ticks(process.pid)
        time.sleep(seconds)
        return {"memory": round(proportional_memory(process.pid), 1),
                "ticks": processor_ticks(process.pid) - before}  # fmt: skip
    finally:
        processes.end(process)


def pages_read(store):
    """How many apps the catalog was asked about, each on its own."""
    return len({found[1] for path in store.requests() if (found := re.search(r"/v1/catalog/\w+/apps/(\d+)", path))})


def wait_for_pages(store, count):
    deadline = time.monotonic() + PAGE_SECONDS
    while pages_read(store) < count:
        if time.monotonic() > deadline:
            raise TimeoutError(f"page {count} was not read")
        time.sleep(0.05)
    time.sleep(PICTURE_SECONDS)


def memory_after_pages(programs, desktop, folder):
    """Goes through what a search found with the arrow key, resting on each row until its page was read."""
    with Store(programs, desktop.environment, folder.parent, "--apps", STORE_APPS) as store:
        home = Home(programs, desktop, store, folder)
        home.use_sample_library()
        with home:
            app = home.start("--new-search", TERM)
            wait_for_pages(store, 1)
            memory = []
            for page in range(2, MANY_PAGES + 1):
                subprocess.run(["xdotool", "key", "Down"], env=home.environment, check=True)
                wait_for_pages(store, page)
                if page in (FEW_PAGES, MANY_PAGES):
                    time.sleep(REST_SECONDS)
                    memory.append(resident_memory(app.pid))
    (few, few_own), (many, many_own) = memory
    return {"few": few, "many": many, "manyToFew": round(many / few, 2), "own": [few_own, many_own]}


class Discounter:
    """Sells every app that it is asked about at one price, and has nothing else."""

    def __init__(self):
        self.lookups = 0
        discounter = self

        class Handler(BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                found = urlsplit(self.path)
                ids = parse_qs(found.query).get("id") if found.path == "/lookup" else None
                body = json.dumps({"results": [discounter.record(each) for each in ids[0].split(",")]}) if ids else ""
                self.send_response(200 if ids else 404)
                self.send_header("Content-Length", len(body))
                self.end_headers()
                self.wfile.write(body.encode())
                discounter.lookups += bool(ids)

            def log_message(self, *_):
                pass

        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        address = "http://127.0.0.1:{}".format(self.server.server_port)
        self.environment = {f"QUILLET_{name}_URL": address for name in ("ITUNES", "APP_STORE", "PRICE_DATA")}

    @staticmethod
    def record(track):
        return {"trackId": int(track), "trackName": f"Sample App {track}", "kind": "mac-software", "currency": "USD",
                "price": 0.49, "formattedPrice": "$0.49", "version": "9.0", "description": "d" * 2500}  # fmt: skip

    def __enter__(self):
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.server.shutdown()


def longest_call(questions, goes_on):
    """Of calls that follow one another, in milliseconds; and how many there were."""
    longest, count, first = 0, 0, time.monotonic()
    while goes_on():
        for ask in questions:
            begun = time.monotonic()
            ask()
            longest, count = max(longest, time.monotonic() - begun), count + 1
    return {"longest": round(longest * 1000, 1), "calls": count,
            "seconds": round(time.monotonic() - first, 1)}  # fmt: skip


def calls_during_passes(programs, folder):
    """Medians of some passes, each of another start; processor time is the longest of all."""
    from window import join

    with Desktop() as desktop:
        join(desktop)
        passes = [calls_during_pass(programs, desktop, folder / str(number)) for number in range(PASSES)]
    return {"calm": statistics.median(each["calm"]["longest"] for each in passes),
            "longest": statistics.median(each["longest"] for each in passes),
            "work": max(each["work"] for each in passes), "passes": passes}  # fmt: skip


def calls_during_pass(programs, desktop, folder):
    """How long a screen reader waits for an answer before a pass, and while it reads all watched apps and
    takes in the first lookups, as many as go at once: each a hundred apps that all cost less. `work` is the
    longest event's processor time, if it is more than a frame's."""
    from main_window import MainWindow
    from window import keys, until

    with Discounter() as store, Home(programs, desktop, store, folder) as home:
        home.edit("fill", APPS)
        app = home.start()
        window = MainWindow(app, PAGE_SECONDS)
        rows, sidebar = window.list(), window.part("Sidebar")
        questions = [rows.row_count, lambda: rows.row(0).name, lambda: sidebar.name]
        changed = "SELECT count(*) FROM ZWATCHEDAPP WHERE ZCURRENTPRICE = 0.49"
        until(lambda: rows.row_count() == APPS, "all apps", PAGE_SECONDS)
        time.sleep(REST_SECONDS)
        end = time.monotonic() + CALM_SECONDS
        calm = longest_call(questions, lambda: time.monotonic() < end)
        before = len(app.holds())
        keys("ctrl+shift+r")
        end = time.monotonic() + PAGE_SECONDS
        during = longest_call(questions, lambda: store.lookups < LOOKUPS and time.monotonic() < end)
        end = time.monotonic() + CALM_SECONDS
        after = longest_call(questions, lambda: time.monotonic() < end)
        found = home.query(changed)[0][0]
        assert found == LOOKUPS * 100, f"{found} apps were checked"
        holds = app.holds()[before:]
    return {"calm": calm, "during": during, "after": after,
            "longest": max(during["longest"], after["longest"]),
            "work": max((milliseconds for milliseconds, _ in holds), default=0)}  # fmt: skip


def measure(programs, rounds, seconds):
    with tempfile.TemporaryDirectory(prefix="quillet-bench-") as place, Desktop(is_accessible=False) as desktop:
        folder = Path(place)
        with Store(programs, desktop.environment, folder) as store:
            ours = {"many": quillet(programs, desktop, store, folder / "many", APPS),
                    "none": quillet(programs, desktop, store, folder / "none", 0)}  # fmt: skip
            others = {"keepassxc": keepassxc(desktop, folder / "keepassxc"),
                      "qbittorrent": qbittorrent(desktop, folder / "qbittorrent")}  # fmt: skip
            times = start_times({**ours, **others}, rounds)
            rest = {name: idle(subject, seconds) for name, subject in ours.items()}
            background = {name: idle(subject, seconds, "--background") for name, subject in ours.items()}
        pages = memory_after_pages(programs, desktop, folder / "pages")
    with tempfile.TemporaryDirectory(prefix="quillet-bench-") as place:
        calls = calls_during_passes(programs, Path(place))
    return {
        "milliseconds": {name: {"painted": statistics.median(each[0] for each in found),
                                "rested": statistics.median(each[1] for each in found)}
                         for name, found in times.items()},
        "manyToNone": ratio(times, "many", "none"),
        "manyToKeepassxc": ratio(times, "many", "keepassxc"),
        "manyToQbittorrent": ratio(times, "many", "qbittorrent"),
        "idle": rest,
        "background": background,
        "backgroundToWindow": {name: round(background[name]["memory"] / rest[name]["memory"], 2) for name in rest},
        "idleSeconds": seconds,
        "memoryManyToNone": round(rest["many"]["memory"] / rest["none"]["memory"], 2),
        "memoryOfPages": pages,
        "calls": calls,
    }  # fmt: skip


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--rounds", type=int, default=9)
    parser.add_argument("--idle", type=int, default=60)
    given = parser.parse_args()
    for tool in ("keepassxc", "qbittorrent", "Xvfb", "openbox", "xdotool"):
        if not shutil.which(tool):
            sys.exit(f"{tool} is missing: ./dev bench installs it.")
    os.environ.pop("DISPLAY", None)
    json.dump(measure(Programs(given.folder), given.rounds, given.idle), sys.stdout, indent=1)
    print()


if __name__ == "__main__":
    main()

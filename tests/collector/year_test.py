#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

"""Lets the collector run for a year of days against a store that moves its prices and fails in every way,
while the process is killed and the record moves to another machine twice. What is published must then be
what the store showed: each change of a price once, at its day, and nothing else."""

import argparse
import datetime
import gzip
import http.server
import itertools
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter, namedtuple

STOREFRONTS = {"us": "USD", "jp": "JPY", "nl": "EUR"}
APPS = [str(1_400_000_000 + 7 * i) for i in range(230)]  # three lookups in each storefront
PRICES = [0, 0.99, 1.99, 4.99, 9.99, 19.99]
LAST_DAY = datetime.date(2026, 11, 20)
FAITH = datetime.timedelta(days=14)  # to the one of an app's two records that its prices began with
FAULTS = ["403", "429", "500", "503", "drop", "cut", "page", "nothing", "nonsense"]
FILES = "file/quillbase-prices/v1"

# What the store sells an app at; `released`: when its version was, for old answers are told by it.
Offer = namedtuple("Offer", "price currency kind released")

# An answer about one app. `offer`: None where it was not sold. `certain`: the collector asked on after it.
Look = namedtuple("Look", "day offer certain")


class Store:
    """Answers look-ups, and writes down what it showed."""

    def __init__(self, chance, storefronts, apps):
        self.chance = chance
        self.day = None
        self.offers = {
            (country, app): Offer(chance.choice(PRICES), currency, "software", datetime.date(2020, 1, 1))
            for country, currency in storefronts.items() for app in apps
        }  # fmt: skip
        self.away = {}  # until when an app is not sold
        self.looks = {key: [] for key in self.offers}
        self.unsure = []  # what the last answer showed: the collector may not have come to record it
        self.faults = Counter()
        self.requests = 0
        self.calm = False
        self.kill_at, self.process = None, None
        store = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"
            disable_nagle_algorithm = True  # else each body waits 40 ms for the client's word on its headers

            def do_GET(self):
                store.answer(self)

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.handle_error = lambda *_: None  # a killed process closes its connections
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self.server.server_port}"

    def begin_day(self, day):
        self.day = day
        for key, offer in self.offers.items():
            if self.chance.random() < 0.04:
                self.offers[key] = offer._replace(price=self.chance.choice(PRICES), released=day)
            if key not in self.away and self.chance.random() < 0.003:
                self.away[key] = day + datetime.timedelta(days=self.chance.randint(1, 40))
        self.away = {key: until for key, until in self.away.items() if until > day}

    def change_currency(self, country, currency):
        for key in [key for key in self.offers if key[0] == country]:
            self.offers[key] = self.offers[key]._replace(currency=currency)

    def shown(self, country, app):
        """Now and then from an old cache, or the app's record for another platform."""
        if (country, app) in self.away:
            return None
        offer, kind = self.offers[country, app], self.chance.random()
        if kind < 0.002:
            return offer._replace(price=77, released=offer.released - datetime.timedelta(days=500))
        if kind < 0.004:
            return offer._replace(price=88, kind="mac-software")
        return offer

    def answer(self, request):
        self.settle(True)
        self.requests += 1
        fault = None if self.calm or self.chance.random() > 0.02 else self.chance.choice(FAULTS)
        process = self.process  # in the end it may be the next one
        kills = self.kill_at is not None and self.requests >= self.kill_at
        if kills and self.chance.random() < 0.5:
            process.kill()
            return
        if fault:
            self.faults[fault] += 1
            self.fail(request, fault)
        else:
            self.show(request)
        if kills:
            time.sleep(self.chance.random() * 0.02)
            process.kill()

    def show(self, request):
        query = dict(pair.split("=") for pair in request.path.split("?")[1].split("&"))
        country, apps = query["country"], re.split(",|%2C", query["id"])
        offers = {app: self.shown(country, app) for app in apps}
        results = [
            {"wrapperType": "software", "trackId": int(app), "trackName": f"App {app}", "sellerName": "Marlow Oak",
             "price": offer.price, "currency": offer.currency, "kind": offer.kind,
             "currentVersionReleaseDate": f"{offer.released}T00:00:00Z"}
            for app, offer in offers.items() if offer
        ]  # fmt: skip
        if self.send(request, 200, json.dumps({"resultCount": len(results), "results": results}).encode()):
            self.unsure = [((country, app), offer) for app, offer in offers.items()]

    def fail(self, request, fault):
        bodies = {
            "page": b"<html>Sorry</html>",
            "nothing": b'{"resultCount": 0, "results": []}',
            "nonsense": b'{"results": [{"wrapperType": "software", "trackId": "x"}]}',
        }
        if fault in ("drop", "cut"):
            request.close_connection = True
            if fault == "cut":
                request.wfile.write(b'HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\n{"results": [{"trackId": 14')
            return
        self.send(request, int(fault) if fault.isdigit() else 200, bodies.get(fault, b"{}"))

    @staticmethod
    def send(request, status, body):
        try:
            request.send_response(status)
            request.send_header("Content-Length", str(len(body)))
            request.end_headers()
            request.wfile.write(body)
            return True
        except OSError:
            return False

    def settle(self, certain):
        """The last answer was taken in, or the process ended with it in its hands."""
        for key, offer in self.unsure:
            self.looks[key].append(Look(self.day, offer, certain))
        self.unsure = []


class Series:
    """An app's prices in one storefront, as they follow from looks."""

    def __init__(self):
        self.offer, self.points, self.seen, self.gone = None, [], None, None

    def look(self, day, offer):
        if offer is None:
            self.gone = self.gone or (day if self.offer else None)
            return
        known = self.offer
        if known and offer.kind != known.kind and day < self.seen + FAITH:
            return
        self.seen, self.gone = day, None
        if known and offer.kind == known.kind and offer.released < known.released:
            return
        if not known or (offer.currency, offer.kind) != (known.currency, known.kind):
            self.points = [(day, offer.price)]
        elif offer.price != known.price:
            self.points.append((day, offer.price))
        self.offer = offer

    def published(self):
        """None where the price never moved."""
        if len(self.points) < 2:
            return None
        return {"c": self.offer.currency, "p": self.points, "g": self.gone}


def possible(looks):
    """All that may be published after these looks."""
    doubtful = [i for i, look in enumerate(looks) if not look.certain]
    for kept in itertools.product((True, False), repeat=len(doubtful)):
        left_out = {i for i, keep in zip(doubtful, kept) if not keep}
        series = Series()
        for i, look in enumerate(looks):
            if i not in left_out:
                series.look(look.day, look.offer)
        yield series.published()


def day_of(text):
    return datetime.date.fromisoformat(text[:10])


def read_feed(folder):
    """(storefront, app) → what is published; fails where a file is not whole."""
    feed = {}
    with open(os.path.join(folder, FILES, "manifest.json"), encoding="utf-8") as manifest:
        json.load(manifest)
    for country in STOREFRONTS:
        with gzip.open(os.path.join(folder, FILES, f"changes-{country}.json.gz")) as file:
            for app in json.load(file)["storefront"]["apps"]:
                points = [(day_of(point["d"]), point["v"]) for point in app["p"]]
                feed[country, app["a"]] = {"c": app["c"], "p": points, "g": day_of(app["g"]) if "g" in app else None}
    return feed


class Postgres:
    """A server of its own on a socket in the folder; refuses root."""

    SCRIPT = """cd {0} && exec 2>&1
      if [ "$(id -u)" = 0 ]; then chown postgres . && user="--reuid=postgres --regid=postgres --clear-groups"; fi
      PATH="$PATH:$(echo /usr/lib/postgresql/*/bin | tr " " :)"
      exec setpriv $user --pdeathsig INT sh -c "
        initdb -D data -U quillet -A trust -E UTF8 --locale=C --no-sync >/dev/null &&
        exec postgres -D data -k {0} -c fsync=off -c listen_addresses=" """

    def __init__(self, folder):
        os.makedirs(folder)
        self.address = f"postgresql://quillet@/postgres?host={folder}"
        self.server = subprocess.Popen(["sh", "-c", self.SCRIPT.format(folder)], stdout=subprocess.PIPE, text=True)
        for line in self.server.stdout:
            if "ready to accept connections" in line:
                threading.Thread(target=self.server.stdout.read, daemon=True).start()
                return
        raise SystemExit("PostgreSQL does not start")

    def end(self):
        self.server.send_signal(signal.SIGQUIT)
        self.server.wait()


class Year:
    def __init__(self, program, folder, days, seed):
        self.program, self.folder, self.days = program, folder, days
        self.chance = random.Random(seed)
        self.store = Store(self.chance, STOREFRONTS, APPS)
        self.public = os.path.join(folder, "public")
        ids = os.path.join(folder, "ids.txt")
        self.asking = ["collect", "--ids", ids, "--storefronts", ",".join(STOREFRONTS)]
        self.asking += ["--requests-per-minute", "100000"]
        self.database = os.path.join(folder, "first.db")
        self.postgres = None
        self.may_shrink = False
        self.counts = Counter()
        with open(ids, "w", encoding="utf-8") as file:
            file.write("\n".join(APPS))

    def run(self, *words, expect=(0,), may_pause=False):
        """The status; where it pauses it is stopped, as if the machine went off."""
        own = {"QUILLET_DATA_DIR": self.folder, "QUILLET_COLLECTOR_BUDGET_DIR": self.folder}
        environment = os.environ | own | {"QUILLET_ITUNES_URL": self.store.address}
        process = subprocess.Popen([self.program, *words, "--database", self.database], env=environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)  # fmt: skip
        self.store.process = process
        said = ""
        for line in process.stderr:
            said += line
            if may_pause and "Pausing" in line:
                self.counts["pauses"] += 1
                process.terminate()
        status = process.wait()
        process.stderr.close()
        self.store.settle(status >= 0 and status not in (130, 143))
        assert status in expect, f"{self.store.day}: {words}: status {status}: {said}"
        return status

    def collect(self, day):
        """As an hourly timer does, until the day's round has ended or the day is over."""
        for _ in range(self.chance.randint(1, 6)):
            kills = self.chance.random() < 0.1
            self.store.kill_at = self.store.requests + self.chance.randint(1, 12) if kills else None
            status = self.run(*self.asking, "--as-of", str(day), expect=(0, 3, 4, 143, -9), may_pause=True)
            self.counts["kills"] += status == -9
            if status in (0, 3):
                self.counts["rounds"] += 1
                break
        self.store.kill_at = None

    def publish(self):
        if self.chance.random() < 0.1:
            self.kill_publishing()
        if self.run("publish", self.public, expect=(0, 6) if self.may_shrink else (0,)) == 6:
            self.counts["shrinks"] += 1
            self.run("publish", self.public, "--shrink")
        self.counts["publishings"] += 1

    def kill_publishing(self):
        process = subprocess.Popen([self.program, "publish", self.public, "--database", self.database],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # fmt: skip
        time.sleep(self.chance.random() * 0.05)
        process.kill()
        process.wait()
        self.counts["kills while publishing"] += 1
        if os.path.exists(os.path.join(self.public, FILES, "manifest.json")):
            read_feed(self.public)

    def err(self):
        """What an operator does wrong once: each is told and does no harm."""
        self.run(*self.asking, "--as-of", "2031-01-01", expect=(2,))
        right, self.database = self.database, os.path.join(self.folder, "mistyped.db")
        self.run("publish", self.public, expect=(5,))
        self.database = right

    def have_a_wrong_clock(self, day):
        """For a night. What was recorded then is taken out."""
        late = day + datetime.timedelta(days=self.days // 4)
        self.store.calm = True
        self.run(*self.asking, "--as-of", str(day))  # whatever was under way
        before = {key: len(looks) for key, looks in self.store.looks.items()}
        self.run(*self.asking, "--as-of", str(late))
        self.run(*self.asking, "--as-of", str(day), expect=(7,))
        self.run("repair", "--as-of", str(day))
        for key, looks in self.store.looks.items():
            del looks[before[key]:]
        self.store.calm = False

    def move(self, address):
        """To another machine, perhaps in the middle of a round."""
        copy = os.path.join(self.folder, f"backup-{self.counts['moves']}.db")
        self.run("backup", copy)
        self.database = address
        self.run("restore", copy)
        self.counts["moves"] += 1

    def live(self):
        self.run("init")
        first = LAST_DAY - datetime.timedelta(days=self.days)
        for number in range(self.days):
            day = first + datetime.timedelta(days=number)
            self.store.begin_day(day)
            if number == self.days // 6:
                self.err()
            if number == self.days // 4:
                self.have_a_wrong_clock(day)
            if number == self.days // 3:
                self.move(os.path.join(self.folder, "second.db"))
            if number == self.days // 2:
                self.store.change_currency("nl", "SEK")
                self.may_shrink = True  # its histories begin anew
            if number == self.days * 2 // 3:
                self.postgres = Postgres(os.path.join(self.folder, "postgres"))
                self.move(self.postgres.address)
            if self.chance.random() < 0.97:  # else the machine was off
                self.collect(day)
                self.publish()
        self.store.begin_day(LAST_DAY)
        self.store.calm = True
        self.collect(LAST_DAY)
        self.publish()

    def compare(self):
        feed, wrong, points = read_feed(self.public), [], 0
        for key, looks in self.store.looks.items():
            published = feed.pop(key, None)
            points += len(published["p"]) if published else 0
            if published not in possible(looks):
                wrong.append(f"{key}: published {published}, possible {next(possible(looks))}; last looks {looks[-5:]}")
        wrong += [f"{key}: nobody looked, but it is published" for key in feed]
        looks = sum(len(looks) for looks in self.store.looks.values())
        print(f"{self.days} days, {looks} looks at {len(APPS)} apps in {len(STOREFRONTS)} storefronts in "
              f"{self.store.requests} requests; {points} prices published, {len(wrong)} histories wrong")  # fmt: skip
        print(", ".join(f"{name}: {count}" for name, count in (self.counts + self.store.faults).items()))
        return wrong


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="quillet-collector")
    parser.add_argument("--days", type=int, default=365)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    folder = tempfile.mkdtemp()
    os.chmod(folder, 0o755)  # the database server runs as another user
    year = Year(os.path.abspath(options.program), folder, options.days, options.seed)
    try:
        year.live()
        wrong = year.compare()
    finally:
        if year.postgres:
            year.postgres.end()
        shutil.rmtree(folder)
    print("\n".join(wrong[:20]))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

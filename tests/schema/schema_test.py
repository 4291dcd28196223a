#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Holds the schemas of docs/schema against what the commands print.

Runs every command on the sample store and a sample library. Each document must be valid, must have
no key that its schema does not know, and every key that a schema knows must turn up somewhere.
Status 77: skipped, because the module jsonschema is missing.
"""

import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from collections import namedtuple
from pathlib import Path

try:
    from jsonschema import Draft202012Validator, ValidationError, validators
except ImportError:
    print("skipped: the Python module jsonschema (python3-jsonschema) is not installed")
    sys.exit(77)

APP = "1176895641"
OTHER_APP = "1289583905"
MISSING_APP = "999"
GONE_APP = "6400587384"  # from the German storefront

# `status`: what the command must end with.
Run = namedtuple("Run", "arguments status")
SERVICES = "ITUNES", "APP_STORE", "PRICE_DATA"


def runs(status, *lines):
    return [Run(shlex.split(line), status) for line in lines]


PLAIN = [
    *runs(
        0,
        "search photo -p iphone -c de --free --sort newest -n 5",
        "search notes -p ipad --hide-owned --min-rating 3 --min-ratings 5 -n 5",
        "search photo --paid --max-price 30 --updated-within 2years --max-size 2gb -n 5",
        "search photo --purchases no-subscription --architecture apple-silicon --runs-on 26 -n 5",
        "search photo --released-after 2012 -n 5",
        "search photo --genre 'Photo & Video' --architecture needs-rosetta -n 5",
        f"info {APP}",
        f"info {OTHER_APP}",
        "deals -n 5",
        f"price-history {GONE_APP} -c de",
        "deals --min-drop 100 -n 3",
        f"compare {APP} {OTHER_APP} {MISSING_APP}",
        f"storefronts {APP}",
        "watchlist -n 200",
        "my-apps -n 200",
        "my-apps --outdated -p mac -n 5",
        "collections",
        "collections Writing",
        "saved-searches",
        f"reviews {APP} -n 40",
        f"reviews {APP} --versions",
        f"reviews {APP} --recent -p iphone",
        f"reviews {APP} --countries us,jp --recent -n 3",
        "charts -n 60",
        "charts --chart top-paid --genre Productivity -n 3",
        "charts --chart top-grossing -p iphone --purchases has-subscription -n 3",
        f"rank-history {APP}",
        f"versions {APP}",
        f"screenshots {APP}",
        f"purchase-history {APP}",
    ),
    *runs(
        1,
        "search zzzzqqqq",
        f"info {MISSING_APP}",
        f"price-history {MISSING_APP}",
        f"compare {MISSING_APP} 998",
        f"storefronts {MISSING_APP}",
        "collections nothing-of-this-name",
        "charts --max-price 0.01 --paid",
        f"rank-history {MISSING_APP}",
        f"purchase-history {MISSING_APP}",
    ),
    *runs(
        2,
        "search",
        "search notes --sort sideways",
        "deals word",
        "charts --genre Nonsense",
        "watchlist word",
    ),
]

# What only shows where something goes wrong: a fault of the sample store, and what then runs.
FAULTS = [
    # Answers that nothing repeats its question after, so that no time is lost.
    ("path=/search status=403", runs(3, "search notes")),
    ("path=/search status=429", runs(4, "search notes --no-retry")),
    ("path=/api/apps/v1/catalog/gb status=403", runs(0, f"reviews {APP} --countries us,gb -n 3")),
    ("path=/api status=403", runs(0, f"compare {APP} {OTHER_APP}", f"info {APP}")),
]

ERROR_CODES = {
    "VALIDATION", "MISSING_REQUIRED", "NOT_FOUND", "RATE_LIMITED", "OFFLINE", "UPSTREAM", "INTERNAL",
}  # fmt: skip


class Programs:
    """Runs commands against the sample store, with nothing of the user's own."""

    def __init__(self, quillet, sandbox, folder):
        self.quillet, self.sandbox, self.folder = quillet, sandbox, Path(folder)
        kept = {k: v for k, v in os.environ.items() if not k.startswith(("QUILLET_", "XDG_", "LC_"))}
        self.environment = {**kept, "HOME": folder, "LANG": "en_US.UTF-8"}

    def answers(self, commands, options=(), **variables):
        """One sample store for all commands."""
        library = str(self.folder / "library")
        words = [self.sandbox, "--library", library, *options]
        with subprocess.Popen(words, stdout=subprocess.PIPE, text=True) as store:
            address = store.stdout.readline().strip()
            services = {f"QUILLET_{name}_URL": address for name in SERVICES}
            environment = {**self.environment, **services, "QUILLET_DATA_DIR": library, **variables}
            answers = [self.run(*run.arguments, "--json", env=environment) for run in commands]
            store.terminate()
        return answers

    def run(self, *arguments, env):
        return subprocess.run([self.quillet, *arguments], env=env, cwd=self.folder,
                              capture_output=True, text=True, stdin=subprocess.DEVNULL)  # fmt: skip

    def commands(self):
        """The command words that the help lists."""
        text = self.run("help", env=self.environment).stdout
        listed = text.split("COMMANDS:")[1].split("GLOBAL OPTIONS:")[0]
        return set(re.findall(r"^  ([a-z-]+) ", listed, re.MULTILINE)) - {"help"}


class Schemas:
    """The schemas, in one document, and which of their keys were met."""

    def __init__(self, folder):
        self.names = {path.stem for path in folder.glob("*.json")} - {"common"}
        self.whole, self.keys, self.met, self.problems = {}, {}, set(), []
        for path in folder.glob("*.json"):
            text = path.read_text().replace('"#/', f'"#/$defs/{path.stem}/')
            self.whole[path.stem] = json.loads(text.replace('"common.json#/', '"#/$defs/common/'))
            Draft202012Validator.check_schema(self.whole[path.stem])
            del self.whole[path.stem]["$schema"]  # would bring the usual validator back
        self.note(self.whole, "")
        self.kind = validators.extend(Draft202012Validator, {"properties": self.check_keys})

    def note(self, schema, place):
        """Lists the keys by their places; each schema that has some learns its own."""
        for key, content in schema.get("properties", {}).items():
            schema["place"] = place
            self.keys[f"{place}/properties/{key}"] = content
        for name, part in schema.items():
            if isinstance(part, dict):
                self.note(part, f"{place}/{name}")

    def check_keys(self, validator, properties, value, schema):
        """As everywhere, and no other keys are allowed. What lacks a key is of another form."""
        if isinstance(value, dict) and set(schema.get("required", ())) <= set(value):
            for key in value.keys() - properties.keys():
                yield ValidationError(f"'{key}' is not in the schema")
            self.met |= {f"{schema['place']}/properties/{key}" for key in value}
            yield from Draft202012Validator.VALIDATORS["properties"](
                validator, properties, value, schema
            )

    def check(self, name, document, where):
        validator = self.kind({"$ref": f"#/$defs/{name}", "$defs": self.whole})
        for error in validator.iter_errors(document):
            for cause in error.context or [error]:  # of several forms, what each lacks
                self.problems.append(f"{where}: {cause.json_path}: {cause.message[-100:]}")


def follow_up(answers):
    """Commands about the apps that the answers to PLAIN name."""
    listed = {run.arguments[0]: json.loads(answer.stdout)
              for run, answer in reversed(list(zip(PLAIN, answers))) if run.status == 0}  # fmt: skip
    for deal in listed["deals"]["deals"]:
        yield Run(["price-history", str(deal["trackId"])], 0)
    watched = {app["trackId"] for app in listed["watchlist"]["items"] if app["country"] == "us"}
    for app in sorted(watched)[:8]:  # more show nothing new
        yield Run(["purchase-history", str(app)], 0)
        yield Run(["info", str(app)], None)
        yield Run(["versions", str(app)], None)


def check_answer(schemas, run, answer, codes):
    where = shlex.join(["quillet", *run.arguments])
    if run.status not in (None, answer.returncode):
        schemas.problems.append(f"{where}: status {answer.returncode}: {answer.stderr}")
    if answer.stdout:
        schemas.check(run.arguments[0], json.loads(answer.stdout), where)
        return
    assert answer.stderr.startswith("{"), f"{where}: neither a document nor an error: {answer}"
    error = json.loads(answer.stderr)
    schemas.check("error", error, where)
    codes.add(error["error"]["code"])


def check_all(schemas, programs):
    codes, asked = set(), set()

    def ask(commands, options=(), **variables):
        answers = programs.answers(commands, options, **variables)
        for run, answer in zip(commands, answers):
            check_answer(schemas, run, answer, codes)
            asked.add(run.arguments[0])
        return answers

    ask(list(follow_up(ask(PLAIN))))
    for fault, commands in FAULTS:
        ask(commands, ["--fault", fault])
    ask(runs(3, "search notes --no-retry"), QUILLET_ITUNES_URL="http://127.0.0.1:1")
    ask(runs(1, "watchlist"), QUILLET_DATA_DIR="nowhere")
    damaged = programs.folder / "damaged"
    damaged.mkdir()
    (damaged / "default.store").write_text("This is no database. " * 100)
    ask(runs(3, "watchlist"), QUILLET_DATA_DIR=str(damaged))

    for code in sorted(ERROR_CODES - codes):
        schemas.problems.append(f"no command failed with {code}")
    for name in sorted((programs.commands() | {"error"}) ^ schemas.names):
        schemas.problems.append(f"'{name}' is a command without a schema or the other way round")
    for name in sorted(programs.commands() - asked):
        schemas.problems.append(f"no run of '{name}'")


def check_schemas(schemas, page):
    for place, content in schemas.keys.items():
        if "description" not in content and "$ref" not in content:
            schemas.problems.append(f"{place} has no description")
        if place not in schemas.met:
            schemas.problems.append(f"{place} was never met")
    for name in sorted(schemas.names):
        if f"(schema/{name}.json)" not in page:
            schemas.problems.append(f"docs/json.md does not link schema/{name}.json")


def main():
    quillet, sandbox, docs = sys.argv[1:]
    schemas = Schemas(Path(docs) / "schema")
    with tempfile.TemporaryDirectory(prefix="quillet-schema-") as folder:
        check_all(schemas, Programs(quillet, sandbox, folder))
    check_schemas(schemas, (Path(docs) / "json.md").read_text())
    for problem in schemas.problems:
        print(problem)
    return 1 if schemas.problems else 0


sys.exit(main())

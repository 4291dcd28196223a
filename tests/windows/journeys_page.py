# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether an app's page says what the command line prints of the app."""

import re
from datetime import datetime

from main_window import MainWindow
from rows import plain, size_text
from window import NotThere, until

# Of each kind: for phones and Macs, bought, in a subscription, a game, of other scripts, hardly described.
APPS = [1480068668, 824183456, 1176895641, 1701200834, 1061100872, 1398805512, 1344556688, 1477009913, 999000001]
FOLDED = r"All \d+ releases|Show all \d+"
ON_MACS = 1480068668  # a phone's record, and a build for Macs
DEVICES = {"mac": "Mac", "iphone": "iPhone", "ipad": "iPad", "ipod": "iPod touch", "tvos": "Apple TV",
           "watch": "Apple Watch", "realityDevice": "Apple Vision"}  # fmt: skip


def date_of(text):
    return datetime.fromisoformat(text.replace("Z", "+00:00"))


def day(text, always=False):
    then = date_of(text)
    return f"{then.day} {then:%b}" + (f" {then.year}" if always or then.year != datetime.now().year else "")


def days(count):
    return "1 day" if count == 1 else f"{count:,} days"


# ---- What it is to say


def header(info):
    app, chart = info["app"], info.get("chartPosition")
    yield plain(app["name"])
    yield app["formattedPrice"]
    if app.get("ratingCount"):
        yield f"Rated {app['rating']:.1f} out of 5, {app['ratingCount']:,} ratings"
    if chart:
        yield f"#{chart['position']} in {chart['genreName']}"
    if "editorialBadge" in info:
        yield info["editorialBadge"]
    if "tagline" in info:
        yield plain(info["tagline"])


def purchases(info):
    """The beginnings of their rows."""
    for item in info.get("inAppPurchases", []):
        billing = item.get("period", "" if item["subscription"] else "once")
        yield ", ".join(filter(None, [plain(item["name"]), billing, item["formattedPrice"]]))


def ratings(info):
    app = info["app"]
    if not app.get("ratingCount"):
        return
    counts = info.get("ratingHistogram", [])
    stars = [f"{number} star{'s' if number > 1 else ''}: {int(count / sum(counts) * 100 + 0.5)}\xa0%, {count:,}"
             for number, count in reversed(list(enumerate(counts, 1)))]  # fmt: skip
    of = "1 rating" if app["ratingCount"] == 1 else f"{app['ratingCount']:,} ratings"
    yield "; ".join([f"{app['rating']:.1f} out of 5", of, *stars])


def releases(told):
    upkeep, listed = told["maintenance"], told["versions"]
    for number, release in enumerate(listed):
        text = f"Version {release['version']}, {day(release['releaseDate'], always=True)}"
        if number + 1 < len(listed):
            gap = (date_of(release["releaseDate"]).date() - date_of(listed[number + 1]["releaseDate"]).date()).days
            text += f", {days(gap)} after the one before"
        yield text
    if "medianDaysBetweenReleases" in upkeep:
        yield f"Usual gap {days(upkeep['medianDaysBetweenReleases'])}"
    since = f"Last release {days(upkeep['daysSinceLastRelease'])} ago."
    yield since + (f" {told['count']} returned (Apple's limit; older ones exist)." if told["capped"] else "")


def information(info):
    app = info["app"]
    if "sizeBytes" in app:
        yield "Size", size_text(app["sizeBytes"])
    yield "Category", app["genre"]
    if "minimumOS" in app:
        yield "Needs", f"{'macOS' if info['platform'] == 'mac' else 'iOS'} {app['minimumOS']} or later"
    if "architecture" in info:
        yield "Built for", info["architecture"]
    if "deviceFamilies" in info:
        yield "Works on", ", ".join(DEVICES[each] for each in info["deviceFamilies"])
    yield "Version", f"{app['version']}, {day(app['lastUpdated'])}"
    yield "Bundle ID", app["bundleId"]
    yield "Track ID", str(app["trackId"])


# ---- What it says


class Said:
    """The page as it is now: its buttons, and its texts by block. What stands in no block is the header's."""

    def __init__(self, window):
        self.texts, self.buttons = {}, []
        self._read(window.part("App page"), "")

    def _read(self, node, block):
        for each in node.children():
            role, name = each.role, each.name
            if role == "unknown" or not each.has("showing"):
                continue
            if role in ("label", "push button"):
                self.texts.setdefault(block, []).append(name)
            if role == "push button":
                self.buttons.append(each)
            elif role not in ("label", "chart"):
                self._read(each, block or (name if role == "filler" else ""))

    def lacks(self, block, texts):
        return [text for text in texts if text not in self.texts.get(block, [])]

    def information(self):
        said = self.texts.get("Information", [])
        return set(zip(said, said[1:], strict=False))

    def unfold(self):
        """What is to be seen whole; false where all is."""
        folded = [each for each in self.buttons if re.fullmatch(FOLDED, each.name)]
        for each in folded:
            each.press()
        return bool(folded)


def lacking(said, info, told):
    """What is to be said and is not."""
    sold = said.texts.get("In-app purchases", [])
    found = said.lacks("", [*header(info), plain(info["app"]["seller"])])
    found += [text for text in purchases(info) if not any(each.startswith(text) for each in sold)]
    found += said.lacks("Ratings", ratings(info)) + said.lacks("Releases", releases(told))
    found += [pair for pair in information(info) if pair not in said.information()]
    return found + said.lacks("Description", filter(None, [info.get("description", "").strip()]))


def expect_said(home, window, app, platform=()):
    info = home.json("info", str(app), *platform)
    told = home.json("versions", str(app), *platform)
    until(lambda: window.page_name() == plain(info["app"]["name"]), f"the page of {app}")
    left = []

    def is_said():
        said = Said(window)
        left[:] = lacking(said, info, told)
        return not left or (said.unfold() and False)

    try:
        until(is_said, "all that is known")
    except NotThere:
        raise AssertionError(f"{app}: the page lacks {left}") from None


def says_what_the_command_line_prints(home):
    window = MainWindow(home.start())
    for app in APPS:
        assert home.start("--open", str(app)).wait(10) == 0
        expect_said(home, window, app)


def tells_of_the_build_that_is_watched(home):
    home.use_sample_library()
    window = MainWindow(home.start("--open", str(ON_MACS)))
    expect_said(home, window, ON_MACS, ["-p", "mac"])


JOURNEYS = [says_what_the_command_line_prints, tells_of_the_build_that_is_watched]

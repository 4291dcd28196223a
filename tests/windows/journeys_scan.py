# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What is installed goes into My Apps: as the store knows it, and only what it put there unless the user says so."""

import plistlib

from main_window import MainWindow
from window import keys, until, window_of


def put(folder, name, bundle_id, version, receipt=True, binary=False):
    contents = folder / f"{name}.app" / "Contents"
    contents.mkdir(parents=True)
    info = {"CFBundleIdentifier": bundle_id, "CFBundleName": name, "CFBundleShortVersionString": version}
    kind = plistlib.FMT_BINARY if binary else plistlib.FMT_XML
    (contents / "Info.plist").write_bytes(plistlib.dumps(info, fmt=kind))
    if receipt:
        (contents / "_MASReceipt").mkdir()
        (contents / "_MASReceipt/receipt").write_bytes(b"receipt")


def put_wrapped(folder, name, track_id, bundle_id):
    inside = folder / f"{name}.app" / "Wrapper"
    (inside / f"{name}.app").mkdir(parents=True)
    info = {"CFBundleIdentifier": bundle_id, "CFBundleName": name, "CFBundleShortVersionString": "1.0"}
    (inside / f"{name}.app" / "Info.plist").write_bytes(plistlib.dumps(info))
    (inside / "iTunesMetadata.plist").write_bytes(plistlib.dumps({"itemId": track_id}))


def scanned(home):
    """What the command line says of each app."""
    fields = ("trackId", "name", "source", "installedVersion", "storeVersion")
    return sorted(tuple(app.get(field) for field in fields) for app in home.json("my-apps")["items"])


def scan(window, app):
    """Begins one, and returns the window with its result."""
    window.part("Toolbar").find("push button", "Scan Applications Folder").press()
    return window_of(app, "Scan Result", 30)


def scans_a_folder_and_leaves_the_rest_to_the_user(home):
    folder = home.folder / "Applications"
    put(folder, "Draftlark", "se.larkendahl.draftlark", "0.1")
    put(folder, "Quillink", "com.amberfield.quillink", "99")  # of an ID that the iPhone app has as well
    put_wrapped(folder, "Dailysift", 1099870011, "com.northlantern.dailysift")
    put(folder / "Suite", "Nibforge", "com.northlantern.nibforge", "0.2", receipt=False, binary=True)
    put(folder, "Typebarn", "com.northlantern.typebarn", "1.0")  # there is none for the Mac
    put(folder, "Unheard", "example.unheard.of", "1.0")
    home.set(applicationsFolders=folder, scanAtStart="false")
    app = home.start("--section", "my-apps")
    window = MainWindow(app)
    result = scan(window, app)
    known = {each: home.json("info", str(each))["app"] for each in (1507733121, 1480068668, 1099870011, 1493320077)}

    def owned(track_id, installed):
        return track_id, known[track_id]["name"], "scanned", installed, known[track_id]["version"]

    three = sorted([owned(1507733121, "0.1"), owned(1480068668, "99"), owned(1099870011, "1.0")])
    assert scanned(home) == three, scanned(home)
    rows = result.find("list", "Found apps")
    expected = ["Matched, 4", "Dailysift, New", "Draftlark, New", "Quillink, New",
                "Nibforge, The same ID is in the store", "Updates, 2"]  # fmt: skip
    assert rows.rows()[:6] == expected, rows.rows()
    left = ["Not matched, 2", "Typebarn, iPhone record only", "Unheard, Not in the us storefront"]
    assert rows.rows()[-3:] == left, rows.rows()
    for place in (1, 4):  # one that is in My Apps, and one that is not
        was = rows.row(place).has("checked")
        rows.row(place).click()
        keys("space")
        until(lambda: rows.row(place).has("checked") != was, "the other tick")
    result.find("push button", "Done").press()
    wanted = sorted([owned(1507733121, "0.1"), owned(1480068668, "99"), owned(1493320077, "0.2")])
    until(lambda: scanned(home) == wanted, "what was ticked in My Apps")
    until(lambda: any(row.startswith("Nibforge") for row in window.list("My Apps").rows()), "it in the list")
    keys("ctrl+z")
    until(lambda: scanned(home) == three, "three of them again")
    folder.rename(home.folder / "away")
    window.part("Toolbar").find("push button", "Scan Applications Folder").press()
    window.expect_strip("lists", ".*is not there. Its apps stay as they are.")
    assert scanned(home) == three, scanned(home)
    assert app.end() == 0, app.said()


def reads_a_thousand_bundles(home):
    folder = home.folder / "Applications"
    for number in range(1000):
        put(folder, f"Unheard {number}", f"example.unheard.of{number}", "1.0", binary=number % 2 == 0)
    home.set(applicationsFolders=folder)  # and so it begins once more by itself
    app = home.start("--section", "my-apps")
    window = MainWindow(app)
    result = scan(window, app)
    assert result.find("list", "Found apps").row(0).name == "Not matched, 1,000"
    ends = "1,000 bundles read, 0 matched"
    until(lambda: any(ends in each.name for each in window.lists.find_all("label")), "when that was")
    assert scanned(home) == []
    assert app.end() == 0, app.said()


JOURNEYS = [scans_a_folder_and_leaves_the_rest_to_the_user, reads_a_thousand_bundles]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What is installed goes into My Apps: as the store knows it, and only what it put there unless the user says so."""

import plistlib

import shelf
from main_window import MainWindow
from window import keys, titles_of, type_text, until, window_of, xdotool


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


def choose(result, name):
    """The row of an app that was not matched."""
    rows = result.find("list", "Found apps")
    index = next(i for i, row in enumerate(rows.rows()) if row.startswith(f"{name},"))
    rows.row(index).click()
    until(lambda: rows.row(index).has("selected"), f"{name} chosen")


def expect_settled(result, name):
    rows = result.find("list", "Found apps")
    until(lambda: not any(row.startswith(f"{name},") for row in rows.rows()), f"nothing to decide about {name}")


def type_link(app, text):
    window_of(app, "Set Link")
    type_text(text)
    keys("Return")


def settles_what_is_not_matched(home):
    folder = home.folder / "Applications"
    for name in ("Linked", "Odd <b>&amp; %1", "Unwanted", "Nibforge"):
        put(folder, name, f"example.unheard.{name.split()[0].lower()}", "1.5")
    home.set(applicationsFolders=folder, scanAtStart="false")
    app = home.start("--section", "my-apps")
    window = MainWindow(app)
    result = scan(window, app)
    rows = result.find("list", "Found apps")
    assert rows.row(0).name == "Not matched, 4", rows.rows()
    assert "Odd <b>&amp; %1, Not in the us storefront" in rows.rows(), rows.rows()

    choose(result, "Linked")
    result.find("push button", "Set Link…").press()
    type_link(app, "nonsense")
    said = lambda: [node.name for node in window.walk()]  # noqa: E731
    until(lambda: "That is no link to an app in the store." in said(), "what is wrong with the link")
    result.find("push button", "Set Link…").press()
    type_link(app, "https://apps.apple.com/us/app/id1507733121")
    expect_settled(result, "Linked")
    linked = [(1507733121, "Draftlark: Markdown Editor", "scanned", "1.5")]
    until(lambda: [each[:4] for each in scanned(home)] == linked, "the linked one in My Apps")

    choose(result, "Unwanted")
    result.find("push button", "Ignore").press()
    expect_settled(result, "Unwanted")
    choose(result, "Nibforge")
    result.find("push button", "Search the Store").press()
    window.expect_title("Nibforge")
    until(lambda: window.list("Search results").row(0).name.startswith("Nibforge,"), "the app that was meant")

    result.find("push button", "Cancel").press()
    until(lambda: "Scan Result" not in titles_of(app).values(), "the result gone")
    window.menu_item("View", "My Apps").press()
    window.expect_title("My Apps")
    result = scan(window, app)
    left = [row.split(",")[0] for row in result.find("list", "Found apps").rows() if row.endswith("storefront")]
    assert left == ["Nibforge", "Odd <b>&amp; %1"], left
    assert [each[:4] for each in scanned(home)] == linked, scanned(home)
    assert app.end() == 0, app.said()


def drag(home, files, onto):
    """Files of a file manager onto the middle of a window."""
    home.desktop.start([home.programs.drag_source, *map(str, files)])
    until(lambda: xdotool("search", "--onlyvisible", "--name", "^Files$"), "a window to drag from")
    left, top, width, height = onto.box
    xdotool("mousemove", 20, 20, "mousedown", 1)
    for step in range(6):  # a drag begins once the pointer has moved far enough
        xdotool("mousemove", left + width // 2 + 2 * step, top + height // 2 + step, "sleep", 0.05)
    xdotool("mouseup", 1)


def takes_what_is_dropped_on_the_window(home):
    folder = home.folder / "Applications"
    put(folder, "Nibforge", "com.northlantern.nibforge", "0.2", receipt=False)
    library = shelf.write(home.folder / "lists.json", [shelf.watched(1, "One"), shelf.watched(2, "Two")])
    app = home.start("--section", "my-apps")
    window = MainWindow(app)
    drag(home, [folder / "Nibforge.app"], window.part("Content"))
    result = window_of(app, "Scan Result", 30)
    rows = result.find("list", "Found apps")
    assert rows.rows() == ["Matched, 1", "Nibforge, The same ID is in the store"], rows.rows()
    result.find("push button", "Done").press()
    until(lambda: [each[0] for each in scanned(home)] == [1493320077], "what was dropped")
    drag(home, [library], window.part("Content"))
    preview = window_of(app, "Import Library")
    preview.find("push button", "Import").press()
    until(lambda: home.json("watchlist")["total"] == 2, "the apps of the library")
    assert app.end() == 0, app.said()


def scans_for_somebody_new(home):
    folder = home.folder / "Applications"
    put(folder, "Draftlark", "se.larkendahl.draftlark", "0.1")
    home.set(applicationsFolders=folder, scanAtStart="false")
    home.is_new = True
    home.forget_windows()
    app = home.start()
    MainWindow(app)
    welcome = window_of(app, "Welcome")

    def expect_step(choice):
        """Shown, and its choice."""
        shown = lambda: [node for node in welcome.find_all(name=choice) if node.has("showing")]  # noqa: E731
        return until(shown, choice)[0]

    for choice in ("Mac", "Not now"):
        expect_step(choice)
        welcome.find("push button", "Skip").press()
    expect_step("Scan for them now").press("Toggle")
    welcome.find("push button", "Continue").press()
    expect_step("Read published price data")
    assert scanned(home) == [], "not before all is answered"
    welcome.find("push button", "Done").press()
    window_of(app, "Scan Result", 30).find("push button", "Done").press()
    until(lambda: [each[0] for each in scanned(home)] == [1507733121], "what was found")
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


JOURNEYS = [scans_a_folder_and_leaves_the_rest_to_the_user, settles_what_is_not_matched,
            takes_what_is_dropped_on_the_window, scans_for_somebody_new, reads_a_thousand_bundles]

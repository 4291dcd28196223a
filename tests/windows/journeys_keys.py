# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""All of the window by the keyboard alone, and by its menus."""

import access
from main_window import KEYS, SECTIONS, MainWindow
from window import keys, titles_of, type_text, until, window_of

PANES = ["Sidebar", "Toolbar", "List", "App page"]  # as F6 goes round


def focused_pane(window):
    """The one of the panes that has the focus."""
    for name in PANES:
        pane = window.lists if name == "List" else window.part(name)
        if pane.has("focused") or any(node.has("focused") for node in pane.walk() if node.has("showing")):
            return name
    return ""


def expect_focus(window, pane):
    until(lambda: focused_pane(window) == pane, f"the focus in {pane!r}")


def goes_everywhere_by_keys(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    for section, key in KEYS.items():
        keys(key)
        window.expect_title(SECTIONS[section])
        rows = window.list(SECTIONS[section])
        until(lambda: rows.has("focused"), f"the focus in {section}")
        keys("Home", "Down", "Down")
        until(lambda: rows.selected_rows() == [rows.row(2).name], f"the third row of {section}")

    rows = window.section("watchlist")
    until(lambda: rows.has("focused"), "the focus in the list")
    keys("Return")
    expect_focus(window, "App page")
    keys("Escape")
    expect_focus(window, "List")
    keys("Escape")
    expect_focus(window, "Toolbar")
    type_text("photo")
    matching = sum("photo" in f"{item['name']}\n{item['seller']}".lower()
                   for item in home.json("watchlist", "-n", "200")["items"])  # fmt: skip
    until(lambda: window.count() == f"{matching} of 40" and rows.row_count() == matching, f"{matching} rows")
    keys("Down")
    until(lambda: rows.has("focused"), "the focus in the list")
    keys("ctrl+f")
    until(lambda: window.find_field().has("focused"), "the focus in the field")
    keys("Escape")
    until(lambda: window.count() == "40 apps", "all apps")

    keys("Escape")  # from what is not the list to it
    for key, order in [("F6", ["App page", "Sidebar", "Toolbar", "List"]),
                       ("shift+F6", ["Toolbar", "Sidebar", "App page", "List"])]:  # fmt: skip
        expect_focus(window, "List")
        for pane in order:
            keys(key)
            expect_focus(window, pane)

    keys("ctrl+k")
    until(lambda: window.part("Go to App").find("text").has("focused"), "the field for a name")
    type_text("riverrook")
    until(lambda: window.part("Go to App").find("list").row_count() > 0, "apps of that name")
    keys("Return")
    until(lambda: window.page_name() == "Riverrook RSS", "its page")
    keys(KEYS["alerts"])
    window.expect_title("Alerts")
    keys("alt+Left")
    window.expect_title("Watchlist")
    until(lambda: window.page_name() == "Riverrook RSS", "its page again")
    keys("alt+Right")
    window.expect_title("Alerts")

    keys("ctrl+question")
    shortcuts = window_of(app, "Keyboard Shortcuts")
    said = [node.name for node in next(iter(shortcuts.find_all("tree"))).children()]
    assert "Ctrl+4" in said and "Next Pane" in said, said
    keys("Escape")
    until(lambda: "Keyboard Shortcuts" not in titles_of(app).values(), "the shortcuts gone")
    keys("ctrl+q")
    assert app.wait(5) == 0, app.said()


def does_by_its_menus_what_they_say(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    rows = window.list()
    window.menu_item("View", "Alerts").press()
    window.expect_title("Alerts")
    assert not window.menu_item("Go", "Forward").has("enabled")
    window.menu_item("Go", "Back").press()
    window.expect_title("Watchlist")
    window.menu_item("Go", "Forward").press()
    window.expect_title("Alerts")
    window.menu_item("Go", "Next Unread Alert").press()
    until(lambda: ", unread, " in window.list("Alerts").selected_rows()[0], "an unread alert")
    window.menu_item("View", "Watchlist").press()
    window.expect_title("Watchlist")
    window.menu_item("View", "Sort By", "Name").press()
    by_name = sorted(rows.rows(), key=lambda row: row.split(",")[0].casefold())
    until(lambda: rows.rows() == by_name, "rows by name")
    assert window.menu_item("View", "Sort By", "Name").has("checked")
    first = until(lambda: rows.selected_rows(), "a row")
    window.menu_item("Go", "Next App").press()
    until(lambda: rows.selected_rows() != first, "the next row")
    sidebar, page = window.part("Sidebar"), window.part("App page")
    for entry, part in [("Sidebar", sidebar), ("App Page Beside List", page)]:
        for shows in (False, True):
            window.menu_item("View", entry).press()
            until(lambda: part.has("showing") == shows, f"{entry} {'shown' if shows else 'gone'}")
    beside = window.part("Toolbar").find("check box", "App Page Beside List")
    for shows in (False, True):
        beside.press("Toggle")
        until(lambda: page.has("showing") == beside.has("checked") == shows, f"the page {'shown' if shows else 'gone'}")
    before = rows.row(0).box
    window.menu_item("View", "Larger Text").press()
    until(lambda: window.menu_item("View", "Normal Text").has("enabled"), "a way back to normal text")
    window.menu_item("View", "Normal Text").press()
    until(lambda: rows.row(0).box == before, "rows as before")
    window.menu_item("Edit", "Find").press()
    until(lambda: window.find_field().has("focused"), "the focus in the field")
    window.menu_item("Help", "About Quillet").press()
    window_of(app, "About Quillet")
    keys("Escape")
    window.menu_item("File", "Quit Quillet").press()
    assert app.wait(5) == 0, app.said()
    assert app.said() == "", app.said()


def focused_widget(window):
    return next((node.pane(), node.role, node.name) for node in window.part("Content").walk()
                if node.role not in access.UNTOLD and node.name and node.has("focused") and node.has("showing"))  # fmt: skip


def expect_documented(part, listed, panes):
    """What is shown in the panes is what the document's table says, chips without room aside."""
    expected = {row for row in listed if row[0] in panes}
    shown = {row for row in access.widgets(part) if row[0] in panes}
    lacking = {row for row in expected - shown if not row[0].startswith("Filters of ")}
    assert not lacking and shown <= expected, (lacking, shown - expected)


def has_what_its_document_says_in_that_order(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    window.resize(1280, 800)
    around = access.documented("Around the content")
    for word, title in reversed(SECTIONS.items()):
        window.section(word)
        expect_documented(window.lists, access.documented(title), [title, f"Filters of {title}"])
    for pane in ("Toolbar", "Sidebar"):
        expect_documented(window.part(pane), around, [pane])
    window.section("watchlist")
    keys("ctrl+f")
    order = around[around.index(("Toolbar", "text", "Find in Watchlist")):] + access.documented("Watchlist")
    order = order[:order.index(("Content", "filler", "App page")) + 1]  # what stands on a page hangs on its app
    for widget in order:
        until(lambda: focused_widget(window) == widget, f"the focus in {widget}")
        keys("Tab")
    assert app.end() == 0, app.said()


JOURNEYS = [
    has_what_its_document_says_in_that_order,
    goes_everywhere_by_keys,
    does_by_its_menus_what_they_say,
]

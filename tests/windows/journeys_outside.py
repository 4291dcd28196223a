# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What the application does for terminals, agents and other programs, on an account that is new to it."""

import os
import subprocess

from main_window import MainWindow
from window import keys, titles_of, until, window_of

OWN = ("config", "cache", "state", "data", "application-")  # what the application keeps for itself
LEADS = [("quillet:section/deals", "Deals"), ("quillet://section/alerts", "Alerts"),
         ("quillet:search?term=plain%20text", "plain text")]  # fmt: skip
REFUSED = ["quillet:section/../deals", "quillet:app/1%00", "quillet:open?file=/etc/passwd", "quillet:remove-everything",
           "quillet:search?term=" + "a" * 2000, "javascript:alert(1)",
           "quillet:app/148?country=us%22--purge"]  # fmt: skip


NO_LINK = "That is no link to an app."


def files_of(home):
    found = []
    for folder, folders, files in os.walk(home.folder):
        found += [os.path.relpath(os.path.join(folder, name), home.folder) for name in [*folders, *files]]
    return sorted(path for path in found if not path.startswith(OWN))


def installs_for_terminals_and_agents_and_leaves_no_trace(home):
    (home.folder / ".someagent/skills").mkdir(parents=True)
    app = home.start("--section", "search")
    window = MainWindow(app)
    before = files_of(home)

    window.menu_item("Tools", "Install Command-Line Tool…").press()
    tool = window_of(app, "Command-Line Tool")
    tool.find("push button", "Install").press()
    until(lambda: tool.find("push button", "Remove").has("enabled"), "the links made")
    printed = subprocess.run([home.folder / ".local/bin/quillet", "--version"], env=home.environment,
                             capture_output=True, text=True, timeout=20)  # fmt: skip
    assert printed.stdout == home.run("--version").stdout, printed
    tool.find("push button", "Remove").press()
    until(lambda: files_of(home) == before, "the account as it was")

    def show_skill():
        until(lambda: "Agent Skill" not in titles_of(app).values(), "it gone")
        window.menu_item("Tools", "Install Agent Skill…").press()
        return window_of(app, "Agent Skill")

    file = home.folder / ".someagent/skills/quillet/SKILL.md"
    skill = show_skill()
    until(lambda: skill.find("list").rows()[0].endswith(": not installed"), "the agent")
    skill.find("push button", "Install").press()
    until(lambda: skill.find("list").rows()[0].endswith(": installed"), "the skill there")
    kept = file.read_text()
    assert "quillet my-apps" in kept, kept[:300]
    file.write_text(kept + "Mine.\n")
    skill.find("push button", "Close").press()
    skill = show_skill()
    assert not skill.find("push button", "Remove").has("enabled"), "what the user has changed"
    file.write_text(kept)
    skill.find("push button", "Close").press()
    show_skill().find("push button", "Remove").press()
    until(lambda: files_of(home) == before, "the account as it was")
    assert app.end() == 0, app.said()


def links_lead_somewhere_and_do_nothing_else(home):
    home.use_sample_library()
    app = home.start("--section", "watchlist")
    window = MainWindow(app)
    watched = home.json("watchlist", "-n", "200")["items"]
    assert home.start("--open", "quillet:app/1480068668?country=us").wait(10) == 0
    until(lambda: window.page_name().startswith("Quillink"), "the app")
    for link, title in LEADS:
        assert home.start("--open", link).wait(10) == 0
        window.expect_title(title)
    keys("ctrl+4")
    window.expect_title("Watchlist")
    said = lambda: NO_LINK in [node.name for node in window.walk()]  # noqa: E731
    until(lambda: not said(), "nothing said yet")
    for link in REFUSED:
        assert home.start("--open", link).wait(10) == 0
        until(said, f"why {link} leads nowhere")
    assert home.start("--open", LEADS[0][0]).wait(10) == 0
    window.expect_title(LEADS[0][1])
    keys("alt+Left")  # over nothing that another link has led to
    window.expect_title("Watchlist")
    assert home.json("watchlist", "-n", "200")["items"] == watched
    assert app.end() == 0, app.said()


def copies_diagnostics_without_a_name(home):
    home.use_sample_library()
    app = home.start()
    window = MainWindow(app)
    window.menu_item("Tools", "Diagnostics…").press()
    told = window_of(app, "Diagnostics")
    until(lambda: told.find("push button", "Copy").has("enabled"), "what is known")
    text = told.find("text").text
    assert "Settings: ~/config" in text and str(home.folder) not in text, text
    apps = [each for words in ("watchlist", "my-apps") for each in home.json(words, "-n", "200")["items"]]
    named = [each["name"] for each in apps if each["name"] in text or str(each["trackId"]) in text]
    assert apps and not named, named
    told.find("push button", "Copy").press()
    told.find("push button", "Close").press()
    until(lambda: "Diagnostics" not in titles_of(app).values(), "it gone")
    window.raise_()
    keys("ctrl+f", "ctrl+v")
    until(lambda: window.find_field().text.startswith(text.splitlines()[0]), "what was copied")
    assert app.end() == 0, app.said()


JOURNEYS = [installs_for_terminals_and_agents_and_leaves_no_trace, links_lead_somewhere_and_do_nothing_else,
            copies_diagnostics_without_a_name]

# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""What is known of an app as a document, in each of its forms."""

import json
import shutil

from journeys_transfer import choose_file
from main_window import MainWindow
from window import keys, shown_window, until

APP = 1480068668
FORMS = {"md": "Markdown", "html": "HTML, for browsers", "json": "JSON, for scripts", "pdf": "PDF"}


def saves_a_report_in_each_form(home):
    home.use_sample_library()
    app = home.start("--open", str(APP))
    window = MainWindow(app)
    known = home.json("info", str(APP), "-p", "mac")
    name = known["app"]["name"]
    until(lambda: window.page_name() == name, "the app's page")
    keys("ctrl+e")
    report = until(lambda: shown_window(app, lambda title: title.startswith("Report on ")), "the report")
    preview = report.find(name="Preview of the report")
    until(lambda: "$59.88/year" in preview.text, "what the store knows")
    report.find("check box", "Reviews").press("Toggle")
    texts = {}
    for ending, form in FORMS.items():
        report.find("radio button", form).press("Toggle")
        report.find("push button", "Save As…").press()
        file = home.folder / f"report.{ending}"
        choose_file(app, "Save Report", file, "Save")
        report.find("label", f"Saved report.{ending}.")
        texts[ending] = file.read_bytes()
    assert sorted(each.name for each in home.folder.glob("report*")) == sorted(f"report.{each}" for each in FORMS)

    told = json.loads(texts["json"])
    for key in ("trackId", "name", "version", "price", "bundleId"):
        assert told[key] == known["app"][key], (key, told[key], known["app"][key])
    sold = {each["name"]: each.get("pricePerYear") for each in known["inAppPurchases"]}
    assert {each["name"]: each.get("pricePerYear") for each in told["inAppPurchases"]} == sold, told["inAppPurchases"]
    released = home.json("versions", str(APP), "-p", "mac")["versions"]
    assert [each["version"] for each in told["versionHistory"]] == [each["version"] for each in released]
    assert "reviews" not in told, "what was not wanted"
    read = {ending: text.decode(errors="replace") for ending, text in texts.items()}
    if shutil.which("pdftotext"):
        read["pdf"] = home.desktop.output(["pdftotext", "-layout", home.folder / "report.pdf", "-"])
        for ending in ("md", "html", "pdf"):
            for text in (name, *sold, "$59.88/year", released[-1]["version"]):
                assert text in read[ending], f"{text!r} is not in the {ending}"
    assert app.end() == 0, app.said()


JOURNEYS = [saves_a_report_in_each_form]

#!/usr/bin/env python3
"""Opens the page of the failure table in a headless Chromium and compares the rows that it shows with their cells. Ends with
77, for a skipped test, if there is no Chromium and ORVENZA_REQUIRE_BROWSER is not set.   table_page_test.py ORVENZA_LAB"""

import html.parser
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import urllib.parse

LAB = sys.argv[1]
BROWSER = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)
COLUMNS = ("answers", "paper", "file", "end", "way", "log")
# Asks the browser which rows have a place on the screen and whether the page is wider than the screen, then operates the
# filters as a person would.
PROBE = """<script>
const all = () => Array.from(document.querySelectorAll('section tr[data-e]'));
const seen = () => all().filter((row) => row.getClientRects().length).length;
const told = () => [seen(), document.getElementById('shown').textContent, location.hash];
const results = {start: told(), width: [document.documentElement.scrollWidth, innerWidth], steps: []};
const set = (name, value) => {
  const control = document.getElementById(name);
  control.value = value;
  control.dispatchEvent(new Event('input', {bubbles: true}));
  results.steps.push(told());
};
set('end', 'lost by choice');
set('text', 'ABORTIRE  log-none');
set('text', 'abortire');
document.querySelector('a[href="#words"]').click();
document.getElementById('all').click();
results.steps.push(told());
const takesFocus = (one) => { one.focus(); return document.activeElement === one; };
results.focus = Array.from(document.querySelectorAll('select, input, button')).every(takesFocus);
document.body.dataset.results = JSON.stringify(results);
</script></body>"""


class Page(html.parser.HTMLParser):
    """The rows of a page: their cells, and whether they, their group or their section are hidden."""

    def __init__(self, text):
        super().__init__()
        self.rows, self.hidden, self.section, self.cell, self.results = [], {}, "", None, None
        self.shown, self.form_hidden, self.place = "", None, None
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if tag in ("section", "tbody", "tr"):
            self.hidden[tag] = "hidden" in attrs
        if tag == "section":
            self.hidden["tbody"] = False
        if tag == "tr" and "data-e" in attrs:
            self.rows.append({"step": self.section, "shown": not any(self.hidden.values()), "cells": []})
        if tag == "form":
            self.form_hidden = "hidden" in attrs
        if tag == "body" and "data-results" in attrs:
            self.results = json.loads(attrs["data-results"])
        self.place = {"h2": "h2", "td": "td"}.get(tag, "shown" if attrs.get("id") == "shown" else self.place)
        if tag == "h2":
            self.section = ""
        if tag == "td" and self.rows and not self.hidden.get("end"):
            self.rows[-1]["cells"].append("")

    def handle_endtag(self, tag):
        if tag in ("h2", "td", "p"):
            self.place = None
        if tag == "main":
            self.hidden["end"] = True

    def handle_data(self, data):
        if self.place == "h2":
            self.section += data
        elif self.place == "td" and not self.hidden.get("end"):
            self.rows[-1]["cells"][-1] += data
        elif self.place == "shown":
            self.shown += data


def equal(found, expected, what):
    if found != expected:
        sys.exit(f"{what}: {found} instead of {expected}")


def opened(page, folder, fragment="", width=1280):
    options = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--virtual-time-budget=10000",
               f"--user-data-dir={folder}/profile", f"--window-size={width},900", "--dump-dom"]
    run = subprocess.run([BROWSER, *options, page.as_uri() + fragment], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                         check=False, timeout=120)
    if run.returncode or not run.stdout:
        sys.exit(f"{BROWSER}: {run.stderr.decode()}")
    return Page(run.stdout.decode("utf-8"))


def check_filters(page, folder):
    everything = opened(page, folder)
    rows = [dict(zip(COLUMNS, row["cells"], strict=True), step=row["step"]) for row in everything.rows]
    equal(sum(row["shown"] for row in everything.rows), len(rows), "rows without a filter")
    equal(everything.shown, f"{len(rows)} of {len(rows)} rows shown.", "count without a filter")
    filters = {
        "step=line without a separator": lambda row: row["step"] == "Line without a separator",
        "end=lost by choice": lambda row: row["end"] == "lost by choice",
        "answer=Abortire&file=abort": lambda row: None if row["answers"] == "any" else "Abortire" in row["answers"],
        "way=AskInDoubt&hour=at 23:59:50": lambda row: row["way"] in ("all", "at 23:59:50", "AskInDoubt")
                                           or "AskInDoubt at" in row["way"] or row["way"].endswith(", AskInDoubt"),
        "way=contract&end=hangs": lambda row: "contract" in row["way"] and row["end"].startswith("hangs"),
        "fault=ERR17&end=fine": None,
        "text=historic nessuna": lambda row: "historic" in row["file"] and "Nessuna" in row["log"],
    }
    for text, wanted in filters.items():
        shown = opened(page, folder, "#" + urllib.parse.urlencode(dict(part.split("=") for part in text.split("&"))))
        found = [row["shown"] for row in shown.rows]
        for row, is_shown in zip(rows, found, strict=True):
            equal(is_shown, is_shown if wanted is None or wanted(row) is None else wanted(row), f"{text}: {row}")
        equal(0 < sum(found) < len(rows), True, f"{text}: {sum(found)} of {len(rows)} rows; some are expected")
        equal(shown.shown.startswith(f"{sum(found)} of {len(rows)} rows shown for "), True, f"{text}: {shown.shown}")
        equal("not on this page" in shown.shown, "file=" in text, shown.shown)
    return rows


def check_hands(page, folder, rows):
    """What a person does, on the screens of a PC and of a telephone."""
    probe = page.with_name("probe.html")
    probe.write_text(page.read_text("utf-8").replace("</body>", PROBE), "utf-8")
    lost = sum(row["end"] == "lost by choice" for row in rows)
    given_up = sum(row["end"] == "lost by choice" and "abortire" in " ".join(row.values()).lower() for row in rows)
    for width in (1280, 390):
        results = opened(probe, folder, "#end=fine", width).results
        equal(results["start"][0], sum(row["end"] == "fine" for row in rows), f"rows seen at {width}")
        equal(results["width"][0] <= results["width"][1], True, f"width of the page, {results['width']}")
        counts = [step[0] for step in results["steps"]]
        equal(counts, [lost, 0, given_up, len(rows)], "rows seen after each step")
        equal([step[2] for step in results["steps"]],
              ["#end=lost+by+choice", "#end=lost+by+choice&text=ABORTIRE++log-none", "#end=lost+by+choice&text=abortire", ""],
              "addresses")
        equal(results["steps"][0][1], f"{lost} of {len(rows)} rows shown for End: lost by choice.", "count")
        equal(results["focus"], True, "every control takes the keyboard")


def check_without_scripts(page, rows):
    text = page.read_text("utf-8")
    plain = Page(text[:text.index("<script>")])
    equal([row["shown"] for row in plain.rows], [True] * len(rows), "rows without scripts")
    equal(plain.form_hidden, True, "filters without scripts are hidden")
    for outside in ("http:", "https:", "src=", "url(", "@import", "<link"):
        equal(outside in text.replace("http://www.w3.org/1999/xhtml", ""), False, f"reference {outside}")


def main():
    if not BROWSER:
        print("skipped: there is no Chromium (package chromium)")
        sys.exit(1 if os.environ.get("ORVENZA_REQUIRE_BROWSER") else 77)
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        page = pathlib.Path(folder) / "table.html"
        subprocess.run([LAB, "table", "--thinned", "--step", "first item;line without", "--html", page], check=True)
        rows = check_filters(page, folder)
        check_hands(page, folder, rows)
        check_without_scripts(page, rows)


main()

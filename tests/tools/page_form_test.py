#!/usr/bin/env python3
"""Checks the pages and pictures of the lab: page_form_test.py LAB SOURCES.

Each is well-formed XML, runs nothing, loads nothing, and each of its links has a target.
"""

import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

LAB, SOURCES = sys.argv[1], pathlib.Path(sys.argv[2])
HOSTILE = (b"1;<script>alert('&\"]]>;1,000;150;1;;;1;;\r\n"
           b"25;;1;\x00\x01\x1b[31m\x7f\x81\xe8\xff</pre>;1;\r\n"
           b"2;x;<b>&;\r\n\xef\xbf\xbe;\r\n2;1;500;\r\n1;Left open;1,000;1;1;;;1;;\r\n")
FOREIGN = {"script", "iframe", "object", "embed", "img", "image", "link", "use", "audio", "video"}


def check(page):
    root = xml.parse(page).getroot()
    elements = list(root.iter())
    ids = [element.get("id") for element in elements if element.get("id")]
    assert len(ids) == len(set(ids)), f"{page}: an id is there twice"
    for element in elements:
        name = element.tag.rpartition("}")[2]
        assert name not in FOREIGN, f"{page}: <{name}>"
        for attribute, value in element.attrib.items():
            assert not attribute.startswith("on"), f"{page}: {attribute}"
            assert attribute not in ("src", "action"), f"{page}: {attribute}"
            if attribute.endswith("href"):
                assert value[0] == "#" and value[1:] in ids, f"{page}: link to {value}"
        if name == "style":
            assert "url(" not in element.text and "@import" not in element.text, f"{page}: its style loads"


def run(*words):
    status = subprocess.run([LAB, *map(str, words)], capture_output=True, check=False, timeout=60).returncode
    assert status in (0, 1), f"{words}: status {status}"


with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    hostile = folder / "<b>&'.txt"
    hostile.write_bytes(HOSTILE)
    pages = 0
    for form in ("html", "svg"):
        page = folder / f"preview.{form}"
        run("preview", "--separator", "59", hostile, *sorted(SOURCES.glob("examples/*.txt")), "--output", page)
        check(page)
        pages += 1
    for scenario in sorted(SOURCES.glob("tests/scenarios/*.scenario"))[::4]:
        page = folder / "rehearsal.html"
        run("rehearse", scenario, "--html", page)
        check(page)
        pages += 1
    assert pages > 50, f"only {pages} pages"
    print(f"{pages} pages")

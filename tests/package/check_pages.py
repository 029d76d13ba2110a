#!/usr/bin/env python3
"""Checks pages made by tools/make_pages.py: check_pages.py FOLDER. Every link leads to a file below the folder and,
with an anchor, to something of that name; nothing is loaded from elsewhere; each page names its language and has each
anchor once. Prints one line per finding, and fails if there is one or if there are no pages."""
import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.anchors, self.links, self.loaded, self.findings = [], [], [], []
        self.language, self.in_style = None, False
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.language = values.get("lang") if tag == "html" else self.language
        self.in_style = tag == "style"
        if "id" in values:
            self.anchors.append(values["id"])
        if tag in ("script", "link", "iframe", "base", "form"):
            self.findings.append(f"has <{tag}>")
        for name, value in attributes:
            if name == "href" and tag == "a":
                self.links.append(value)
            elif name in ("src", "srcset", "href", "action", "background", "style") or name.startswith("on"):
                self.loaded.append(value)

    def handle_data(self, data):
        if self.in_style and re.search(r"url\(|@import", data):
            self.findings.append("its style loads a file")

    def handle_endtag(self, tag):
        self.in_style = False


def check_link(pages, file, root, link):
    if re.match(r"[a-zA-Z][\w+.-]*:|/", link):
        return "leads outside"
    path, _, anchor = urllib.parse.unquote(link).partition("#")
    target = (file.parent / path).resolve() if path else file
    if not target.is_relative_to(root):
        return "leads outside"
    if not target.exists():
        return "there is no such file"
    if anchor and (target not in pages or anchor not in pages[target].anchors):
        return "there is no such anchor"
    return None


def findings(root):
    pages = {file: Page(file.read_text(encoding="utf-8")) for file in sorted(root.rglob("*.html"))}
    if not pages:
        yield f"{root}: there are no pages"
    for file, page in pages.items():
        found = list(page.findings)
        if page.language not in ("en", "it"):
            found.append(f"its language is {page.language}")
        found += [f"#{name} is there twice" for name in sorted(set(page.anchors)) if page.anchors.count(name) > 1]
        found += [f"loads {value}" for value in page.loaded if not value.startswith("data:image/png;base64,")]
        for link in page.links:
            wrong = check_link(pages, file, root, link)
            if wrong:
                found.append(f"{link}: {wrong}")
        yield from (f"{file.relative_to(root)}: {text}" for text in found)


if __name__ == "__main__":
    wrong = list(findings(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(wrong), end="\n" if wrong else "")
    sys.exit(1 if wrong else 0)

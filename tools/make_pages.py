#!/usr/bin/env python3
"""Makes pages for a browser from the Markdown pages: tools/make_pages.py OUTPUT [ROOT].

Every page for users below docs/ and examples/ becomes OUTPUT/docs/NAME.html or OUTPUT/examples/.../NAME.html. Each is
one file, with its style and its pictures inside, and refers to nothing outside OUTPUT. docs/index.html lists them
in the order of the README. Links to files that do not come along become plain text; a link to nothing is an error.
Needs cmark-gfm. The same sources give the same bytes.
"""
import base64
import html
import pathlib
import re
import subprocess
import sys

# These pages are for those who change the program; they stay with the sources.
FOR_DEVELOPERS = {"architecture", "decisions", "glossary", "performance", "recipes", "reliability"}
ITALIAN = {"manuale-operatore", "scheda-cassa"}
# Besides the pages, these folders come along as they are.
FOLDERS = ("examples/", "docs/schemas/")
TEMPLATES = pathlib.Path(__file__).resolve().parent.parent / "packaging" / "pages"


class Refused(Exception):
    """A page that cannot be made; says why."""


def pages_of(root):
    """The Markdown pages that come along, relative to the root."""
    docs = (path for path in root.glob("docs/*.md") if path.stem not in FOR_DEVELOPERS)
    return sorted(path.relative_to(root).as_posix() for path in (*docs, *root.glob("examples/**/*.md")))


def html_name(page):
    return page.removesuffix(".md") + ".html"


def text_of(fragment):
    return html.unescape(re.sub(r"<[^>]*>", "", fragment))


def to_html(markdown):
    command = ["cmark-gfm", "--extension", "table", "--extension", "strikethrough"]
    made = subprocess.run(command, input=markdown.encode(), stdout=subprocess.PIPE, check=True).stdout.decode()
    return made.replace("<!-- raw HTML omitted -->\n", "")


def with_anchors(body):
    """Gives each heading the anchor that GitHub gives it."""
    times = {}

    def add(heading):
        level, content = heading.groups()
        anchor = re.sub(r"[^\w\- ]", "", text_of(content).lower()).replace(" ", "-")
        seen = times.get(anchor, 0)
        times[anchor] = seen + 1
        name = f"{anchor}-{seen}" if seen else anchor
        return f'<h{level} id="{name}">{content}</h{level}>'

    return re.sub(r"<h([1-6])>(.*?)</h\1>", add, body, flags=re.S)


def relative(target, page):
    """The link from a page to a file, both relative to the root."""
    here, there = page.split("/")[:-1], target.split("/")
    while here and len(there) > 1 and here[0] == there[0]:
        here, there = here[1:], there[1:]
    return "../" * len(here) + "/".join(there)


class Book:
    def __init__(self, root):
        self.root = root
        self.pages = pages_of(root)
        self.sources = {page: (root / page).read_text(encoding="utf-8") for page in self.pages}
        self.titles = {page: self.title(page) for page in self.pages}

    def title(self, page):
        found = re.search(r"^# (.*)$", self.sources[page], re.M)
        if not found:
            raise Refused(f"{page}: there is no title")
        return text_of(to_html(found.group(1))).strip()

    def groups(self):
        """The README's tables of pages, as (title, [(page, description)]); at the end the pages that it leaves out."""
        groups, left = [], list(self.pages)
        readme = self.root / "README.md"
        for line in readme.read_text(encoding="utf-8").splitlines() if readme.exists() else ():
            header = re.fullmatch(r"\| (For [^|]*?) \| \|", line)
            row = re.fullmatch(r"\| \[[^]]*\]\(([^)#]*)\) \| (.*) \|", line)
            if header:
                groups.append((header.group(1), []))
            elif row and groups and row.group(1) in left:
                left.remove(row.group(1))
                groups[-1][1].append(row.groups())
        groups.append(("More", [(page, "") for page in left]))
        return [group for group in groups if group[1]]

    def target(self, page, path):
        """The file that a link from a page leads to, relative to the root; None if it does not come along."""
        folder = (self.root / page).parent
        found = (folder / path).resolve()
        if not found.exists():
            raise Refused(f"{page}: {path}: there is no such file")
        if found.is_dir() and (found / "README.md").exists():
            found /= "README.md"
        if not found.is_relative_to(self.root):
            return None
        name = found.relative_to(self.root).as_posix()
        if name in self.pages:
            return html_name(name)
        return name if f"{name}/".startswith(FOLDERS) and not name.endswith(".md") else None

    def link(self, page, match):
        href, content = html.unescape(match.group(1)), match.group(2)
        if re.match(r"[a-zA-Z][\w+.-]*:|//", href):
            raise Refused(f"{page}: {href}: leads outside")
        path, _, anchor = href.partition("#")
        if not path:
            return match.group(0)
        target = self.target(page, path)
        if target is None:
            return content
        named = [other for other in self.pages if html_name(other) == target]
        if named and text_of(content) == path:  # a file name says nothing to these readers
            content = html.escape(self.titles[named[0]], quote=False)
        return f'<a href="{html.escape(relative(target, page) + ("#" + anchor if anchor else ""))}">{content}</a>'

    def picture(self, page, match):
        file = (self.root / page).parent / html.unescape(match.group(1))
        if file.suffix != ".png" or not file.is_file():
            raise Refused(f"{page}: {match.group(1)}: there is no such PNG picture")
        return f'<img src="data:image/png;base64,{base64.b64encode(file.read_bytes()).decode()}"'

    def body(self, page, markdown):
        body = with_anchors(to_html(markdown))
        body = re.sub(r'<img src="([^"]*)"', lambda match: self.picture(page, match), body)
        body = re.sub(r'<a href="([^"]*)">(.*?)</a>', lambda match: self.link(page, match), body, flags=re.S)
        # A table without column titles; a table that is wider than a phone.
        body = re.sub(r"<thead>\n<tr>\n(?:<th[^>]*></th>\n)+</tr>\n</thead>\n", "", body)
        return body.replace("<table>", '<div class="table"><table>').replace("</table>", "</table></div>")

    def navigation(self, page):
        if pathlib.PurePath(page).stem in ITALIAN:
            groups = [("Pagine", [other for other in self.pages if pathlib.PurePath(other).stem in ITALIAN])]
            index, label = "Tutte le pagine (in inglese)", "Pagine"
        else:
            groups = [(title, [other for other, _ in rows]) for title, rows in self.groups()]
            index, label = "All pages", "Pages"
        lines = [f'<nav id="pages" aria-label="{label}">',
                 f'<p><a href="{relative("docs/index.html", page)}">{index}</a></p>']
        for title, pages in groups:
            lines.append(f"<p>{html.escape(title)}</p>\n<ul>")
            for other in pages:
                mark = ' aria-current="page"' if other == page else ""
                link = relative(html_name(other), page)
                lines.append(f'<li><a href="{link}"{mark}>{html.escape(self.titles[other])}</a></li>')
            lines.append("</ul>")
        return "\n".join(lines) + "\n</nav>\n"

    def page(self, page, title, markdown):
        stem = pathlib.PurePath(page).stem
        language = "it" if stem in ITALIAN else "en"
        parts = {"language": language, "name": stem, "to-pages": "Pagine" if language == "it" else "Pages",
                 "title": html.escape(title if "Orvenza" in title else f"{title} - Orvenza"),
                 "style": (TEMPLATES / "style.css").read_text(encoding="utf-8"),
                 "body": self.body(page, markdown), "navigation": self.navigation(page)}
        template = (TEMPLATES / "page.html").read_text(encoding="utf-8")
        return re.sub(r"@([a-z-]+)@", lambda match: parts[match.group(1)], template)

    def index(self):
        lines = ["# Orvenza", ""]
        for title, rows in self.groups():
            lines += [f"## {title}", "", "| | |", "|---|---|"]
            for page, description in rows:
                name = self.titles[page].replace("|", "\\|")
                lines.append(f"| [{name}]({relative(page, 'docs/index.md')}) | {description} |")
            lines.append("")
        return "\n".join(lines)


def main(output, root):
    book = Book(root)
    made = {page: book.page(page, book.titles[page], book.sources[page]) for page in book.pages}
    made["docs/index.md"] = book.page("docs/index.md", "Orvenza", book.index())
    for page, text in made.items():
        file = output / html_name(page)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8", newline="\n")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    here = pathlib.Path(__file__).resolve().parent.parent
    try:
        main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve() if len(sys.argv) == 3 else here)
    except (Refused, OSError, UnicodeError, subprocess.CalledProcessError) as failure:
        sys.exit(f"make_pages: {failure}")

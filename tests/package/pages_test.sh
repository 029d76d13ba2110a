#!/usr/bin/env bash
# Tests tools/make_pages.py and check_pages.py on small pages, then checks the pages of the project itself.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
project=$here/../..
command -v cmark-gfm >/dev/null && command -v python3 >/dev/null || exit 77
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sources=$work/sources
pages=$work/pages

# same WHAT ACTUAL EXPECTED
same() {
  [ "$2" = "$3" ] || { printf '%s\n--- expected\n%s\n--- found\n%s\n---\n' "$1" "$3" "$2"; exit 1; }
}
make_pages() { python3 "$project/tools/make_pages.py" "$pages" "$sources" 2>&1; }
main_of() { sed -n '/^<main>$/,/^<\/main>$/p' "$pages/docs/$1.html" | sed '1d;$d'; }
# refused TEXT: with this line in a page, no page is made, and this is said.
refused() {
  cp "$sources/docs/a.md" "$work/kept"
  printf '\n%s\n' "$1" >>"$sources/docs/a.md"
  rm -rf "$pages"
  same "refuses $1" "$(make_pages && echo made)" "$2"
  [ ! -e "$pages" ] || { echo "pages are there"; exit 1; }
  cp "$work/kept" "$sources/docs/a.md"
}

mkdir -p "$sources/docs/images" "$sources/examples/hosts"
printf 'PNG' >"$sources/docs/images/p.png"
touch "$work/outside" "$sources/examples/1.txt" "$sources/LICENSE"
printf '# Esempi\n' >"$sources/examples/README.md"
printf '# Hosts\n[up](../README.md)\n' >"$sources/examples/hosts/README.md"
printf '# Recipes\n' >"$sources/docs/recipes.md"
printf '# Manuale\n[scheda](scheda-cassa.md)\n' >"$sources/docs/manuale-operatore.md"
printf '# Scheda\n' >"$sources/docs/scheda-cassa.md"
cat >"$sources/docs/a.md" <<'TEXT'
# The *first* page

## È l'ora: `File Parser`
## Twice
## Twice
<!-- not shown -->
![a picture](images/p.png) [b](b.md#x--y) [b.md](b.md) [here](#twice-1)
[a ticket](../examples/1.txt) [tickets](../examples/)
[recipes](recipes.md) [license](../LICENSE) [outside](../../outside)

| | |
|---|---|
| `a <b>` | c |
TEXT
printf '# B & C\n## x & y\n' >"$sources/docs/b.md"
cat >"$sources/README.md" <<'TEXT'
| For the host | |
|---|---|
| [docs/b.md](docs/b.md) | what `b` says |
| [docs/recipes.md](docs/recipes.md) | not for users |
TEXT

make_pages
same "makes these pages" "$(cd "$pages" && find . -type f | LC_ALL=C sort | tr '\n' ' ')" \
  "./docs/a.html ./docs/b.html ./docs/index.html ./docs/manuale-operatore.html ./docs/scheda-cassa.html \
./examples/README.html ./examples/hosts/README.html "
same "makes a page" "$(main_of a)" '<h1 id="the-first-page">The <em>first</em> page</h1>
<h2 id="è-lora-file-parser">È l'"'"'ora: <code>File Parser</code></h2>
<h2 id="twice">Twice</h2>
<h2 id="twice-1">Twice</h2>
<p><img src="data:image/png;base64,UE5H" alt="a picture" /> <a href="b.html#x--y">b</a> '\
'<a href="b.html">B &amp; C</a> <a href="#twice-1">here</a>
<a href="../examples/1.txt">a ticket</a> <a href="../examples/README.html">tickets</a>
recipes license outside</p>
<div class="table"><table>
<tbody>
<tr>
<td><code>a &lt;b&gt;</code></td>
<td>c</td>
</tr>
</tbody>
</table></div>'
same "makes the list of pages" "$(main_of index | sed 's/<[^>]*>//g' | grep .)" 'Orvenza
For the host
B &amp; C
what b says
More
The first page
Manuale
Scheda
Esempi
Hosts'
grep -q '<html lang="en">' "$pages/docs/a.html"
grep -q '<html lang="it">' "$pages/docs/manuale-operatore.html"
same "leads from Italian pages to Italian ones" \
  "$(sed -n '/^<nav/,$p' "$pages/docs/scheda-cassa.html" | grep -o 'href="[^"]*"' | tr '\n' ' ')" \
  'href="index.html" href="manuale-operatore.html" href="scheda-cassa.html" '
cp "$sources/examples/1.txt" "$pages/examples/"
same "makes links that hold" "$("$here/check_pages.py" "$pages")" ""

refused '[x](none.md)' 'make_pages: docs/a.md: none.md: there is no such file'
refused '![x](images/none.png)' 'make_pages: docs/a.md: images/none.png: there is no such PNG picture'
refused '[x](mailto:cassa@negozio)' 'make_pages: docs/a.md: mailto:cassa@negozio: leads outside'
refused '[x](//server/page)' 'make_pages: docs/a.md: //server/page: leads outside'

mkdir -p "$work/bad"
cat >"$work/bad/a.html" <<'TEXT'
<html><p id="x">1</p><p id="x">2</p><a href="none.html">3</a><a href="#y">4</a><a href="mailto:a@b">5</a>
<a href="../../x">6</a><img src="p.png"><script>7</script><style>a { background: url(p.png) }</style></html>
TEXT
same "check_pages.py finds what is wrong" "$("$here/check_pages.py" "$work/bad")" "a.html: has <script>
a.html: its style loads a file
a.html: its language is None
a.html: #x is there twice
a.html: loads p.png
a.html: none.html: there is no such file
a.html: #y: there is no such anchor
a.html: mailto:a@b: leads outside
a.html: ../../x: leads outside"
mkdir "$work/none"
same "and that there is nothing" "$("$here/check_pages.py" "$work/none")" "$work/none: there are no pages"

rm -rf "$pages"
python3 "$project/tools/make_pages.py" "$pages"
cp -r "$project/examples" "$pages"
[ ! -e "$project/docs/schemas" ] || cp -r "$project/docs/schemas" "$pages/docs"
same "the project's own pages hold" "$("$here/check_pages.py" "$pages")" ""

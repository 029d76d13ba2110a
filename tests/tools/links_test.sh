#!/usr/bin/env bash
# Tests tools/check_links.sh on pages with good and with broken links.
set -euo pipefail
check=$(cd "$(dirname "$0")/../.." && pwd)/tools/check_links.sh
pages=$(mktemp -d)
trap 'rm -rf "$pages"' EXIT

# expect FINDINGS: the check finds exactly these, and fails if there are any.
expect() {
  local found status=0
  found=$("$check" "$pages") || status=$?
  diff <(printf '%s' "$1") <(printf '%s' "$found")
  [ $((status > 0)) -eq $((${#1} > 0)) ] || { echo "exit status $status"; exit 1; }
}

mkdir "$pages/docs"
touch "$pages/docs/a.png"
cat >"$pages/docs/b.md" <<'TEXT'
# È l'inizio: `File Parser`
## Twice
## Twice
TEXT
cat >"$pages/a.md" <<'TEXT'
# Types 1, 3-9
[a file](docs/b.md), ![a picture](docs/a.png), [a folder](docs/), [elsewhere](mailto:till@shop),
[here](#types-1-3-9), [there](docs/b.md#è-linizio-file-parser), [the second](docs/b.md#twice-1), `[code](none.md)`
```text
[code](none.md)
```
TEXT
expect ''

cat >>"$pages/a.md" <<'TEXT'
[one](c.md), [two](docs/b.md) and [three](#none)
TEXT
echo '[up](../a.md#types), [no heading](b.md#twice-2)' >>"$pages/docs/b.md"
expect 'a.md:7: c.md: there is no such file
a.md:7: #none: the page has no such heading
docs/b.md:4: ../a.md#types: the page has no such heading
docs/b.md:4: b.md#twice-2: the page has no such heading'

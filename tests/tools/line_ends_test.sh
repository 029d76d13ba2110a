#!/usr/bin/env bash
# Checks files out with a git configured to write CR LF, and fails when .gitattributes lets it change one.
set -euo pipefail
cd "$(dirname "$0")/../.."

# The sources may have come without git.
command -v git >/dev/null || exit 77
# Inside a git hook these would refer to the project's own repository.
unset "${!GIT_@}"

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
files=(demo tests/scenarios/ticket_printed.scenario examples/tickets/sale.txt)
cp --parents .gitattributes "${files[@]}" "$copy"
git() { command git -C "$copy" -c core.autocrlf=true -c user.name=test -c user.email=test "$@"; }
git init --quiet
git add .
git commit --quiet --message=all
rm "${files[@]/#/$copy/}"
git checkout --quiet -- .
for file in "${files[@]}"; do
  cmp "$file" "$copy/$file"
done

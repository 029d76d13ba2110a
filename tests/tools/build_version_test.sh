#!/usr/bin/env bash
# Tests cmake/BuildVersion.cmake: what --version says of the commit, and that nothing is rewritten needlessly.
set -euo pipefail
script=$(cd "$(dirname "$0")/../.." && pwd)/cmake/BuildVersion.cmake
template=$(dirname "$script")/../src/core/build_version.cpp.in

command -v git >/dev/null || exit 77
# Inside a git hook these would refer to the project's own repository.
unset "${!GIT_@}" ORVENZA_COMMIT

sources=$(mktemp -d)
trap 'rm -rf "$sources"' EXIT
mkdir -p "$sources/src/core"
cp "$template" "$sources/src/core/"
output=$sources/build_version.cpp
git() { command git -C "$sources" -c user.name=test -c user.email=test -c commit.gpgsign=false "$@"; }
generate() { cmake -D SOURCES="${1:-$sources}" -D OUTPUT="$output" -P "$script"; }

# says TEXT: what follows the version is this.
says() {
  grep -qF "kVersionText) + \"$1\";" "$output" || { echo "expected '$1' in:"; cat "$output"; exit 1; }
}
short() { git rev-parse --short=10 HEAD; }

generate
says ""
git init --quiet
generate
says "" # no commit yet
git commit --quiet --allow-empty --message=one
generate
says " (commit $(short))"

touch --date=2026-01-01 "$output"
generate
[ "$(date --reference="$output" +%F)" = 2026-01-01 ] || { echo "rewritten without a change"; exit 1; }

git commit --quiet --allow-empty --message=two
generate
says " (commit $(short))"

# The commit of sources that have lost their history.
ORVENZA_COMMIT=abcdef1234 generate
says " (commit abcdef1234)"
ORVENZA_COMMIT='' generate
says ""
if ORVENZA_COMMIT='"; evil' generate 2>/dev/null; then
  echo "anything is taken for a commit"
  exit 1
fi

# Sources unpacked inside another project's checkout.
mkdir -p "$sources/unpacked/src/core"
cp "$template" "$sources/unpacked/src/core/"
generate "$sources/unpacked"
says ""

#!/usr/bin/env bash
# Drops the README's first ticket as the README says, and fails when the connector would reject a line of it:
#   readme_ticket_test.sh ORVENZA_LAB
set -euo pipefail

lab=$1
project=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
ln -s "$project/tools" tools
mkdir shop
eval "$(grep -B 1 '^tools/drop\.sh shop ' "$project/README.md")"
"$lab" check shop/data/*.txt

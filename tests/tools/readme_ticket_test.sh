#!/usr/bin/env bash
# Hands over the README's first ticket as the README says, and fails when the connector would reject a line of it:
#   readme_ticket_test.sh ORVENZA_LAB
set -euo pipefail

lab=$1
project=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
mkdir -p build/release shop
ln -s "$lab" build/release/orvenza-lab
# Without waiting, as no connector runs here.
eval "$(grep -B 1 'orvenza-lab hand-over --folder shop ' "$project/README.md" | sed 's/ --wait$//')"
"$lab" check shop/data/*.txt

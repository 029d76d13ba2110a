#!/usr/bin/env bash
# Compares examples/previews.html with the previews of the sample tickets: example_previews_test.sh ORVENZA_LAB
set -euo pipefail

lab=$1
export LC_ALL=C  # for the order of the files
project=$(cd "$(dirname "$0")/../.." && pwd)
cd "$project/examples/tickets"
"$lab" preview --separator 59 --format html *.txt | cmp - ../previews.html || {
  echo "After an intended change: cd examples/tickets && $lab preview --separator 59 --output ../previews.html *.txt" >&2
  exit 1
}

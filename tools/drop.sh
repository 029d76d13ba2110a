#!/usr/bin/env bash
# Hands tickets over as a host application does: tools/drop.sh SHOP FILE...
#
# The examples are kept readable. On the way into the shop their ";" become the separator of the default
# settings (character 127), their letters those of Windows-1252 and their line ends CR LF. Each file is written
# beside the ticket folder and renamed into it, so that the connector never sees half a ticket.
set -euo pipefail

[ $# -ge 2 ] || { echo "usage: tools/drop.sh SHOP FILE..." >&2; exit 2; }
shop=$1
shift

mkdir -p "$shop/data"
for file in "$@"; do
  name=$(basename "$file")
  iconv -f UTF-8 -t WINDOWS-1252 "$file" | tr ';' '\177' | sed 's/$/\r/' >"$shop/$name.tmp"
  mv "$shop/$name.tmp" "$shop/data/$name"
done

#!/usr/bin/env bash
# Drops tickets like a host application: tools/drop.sh SHOP FILE...
#
# The examples are readable text. On the way into the shop ";" becomes the separator of the default settings
# (character 127), the encoding becomes Windows-1252 and line breaks become CR LF. Each file is written beside the
# ticket folder and renamed into it, so that the connector never sees half a ticket.
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

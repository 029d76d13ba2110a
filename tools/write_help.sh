#!/usr/bin/env bash
# Writes the man pages of both programs and bash's completion of the lab, as the lab makes them:
#   write_help.sh ORVENZA_LAB MAN_FOLDER COMPLETION_FOLDER
set -euo pipefail

lab=$1 man=$2 completions=$3
mkdir -p "$man" "$completions"
"$lab" man Orvenza >"$man/Orvenza.1"
"$lab" man >"$man/orvenza-lab.1"
"$lab" help | sed -n '/^Commands:/,/^$/s/^  \([a-z-]*\) .*/\1/p' | while IFS= read -r command; do
  "$lab" man "$command" >"$man/orvenza-lab-$command.1"
done
"$lab" completion bash >"$completions/orvenza-lab"

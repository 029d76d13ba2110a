#!/usr/bin/env bash
# Runs the programs of docs/outcomes.md that read an outcome, in each language that is installed here, and fails if one
# of them prints anything else than expected. Languages that are missing are named. 77 if none is there.
set -euo pipefail

project=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# The block of a language, up to its end.
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$project/docs/outcomes.md" | sed '1d;$d'; }
outcome() { printf '[Outcome]\r\nSchema=1\r\nState=%s\r\nReceipt=%s\r\nReason=%s\r\nText=a=b\r\n' "$2" "$3" "$4" >"$1"; }
outcome printed.ini done yes printed
outcome doubtful.ini done doubtful operator-gave-up
outcome started.ini started no ''

failed=0
ran=0
expect() {  # language, path, expected text, command...
  local language=$1 path=$2 expected=$3 printed
  shift 3
  printed=$("$@" "$path" 2>&1) || true
  if [ "$printed" != "$expected" ]; then
    echo "$language, $path: expected \"$expected\", got \"$printed\"" >&2
    failed=1
  fi
}
check() {  # language, command...
  local language=$1
  shift
  ran=$((ran + 1))
  expect "$language" printed.ini 'yes printed' "$@"
  expect "$language" doubtful.ini 'doubtful operator-gave-up' "$@"
  expect "$language" started.ini waiting "$@"
  expect "$language" missing.ini waiting "$@"
  echo "$language: run"
}
has() { command -v "$1" >/dev/null; }

block python >outcome.py
block php >outcome.php
block java >Outcome.java
block csharp >outcome.cs
for program in outcome.py outcome.php Outcome.java outcome.cs; do
  [ -s "$program" ] || { echo "docs/outcomes.md has no program for $program" >&2; exit 1; }
done

if has python3; then check Python python3 outcome.py; else echo 'Python: skipped, no python3'; fi
if has php; then check PHP php outcome.php; else echo 'PHP: skipped, no php'; fi
if has java; then check Java java Outcome.java; else echo 'Java: skipped, no java'; fi
if has mcs && has mono; then
  mcs -out:outcome.exe outcome.cs
  check 'C#' mono outcome.exe
else
  echo 'C#: skipped, no mcs and mono'
fi
[ "$ran" -gt 0 ] || exit 77
exit "$failed"

#!/usr/bin/env bash
# Fails when a source file is not laid out as .clang-format says. With --fix, lays all of them out.
set -euo pipefail
cd "$(dirname "$0")/.."

# Other versions lay out a few things differently.
formatter=$(command -v clang-format-14 || command -v clang-format) || {
  echo "check_format: clang-format is not installed" >&2
  exit 1
}

if [ "${1:-}" = --fix ]; then
  mode=(-i)
else
  mode=(--dry-run -Werror)
fi
find src tests bench -name '*.cpp' -print0 -o -name '*.h' -print0 | xargs -0 "$formatter" "${mode[@]}"

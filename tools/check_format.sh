#!/usr/bin/env bash
# Fails if a source file is not formatted according to .clang-format. With --fix, formats all of them.
set -euo pipefail
cd "$(dirname "$0")/.."

# Other versions format a few things differently.
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

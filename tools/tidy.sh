#!/usr/bin/env bash
# Runs clang-tidy on the product's sources: tools/tidy.sh BUILD_FOLDER [FILE...]. The build folder must have been
# configured. Without files, all sources of src/ that it compiles are checked.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$1
shift
files=("$@")
if [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <(sed -n 's/^  "file": "\(.*\/src\/.*\.cpp\)",\{0,1\}$/\1/p' "$build/compile_commands.json" | sort -u)
fi
[ ${#files[@]} -gt 0 ] || { echo "tidy: $build compiles nothing below src/" >&2; exit 1; }
# clang-tidy does not know the compiler's own options.
options=(--quiet --warnings-as-errors='*' --extra-arg=-Wno-unknown-warning-option -p "$build")
printf '%s\0' "${files[@]}" | xargs -0 -n 4 -P "$(nproc)" clang-tidy "${options[@]}"

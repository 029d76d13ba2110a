#!/usr/bin/env bash
# Checks the product's Windows sources with clang, too, and fails at the first warning. Builds nothing:
#   tools/check_clang.sh [BUILD_FOLDER [FILE...]]
# The build folder, build/windows by default, must have been configured with the preset windows. Without files, all
# Windows sources in src/ are checked.
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/windows}
shift $(($# > 0))
generated=$build/src/core/generated
[ -d "$generated" ] || { echo "check_clang: $build is not configured" >&2; exit 1; }

files=("$@")
if [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <(find src -path '*/windows/*.cpp' -o -name 'windows_*.cpp' | sort)
fi

# The standard library is the other compiler's; clang finds the Windows headers by itself.
mapfile -t library < <(i686-w64-mingw32-g++-win32 -E -x c++ -v /dev/null 2>&1 | sed -n 's|^ \(/.*/c++.*\)|-isystem\n\1|p')
options=(--target=i686-w64-mingw32 -std=c++20 -fsyntax-only -Wall -Wextra -Wconversion -Wsign-conversion -Wshadow
  -Werror -DWIN32_LEAN_AND_MEAN= -DNOMINMAX= -D_WIN32_WINNT=0x0601 -Isrc "-I$generated" "${library[@]}")
printf '%s\0' "${files[@]}" | xargs -0 -n 4 -P "$(nproc)" clang++ "${options[@]}"
echo "check_clang: ${#files[@]} sources compile without a warning"

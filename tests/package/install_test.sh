#!/usr/bin/env bash
# Installs a build into a temporary folder and lists what is there: install_test.sh BUILD
set -euo pipefail
build=$1
sources=$(cd "$(dirname "$0")/../.." && pwd)
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

fail() { echo "$*"; exit 1; }
list() { (cd "$1" && find . -type f ! -path '*/__pycache__/*' | LC_ALL=C sort); }
# same WHAT FOUND EXPECTED
same() { diff <(printf '%s\n' "$3") <(printf '%s\n' "$2") || fail "$1"; }

DESTDIR='' cmake --install "$build" --prefix "$prefix" >/dev/null
documents=$prefix/share/doc/Orvenza

same "the programs" "$(list "$prefix/bin")" "./Orvenza
./orvenza-lab"
for program in Orvenza orvenza-lab; do
  same "$program --version" "$("$prefix/bin/$program" --version)" "$("$build/$program" --version)"
done
same "the first documents" "$(find "$documents" -maxdepth 1 -type f -printf '%f\n' | LC_ALL=C sort)" "LICENSE
README.md"
same "the pages" "$(list "$documents/docs")" "$(list "$sources/docs")"
same "the examples" "$(list "$documents/examples")" "$(list "$sources/examples")"
commands=$("$build/orvenza-lab" help | sed -n '/^Commands:/,/^$/s/^  \([a-z-]*\) .*/\1/p')
same "the man pages" "$(list "$prefix/share/man/man1")" "$({
  printf './%s.1\n' Orvenza orvenza-lab
  printf './orvenza-lab-%s.1\n' $commands
} | LC_ALL=C sort)"
same "the completion" "$(cat "$prefix/share/bash-completion/completions/orvenza-lab")" \
  "$("$build/orvenza-lab" completion bash)"
other=$(cd "$prefix" && find . -type f | grep -vE '^\./(bin|share/(doc/Orvenza|man/man1|bash-completion/completions))/') || true
same "everything else" "$other" ""

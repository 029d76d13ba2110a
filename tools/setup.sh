#!/usr/bin/env bash
# Installs the missing packages needed for building and testing.
#
#   tools/setup.sh            the packages for ./demo and ./test
#   tools/setup.sh PACKAGE... these packages as well
set -euo pipefail

packages=(g++ cmake ninja-build libgtest-dev libbenchmark-dev "$@")

fail() {
  echo "setup: $*" >&2
  exit 1
}

is_installed() {
  [ "$(dpkg-query --show --showformat '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

command -v dpkg-query >/dev/null ||
  fail "this is neither Debian nor Ubuntu; install the counterparts of these packages by hand: ${packages[*]}"

missing=()
for package in "${packages[@]}"; do
  is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=(env DEBIAN_FRONTEND=noninteractive)
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || fail "neither root nor sudo; have somebody install: ${missing[*]}"
  as_root=(sudo "${as_root[@]}")
fi

echo "setup: installing ${missing[*]}"
"${as_root[@]}" apt-get update --quiet || fail "the package lists cannot be fetched, and these are missing: ${missing[*]}"
"${as_root[@]}" apt-get install --yes --quiet --no-install-recommends -o DPkg::Lock::Timeout=300 "${missing[@]}" ||
  fail "not everything could be installed of: ${missing[*]}"

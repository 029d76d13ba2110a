#!/usr/bin/env bash
# Examines the output of ./package, then installs, runs, upgrades and removes it under Wine:
#   tests/package/package_test.sh SETUP ZIP
# Prints every check, and exits with 1 if one failed.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/package/checks.sh

setup=$(realpath "$1")
zip=$(realpath "$2")
unpacked=build/package/unpacked
imported() { i686-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p'; }
# Resource type 24 is a manifest, number 1 that of the executable.
has_manifest() { i686-w64-mingw32-windres -J coff -O rc "$1" | grep "^1 24 "; }
# Documents and images that the documents of a folder link to but which do not exist.
links_missing() {
  local manual target
  for manual in "$1"/*.md; do
    for target in $(grep -o '](\([^)#]*\)' "$manual" | cut -c 3-); do
      [ -s "$1/$target" ] || echo "${manual##*/}: $target"
    done
  done
}

title "the zip"
rm -rf $unpacked
mkdir -p $unpacked
unzip -q "$zip" -d $unpacked
same "holds the programs, the sound and the manuals" \
  "$(cd $unpacked/Orvenza && find . -type f ! -path '*/images/*' | LC_ALL=C sort | tr '\n' ' ')" \
  "./LICENSE.txt ./Orvenza.exe ./ding.wav ./docs/bundle.md ./docs/doctor.md ./docs/failure-scenarios.md \
./docs/failure-table.md ./docs/installation.md ./docs/manuale-operatore.md ./docs/outcomes.md ./docs/rehearsal.md \
./docs/settings.md ./docs/simulator.md ./docs/ticket-check.md ./docs/ticket-format.md ./docs/trace.md ./orvenza-lab.exe "
same "holds the manuals and pictures that the manuals link to" "$(links_missing $unpacked/Orvenza/docs)" ""
for program in Orvenza orvenza-lab; do
  check "$program needs Windows" holds <(imported $unpacked/Orvenza/$program.exe) KERNEL32.dll
  same "and no library of the compiler's" \
    "$(imported $unpacked/Orvenza/$program.exe | grep -iE 'gcc|stdc|pthread')" ""
  check "has a manifest" has_manifest $unpacked/Orvenza/$program.exe
  check "that wants the user's own rights" holds $unpacked/Orvenza/$program.exe \
    '<requestedExecutionLevel level="asInvoker" uiAccess="false"/>'
done
same "Orvenza forces no data execution prevention on an old control" \
  "$(i686-w64-mingw32-objdump -p $unpacked/Orvenza/Orvenza.exe | grep NX_COMPAT)" ""

answer=$PWD/build/package/answer.exe
makensis -V2 -WX -DOUTPUT="$answer" tests/package/answer.nsi
tools/wine.sh --in-root bash tests/package/installed_test.sh "$setup" "$PWD/$unpacked/Orvenza" "$answer" ||
  failures=$((failures + 1))
finish

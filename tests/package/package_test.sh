#!/usr/bin/env bash
# Examines the output of ./package in dist/, then installs, runs, upgrades and removes it under Wine:
#   tests/package/package_test.sh VERSION SIGNED
# SIGNED holds what signing_test.sh leaves. Prints every check, and exits with 1 if one failed.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/package/checks.sh

setup=$PWD/dist/Orvenza-$1-setup.exe
zip=$PWD/dist/Orvenza-$1.zip
spdx=dist/Orvenza-$1.spdx.json
signed=$2
unpacked=build/package/unpacked
shop=$unpacked/Orvenza
imported() { i686-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p'; }
# Resource type 24 is a manifest, number 1 that of the executable.
has_manifest() { i686-w64-mingw32-windres -J coff -O rc "$1" | grep "^1 24 "; }
list() { (cd "$1" && find . -type f ! -path '*/__pycache__/*' | LC_ALL=C sort); }
# These stay with the sources.
for_developers='(architecture|decisions|glossary|performance|recipes|reliability)'
# Text files that have a line end without a carriage return.
unix_texts() {
  find "$shop" -type f \( -name '*.txt' -o -name '*.cmd' -o -path '*/examples/*' ! -name '*.html' ! -name '*.sh' \) \
    -exec sh -c 'tr -d "\r" <"$1" | sed "s/$/\r/" | cmp -s - "$1" || echo "$1"' - {} \;
}
wrong_spdx() { tests/package/check_spdx.py build/package/wrong.json dist $shop 2>/dev/null; }
# The document without the first line that matches is found wanting.
spdx_finds() {
  sed "0,/$1/{/$1/d}" "$spdx" >build/package/wrong.json
  wrong_spdx
}

title "the zip"
rm -rf $unpacked
mkdir -p $unpacked
unzip -q "$zip" -d $unpacked
same "holds the programs, their sound and their texts" \
  "$(cd $shop && find . -maxdepth 1 | LC_ALL=C sort | tr '\n' ' ')" \
  ". ./LICENSE.txt ./Orvenza.exe ./assistenza.cmd ./controllo.cmd ./ding.wav ./docs ./examples ./orvenza-lab.exe "
same "holds a page for each page for users, and their list" "$(ls $shop/docs | grep -vx schemas)" \
  "$({ echo index.html; ls docs | sed -n 's/md$/html/p' | grep -vxE "$for_developers.html"; } | sort)"
same "holds the examples" "$(list $shop/examples)" "$(list examples | sed 's/\.md$/.html/')"
same "has the line ends of Windows" "$(unix_texts)" ""
same "has pages whose links hold" "$(tests/package/check_pages.py $unpacked)" ""
check "names the licence" holds $shop/LICENSE.txt 'MIT License'
check "and those of others" holds $shop/LICENSE.txt '2009-2016 the mingw-w64 project'
for program in Orvenza orvenza-lab; do
  check "$program needs Windows" holds <(imported $shop/$program.exe) KERNEL32.dll
  same "and no library of the compiler's" \
    "$(imported $shop/$program.exe | grep -iE 'gcc|stdc|pthread')" ""
  same "nor one for networks" "$(imported $shop/$program.exe | grep -iE '^(ws2_32|wsock32|winhttp|wininet|urlmon)')" ""
  check "has a manifest" has_manifest $shop/$program.exe
  check "that wants the user's own rights" holds $shop/$program.exe \
    '<requestedExecutionLevel level="asInvoker" uiAccess="false"/>'
done
same "Orvenza forces no data execution prevention on an old control" \
  "$(i686-w64-mingw32-objdump -p $shop/Orvenza.exe | grep NX_COMPAT)" ""

title "the list of components"
same "is complete and right" "$(tests/package/check_spdx.py "$spdx" dist $shop)" ""
check "would show a missing field" holds <(spdx_finds '"versionInfo"') 'versionInfo is missing'
check "would show a wrong sum" holds <(sed 's/"checksumValue": ".\{9\}/&0/' "$spdx" >build/package/wrong.json
  wrong_spdx) 'another SHA256'
check "has a checksum like the downloads" holds dist/SHA256SUMS "$(sha256sum <"$spdx" | cut -d ' ' -f 1)"

answer=$PWD/build/package/answer.exe
makensis -V2 -WX -DOUTPUT="$answer" tests/package/answer.nsi
tools/wine.sh --in-root bash tests/package/installed_test.sh "$setup" "$PWD/$shop" "$answer" "$PWD/$signed" ||
  failures=$((failures + 1))
check "the signed setup program installs a signed uninstaller" \
  osslsigncode verify -CAfile "$signed/certificate.pem" -in "$signed/uninstall.exe"
finish

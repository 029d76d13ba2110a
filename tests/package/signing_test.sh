#!/usr/bin/env bash
# Tests signing with a certificate made here: signing_test.sh COPY OUTPUT. COPY is a copy of the sources in which
# ./package has run; this packs once more there, signed. OUTPUT gets the signed programs, setup.exe and
# certificate.pem.
set -uo pipefail
. "$(dirname "$0")/checks.sh"
copy=$1
output=$2
rm -rf "$output"
mkdir -p "$output"
output=$(realpath "$output")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

verified() { osslsigncode verify -CAfile "$output/certificate.pem" -in "$1"; }
sign_with() { ORVENZA_SIGN_CERTIFICATE=$work/$1 ORVENZA_SIGN_PASSWORD_FILE=$work/$2 "${@:3}"; }

printf secret >"$work/password"
printf wrong >"$work/wrong"
openssl req -x509 -newkey rsa:2048 -nodes -days 30 -subj '/CN=Orvenza test' -addext extendedKeyUsage=codeSigning \
  -addext keyUsage=digitalSignature -keyout "$work/key.pem" -out "$output/certificate.pem" 2>/dev/null
openssl pkcs12 -export -inkey "$work/key.pem" -in "$output/certificate.pem" -passout "file:$work/password" \
  -out "$work/certificate.p12"

title "packing without a certificate"
check "signs nothing" fails verified "$copy"/dist/*-setup.exe
title "packing with a certificate"
unsigned=$(sha256sum <"$copy"/build/package/stage/Orvenza/Orvenza.exe)
check "succeeds" sign_with certificate.p12 password "$copy/package"
cp "$copy"/dist/*-setup.exe "$output/setup.exe" || finish "without a setup program nothing more can be tried"
check "signs the setup program" verified "$output/setup.exe"
for program in Orvenza orvenza-lab; do
  unzip -q -j "$copy"/dist/*.zip "Orvenza/$program.exe" -d "$output"
  check "signs $program" verified "$output/$program.exe"
done
unzip -q "$copy"/dist/*.zip -d "$work/unpacked"
check "lists the signed files" "$(dirname "$0")/check_spdx.py" "$copy"/dist/*.spdx.json "$copy/dist" \
  "$work/unpacked/Orvenza"
cp "$output/Orvenza.exe" "$work/changed.exe"
printf x | dd of="$work/changed.exe" bs=1 seek=5000 conv=notrunc status=none
check "so that a change shows" fails verified "$work/changed.exe"

title "signing"
cp "$copy/build/package/Orvenza.exe" "$work/again.exe"
i686-w64-mingw32-strip "$work/again.exe"
same "begins with the same program" "$(sha256sum <"$work/again.exe")" "$unsigned"
check "succeeds" sign_with certificate.p12 password tools/sign.sh "$work/again.exe"
check "gives the same bytes again" cmp "$work/again.exe" "$output/Orvenza.exe"
check "needs the right password" fails sign_with certificate.p12 wrong tools/sign.sh "$work/again.exe"
check "needs a certificate" fails sign_with none.p12 password tools/sign.sh "$work/again.exe"
check "leaves the program alone then" cmp "$work/again.exe" "$output/Orvenza.exe"
finish

#!/usr/bin/env bash
# Signs Windows programs in place: tools/sign.sh PROGRAM.exe...
#
#   ORVENZA_SIGN_CERTIFICATE    PKCS#12 file with the certificate and its key
#   ORVENZA_SIGN_PASSWORD_FILE  file with the password of that file
#   ORVENZA_SIGN_TIMESTAMP      optional: address of a time-stamping server (RFC 3161)
#
# With SOURCE_DATE_EPOCH and without a time-stamping server, the same program and certificate give the same bytes.
set -euo pipefail

fail() {
  echo "sign: $*" >&2
  exit 1
}

[ -r "${ORVENZA_SIGN_CERTIFICATE:-}" ] || fail "ORVENZA_SIGN_CERTIFICATE names no readable file"
[ -r "${ORVENZA_SIGN_PASSWORD_FILE:-}" ] || fail "ORVENZA_SIGN_PASSWORD_FILE names no readable file"
options=(-pkcs12 "$ORVENZA_SIGN_CERTIFICATE" -readpass "$ORVENZA_SIGN_PASSWORD_FILE" -h sha256 -n Orvenza)
[ -z "${SOURCE_DATE_EPOCH:-}" ] || options+=(-time "$SOURCE_DATE_EPOCH")
[ -z "${ORVENZA_SIGN_TIMESTAMP:-}" ] || options+=(-ts "$ORVENZA_SIGN_TIMESTAMP")

for program; do
  rm -f "$program.signed"
  said=$(osslsigncode sign "${options[@]}" -in "$program" -out "$program.signed" 2>&1) ||
    fail "$program cannot be signed: $said"
  mv "$program.signed" "$program"
done

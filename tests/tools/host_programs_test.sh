#!/usr/bin/env bash
# Runs the program of examples/hosts in one language against a connector with a simulated register:
#   host_programs_test.sh ORVENZA LANGUAGE
# 77 if its tools are missing. VBScript runs under Wine, and only if ORVENZA_TEST_WINE is set.
set -euo pipefail

connector=$(realpath "$1")
language=$2
project=$(cd "$(dirname "$0")/../.." && pwd)
# Below the project, which a program under Wine sees.
mkdir -p "$project/build"
scratch=$(mktemp -d "$project/build/hosts.XXXXXX")
shop=$scratch/shop
pid=
patience=60
trap 'end_connector; rm -rf "$scratch"' EXIT

failed=0

end_connector() {
  [ -z "$pid" ] || { kill "$pid" && wait "$pid" || true; } 2>/dev/null
  pid=
}

await() {  # text, file
  local end=$((SECONDS + patience))
  until grep -qF -- "$1" "$2" 2>/dev/null; do
    [ $SECONDS -lt $end ] || { echo "\"$1\" did not appear in $2" >&2; return 1; }
    sleep 0.05
  done
}

# A new shop with an outcomes folder; the register has the faults of the script's lines.
new_shop() {
  end_connector
  rm -rf "$shop"
  mkdir -p "$shop/data" "$shop/esiti"
  printf '%s\r\n' '[Version]' 'Version=1.06' '[Database]' "TicketFiles=$shop/data/*.txt" "HistoricTickets=$shop/storico" \
    '[Com Settings]' 'ComPort=1' 'Settings=19200,O,7,1' 'TimeWaitForEtx=10000' 'TimeWaitForLONGEtx=50000' \
    '[Host]' "Outcomes=$shop/esiti" >"$shop/Orvenza.ini"
  printf '%s\n' 'pace 20' 'speed instant' "$@" >"$shop/register.script"
}

# The operator's answers come from the pipe $shop/operator.
start_connector() {
  mkfifo "$shop/operator"
  "$connector" --folder "$shop" --simulate "$shop/register.script" <>"$shop/operator" >"$shop/screen" 2>&1 &
  pid=$!
  await 'in funzione' "$shop/screen"
}

# Runs a VBScript program; its folders get the names of Windows.
in_wine() {
  local words=() word
  for word in "$@"; do
    [[ $word != /* ]] || word="Z:${word//\//\\}"
    words+=("$word")
  done
  (cd "$project" && tools/wine.sh --in-root wine cscript.exe //nologo "${words[@]}")
}

same() {  # what, expected, found
  [ "$2" = "$3" ] || { printf '%s: %s: expected "%s", got "%s"\n' "$language" "$1" "$2" "$3" >&2; failed=1; }
}

# Runs the program with these arguments: its status and what it prints, without the CR of Windows.
sell() {
  local status=0
  printed=$("${host[@]}" "$shop/data" "$shop/esiti" "$@" 2>"$scratch/errors" | tr -d '\r'; exit "${PIPESTATUS[0]}") ||
    status=$?
  printed="$status $printed"
}

# prints DESCRIPTION: the item's description on the ticket.
prints() {
  new_shop
  start_connector
  sell 42
  same "a sale" '0 00000042.txt: yes (printed)' "$printed"
  same "its ticket" "$(printf "1\x7f%s\x7f1,000\x7f120\x7f1\x7f\x7f\x7f1\x7f\x7f\r\n2\x7f1\x7f200\x7f\r\n" "$1" | od -c)" \
    "$(od -c "$shop/storico/1.txt")"
}

numbers_outcomes() {
  sed -i 's/^Receipt=yes/Receipt=no/' "$shop/esiti/00000042.txt.ini" # an older outcome must not be taken for the new one
  sell 42
  same "the same number again" '0 00000042.txt: yes (printed)' "$printed"
  same "has a numbered outcome" "00000042.txt.1.ini 00000042.txt.ini" "$(cd "$shop/esiti" && echo *)"
}

is_refused() {
  new_shop 'on 1003 x* reply ERR13'
  start_connector
  { await 'Numero + Invio' "$shop/screen" && echo 3 >"$shop/operator"; } &
  sell 7
  wait $!
  same "a refused sale" '1 00000007.txt: no (operator-gave-up)' "$printed"
}

is_in_doubt() {
  new_shop 'on 1036 lose-reply'
  start_connector
  { await 'Numero + Invio' "$shop/screen" && echo 1 >"$shop/operator"; } &
  sell 8
  wait $!
  same "a sale in doubt" '1 00000008.txt: doubtful (operator-printed)' "$printed"
}

is_late() {
  new_shop
  sell 9 1
  same "a sale without a connector" '3 00000009.txt: not done; do not send it again before somebody has looked' "$printed"
  sell 9 1
  same "a name that is taken" '2 ' "$printed"
  same "leaves the ticket alone" 47 "$(wc -c <"$shop/data/00000009.txt")"
  # Wine's cscript has no error output.
  [ "$language" = VBScript ] || same "says why" 1 "$(grep -c . "$scratch/errors" | sed 's/[1-9].*/1/')"
}

missing() {
  echo "$language: skipped, $*"
  exit 77
}
needs() { command -v "$1" >/dev/null || missing "no $1"; }

# Sets the command that runs the program in the folder $1.
make_host() {
  case $language in
    Python) host=(python3 "$1/sale.py") ;;
    PHP) host=(php "$1/sale.php") ;;
    JavaScript) host=(node "$1/sale.js") ;;
    Java) javac -encoding UTF-8 -d . "$1/Sale.java" && host=(java -cp "$scratch" Sale) ;;
    CSharp) mcs -out:Sale.exe "$1/Sale.cs" && host=(mono "$scratch/Sale.exe") ;;
    Pascal)
      fpc -Mdelphi -v0 -FU"$scratch" -FE"$scratch" "$1/Sale.pas" >compiler.txt || { cat compiler.txt >&2; exit 1; }
      host=("$scratch/Sale")
      ;;
    VBScript) host=(in_wine "$1/sale.vbs") ;;
  esac
}

# A copy of the programs whose item has an accented letter, as each language writes it.
write_accented() {
  mkdir accented
  cp "$project"/examples/hosts/* accented
  sed -i "s/Caffe' espresso/Caff\xc3\xa8 espresso/" accented/*
  sed -i "s/Caffe'' espresso/Caff'#\$E8' espresso/" accented/Sale.pas
  sed -i 's/"Caff.* espresso"/"Caff" \& Chr(232) \& " espresso"/' accented/sale.vbs
}

case $language in
  Python) needs python3 ;;
  PHP) needs php ;;
  JavaScript) needs node ;;
  Java) needs javac ;;
  CSharp) needs mcs && needs mono ;;
  Pascal) needs fpc ;;
  VBScript) [ -n "${ORVENZA_TEST_WINE:-}" ] || missing "Wine is used by ./test --hosts only" ;;
  *) echo "unknown language $language" >&2; exit 2 ;;
esac
cd "$scratch"
write_accented
make_host "$scratch/accented"
prints "$(printf 'Caff\xe8 espresso')"
make_host "$project/examples/hosts"
prints "Caffe' espresso"
numbers_outcomes
is_refused
is_in_doubt
is_late
exit "$failed"

# Functions shared by the tests of the package.

failures=0

title() { printf '%s\n' "$*"; }

# check WHAT COMMAND...: the command succeeds.
check() {
  local what=$1
  shift
  if "$@" >/dev/null 2>&1; then
    echo "  ok      $what"
  else
    echo "  FAILED  $what"
    failures=$((failures + 1))
  fi
}

# same WHAT ACTUAL EXPECTED
same() {
  if [ "$2" = "$3" ]; then
    echo "  ok      $1"
  else
    printf '  FAILED  %s\n--- expected\n%s\n--- found\n%s\n---\n' "$1" "$3" "$2"
    failures=$((failures + 1))
  fi
}

# eventually COMMAND...: the command succeeds within a minute.
eventually() {
  local end=$((SECONDS + 60))
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.1
  done
}

fails() { ! "$@"; }
gone() { [ ! -e "$1" ]; }
holds() { grep -qF -- "$2" "$1"; }

# finish [WHY]: ends the test; with a reason, as failed.
finish() {
  if [ $# -gt 0 ]; then
    echo "  FAILED  $1"
    failures=$((failures + 1))
  fi
  [ $failures -eq 0 ] && exit 0
  echo "$failures failed"
  exit 1
}

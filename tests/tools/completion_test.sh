#!/usr/bin/env bash
# Has bash complete command lines of the lab:
#   completion_test.sh ORVENZA_LAB
set -euo pipefail

lab=$1
source <("$lab" completion bash)

# expect WORDS REPLY: with the last of WORDS unfinished, bash offers REPLY.
expect() {
  local reply
  read -ra COMP_WORDS <<<"orvenza-lab $1"
  [[ $1 != *' ' ]] || COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _orvenza_lab || true  # no match is no failure
  reply=${COMPREPLY[*]-}
  [ "$reply" = "$2" ] || { echo "after 'orvenza-lab $1': '$reply', expected '$2'" >&2; exit 1; }
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
mkdir shop
touch ticket.txt

expect 'che' 'check'
expect '--v' '--version'
expect 'check --sing' '--single-quantity'
expect 'check --folder ' 'shop'
expect 'check ti' ''  # left to bash, which completes file names
expect 'check --name x' ''
expect 'help boo' ''
expect 'help bu' 'bundle'
expect 'man ta' 'table'
expect 'completion ' 'bash powershell'
expect 'unknown --' ''

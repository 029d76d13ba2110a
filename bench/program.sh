#!/usr/bin/env bash
# The cost of the idle program: processor time and resident memory of the real Orvenza over SECONDS of polling.
#
#   bench/program.sh [PROGRAM [SECONDS]]      default: build/release/Orvenza, 60
set -euo pipefail

program=${1:-build/release/Orvenza}
seconds=${2:-60}
folder=$(mktemp -d)
trap 'kill "$pid" 2>/dev/null && wait "$pid"; rm -rf "$folder"' EXIT

printf '%s\r\n' '[Version]' 'Version=1.06' '[Database]' "TicketFiles=$folder/data/*.txt" \
  "HistoricTickets=$folder/storico/" '[Com Settings]' 'ComPort=1' 'Settings=19200,O,7,1' > "$folder/Orvenza.ini"
mkfifo "$folder/input"
"$program" --folder "$folder" --simulate < "$folder/input" > /dev/null &
pid=$!
exec 3> "$folder/input"
until grep -q 'Dati Cash' "$folder/Log.txt" 2>/dev/null; do sleep 0.1; done
sleep 1

# Processor time so far, in nanoseconds.
used() { awk '{ print $1 }' "/proc/$pid/schedstat"; }
before=$(used)
sleep "$seconds"
after=$(used)

awk -v used=$((after - before)) -v seconds="$seconds" \
  'BEGIN { printf "idle processor time  %.3f %% of one core over %d s\n", used / 1e7 / seconds, seconds }'
awk '/VmRSS/ { printf "resident memory      %.1f MB\n", $2 / 1024 }' "/proc/$pid/status"

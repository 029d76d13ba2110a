# The part of ./demo --kill: kills the program for real while the simulated register stays switched on. Sourced by ./demo,
# whose functions it uses.

# The register of the next start: its paper, so that it goes on with the state beside it, and the fault $1, if any.
set_register() {
  register=$shop/register.script
  printf '%s\n' "paper carta.txt" ${1:+"$1"} >"$register"
  say "The register: $(paste -sd ';' "$register" | sed 's/;/; /g')"
}

kill_program() {
  kill -KILL "$pid"
  { wait "$pid" || true; } 2>/dev/null  # without the shell's message
  pid=
  # What it showed until it was killed.
  while IFS= read -r -t "$patience" line <&"$screen"; do printf '%s\n' "$line"; done
  exec {screen}<&- {answers}>&-
  say "Killed (SIGKILL). What the register remembers, from carta.txt.state:"
  grep -E '^(daily-receipts|receipt-(open|total)) ' "$shop/carta.txt.state"
}

# Starts the program, hands over the ticket $1 and waits for the line of the paper with the text $2.
print_until() {
  start_program
  expect "in funzione"
  drop "$1"
  expect "$2"
}

# Waits until a receipt is printed with the total $1 and the number $2.
expect_receipt() {
  expect "TOTALE COMPLESSIVO"
  [[ $line == *" $1" ]] || fail "the total should be $1"
  expect "SCONTRINO N. $2"
  expect "----"
}

kill_in_mid_receipt() {
  say "1. The PC dies in the middle of 02-alimentari.txt: the register never gets the fourth item"
  set_register "on 1003 silence"
  print_until 02-alimentari.txt "SCONTO"
  kill_program

  say "The next start: the receipt left open is voided and printed again, whole"
  set_register
  start_program
  settle "Invio Annullo in corso" ""
  expect "SCONTRINO ANNULLATO"
  expect_receipt 24,00 1
  await_file "$shop/storico/1.txt"
  end_program
}

# Kills the program when the register has executed the payment of 01-bar.txt but its reply is lost: the receipt is printed
# with the number $1, and its file is not archived.
kill_after_payment() {
  set_register "on 1036 lose-reply"
  print_until 01-bar.txt "SCONTRINO N. $1"
  expect "----"
  kill_program
  [ -e "$shop/data/inproces/01-bar.txt" ] || fail "the ticket should not be archived yet"
  set_register
}

kill_after_payment_as_ever() {
  say "2. The PC dies between the payment and the archive, with the settings as they are"
  kill_after_payment 2

  say "The next start: it cannot know that the receipt was printed, and prints it again"
  start_program
  expect_receipt 3,90 3
  await_file "$shop/storico/2.txt"
  end_program
}

# The only place that knows the question.
#
# Gives the first answer to the question whether the receipt was printed, and confirms other dialogs. Returns 1 if the
# ticket is printed again, as the receipt with the number $1, without a question.
answer_in_doubt() {
  local options=0
  while IFS= read -r -t "$patience" line <&"$screen"; do
    printf '%s\n' "$line"
    case $line in
      '|'*'[1] '*) options=1 ;;
      '|'*'[2] '* | '|'*'[3] '*) options=$((options + 1)) ;;
      *"SCONTRINO N. $1"*) return 1 ;;
      "Numero + Invio"*)
        [ $options -ne 3 ] || { enter 1; return 0; }
        enter "" ;;
    esac
  done
  fail "the program did not go on within $patience seconds, or it has ended"
}

kill_after_payment_and_ask() {
  say "3. The same, with AskInDoubt=1 below [Safety] in Orvenza.ini"
  printf '[Safety]\r\nAskInDoubt=1\r\n' >>"$shop/Orvenza.ini"
  kill_after_payment 4

  say "The next start: it asks, and the operator, who sees the receipt on the paper, chooses the first answer"
  start_program
  if answer_in_doubt 5; then
    await_file "$shop/storico/3.txt"
    [ "$(grep -c 'SCONTRINO N\.' "$shop/carta.txt")" -eq 4 ] || fail "the receipt is on the paper again"
    third_end="asked the operator, printed once"
  else
    expect "----"
    say "It did not ask: this program does not know AskInDoubt yet, and prints the receipt again"
    third_end="printed twice, for this program does not know AskInDoubt yet"
    await_file "$shop/storico/3.txt"
  fi
  end_program
}

run_kills() {
  say "The first start writes the settings"
  set_register
  start_program
  settle "Configurazione Parametri Porta COM" ""
  expect "in funzione"
  end_program
  kill_in_mid_receipt
  kill_after_payment_as_ever
  kill_after_payment_and_ask
}

close_with_kills() {
  cat <<TEXT

== What happened
02-alimentari.txt, killed in the middle:                  voided, then printed once
01-bar.txt, killed between payment and archive:           printed twice
01-bar.txt, the same with AskInDoubt=1:                   $third_end

The slips on the paper, $shop/carta.txt:
$(grep -E 'COMPLESSIVO|ANNULLO|SCONTRINO (N\.|ANNULLATO)' "$shop/carta.txt")
TEXT
}

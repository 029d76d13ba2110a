#!/usr/bin/env bash
# The part of package_test.sh that needs "wine" and a screen:
#   installed_test.sh SETUP UNPACKED ANSWER SIGNED
# UNPACKED is the zip's folder, ANSWER the program built from answer.nsi, SIGNED the folder with the signed setup.exe,
# which gets its uninstaller, too. Uses its own Wine prefix.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/package/checks.sh

setup=$1
unpacked=$2
answer=$3
signed=$4
WINEPREFIX=$(mktemp -d)
export WINEPREFIX
trap 'wineserver -k; wineserver -w; rm -rf "$WINEPREFIX"' EXIT
wineboot --init >/dev/null 2>&1

# A folder with a blank in its name.
target='C:\Il negozio\Orvenza'
shop="$WINEPREFIX/drive_c/Il negozio/Orvenza"
profile=$WINEPREFIX/drive_c/users/root/AppData
default_shop=$profile/Local/Programs/Orvenza
start_menu="$profile/Roaming/Microsoft/Windows/Start Menu/Programs"
menu="$start_menu/Orvenza"
desktop=$WINEPREFIX/drive_c/users/root/Desktop
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvenza'
run_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'

# Runs setup silently with these options and leaves its exit code in $code. A folder with a blank is passed as two
# arguments, since setup wants it without quotes.
run_setup() {
  wine "$setup" /S "$@"
  code=$?
}

# open_setup OPTION...: starts setup with its windows and steps through its pages up to the installation.
open_setup() {
  wine "$setup" /LANG=en /RUN=0 "$@" &
  setup_pid=$!
  press 1 'Choose Install Location' && press 1 'Choose Components'
}
# press BUTTON TEXT: presses a button of the dialog that has a text with this beginning. 1 is OK or the default
# button, 2 Cancel. TEXT is passed without quotes, too.
press() { wine "$answer" /BUTTON="$1" /TEXT=$2; }
yes_button=6
no_button=7
# Leaves setup's exit code in $code. A setup that still waits for a button is killed.
close_setup() {
  eventually fails kill -0 "$setup_pid" || kill "$setup_pid"
  wait "$setup_pid"
  code=$?
}

# The uninstaller continues in a copy of itself after it has returned.
run_uninstaller() {
  wine "$target\\uninstall.exe" /S "$@"
  eventually fails installed && eventually fails runs '~nsu'
}

# Output of Wine's own programs, without carriage returns.
plain() { "$@" 2>/dev/null | tr -d '\r'; }
value() { plain wine reg query "$1" /v "$2" | sed -n 's/.*    REG_[A-Z]*    //p'; }
installed() { wine reg query "$uninstall_key" >/dev/null 2>&1; }
# runs TEXT: whether a Windows program is running whose path contains TEXT after a "\". (Wine has no task list.)
runs() {
  local process
  for process in /proc/[0-9]*/cmdline; do
    tr '\0' ' ' <"$process" | grep -q "^[A-Z]:.*\\\\$1" && return
  done 2>/dev/null
  return 1
}
starts() { grep -cF 'Start Rel.' "$shop/Log.txt"; }
started_times() { [ "$(starts)" -ge "$1" ]; }

start_program() { wine "$target\\Orvenza.exe" "$@" >/dev/null & }
kill_program() {
  wine taskkill /f /im Orvenza.exe >/dev/null 2>&1
  eventually fails runs Orvenza.exe
}

quit_program() {
  echo QUIT >"$shop/command.txt"
  eventually fails runs Orvenza.exe
}

# The shop's own data: the settings say port 3, the sound is a different one, and a text is among the documents.
write_shop() {
  mkdir -p "$shop/data/abort" "$shop/storico_20261101" "$shop/docs"
  cat >"$shop/Orvenza.ini" <<INI
[Version]
Version=1.06
[Database]
TicketFiles=$target\\data\\*.txt
HistoricTickets=$target\\storico\\
[Com Settings]
ComPort=3
Settings=19200,O,7,1
[General]
Separator (ascii,max 127)=59
INI
  echo una nota >"$shop/nota.txt"
  echo un appunto >"$shop/docs/x.txt"
  echo vecchio >"$shop/storico_20261101/1.txt"
  echo rinunciato >"$shop/data/abort/7.txt.abort.txt"
  echo un altro suono >"$shop/ding.wav"
}
own_sums() {
  (cd "$shop" && sha256sum Orvenza.ini nota.txt docs/x.txt storico_20261101/1.txt data/abort/7.txt.abort.txt)
}

hand_over() {
  cp "$1" "$shop/data/$2.tmp"
  mv "$shop/data/$2.tmp" "$shop/data/$2.txt"
}

sums_of() { (cd "$1" && find . -type f ! -name uninstall.exe -exec sha256sum {} + | sort -k 2); }
# leads_to ENTRY FILE: the entry of the Start menu starts this file of the program's folder, and works in that folder.
leads_to() {
  [ -s "$shop/${2//\\//}" ] && names "$1" "$target\\$2" && names "$1" "$target"
}
names() { tr -d '\0' <"$menu/$1.lnk" | tr -c '[:print:]' '\n' | grep -xF -- "$2"; }
entries() { (cd "$menu" && find . -type f | LC_ALL=C sort | tr '\n' ' '); }
open_entry() { wine start /unix "$menu/$1.lnk"; }
waits_in() { runs "$1" && fails runs orvenza-lab.exe; }
# Ends the script whose window waits for a key.
kill_script() {
  wine taskkill /f /im cmd.exe >/dev/null 2>&1
  eventually fails runs "$1"
}
bundles() { ls "$1"/orvenza-support-*.zip; }
files_in() { (cd "$1" && find . -maxdepth 1 -type f | sort | tr '\n' ' '); }

title "a folder that cannot be written to"
run_setup '/D=Z:\proc\Orvenza'
same "is refused" $code 4
check "with nothing installed" fails installed

title "a folder for administrators only"
guarded='C:\Program Files\Orvenza'
run_setup /D=$guarded
same "is refused even to one" $code 4
check "and not left behind" gone "$WINEPREFIX/drive_c/Program Files/Orvenza"
check "with nothing installed" fails installed

title "the first installation"
run_setup /LANG=it /AUTOSTART=1 /D=$target
same "succeeds" $code 0
same "puts there what the zip holds" "$(sums_of "$shop")" "$(sums_of "$unpacked")"
test -f "$shop/uninstall.exe" || finish "without an uninstaller nothing more can be tried"
same "makes a folder in the Start menu" "$(entries)" \
  "./Controllo dell'impianto.lnk ./Dati per l'assistenza.lnk ./Manuale.lnk ./Orvenza.lnk "
check "for the program" leads_to Orvenza Orvenza.exe
check "for the manual" leads_to Manuale 'docs\manuale-operatore.html'
check "for the check of the installation" leads_to "Controllo dell'impianto" controllo.cmd
check "for the data for support" leads_to "Dati per l'assistenza" assistenza.cmd
same "and nothing beside it" "$(ls "$start_menu" | grep -i orvenza)" Orvenza
same "starts the program with Windows" "$(value "$run_key" Orvenza)" "\"$target\\Orvenza.exe\""
same "is listed with its folder" "$(value "$uninstall_key" InstallLocation)" "$target"
check "starts nothing by itself" fails runs Orvenza.exe

title "the installed program"
write_shop
before=$(own_sums)
start_program --simulate
check "starts" eventually started_times 1
hand_over examples/01-bar.txt 01
check "prints a ticket and keeps it" eventually test -f "$shop/storico/1.txt"

check "is known to orvenza-lab" holds <(plain wine "$target\\orvenza-lab.exe" doctor --json) '"instance.running"'

title "the check of the installation"
check "shows what the doctor says" holds <(plain wine cmd /c "$target\\controllo.cmd" </dev/null) 'instance.running'
check "starts from the Start menu" open_entry "Controllo dell'impianto"
check "in a window of its own" eventually xdotool search --name "Controllo dell'impianto"
check "that waits for a key when the doctor is done" eventually waits_in controllo.cmd
kill_script controllo.cmd

title "the data for support"
rm -f "$desktop"/orvenza-support-*.zip # it may be a folder outside of the prefix
check "start from the Start menu" open_entry "Dati per l'assistenza"
check "are written to the desktop" eventually bundles "$desktop"
check "in a window of its own" eventually xdotool search --name "Dati per l'assistenza"
check "that waits for a key then" eventually waits_in assistenza.cmd
kill_script assistenza.cmd
# Into the folder of the program; the time of the archive on the desktop differs, so there is no clash.
check "say where they are" holds <(plain wine cmd /c "$target\\assistenza.cmd" </dev/null) "e' qui: \"$target\\\""
check "which is true" bundles "$shop"
check "say so if they cannot be written" \
  holds <(plain wine cmd /c "$target\\assistenza.cmd" 'C:\none' </dev/null) 'non sono completi'
rm -f "$shop"/orvenza-support-*.zip "$desktop"/orvenza-support-*.zip

title "an upgrade while it runs"
run_setup
same "succeeds" $code 0
check "has ended the program" fails runs Orvenza.exe
check "as a host would" holds "$shop/Log.txt" 'Quit Command !'
check "leaves no command file behind" gone "$shop/command.txt"
check "goes to the folder of the first time" fails test -e "$default_shop"
same "leaves settings and tickets alone" "$(own_sums)" "$before"
check "leaves the shop's own bell alone" holds "$shop/ding.wav" 'un altro suono'
check "leaves the printed ticket alone" test -f "$shop/storico/1.txt"
same "leaves the start with Windows on" "$(value "$run_key" Orvenza)" "\"$target\\Orvenza.exe\""
start_program --simulate
check "and the program starts again" eventually started_times 2
check "and ends when asked" quit_program

title "an upgrade in the other language, of an earlier version"
mkdir -p "$shop/docs/images"
mv "$menu/Orvenza.lnk" "$start_menu/Orvenza.lnk"
rm -r "$menu"
echo vecchio | tee "$shop/docs/settings.md" >"$shop/docs/images/menu.png"
run_setup /LANG=en
same "succeeds" $code 0
same "moves the entry into a folder, with the others" "$(entries)" \
  "./Check of the installation.lnk ./Data for support.lnk ./Operator's manual (Italian).lnk ./Orvenza.lnk "
check "leaves none beside it" gone "$start_menu/Orvenza.lnk"
check "removes the earlier manuals" gone "$shop/docs/settings.md"
check "with their pictures" gone "$shop/docs/images"
run_setup /LANG=it
same "succeeds, back in the first language" $code 0
same "leaves no entry in the other one" "$(entries)" \
  "./Controllo dell'impianto.lnk ./Dati per l'assistenza.lnk ./Manuale.lnk ./Orvenza.lnk "
run_setup /STARTMENU=0
check "takes the folder away, as asked" gone "$menu"
run_setup
check "and keeps it away" gone "$menu"
run_setup /STARTMENU=1
check "until it is wanted again" leads_to Orvenza Orvenza.exe
touch "$menu/proprio.lnk"

title "an upgrade while a dialog waits"
start_program # without a link control it asks about the port
check "finds the program running" eventually holds "$shop/Err.txt" 429
run_setup /WAIT=1
same "is refused" $code 3
check "leaves no command file behind" gone "$shop/command.txt"
check "leaves the program running" runs Orvenza.exe
check "with its pages, setup asks" open_setup /WAIT=1
check "whether to end the program" press 1 'Orvenza is running'
check "and, as the dialog still waits, asks again" press $no_button 'Orvenza is still running'
check "until it is cancelled" press 2 'Orvenza is still running'
close_setup
same "which ends it" $code 3
check "and leaves the program running" runs Orvenza.exe
check "or, once more" open_setup
check "whether to end the program" press 1 'Orvenza is running'
check "until the program is to be ended at once" press $yes_button 'Orvenza is still running'
check "which goes on with the installation" press 1 'Installation Complete'
close_setup
same "and succeeds" $code 0
check "has ended the program" fails runs Orvenza.exe
check "in order" holds <(tail -n 1 "$shop/Log.txt") ' - End'
check "leaves no command file behind" gone "$shop/command.txt"

title "an upgrade while a tool is used"
coproc tool { wine "$target\\orvenza-lab.exe" check -; } 2>/dev/null
check "finds it running" eventually runs orvenza-lab.exe
printf older >>"$shop/Orvenza.exe"
before_upgrade=$(sums_of "$shop")
run_setup
same "fails" $code 5
same "replaces nothing" "$(sums_of "$shop")" "$before_upgrade"
exec {tool[1]}>&-
check "waits for nothing else" eventually fails runs orvenza-lab.exe

title "an upgrade over a manual that cannot be replaced"
rm "$shop/docs/settings.html"
mkdir "$shop/docs/settings.html"
run_setup
same "succeeds" $code 0
check "replaces the program" cmp "$shop/Orvenza.exe" "$unpacked/Orvenza.exe"
rmdir "$shop/docs/settings.html"
run_setup
check "puts the manual there the next time" cmp "$shop/docs/settings.html" "$unpacked/docs/settings.html"

title "removing"
logs=$(cd "$shop" && sha256sum Log.txt Err.txt)
check "succeeds" run_uninstaller
same "leaves the shop's own files" "$(files_in "$shop")" \
  "./Err.txt ./ErrDesc.ini ./Log.txt ./Orvenza.ini ./ding.wav ./nota.txt "
check "with the shop's own bell" holds "$shop/ding.wav" 'un altro suono'
same "leaves the logs alone" "$(cd "$shop" && sha256sum Log.txt Err.txt)" "$logs"
same "leaves settings and tickets alone" "$(own_sums)" "$before"
same "of the manuals, leaves only the shop's own" "$(cd "$shop" && find docs | sort | tr '\n' ' ')" "docs docs/x.txt "
check "takes the examples away" gone "$shop/examples"
same "leaves only what is not setup's in the Start menu" "$(entries)" "./proprio.lnk "
rm -r "$menu"
same "starts nothing with Windows any more" "$(value "$run_key" Orvenza)" ""

title "removing the bell that came with the program"
rm "$shop/ding.wav"
run_setup /D=$target
same "installs over what was left" $code 0
check "puts a bell there" cmp "$shop/ding.wav" "$unpacked/ding.wav"
check "succeeds" run_uninstaller
check "takes that bell away" gone "$shop/ding.wav"

title "removing with everything"
rm "$shop/docs/x.txt"
echo un altro suono >"$shop/ding.wav"
touch "$shop/Remembered.ini" "$shop/Evidence.ini" "$shop/Orvenza.ini.orv~"
run_setup /STARTMENU=0 /D=$target
same "installs over what was left" $code 0
check "makes no folder in the Start menu, as asked" gone "$menu"
same "does not start with Windows by itself" "$(value "$run_key" Orvenza)" ""
check "succeeds" run_uninstaller /PURGE
same "leaves what is not Orvenza's" "$(cd "$shop" && find . | sort | tr '\n' ' ')" ". ./nota.txt "

title "without a folder named"
run_setup /LANG=it /RUN=1
same "succeeds" $code 0
check "installs into the user's own" test -f "$default_shop/Orvenza.exe"
same "keeps the language for the uninstaller" "$(value "$uninstall_key" Language)" 0x410
check "starts the program, as asked" eventually test -f "$default_shop/Orvenza.ini"
kill_program

title "a signed setup program"
wine "$signed/setup.exe" /S /D=$target
same "succeeds" $? 0
same "puts the signed programs there" "$(cd "$shop" && sha256sum Orvenza.exe orvenza-lab.exe)" \
  "$(cd "$signed" && sha256sum Orvenza.exe orvenza-lab.exe)"
check "with an uninstaller" cp "$shop/uninstall.exe" "$signed/"
check "that works" run_uninstaller
check "and takes the folder in the Start menu away" gone "$menu"

finish

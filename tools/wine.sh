#!/usr/bin/env bash
# Runs Windows programs under Wine in an isolated system with its own screen: see usage below.
set -euo pipefail

usage() {
  cat <<'TEXT'
Usage: tools/wine.sh PROGRAM.exe [ARGUMENT...]
       tools/wine.sh --in-root COMMAND [ARGUMENT...]
       tools/wine.sh --check | --setup | --help

Runs a Windows program under a 32-bit Wine, waits for it and exits with its exit code. Few systems have a 32-bit Wine,
so the script uses a small Debian system of its own and creates it on first use, which downloads about 300 MB. Each run
has its own screen (1024x768, with a taskbar) and leaves neither a process nor a mount behind. Runs wait for each
other.

  --in-root  runs a command in that system instead of a Windows program, with DISPLAY and WINEPREFIX set; the command
             can use "wine", "xdotool" for keys and "import" for screenshots
  --check    exits with 0 if programs can be run (after --setup if necessary); otherwise says what is missing
  --setup    creates that system and the Wine prefix, and runs nothing

Needs root, debootstrap and unshare. The project, the program's folder and the current folder have the same paths
inside.

  ORVENZA_WINE_DEBIAN  the Debian release whose Wine is used: trixie (13, Wine 10; the default) or bookworm (12,
                       Wine 8), each in a separate system
  ORVENZA_WINE_ROOT    folder of that system (default: /opt/orvenza-wine-N; N changes with the way it is built, so an
                       outdated system is never used)
  ORVENZA_WINE_PREFIX  the Wine prefix inside (default: /var/lib/orvenza-wine)
  ORVENZA_TEST_...     passed on to the program
TEXT
}

fail() {
  echo "wine.sh: $*" >&2
  exit 125
}

project=$(cd "$(dirname "$0")/.." && pwd -P)
prefix=${ORVENZA_WINE_PREFIX:-/var/lib/orvenza-wine}
debian=${ORVENZA_WINE_DEBIAN:-trixie}
packages=wine32,wine,xvfb,xauth,xdotool,imagemagick,fonts-liberation,fonts-wine

check() {
  [ "$(id -u)" -eq 0 ] || fail "only root may enter the system in $root"
  command -v unshare >/dev/null || fail "unshare (package util-linux) is missing"
  unshare --mount --pid --fork true 2>/dev/null || fail "this system does not allow mounts, not even to root"
  [ ! -e "$mark" ] || return 0
  [ ! -d "$root" ] || [ -z "$(ls -A "$root")" ] ||
    fail "$root is not empty and was not made by this script; it is left alone"
  command -v debootstrap >/dev/null || fail "debootstrap is missing, and there is no system in $root yet"
}

# Built beside its final place and moved there when complete. Existing files are never removed.
make_root() {
  [ ! -e "$mark" ] || return 0
  echo "wine.sh: making the system in $root (log: $root.log)" >&2
  local part
  part=$(mktemp -d "$root.part.XXXXXX")
  chmod 755 "$part"
  # In its own mount namespace: debootstrap's mounts stay invisible here, where $part may be removed.
  if unshare --mount --propagation private \
    debootstrap --arch=i386 --variant=minbase --include="$packages" "$debian" "$part" >"$root.log" 2>&1; then
    rm -f "$part"/var/cache/apt/archives/*.deb
    touch "$part/etc/orvenza-wine"
    mv -T "$part" "$root"
  else
    rm -rf --one-file-system -- "$part"
    tail -n 5 "$root.log" >&2
    fail "debootstrap failed"
  fi
}

# Runs with its own mounts and processes, which end with it. The root folder shows only the given folders of the
# outside, under their own names, and has its own devices.
enter() {
  exec 9>&-
  for folder in "$@"; do
    mkdir -p "$root$folder"
  done
  mount -t proc proc "$root/proc"
  mount -t tmpfs tmpfs "$root/dev/shm"
  mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
  mkdir -m 1777 "$root/tmp/.X11-unix"
  for folder in "$@"; do
    mkdir -p "$root$folder"
    mount --bind "$folder" "$root$folder"
  done
}

# Runs inside that system: the first argument is the working folder, the others are the command.
within() {
  cd "$1"
  shift
  coproc screen { exec Xvfb -displayfd 5 -screen 0 1024x768x24 -nolisten tcp 5>&1 2>/dev/null; }
  read -r number <&"${screen[0]}"
  export DISPLAY=:$number
  if [ ! -e "$WINEPREFIX/orvenza-ready" ]; then
    mkdir -p "$(dirname "$WINEPREFIX")"
    wineboot --init </dev/null >/dev/null 2>&1
    # Tahoma and the symbols of the title bar.
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    # Every program runs on a desktop of this name, which has a taskbar with a notification area.
    wine reg add "HKCU\\Software\\Wine\\Explorer" /v Desktop /d shell /f >/dev/null
    wine reg add "HKCU\\Software\\Wine\\Explorer\\Desktops" /v shell /d 1024x768 /f >/dev/null
    wineserver -w
    touch "$WINEPREFIX/orvenza-ready"
  fi
  result=0
  "$@" || result=$?
  # Ends Wine in an orderly way, so that its registry is saved.
  wineserver -k || true
  wineserver -w || true
  exit "$result"
}

recipe=$({ declare -f make_root within; echo "$debian $packages"; } | cksum | cut -d ' ' -f 1)
root=${ORVENZA_WINE_ROOT:-/opt/orvenza-wine-$recipe}
# Only a system that contains this file is used: it was built here completely.
mark=$root/etc/orvenza-wine

# Whether a folder outside the project may be shown to a run. The system's own folders exist inside, too.
may_be_shown() {
  case "$1/" in
    "$project"/*) return 1 ;;
    /bin/* | /boot/* | /dev/* | /etc/* | /lib*/* | /proc/* | /run/* | /sbin/* | /sys/* | /usr/* | /var/*) return 1 ;;
    /*/*/*) return 0 ;;
    *) return 1 ;;
  esac
}

folders=("$project")
case "${1:-}" in
  --help) usage; exit 0 ;;
  --check) check; exit 0 ;;
  --setup) command=(true) ;;
  --in-root) shift; command=("$@"); [ $# -gt 0 ] || { usage >&2; exit 2; } ;;
  -* | '') usage >&2; exit 2 ;;
  *)
    program=$(realpath -e -- "$1") || fail "there is no program $1"
    shift
    command=(wine "$program" "$@")
    folder=$(dirname "$program")
    if may_be_shown "$folder"; then folders+=("$folder"); fi
    ;;
esac
work=$(pwd -P)
case "$work/" in
  "$project"/*) ;;
  *) if may_be_shown "$work"; then folders+=("$work"); else work=$project; fi ;;
esac

settings=()
for name in "${!ORVENZA_TEST_@}"; do settings+=("$name=${!name}"); done

check
exec 9>"$root.lock"
flock 9
make_root
export root
export -f enter within
# shellcheck disable=SC2016  # the quoted text is for the inner shell
exec unshare --mount --pid --fork --kill-child --propagation private bash -euc '
  count=$1; shift
  enter "${@:1:count}"
  shift "$count"
  exec chroot "$root" env -i "$@"
' - ${#folders[@]} "${folders[@]}" \
  PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 ${TZ:+TZ="$TZ"} WINEPREFIX="$prefix" \
  WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml=" ${settings[@]+"${settings[@]}"} \
  bash -euc "$(declare -f within); within \"\$@\"" - "$work" "${command[@]}"

#!/usr/bin/env bash
# Checks that the include lines respect the layers: tools/check_includes.sh [ROOT]. Prints one line per finding
# and fails if there is one.
#
#   - a room includes itself and the rooms below it, written as "room/file.h";
#   - headers of an operating system are included only below posix/, windows/ and terminal/, and so are headers
#     from those folders;
#   - the operating system is tested only in posix/ and windows/;
#   - std::chrono::steady_clock only below posix/: in some builds of GCC for Windows it is the PC clock, which
#     can be set. Everything else takes its time from a Clock.
set -euo pipefail
cd "${1:-$(dirname "$0")/..}/src"

find . \( -name '*.cpp' -o -name '*.h' \) -print | sed 's|^\./||' | LC_ALL=C sort | {
  findings=0
  files=0
  while IFS= read -r file; do
    files=$((files + 1))
    awk -v file="$file" '
      BEGIN {
        below["platform"]  = " platform "
        below["core"]      = " core" below["platform"]
        below["ui"]        = " ui" below["core"]
        below["device"]    = " device" below["ui"]
        below["tickets"]   = " tickets" below["device"]
        below["simulator"] = " simulator" below["device"]
        below["app"]       = " app simulator" below["tickets"]
        below["lab"]       = " lab" below["app"]
        room = file
        sub(/\/.*/, "", room)
        bySystem = file ~ /\/(posix|windows)\//
        ofSystem = bySystem || file ~ /\/terminal\//
        if (!(room in below)) find("lies in no room of the house")
      }
      function find(what) {
        printf "%s:%d: %s\n", file, NR, what
        findings++
      }
      { sub(/\r$/, "") }
      /^[ \t]*#[ \t]*include[ \t]*"/ {
        name = $0
        sub(/^[^"]*"/, "", name)
        sub(/".*/, "", name)
        used = name
        if (!sub(/\/.*/, "", used)) find("\"" name "\" names no room")
        else if (index(below[room], " " used " ") == 0) find(room " must not include \"" name "\"")
        else if (name ~ /\/(posix|windows|terminal)\// && !ofSystem)
          find("\"" name "\" belongs to one system")
      }
      # The standard headers of C++ have neither extension nor folder.
      /^[ \t]*#[ \t]*include[ \t]*</ {
        name = $0
        sub(/^[^<]*</, "", name)
        sub(/>.*/, "", name)
        if (name ~ /[.\/]/ && !ofSystem) find("<" name "> belongs to one system")
      }
      /^[ \t]*#[ \t]*(if|ifdef|ifndef|elif)[ \t(!]/ && /(_WIN32|_WIN64|_MSC_VER|__linux__|__unix__|__APPLE__|__MINGW)/ {
        if (!bySystem) find("asks which system it is")
      }
      /std::chrono::steady_clock/ && !/^[ \t]*\/\// {
        if (file !~ /\/posix\//) find("the steady clock may be the PC clock")
      }
      END { exit (findings > 0) }
    ' "$file" || findings=1
  done
  [ $files -gt 0 ] || { echo "no sources to check"; findings=1; }
  exit $findings
}

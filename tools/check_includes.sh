#!/usr/bin/env bash
# Checks that the include lines respect the layers: tools/check_includes.sh [ROOT]. Prints one line per finding
# and fails if there is one.
#
#   - a room includes itself and the rooms below it, written as "room/file.h"; so does a folder of the lab;
#   - no files include each other in a circle; a header and its source count as one;
#   - headers of an operating system are included only below posix/, windows/ and terminal/, and so are headers
#     from those folders;
#   - the operating system is tested only in posix/ and windows/;
#   - std::chrono::steady_clock only below posix/: in some builds of GCC for Windows it is the PC clock, which
#     can be set. Everything else takes its time from a Clock.
set -euo pipefail
cd "${1:-$(dirname "$0")/..}/src"

mapfile -t files < <(find . \( -name '*.cpp' -o -name '*.h' \) -print | sed 's|^\./||' | LC_ALL=C sort)
[ ${#files[@]} -gt 0 ] || { echo "no sources to check"; exit 1; }

awk '
  BEGIN {
    below["platform"]      = " platform "
    below["core"]          = " core" below["platform"]
    below["ui"]            = " ui" below["core"]
    below["device"]        = " device" below["ui"]
    below["tickets"]       = " tickets" below["device"]
    below["simulator"]     = " simulator" below["device"]
    below["app"]           = " app simulator" below["tickets"]
    below["lab/shell"]     = " lab/shell" below["app"]
    below["lab/page"]      = " lab/page" below["app"]
    below["lab/paper"]     = " lab/paper lab/page" below["lab/shell"]
    below["lab/settings"]  = " lab/settings" below["lab/shell"]
    below["lab/check"]     = " lab/check lab/page" below["lab/settings"]
    below["lab/preview"]   = " lab/preview lab/paper" below["lab/check"]
    below["lab/doctor"]    = " lab/doctor" below["lab/settings"]
    below["lab/handover"]  = " lab/handover lab/check" below["lab/doctor"]
    below["lab/rehearsal"] = " lab/rehearsal lab/paper lab/page" below["lab/settings"]
    below["lab/replay"]    = " lab/replay" below["lab/rehearsal"]
    below["lab/bundle"]    = " lab/bundle" below["lab/doctor"]
    below["lab/table"]     = " lab/table" below["lab/rehearsal"]
    below["lab"]           = " lab lab/bundle lab/check lab/doctor lab/handover lab/preview lab/replay lab/table" below["lab/rehearsal"]
    below["lab/terminal"]  = " lab/terminal" below["lab"]
    for (i = 1; i < ARGC; i++)
      if (!(room(ARGV[i]) in below)) find(ARGV[i], 0, "lies in no room of the house")
  }

  function find(file, line, what) {
    printf "%s:%d: %s\n", file, line, what
    findings++
  }
  # The first folder of a path, in the lab the second as well; empty where there is none.
  function room(path,    parts, count) {
    count = split(path, parts, "/")
    if (count == 1) return ""
    return parts[1] == "lab" && count > 2 ? "lab/" parts[2] : parts[1]
  }
  function unit(path) {
    sub(/\.(h|cpp)$/, "", path)
    return path
  }
  # The text between the marks of an include line.
  function included(line, marks) {
    sub("^[^" marks "]*[" marks "]", "", line)
    sub("[" marks "].*", "", line)
    return line
  }
  # Follows the includes of a unit; way holds the units that led to it. Each is entered once.
  function follow(from, way,    list, count, i, to, line) {
    state[from] = "open"
    count = split(uses[from], list, "\n")
    for (i = 1; i < count; i++) {
      to = list[i]
      if (state[to] == "open") {
        line = way "\n" from "\n"
        line = substr(line, index(line, "\n" to "\n") + 1)
        gsub(/\n/, " -> ", line)
        find(file[from, to], number[from, to], "closes a circle: " line to)
      } else if (state[to] == "") follow(to, way "\n" from)
    }
    state[from] = "done"
  }

  FNR == 1 {
    here = room(FILENAME)
    self = unit(FILENAME)
    bySystem = FILENAME ~ /\/(posix|windows)\//
    ofSystem = bySystem || FILENAME ~ /\/terminal\//
  }
  { sub(/\r$/, "") }
  /^[ \t]*#[ \t]*include[ \t]*"/ {
    name = included($0, "\"")
    used = room(name)
    if (used == "") find(FILENAME, FNR, "\"" name "\" names no room")
    else if (index(below[here], " " used " ") == 0) find(FILENAME, FNR, here " must not include \"" name "\"")
    else if (name ~ /\/(posix|windows|terminal)\// && !ofSystem)
      find(FILENAME, FNR, "\"" name "\" belongs to one system")
    to = unit(name)
    if (to != self && !((self, to) in file)) {
      uses[self] = uses[self] to "\n"
      file[self, to] = FILENAME
      number[self, to] = FNR
    }
  }
  # The standard headers of C++ have neither extension nor folder.
  /^[ \t]*#[ \t]*include[ \t]*</ {
    name = included($0, "<>")
    if (name ~ /[.\/]/ && !ofSystem) find(FILENAME, FNR, "<" name "> belongs to one system")
  }
  /^[ \t]*#[ \t]*(if|ifdef|ifndef|elif)[ \t(!]/ && /(_WIN32|_WIN64|_MSC_VER|__linux__|__unix__|__APPLE__|__MINGW)/ {
    if (!bySystem) find(FILENAME, FNR, "asks which system it is")
  }
  /std::chrono::steady_clock/ && !/^[ \t]*\/\// {
    if (FILENAME !~ /\/posix\//) find(FILENAME, FNR, "the steady clock may be the PC clock")
  }

  END {
    for (i = 1; i < ARGC; i++)
      if (state[unit(ARGV[i])] == "") follow(unit(ARGV[i]), "")
    exit (findings > 0)
  }
' "${files[@]}"

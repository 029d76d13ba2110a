#!/usr/bin/env python3
"""Breaks lines of the product on purpose and checks that a test notices each: tools/mutate.py [--only TEXT] [--list].

The list is tests/mutations.txt. An entry is the name of a source file, the line as it stands, and the broken line:

    src/tickets/ticket_boundary.cpp
    -  if (type == 14) continue;
    +  if (type == 15) continue;

Blanks at both ends of a line and a comment behind it do not count. The line must stand in the file once; one of several
is the first behind "@ TEXT", which stands in an earlier line. An entry with "= REASON" changes nothing that could be noticed;
it is only checked that its line still stands. Lines that begin with "#" are comments.

The work is done on a copy of the sources in build/mutation. A mutant is killed when it does not compile, or when a test
program fails or takes longer than its limit. Exit status: 0 all killed, 1 some survived, 2 the list does not fit the
sources.
"""
import argparse
import dataclasses
import os
import pathlib
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
COPY = WORK / "source"
BUILD = WORK / "build"

# The rooms of the house, from the lowest, then the programs that drive all of them. A mutant is tried by its own room
# first, then by the others.
ROOMS = ["platform", "core", "ui", "device", "tickets", "simulator", "app", "lab"]
WHOLE = ["scenario", "attack", "program", "lab_program"]
LIMIT_SECONDS = 300


@dataclasses.dataclass
class Mutation:
    number: int
    file: str
    old: str
    new: str = ""
    behind: str = ""
    equivalent: str = ""

    def __str__(self):
        return f"{self.number:3} {self.file}: {self.old.strip()}  ->  {self.new.strip() or '(removed)'}"


def read_list(path):
    mutations = []
    file = behind = ""
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        mark, text = line[0], line[1:].strip()
        if mark == "@":
            behind = text
        elif mark == "-":
            mutations.append(Mutation(len(mutations) + 1, file, text, behind=behind))
            behind = ""
        elif mark == "+":
            mutations[-1].new = text
        elif mark == "=":
            mutations[-1].equivalent = text
        else:
            file = line.strip()
    return mutations


def code_of(line):
    return line.split("  //")[0].strip()


def place(mutation, lines):
    """The index of the one line that the mutation breaks; an error text where there is none, or more than one."""
    start = 0
    if mutation.behind:
        anchors = [i for i, line in enumerate(lines) if mutation.behind in line]
        if not anchors:
            return f"no line contains '{mutation.behind}'"
        start = anchors[0]
    found = [i for i in range(start, len(lines)) if code_of(lines[i]) == code_of(mutation.old)]
    if not found:
        return "the line is not there"
    if len(found) > 1 and not mutation.behind:
        return "the line stands there more than once"
    return found[0]


def run(words, log, limit=None):
    """The exit status, or -1 where the limit was reached; everything that was written goes to the log."""
    environment = dict(os.environ, ORVENZA_TEST_BLOWS="20")
    with open(log, "ab") as out:
        try:
            return subprocess.run(words, stdout=out, stderr=out, stdin=subprocess.DEVNULL, timeout=limit,
                                  env=environment, check=False).returncode
        except subprocess.TimeoutExpired:
            return -1


def configure(log):
    options = ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0"]
    if shutil.which("ccache"):
        options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
    return run(["cmake", "-S", str(COPY), "-B", str(BUILD), "-G", "Ninja", *options], log)


def build(targets, log):
    return run(["cmake", "--build", str(BUILD), "--target", *targets], log)


def test_programs(file):
    room = file.split("/")[1]
    rooms = [room] + [other for other in ROOMS if other != room]
    return [f"orvenza_{name}_tests" for name in rooms[:1] + WHOLE[:1] + rooms[1:] + WHOLE[1:]]


def killer(mutation, log):
    """What noticed the mutant; nothing where it survived."""
    for program in test_programs(mutation.file):
        if build([program], log) != 0:
            return "the compiler"
        status = run([str(next(BUILD.glob(f"tests/**/{program}"))), "--gtest_brief=1"], log, LIMIT_SECONDS)
        if status != 0:
            return program + (" (limit)" if status == -1 else "")
    return None


def refresh_copy():
    """Makes the copy equal to the sources; what has not changed keeps its time, and is not built anew."""
    names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT, check=True,
                           capture_output=True).stdout.decode().split("\0")
    wanted = {name for name in names if name and (ROOT / name).is_file()}
    for path in [p for p in COPY.rglob("*") if p.is_file() and p.relative_to(COPY).as_posix() not in wanted]:
        path.unlink()
    for name in wanted:
        path = COPY / name
        if not path.exists() or path.read_bytes() != (ROOT / name).read_bytes():
            path.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, path)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--only", metavar="TEXT", default="", help="only entries whose line or file contains TEXT")
    parser.add_argument("--list", action="store_true", help="only check that every line still stands in its file")
    arguments = parser.parse_args()

    mutations = read_list(ROOT / "tests" / "mutations.txt")
    places = {}
    stale = 0
    for mutation in mutations:
        lines = (ROOT / mutation.file).read_text(encoding="utf-8").split("\n")
        places[mutation.number] = place(mutation, lines)
        if isinstance(places[mutation.number], str):
            print(f"{mutation}\n    {places[mutation.number]}")
            stale += 1
    if stale:
        return 2
    if arguments.list:
        print(f"{len(mutations)} mutations, all in their places")
        return 0

    refresh_copy()
    log = WORK / "log.txt"
    log.unlink(missing_ok=True)
    if configure(log) != 0 or build(["all"], log) != 0:
        print(f"the sources do not build; see {log}")
        return 2

    survivors = []
    chosen = [m for m in mutations if not m.equivalent and arguments.only in m.file + " " + m.old]
    for mutation in chosen:
        path = COPY / mutation.file
        whole = path.read_text(encoding="utf-8")
        lines = whole.split("\n")
        lines[places[mutation.number]] = mutation.new
        path.write_text("\n".join(lines), encoding="utf-8")
        start = time.monotonic()
        by = killer(mutation, log)
        path.write_text(whole, encoding="utf-8")
        seconds = time.monotonic() - start
        print(f"{mutation}\n    {'killed by ' + by if by else 'SURVIVED'}, {seconds:.0f} s", flush=True)
        if not by:
            survivors.append(mutation)

    equivalents = sum(1 for m in mutations if m.equivalent)
    print(f"\n{len(chosen)} broken lines, {len(survivors)} not noticed; {equivalents} more change nothing")
    for mutation in survivors:
        print(mutation)
    return 1 if survivors else 0


sys.exit(main())

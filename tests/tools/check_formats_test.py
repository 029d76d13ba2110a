#!/usr/bin/env python3
"""Compares the formats of `orvenza-lab check`, with a ticket for each kind of finding, and matches the plain one with the
problem matcher of examples/.   check_formats_test.py ORVENZA_LAB PROJECT"""

import json
import pathlib
import random
import re
import sys
import tempfile
import urllib.parse
import xml.etree.ElementTree

sys.dont_write_bytecode = True
import every_finding  # noqa: E402

LAB, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
PAGE = (PROJECT / "docs/ticket-check.md").read_text("utf-8")


def equal(found, expected, what):
    if found != expected:
        sys.exit(f"{what}:\n  {found}\ninstead of\n  {expected}")


def plain(finding):
    place = ":".join(str(finding[key]) for key in ("file", "line", "field") if key in finding)
    if "line" in finding:
        place += ":"
    return f"{place}{'' if 'line' in finding else ':'} {finding['severity']}: {finding['text']} [{finding['code']}]"


def match_plain(lines, findings):
    matchers = json.loads((PROJECT / "examples/check-problem-matcher.json").read_text("utf-8"))["problemMatcher"]
    patterns = [matcher["pattern"][0] for matcher in matchers]
    for pattern in patterns:
        equal(f"\n{pattern['regexp']}\n" in PAGE, True, f"docs/ticket-check.md shows {pattern['regexp']}")
    for line, finding in zip(lines, findings, strict=True):
        equal(line, plain(finding), "plain form")
        matches = [(pattern, match) for pattern in patterns if (match := re.search(pattern["regexp"], line))]
        equal(len(matches), 1, f"problem matchers of {line}")
        pattern, match = matches[0]
        for key, name in (("file", "file"), ("line", "line"), ("severity", "severity"), ("message", "text"), ("code", "code")):
            equal(match[pattern[key]] if key in pattern else None, str(finding[name]) if name in finding else None, key)


def read_github(line):
    """The finding of a workflow command."""
    match = re.fullmatch(r"::(error|warning) ([^:]*)::(.*)", line)
    undo = urllib.parse.unquote
    finding = {key: undo(value) for key, value in (part.split("=", 1) for part in match[2].split(","))}
    return {"severity": match[1], "text": undo(match[3]), **finding}


def match_github(lines, findings):
    for line, finding in zip(lines, findings, strict=True):
        read = read_github(line)
        equal((read["file"], read.get("line"), read["severity"], read["title"], read["text"]),
              (finding["file"], str(finding["line"]) if "line" in finding else None, finding["severity"], finding["code"],
               finding["text"]), line)


def text_of(content):
    try:
        return content.decode("utf-8")
    except UnicodeDecodeError:
        return content.decode("latin-1")


def check_region(region, finding, result):
    """The region of a finding about a field is that field, counted in characters."""
    equal(region["startLine"], finding["line"], str(result))
    if "field" not in finding:
        return equal(set(region), {"startLine"}, str(result))
    line = every_finding.TICKETS[finding["file"].removesuffix(".txt")].split(b"\n")[finding["line"] - 1]
    shown = text_of(line)[region["startColumn"] - 1:region["endColumn"] - 1]
    return equal(shown, text_of(line).split(";")[finding["field"]], str(result))


def match_sarif(text, findings):
    (run,) = json.loads(text)["runs"]
    rules = run["tool"]["driver"]["rules"]
    for result, finding in zip(run["results"], findings, strict=True):
        rule = rules[result["ruleIndex"]]
        equal((result["ruleId"], result["ruleId"], result["level"], result["level"], result["message"]["text"]),
              (finding["code"], rule["id"], finding["severity"], rule["defaultConfiguration"]["level"], finding["text"]),
              str(result))
        (location,) = result["locations"]
        place = location["physicalLocation"]
        equal(urllib.parse.unquote(place["artifactLocation"]["uri"]), finding["file"], str(result))
        if "line" in finding:
            check_region(place["region"], finding, result)
        else:
            equal("region" in place, False, str(result))
    return [(rule["id"], rule["defaultConfiguration"]["level"]) for rule in rules]


def match_junit(text, files, findings):
    (suite,) = xml.etree.ElementTree.fromstring(text)
    equal([case.get("name") for case in suite], files, "test cases")
    lines = []
    for kind, count in (("failure", "failures"), ("error", "errors")):
        equal(suite.get(count), str(len(suite.findall(f"testcase/{kind}"))), count)
    for element in suite.iter():
        lines += (element.text or "").strip().split("\n") if element.tag in ("failure", "error", "system-out") else []
    equal(sorted(lines), sorted(map(plain, findings)), "lines of the test cases")


def codes_of_page():
    """The codes that the page lists, with their severities, in its order."""
    chapters = {level: PAGE.split(f"\n## {title}\n")[1].split("\n## ")[0]
                for level, title in (("error", "Errors"), ("warning", "Warnings"))}
    return [(code, level) for level, text in chapters.items() for code in re.findall(r"^\| `([^`]+)` \|", text, re.M)]


def take_any_bytes(folder):
    """Whatever the files hold, each format can be read."""
    source = random.Random(1)
    names = ["a,b%.txt", "<&'\">.txt", "x\n::error::.txt", "\u2028\uffff.txt"]
    for name in names:
        lines = [b"%d;" % source.randrange(44) + source.randbytes(source.randrange(40)) for _ in range(300)]
        (pathlib.Path(folder) / name).write_bytes(b";\n".join(lines))
    (suite,) = xml.etree.ElementTree.fromstring(every_finding.check(LAB, folder, "junit", names))
    equal(len(suite), len(names), "test cases of any bytes")
    findings = [f for f in json.loads(every_finding.check(LAB, folder, "json", names))["results"] if "code" in f]
    (run,) = json.loads(every_finding.check(LAB, folder, "sarif", names))["runs"]
    equal(len(run["results"]), len(findings), "results of any bytes")
    commands = every_finding.check(LAB, folder, "github", names).decode("utf-8").split("\n")[:-2]
    equal([read_github(command)["title"] for command in commands], [f["code"] for f in findings], "commands of any bytes")


def main():
    with tempfile.TemporaryDirectory() as folder:
        files = every_finding.write(folder)
        output = {form: every_finding.check(LAB, folder, form, files).decode("utf-8")
                  for form in ("text", "json", "github", "junit", "sarif")}
        findings = [finding for finding in json.loads(output["json"])["results"] if "code" in finding]
        match_plain(output["text"].split("\n")[:-2], findings)
        match_github(output["github"].split("\n")[:-2], findings)
        match_junit(output["junit"], files, findings)
        rules = match_sarif(output["sarif"], findings)
        equal(sorted(code for code, _ in rules), sorted({finding["code"] for finding in findings}), "codes found")
        equal(rules, codes_of_page(), "codes of docs/ticket-check.md")
        take_any_bytes(folder)


main()

#!/usr/bin/env python3
"""Holds JSON that orvenza-lab writes against the schemas in docs/schemas. Ends with 77, for a skipped test, if the library
is missing and ORVENZA_REQUIRE_TOOLS is not set.   json_schemas_test.py ORVENZA_LAB PROJECT"""

import copy
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile

sys.dont_write_bytecode = True
import every_finding  # noqa: E402

LAB, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
try:
    import jsonschema
except ImportError:
    print("skipped: the Python library jsonschema (package python3-jsonschema) is missing")
    sys.exit(1 if os.environ.get("ORVENZA_REQUIRE_TOOLS") else 77)


def objects(value):
    """All objects in a value."""
    if isinstance(value, dict):
        yield value
    for part in value.values() if isinstance(value, dict) else value if isinstance(value, list) else []:
        yield from objects(part)


def hold(name, text):
    """Fails unless the text has the form of the schema, and would not have it with one key more in any object."""
    schema = json.loads((PROJECT / f"docs/schemas/{name}.schema.json").read_text("utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    value = json.loads(text)
    for error in validator.iter_errors(value):
        sys.exit(f"{name}: {error.json_path}: {error.message}")
    kinds = {}
    for number, one in enumerate(objects(value)):
        kinds.setdefault(tuple(one), number)
    for keys, number in kinds.items():
        changed = copy.deepcopy(value)
        list(objects(changed))[number]["new"] = 1
        if validator.is_valid(changed):
            sys.exit(f"{name}: the schema allows another key beside {keys}")


def run(folder, *words):
    return subprocess.run([LAB, *words], cwd=folder, stdout=subprocess.PIPE, check=False).stdout.decode("utf-8")


def example(page):
    """The JSON in a page."""
    text = (PROJECT / "docs" / page).read_text("utf-8")
    return re.search(r"^```(?:text|json)\n(\{\n  \"schema\".*?^\})$", text, re.M | re.S)[1]


def main():
    hold("check", example("ticket-check.md"))
    hold("doctor", example("doctor.md"))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        files = every_finding.write(folder)
        for form, schema in (("json", "check"), ("sarif", "check-sarif")):
            hold(schema, every_finding.check(LAB, folder, form, files).decode("utf-8"))
            hold(schema, run(folder, "check", "--format", form, "none.txt"))
        hold("check", run(folder, "check", "--json", "--model", "MELDANO", "--release", "2.04", "empty.txt"))
        (folder / "new").mkdir()
        (folder / "old").mkdir()
        (folder / "old/Orvenza.ini").write_text("[Version]\nVersion=7\n")
        for shop in ("shop", "new", "old"):
            hold("doctor", run(folder, "doctor", "--json", "--folder", shop))
        run(folder, "bundle", "--folder", "shop", "--output", "bundle.zip")
        hold("doctor", zipfile.ZipFile(folder / "bundle.zip").read("doctor.json").decode("utf-8"))


main()

#!/usr/bin/env python3
"""Checks the SPDX 2.3 document of ./package: check_spdx.py DOCUMENT DOWNLOADS UNPACKED. DOWNLOADS holds the zip and the
setup program, UNPACKED is the zip's folder. The required fields are there and well-formed, identifiers are unique and
lead somewhere, licences are known, and files and checksums are those of the files. Prints one line per finding, and
fails if there is one."""
import hashlib
import json
import pathlib
import re
import sys

KNOWN_LICENSES = {"MIT", "Zlib", "ZPL-2.1", "GPL-3.0-or-later"}
KNOWN_EXCEPTIONS = {"GCC-exception-3.1"}
REQUIRED = {
    "document": {"spdxVersion": r"SPDX-2\.3", "dataLicense": r"CC0-1\.0", "SPDXID": "SPDXRef-DOCUMENT", "name": r".+",
                 "documentNamespace": r"urn:uuid:[0-9a-f-]{36}", "creationInfo": None, "packages": None, "files": None,
                 "relationships": None, "hasExtractedLicensingInfos": None},
    "creationInfo": {"created": r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", "creators": None},
    "package": {"name": r".+", "SPDXID": r"SPDXRef-[A-Za-z0-9.-]+", "versionInfo": r".+", "downloadLocation": r".+",
                "filesAnalyzed": None, "licenseConcluded": r".+", "licenseDeclared": r".+", "copyrightText": r".+"},
    "file": {"fileName": r"\./.+", "SPDXID": r"SPDXRef-[A-Za-z0-9.-]+", "checksums": None, "licenseConcluded": r".+",
             "licenseInfoInFiles": None, "copyrightText": r".+"},
    "licence": {"licenseId": r"LicenseRef-[A-Za-z0-9.-]+", "extractedText": r"(?s).+", "name": r".+"},
    "relationship": {"spdxElementId": r"SPDXRef-.+", "relatedSpdxElement": r"SPDXRef-.+",
                     "relationshipType": r"[A-Z_]+"},
}


def missing(kind, thing):
    for field, pattern in REQUIRED[kind].items():
        if field not in thing:
            yield f"{kind} {thing.get('SPDXID', '')}: {field} is missing"
        elif pattern and not re.fullmatch(pattern, str(thing[field])):
            yield f"{kind} {thing.get('SPDXID', '')}: {field} is {thing[field]}"


def unknown_licenses(expression, references):
    for name in re.sub(r"[()]", " ", expression).split():
        if name not in KNOWN_LICENSES | KNOWN_EXCEPTIONS | references | {"AND", "OR", "WITH"}:
            yield f"unknown licence {name}"


def wrong_sums(name, file, checksums):
    wanted = {entry["algorithm"]: entry["checksumValue"] for entry in checksums}
    if not {"SHA1", "SHA256"} <= wanted.keys():
        yield f"{name}: SHA1 or SHA256 is missing"
    for algorithm, value in wanted.items():
        if not file.is_file():
            yield f"{name}: there is no such file"
        elif hashlib.new(algorithm.lower(), file.read_bytes()).hexdigest() != value:
            yield f"{name}: another {algorithm}"


def check_shape(document):
    parts = [("document", document), ("creationInfo", document.get("creationInfo", {}))]
    for kind, field in (("package", "packages"), ("file", "files"), ("licence", "hasExtractedLicensingInfos"),
                        ("relationship", "relationships")):
        parts += [(kind, thing) for thing in document.get(field, [])]
    for kind, thing in parts:
        yield from missing(kind, thing)


def check_meaning(document, downloads, unpacked):
    things = [document, *document["packages"], *document["files"]]
    names = [thing["SPDXID"] for thing in things]
    yield from (f"{name} is there twice" for name in sorted(set(names)) if names.count(name) > 1)
    used = [entry[end] for entry in document["relationships"] for end in ("spdxElementId", "relatedSpdxElement")]
    yield from (f"{name} is nothing" for name in sorted(set(used) - set(names)))
    yield from (f"{name} is related to nothing" for name in sorted(set(names) - set(used)))
    references = {entry["licenseId"] for entry in document["hasExtractedLicensingInfos"]}
    for thing in things[1:]:
        for field in ("licenseConcluded", "licenseDeclared"):
            yield from unknown_licenses(thing.get(field, "MIT"), references)
    for file in document["files"]:
        yield from wrong_sums(file["fileName"], unpacked.parent / file["fileName"], file["checksums"])
    there = {f"./{file.relative_to(unpacked.parent).as_posix()}" for file in unpacked.rglob("*") if file.is_file()}
    yield from (f"{name} is not listed" for name in sorted(there - {file["fileName"] for file in document["files"]}))
    for package in document["packages"]:
        if "packageFileName" in package:
            name = package["packageFileName"]
            yield from wrong_sums(name, downloads / name, package["checksums"])


if __name__ == "__main__":
    read = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    wrong = list(check_shape(read)) or list(check_meaning(read, *map(pathlib.Path, sys.argv[2:4])))
    print("\n".join(wrong), end="\n" if wrong else "")
    sys.exit(1 if wrong else 0)

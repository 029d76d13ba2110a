#!/usr/bin/env python3
"""Lists what the Windows programs are made of.

  tools/make_components.py licenses                      prints the licences of others that travel with the programs
  tools/make_components.py spdx VERSION STAGE ZIP SETUP  prints an SPDX 2.3 document (JSON) about the zip, which was
                                                         made from the folder STAGE, and the setup program

Reads the copyright files of the Debian packages that were used. SOURCE_DATE_EPOCH is the date of the document. The same
files give the same bytes.
"""
import datetime
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import uuid

OWN_COPYRIGHT = "Copyright (c) 2026 The Orvenza authors"
GCC = "GPL-3.0-or-later WITH GCC-exception-3.1"
MINGW = ("public-domain", "Lucent", "David-Gay")
# Name, Debian package, licence as SPDX writes it, copyright, what it is.
IN_PROGRAMS = [
    ("libstdc++", "gcc-mingw-w64-i686-win32", GCC, "Free Software Foundation, Inc.", "the C++ run-time library"),
    ("libgcc", "gcc-mingw-w64-i686-win32", GCC, "Free Software Foundation, Inc.", "the compiler's run-time library"),
    ("mingw-w64-crt", "mingw-w64-i686-dev",
     "ZPL-2.1 AND LicenseRef-public-domain AND LicenseRef-Lucent AND LicenseRef-David-Gay",
     "the mingw-w64 project, Lucent Technologies, David M. Gay", "what MinGW adds to the C run-time library"),
]
IN_SETUP = [
    ("NSIS", "nsis", "Zlib AND LicenseRef-lzma-cpl-exception AND MIT", "NSIS Contributors, Igor Pavlov",
     "the setup program's stub, its LZMA decompression and its System plug-in"),
]
# The licences that must be shown with the programs: those of the C run-time library. GCC's exception asks for nothing.
SHOWN = [("mingw-w64-i686-dev", name) for name in ("ZPL-2.1", *MINGW[1:])]


def paragraphs(package):
    """The paragraphs of a Debian copyright file, each as {field: text}."""
    text = pathlib.Path(f"/usr/share/doc/{package}/copyright").read_text(encoding="utf-8")
    for paragraph in re.split(r"\n\s*\n", text):
        yield dict(re.findall(r"^([\w-]+):[ \t]*(.*(?:\n[ \t].*)*)", paragraph, re.M))


def license_text(package, name):
    """The text of a licence in a Debian copyright file, and the copyright of the first files that have it."""
    for fields in paragraphs(package):
        title, _, body = fields.get("License", "").partition("\n")
        if title == name and (body or name == "public-domain"):
            holders = re.sub(r"\n\s+", "\n", fields.get("Copyright", "")).strip()
            lines = [line.removeprefix(" ").rstrip() for line in body.splitlines()]
            return holders, "\n".join("" if line == "." else line for line in lines).strip()
    sys.exit(f"make_components: the copyright file of {package} has no licence {name}")


def licenses():
    text = "The programs contain parts of the MinGW-w64 run-time library, with these notices:\n"
    for package, name in SHOWN:
        holders, body = license_text(package, name)
        text += "\n" + "-" * 70 + "\n\nCopyright: " + holders.replace("\n", "\n           ") + "\n\n" + body + "\n"
    return text


def version_of(package):
    command = ["dpkg-query", "--show", "--showformat", "${Version}", package]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout.decode()


def checksums(data):
    return [{"algorithm": name.upper(), "checksumValue": hashlib.new(name, data).hexdigest()}
            for name in ("sha1", "sha256")]


def identifier(kind, name):
    return f"SPDXRef-{kind}-" + re.sub(r"[^A-Za-z0-9.-]", lambda found: f"-{ord(found.group()):x}-", name)


def component(name, package, licence, holders, what):
    version = version_of(package)
    return {
        "SPDXID": identifier("Package", name), "name": name, "versionInfo": version, "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False, "licenseConcluded": licence, "licenseDeclared": licence, "copyrightText": holders,
        "supplier": "Organization: Debian", "comment": f"{what}, from the Debian package {package}",
        "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                          "referenceLocator": f"pkg:deb/debian/{package}@{version.replace('+', '%2B')}"}],
    }


def own_package(name, version, file, license_id):
    return {
        "SPDXID": identifier("Package", name), "name": name, "versionInfo": version, "packageFileName": file.name,
        "downloadLocation": "NOASSERTION", "filesAnalyzed": False, "checksums": checksums(file.read_bytes()),
        "licenseConcluded": license_id, "licenseDeclared": "MIT", "copyrightText": OWN_COPYRIGHT,
        "supplier": "Organization: The Orvenza authors", "primaryPackagePurpose": "APPLICATION",
    }


def describe_file(stage, file, everything):
    name = file.relative_to(stage.parent).as_posix()
    return {"SPDXID": identifier("File", name), "fileName": f"./{name}", "checksums": checksums(file.read_bytes()),
            "fileTypes": ["BINARY" if file.suffix == ".exe" else "OTHER"], "copyrightText": OWN_COPYRIGHT,
            "licenseConcluded": everything if file.suffix == ".exe" else "MIT", "licenseInfoInFiles": ["MIT"]}


def verification_code(files):
    sums = sorted(file["checksums"][0]["checksumValue"] for file in files)
    return {"packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest()}


def extracted_licenses():
    for package, name in [("mingw-w64-i686-dev", name) for name in MINGW] + [("nsis", "lzma-cpl-exception")]:
        holders, text = license_text(package, name)
        yield {"licenseId": f"LicenseRef-{name}", "name": name, "extractedText": text or f"Copyright: {holders}",
               "comment": f"as in the copyright file of the Debian package {package}"}


def spdx(version, stage, archive, setup):
    in_programs = " AND ".join(["MIT"] + sorted({part[2] for part in IN_PROGRAMS}))
    files = [describe_file(stage, file, in_programs) for file in sorted(stage.rglob("*")) if file.is_file()]
    own = own_package("Orvenza", version, archive, in_programs)
    own.update(filesAnalyzed=True, packageVerificationCode=verification_code(files))
    whole = own_package("Orvenza-setup", version, setup, f"{in_programs} AND {IN_SETUP[0][2].removesuffix(' AND MIT')}")
    inside, around = [component(*part) for part in IN_PROGRAMS], [component(*part) for part in IN_SETUP]
    relations = [("SPDXRef-DOCUMENT", "DESCRIBES", package["SPDXID"]) for package in (own, whole)]
    relations += [(own["SPDXID"], "CONTAINS", file["SPDXID"]) for file in files]
    relations += [(program["SPDXID"], "STATIC_LINK", part["SPDXID"])
                  for program in files if program["fileTypes"] == ["BINARY"] for part in inside]
    relations += [(whole["SPDXID"], "CONTAINS", part["SPDXID"]) for part in (own, *around)]
    created = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    content = hashlib.sha256(archive.read_bytes() + setup.read_bytes()).hexdigest()
    return {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": f"Orvenza-{version}",
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, content)}",
        "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Organization: The Orvenza authors", "Tool: make_components.py"]},
        "packages": [own, whole, *inside, *around], "files": files,
        "hasExtractedLicensingInfos": list(extracted_licenses()),
        "relationships": [{"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}
                          for one, kind, other in relations],
    }


if __name__ == "__main__":
    arguments = sys.argv[1:]
    if arguments == ["licenses"]:
        print(licenses(), end="")
    elif len(arguments) == 5 and arguments[0] == "spdx":
        print(json.dumps(spdx(arguments[1], *map(pathlib.Path, arguments[2:])), indent=1, ensure_ascii=False))
    else:
        sys.exit(__doc__)

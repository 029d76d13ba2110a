"""Tickets that make `orvenza-lab check` report each kind of finding, and runs of it."""

import pathlib
import subprocess

ITEM = b"1;Pane;1,000;1000;1;;;1;;\n"
SETTINGS = "[Version]\r\nVersion=1.06\r\n[General]\r\nSeparator (ascii,max 127)=59\r\nFile Parser=1\r\n"

# One ticket for each code. The file of "unreadable" is missing.
TICKETS = {
    "no-separator": b"4|5|",
    "unknown-type": b"01;5;",
    "no-choice": b"8;1;2;",
    "empty": b"4;;",
    "not-digits": b"4;x;",
    "out-of-range": b"25;;6;Ciao;1;",
    "quantity-short": b"1;Pane;12;450;3;;;1;",
    "quantity-separators": b"1;Pane;1.000,5;450;3;;;1;",
    "no-logo": b"33;1;gone.bmp;",
    "utf-16": b"\xff\xfe4\0;\0",
    "line-too-long": b"24;" + 65536 * b"x" + b";1;",
    "unreadable": None,
    "clamped": b"4;25;",
    "digits-lost": b"4;105;",
    "decimals-lost": b"1;Pane;1,2345;450;3;;;1;",
    "too-long": b"15;1;1234567890;",
    "quantity-zero": b"1;Pane;0,000;450;3;;;1;",
    "replaced": b"23;Grazie;uno;",
    "text-cut": b"1;Pane casereccio al kg;1,000;450;3;;;1;",
    "blanked": b"24;Caff\xe8;1;\n24;Caff\xc3\xa8;x;",
    "character-127": b"24;Cassa\x7f3;1;",
    "logo-number": b"33;100;logo.bmp;",
    "logo-empty": b"33;1;empty.bmp;",
    "no-record": b"",
    "unused-text": b"2;1;500;x;",
    "lost-text": b"24;Cassa tre;1;x",
    "extra-text": b"4;1;;;;;;;;x;y",
    "second-receipt": ITEM + b"14;0;1;1;\n" + ITEM + b"14;0;1;1;\n",
    "receipt-open": ITEM,
    "no-receipt": b"20;1;",
    "still-open": ITEM + b"29;1;\n",
    "hidden-type": ITEM + b" 2;1;0;\n" + ITEM + b"2;1;0;\n",
    "not-paid": ITEM + b"2;1;1;\n",
}


def logo(rows):
    """A bitmap that the register takes as its logo."""
    header = bytearray(62)
    header[0:2], header[10], header[22], header[28] = b"BM", 62, rows, 1
    header[18:20] = (448).to_bytes(2, "little")
    return bytes(header) + rows * 56 * b"\0"


def write(folder):
    """Writes the tickets; returns their names."""
    folder = pathlib.Path(folder)
    for name, content in {"shop/Orvenza.ini": SETTINGS.encode(), "logo.bmp": logo(3), "empty.bmp": logo(0)}.items():
        (folder / name).parent.mkdir(exist_ok=True)
        (folder / name).write_bytes(content)
    for code, content in TICKETS.items():
        if content is not None:
            (folder / f"{code}.txt").write_bytes(content)
    return [f"{code}.txt" for code in TICKETS]


def check(lab, folder, form, files):
    """The output of a check of these files in a format, as bytes."""
    return subprocess.run([lab, "check", "--quiet", "--folder", "shop", "--format", form, *files],
                          cwd=folder, stdout=subprocess.PIPE, check=False).stdout

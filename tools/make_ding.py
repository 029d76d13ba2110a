#!/usr/bin/env python3
"""Makes the sound of the message dialog: a bell of two tones, the second lower.

  tools/make_ding.py           writes assets/ding.wav
  tools/make_ding.py --check   fails when that file is not what would be written

Needs nothing but Python.
"""

import math
import struct
import sys
from pathlib import Path

TARGET = Path(__file__).resolve().parent.parent / "assets/ding.wav"

RATE = 22050
LENGTH = 0.85  # seconds
FADE = 0.05  # at the end, to avoid a click
RISE = 0.003  # at the start of a tone, for the same reason
PEAK = 0.7 * 32767

# Start in seconds and frequency: G6 and, once it has faded by half, E flat 6.
TONES = [(0.0, 1567.98), (0.22, 1244.51)]

# A small bell: multiple of the frequency, loudness, and seconds until it fades to a third.
PARTIALS = [(1.0, 1.0, 0.22), (2.0, 0.35, 0.12), (3.01, 0.18, 0.07), (4.2, 0.08, 0.04)]


def tone(since, frequency):
    """The swing of a tone, so many seconds after its start."""
    if since < 0:
        return 0.0
    swing = sum(loud * math.exp(-since / decay) * math.sin(2 * math.pi * frequency * multiple * since)
                for multiple, loud, decay in PARTIALS)
    return swing * min(since / RISE, 1.0)


def samples():
    count = round(RATE * LENGTH)
    swings = []
    for i in range(count):
        at = i / RATE
        swings.append(sum(tone(at - start, frequency) for start, frequency in TONES) * min((LENGTH - at) / FADE, 1.0))
    loudest = max(abs(swing) for swing in swings)
    return [round(swing / loudest * PEAK) for swing in swings]


def wave(values):
    """A wave file of one channel of 16 bits."""
    data = b"".join(struct.pack("<h", value) for value in values)
    form = struct.pack("<HHIIHH", 1, 1, RATE, 2 * RATE, 2, 16)
    body = b"WAVE" + b"fmt " + struct.pack("<I", len(form)) + form + b"data" + struct.pack("<I", len(data)) + data
    return b"RIFF" + struct.pack("<I", len(body)) + body


def main(words):
    data = wave(samples())
    if words == ["--check"]:
        if TARGET.read_bytes() != data:
            sys.exit(f"make_ding: {TARGET} is not what this script makes")
    elif not words:
        TARGET.write_bytes(data)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])

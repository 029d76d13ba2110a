"""Hands a sale over to Orvenza and waits for its outcome: python3 sale.py TICKETS OUTCOMES NUMBER [SECONDS]

TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
"""
import glob
import os
import sys
import time

SALE = [
    ["1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", ""],
    ["2", "1", "200"],
]


def hand_over(folder, name, records):
    # A field ends in the character 127, a line in CR LF.
    text = "".join("".join(field + "\x7f" for field in record) + "\r\n" for record in records)
    path = os.path.join(folder, name)
    if os.path.exists(path):
        raise FileExistsError(path + " is still waiting")
    with open(path + ".tmp", "wb") as file:  # a name that the mask *.txt does not match
        file.write(text.encode("cp1252", "replace"))
    os.rename(path + ".tmp", path)


def read_outcome(path):
    try:
        with open(path, encoding="utf-8") as file:
            return dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)
    except OSError:
        return {}  # it is just being replaced; the next look reads it


def main(tickets, outcomes, number, seconds=60):
    name = "%08d.txt" % int(number)  # names of one length: receipts are printed in the order of their numbers
    pattern = os.path.join(outcomes, name + "*.ini")
    older = set(glob.glob(pattern))  # if the name was used before, the new outcome gets a number
    hand_over(tickets, name, SALE)
    deadline = time.monotonic() + float(seconds)
    while time.monotonic() < deadline:
        for path in set(glob.glob(pattern)) - older:
            outcome = read_outcome(path)
            if outcome.get("State") == "done":
                print("%s: %s (%s)" % (name, outcome["Receipt"], outcome["Reason"]))
                return 0 if outcome["Receipt"] in ("yes", "none") else 1
        time.sleep(0.5)
    print(name + ": not done; do not send it again before somebody has looked")
    return 3


if __name__ == "__main__":
    try:
        sys.exit(main(*sys.argv[1:]))
    except (OSError, TypeError, ValueError) as error:
        print(error, file=sys.stderr)
        sys.exit(2)

"""test_same_run.py ARGUMENTS...: the program of this build and that of the reference build, both run
for a day with ARGUMENTS, record the same bytes.

TIDEWRIGHT_PROGRAM and TIDEWRIGHT_REFERENCE_PROGRAM name the two; TIDEWRIGHT_EMULATOR is the command
that runs the first where it was built for another machine.
"""

import os
import subprocess
import sys

EMULATOR = os.environ.get("TIDEWRIGHT_EMULATOR", "").split()
DAY = ["--headless", "--seed", "1", "--start", "2026-06-01T12:00:00Z", "--duration", "24h",
       "--speed", "max", "--set", "network.tag-block=true", "--output", "-"]
PIECE = 1 << 20  # bytes


def difference(ours, theirs):
    """Where the two streams differ, in words; None, and how long they are, if nowhere."""
    position = line = 0
    while True:
        mine, other = ours.read(PIECE), theirs.read(PIECE)
        if mine != other:
            same = len(os.path.commonprefix([mine, other]))
            start = mine.rfind(b"\n", 0, same) + 1
            line += mine.count(b"\n", 0, same) + 1
            return (f"line {line}: {mine[start:].split(bytes([10]))[0]!r} here, "
                    f"{other[start:].split(bytes([10]))[0]!r} in the reference"), position + same
        if not mine:
            return None, position
        position += len(mine)
        line += mine.count(b"\n")


def main():
    commands = ([*EMULATOR, os.environ["TIDEWRIGHT_PROGRAM"]],
                [os.environ["TIDEWRIGHT_REFERENCE_PROGRAM"]])
    ours, theirs = (subprocess.Popen([*command, *DAY, *sys.argv[1:]], stdout=subprocess.PIPE)
                    for command in commands)
    with ours, theirs:
        found, size = difference(ours.stdout, theirs.stdout)
        if found:
            ours.kill()
            theirs.kill()
            sys.exit(found)
    if ours.returncode or theirs.returncode or not size:
        sys.exit(f"ended with {ours.returncode} and {theirs.returncode} after {size} bytes")
    print(f"{size} bytes are the same")


main()

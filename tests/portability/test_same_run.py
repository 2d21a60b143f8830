"""test_same_run.py ARGUMENTS...: the logbook of this build and that of the reference build, both run
with ARGUMENTS, print the same bytes.

TIDEWRIGHT_LOGBOOK and TIDEWRIGHT_REFERENCE_LOGBOOK name the two; TIDEWRIGHT_EMULATOR is the command
that runs the first where it was built for another machine.
"""

import os
import subprocess
import sys

EMULATOR = os.environ.get("TIDEWRIGHT_EMULATOR", "").split()
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
    commands = ([*EMULATOR, os.environ["TIDEWRIGHT_LOGBOOK"]],
                [os.environ["TIDEWRIGHT_REFERENCE_LOGBOOK"]])
    ours, theirs = (subprocess.Popen([*command, *sys.argv[1:]], stdout=subprocess.PIPE)
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

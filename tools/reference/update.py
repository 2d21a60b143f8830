#!/usr/bin/env python3
"""update.py PROGRAM [--check]: brings what the documents, manuals and completions repeat of the
options and settings up to what PROGRAM, tidewright_reference, prints; or only looks whether they are.

A whole file is the piece itself; a part of one stands between a line that says "from here: PIECE"
and one that says "to here: PIECE".
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).parents[2]
WHOLE = {"bash": "packaging/completions/tidewright.bash", "zsh": "packaging/completions/_tidewright",
         "fish": "packaging/completions/tidewright.fish"}
PARTS = {"options": "README.md", "settings": "docs/settings.md", "manual": "packaging/man/tidewright.1",
         "manual-fr": "packaging/man/tidewright.fr.1"}


def renewed(text, piece, content):
    lines = re.compile(rf"(^[^\n]*from here: {piece}\b[^\n]*\n).*?(^[^\n]*to here: {piece}\b)", re.M | re.S)
    renewed_text, count = lines.subn(lambda m: m[1] + content + m[2], text)
    assert count == 1, f"one place for {piece} is needed, not {count}"
    return renewed_text


def main(program, *options):
    stale = []
    for piece, name in {**WHOLE, **PARTS}.items():
        content = subprocess.run([program, piece], capture_output=True, check=True).stdout.decode()
        path = ROOT / name
        before = path.read_text()
        if piece == "options" or piece == "settings":
            content = "\n" + content + "\n"
        after = content if piece in WHOLE else renewed(before, piece, content)
        if after != before:
            stale.append(name)
            if "--check" not in options:
                path.write_text(after)
    if stale and "--check" in options:
        sys.exit("not what the lists say, ./dev reference mends it: " + ", ".join(stale))


if __name__ == "__main__":
    main(*sys.argv[1:])

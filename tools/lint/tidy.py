#!/usr/bin/env python3
"""tidy.py BUILD FILE...: has clang-tidy read the files, which were configured in the folder BUILD, but
for those that it found nothing in before.

What it found nothing in is kept in the user's cache: a fingerprint of the file, of all of ours that it
includes, of how it is compiled, and of clang-tidy and its settings.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).parents[2]
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "tidewright-lint"
FOLDERS = [ROOT / each for each in ("src", "src/ui", "tests", "tests/soak", "tests/fuzz", "tests/ui")]


@functools.cache
def content(path):
    return path.read_bytes()


@functools.cache
def included(path):
    """Our own files that the file includes, directly or not, itself among them."""
    found, unread = set(), [path]
    while unread:
        each = unread.pop()
        if each in found:
            continue
        found.add(each)
        for name in re.findall(rb'^#include ["<]([^">]+)[">]', content(each), re.M):
            places = [each.parent, *FOLDERS]
            unread += [file for file in (place / name.decode() for place in places) if file.is_file()][:1]
    return found


def fingerprint(path, command, common):
    digest = hashlib.sha256(common)
    digest.update(command.replace(str(ROOT), "").encode())
    for each in sorted(included(path)):
        digest.update(str(each.relative_to(ROOT)).encode() + b"\0" + content(each))
    return digest.hexdigest()


def tidy(build, path, stamp):
    """Whether nothing was found, which is kept at once."""
    done = subprocess.run(["clang-tidy", "-p", build, "--quiet", path], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False)
    sys.stdout.buffer.write(done.stdout)
    sys.stdout.flush()
    if done.returncode == 0:
        stamp.touch()
    return done.returncode == 0


def main(build, *names):
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    settings = b"".join(content(each) for each in sorted(ROOT.glob("**/.clang-tidy"))
                        if "build" not in each.parts)
    commands = {entry["file"]: entry["command"] for entry in
                json.loads(pathlib.Path(build, "compile_commands.json").read_text())}
    CACHE.mkdir(parents=True, exist_ok=True)
    stamps = {}
    for name in names:
        path = ROOT / name
        stamps[path] = CACHE / fingerprint(path, commands[str(path)], version + settings)
    unread = [path for path, stamp in stamps.items() if not stamp.exists()]
    print(f"{len(stamps)} files, {len(stamps) - len(unread)} of them as they were when nothing was found",
          flush=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda path: tidy(build, path, stamps[path]), unread))
    sys.exit(not all(results))


main(*sys.argv[1:])

"""The rules of the house that a compiler does not keep: who may include what from outside, and that
nobody but the real loop and the real chance asks the machine for the time or a number.

Which room may include which is kept by the build itself: a room's include path holds nothing else.
"""

import pathlib
import re
import sys

SOURCES = pathlib.Path(sys.argv[1]) / "src"

MAY_KNOW = {"asio": {"platform", "network"}, "fast_float": {"platform"}, "Qt": {"ui"},
            "yaml-cpp": {"scenario"}}

# What a line must not do, and the files that may because somebody must.
RULES = (
    ("reads a clock", {"platform/AsioMainLoop.cpp", "ui/QtMainLoop.cpp"},
     r"_clock::now|\bgettimeofday\b|\bclock_gettime\b|\btime\(nullptr|\bQDateTime\b|\bQTime\b"),
    ("draws from the machine", {"platform/SystemRandom.cpp"},
     r"\brandom_device\b|[^\w]s?rand\(|\bQRandomGenerator\b"),
    ("reads the time zone", {"platform/LocalTime.cpp"}, r"\blocaltime"),
    ("locks", {"platform/WorkQueue.cpp"},
     r"\bstd::(recursive_|shared_|timed_)?mutex\b|\bcondition_variable\b|\bQMutex\b"),
    ("formats or parses by the locale", set(),
     r"(?<!fmt::)\bs?n?printf\(|\bstrto[dfl]+\(|\bstd::sto[dfl]+\(|\bstringstream\b"),
)

INCLUDE = re.compile(r'^\s*#include [<"]([^>"]+)[>"]')
QT_HEADER = re.compile(r"^(Q[A-Z]\w*|Qt\w*/.*)$")


def outsider(header):
    for library in ("asio", "fast_float", "yaml-cpp"):
        if header.startswith(library):
            return library
    if QT_HEADER.match(header):
        return "Qt"
    return None


def faults_of(path):
    name = path.relative_to(SOURCES).as_posix()
    room = name.split("/")[0]
    text = path.read_text()
    for number, line in enumerate(text.splitlines(), 1):
        include = INCLUDE.match(line)
        stranger = include and outsider(include[1])
        if stranger and room not in MAY_KNOW[stranger]:
            yield f"{name}:{number}: {room} must not know {stranger}"
        for what, allowed, pattern in RULES:
            if name not in allowed and re.search(pattern, line.split("//")[0]):
                yield f"{name}:{number}: {what}: {line.strip()}"
    if path.suffix == ".h" and not text.startswith("#pragma once\n"):
        yield f"{name}: does not begin with #pragma once"


def main():
    sources = sorted(p for p in SOURCES.rglob("*") if p.suffix in (".h", ".cpp"))
    faults = [fault for path in sources for fault in faults_of(path)]
    faults += [f"{room.name}: has no README.md" for room in sorted(SOURCES.iterdir())
               if room.is_dir() and not (room / "README.md").exists()]
    print("\n".join(faults) or f"{len(sources)} sources keep the rules of the house")
    return 1 if faults or len(sources) < 50 else 0


sys.exit(main())

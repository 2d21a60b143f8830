#!/usr/bin/python3
"""window_figures.py PROGRAM: what the control window costs, on the software renderer.

Run it through tests/system/window/session.sh, on a machine that does nothing else. Prints one line
per figure: name, value, unit, goal. --minutes is how long memory is watched at 2000 lines a second.
"""
import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import time

TESTS = pathlib.Path(__file__).parents[1] / "tests"
sys.path[:0] = [str(TESTS / "system/window"), str(TESTS / "support")]
from measures import cpu_seconds, resident_mib  # noqa: E402
from nmea_client import NmeaClient, family  # noqa: E402
from window_driver import ControlWindow, xdotool  # noqa: E402

PORT = 2000


def report(name, value, unit, goal):
    print(f"{name:<52} {value:>8.2f} {unit:<4} goal {goal}", flush=True)


def load(pid, seconds):
    """Per cent of a core over the next so many seconds."""
    before, start = cpu_seconds(pid), time.monotonic()
    time.sleep(seconds)
    return 100 * (cpu_seconds(pid) - before) / (time.monotonic() - start)


def first_frame(program):
    """Milliseconds from the start of the process until its window is mapped, the median of nine."""
    times = []
    for _ in range(9):
        start = time.monotonic()
        with subprocess.Popen([program], env={**os.environ,
                                              "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"}) as run:
            while not xdotool("search", "--onlyvisible", "--name", "^Tidewright$").strip():
                if run.poll() is not None or time.monotonic() - start > 10:
                    sys.exit("the window never came")
            times.append(1000 * (time.monotonic() - start))
            run.terminate()
    return statistics.median(times)


def heading_jitter(client, seconds, disturb):
    """99th percentile of how far two headings in a row are from 200 ms apart, in milliseconds."""
    start = time.monotonic()
    while time.monotonic() - start < seconds:
        disturb()
    at = [moment for moment, line in client.lines if moment >= start and family(line) == "HDT"]
    gaps = sorted(abs(1000 * (b - a) - 200) for a, b in zip(at, at[1:]))
    return gaps[int(0.99 * (len(gaps) - 1))]


def centre(window, name):
    box = window.find(name).get_extents(0)
    return box.x + box.width // 2, box.y + box.height // 2


def without_assistance(program, seconds, start, console):
    """What the window costs when no assistive technology listens: pressed with the mouse."""
    plain = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"}
    with subprocess.Popen([program], env=plain) as run:
        time.sleep(2)
        report("idle, stopped", load(run.pid, seconds), "%", "<= 0.2")
        xdotool("mousemove", "--sync", *start, "click", 1)
        xdotool("mousemove", "--sync", *console, "click", 1)
        time.sleep(15)  # until the console is full
        report("running at defaults, console open", load(run.pid, seconds), "%", "<= 4")
        report("resident memory", resident_mib(run.pid), "MB", "<= 65")
        run.terminate()


class Drag:
    """Moves a slider to and fro with the mouse button held."""

    def __init__(self, window):
        box = window.find("% de polaire", "slider").get_extents(0)
        self.y, self.left, self.right = box.y + box.height // 2, box.x + 20, box.x + box.width - 20
        self.x, self.step = self.left, 12
        xdotool("mousemove", "--sync", self.x, self.y, "mousedown", 1)

    def __call__(self):
        if not self.left <= self.x + self.step <= self.right:
            self.step = -self.step
        self.x += self.step
        xdotool("mousemove", self.x, self.y)


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("program")
    options.add_argument("--minutes", type=float, default=10)
    options.add_argument("--seconds", type=float, default=20)
    chosen = options.parse_args()

    report("start to first frame", first_frame(chosen.program), "ms", "<= 200")
    with ControlWindow(chosen.program) as window:
        start = centre(window, "Démarrer l'émission")
        window.press("Démarrer l'émission")
        window.find("Virer de bord")
        time.sleep(1)
        console = centre(window, "Console NMEA")
        window.end()
    without_assistance(chosen.program, chosen.seconds, start, console)
    with ControlWindow(chosen.program) as window:
        pid = window.process.pid
        window.press("Démarrer l'émission")
        window.press("Console NMEA")
        time.sleep(15)
        report("the same with assistive technology", load(pid, chosen.seconds), "%", "<= 4")
        report("resident memory, same", resident_mib(pid), "MB", "<= 65")
        client = NmeaClient(PORT)
        time.sleep(2)
        report("heading jitter, left alone, 99th percentile",
               heading_jitter(client, 30, lambda: time.sleep(1)), "ms", "<= 10")
        window.press("Console NMEA")
        drag = Drag(window)
        window.press("Console NMEA")
        report("heading jitter, slider dragged, 99th percentile",
               heading_jitter(client, 30, drag), "ms", "<= 10")
        xdotool("mouseup", 1)
        client.close()
        window.press("Arrêter l'émission")
        window.press("Réglages avancés")
        window.set("Cibles AIS", 50)
        window.set("Cadence : AIS (VDM)", 20)
        window.press("Démarrer l'émission")
        window.find("Arrêter l'émission")
        time.sleep(20)
        before = resident_mib(pid)
        report("resident memory at 2000 lines/s", before, "MB", "<= 65")
        report("running at 2000 lines/s, console open", load(pid, chosen.seconds), "%", "-")
        time.sleep(60 * chosen.minutes)
        report(f"growth over {chosen.minutes:g} minutes at 2000 lines/s", resident_mib(pid) - before,
               "MB", "0")
        window.end()


if __name__ == "__main__":
    main()

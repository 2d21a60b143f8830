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
from Xlib import X, display  # noqa: E402

PORT = 2000


def report(name, value, unit, goal):
    print(f"{name:<52} {value:>8.2f} {unit:<4} goal {goal}", flush=True)


def load(pid, seconds):
    """Per cent of a core over the next so many seconds."""
    before, start = cpu_seconds(pid), time.monotonic()
    time.sleep(seconds)
    return 100 * (cpu_seconds(pid) - before) / (time.monotonic() - start)


ROOT = display.Display().screen().root


def is_painted():
    """Whether the screen shows the header of a window there: the bare screen is black."""
    return any(ROOT.get_image(300, 30, 1, 1, X.ZPixmap, 0xffffffff).data[:3])


def first_picture(program):
    """Milliseconds from the start of the process until its picture is on the screen, the median of
    nine; looking takes a few of them."""
    times = []
    for _ in range(9):
        start = time.monotonic()
        with subprocess.Popen([program], env={**os.environ,
                                              "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"}) as run:
            while not is_painted():
                if run.poll() is not None or time.monotonic() - start > 10:
                    sys.exit("the window never came")
            times.append(1000 * (time.monotonic() - start))
            run.terminate()
        while is_painted():
            time.sleep(0.05)
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
        report("resident memory", resident_mib(run.pid), "MB", "<= 70")
        run.terminate()


class Person:
    """Scrolls the page, drags a slider, types beside it, and begins anew."""

    def __init__(self, window):
        self.window = window
        self.acts = [self.scroll, self.drag, self.type]

    def __call__(self):
        self.acts.append(self.acts.pop(0))
        self.acts[-1]()

    def scroll(self):
        for notches in (-10, 10, -10):
            self.window.wheel((1028, 500), notches)

    def drag(self):
        left, top, width, height = self.window.box("% de polaire", "slider")
        for share in (0.2, 0.8, 0.4):
            self.window.drag((left + width // 2, top + height // 2),
                             (left + int(share * width), top + height // 2))

    def type(self):
        self.window.click("% de polaire (valeur)")
        xdotool("key", "ctrl+a")
        xdotool("type", "95")
        xdotool("key", "Return")


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("program")
    options.add_argument("--minutes", type=float, default=10)
    options.add_argument("--seconds", type=float, default=20)
    chosen = options.parse_args()

    report("start to first picture", first_picture(chosen.program), "ms", "<= 200")
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
        report("resident memory, same", resident_mib(pid), "MB", "<= 70")
        client = NmeaClient(PORT)
        time.sleep(2)
        report("heading jitter, left alone, 99th percentile",
               heading_jitter(client, 30, lambda: time.sleep(1)), "ms", "<= 10")
        window.press("Console NMEA")
        window.wheel((1028, 500), -60)
        window.press("Console NMEA")
        window.focus_window()
        report("heading jitter, used by a person, 99th percentile",
               heading_jitter(client, 30, Person(window)), "ms", "<= 10")
        client.close()
        window.press("Arrêter l'émission")
        window.press("Réglages avancés")
        window.set("Cibles AIS", 50)
        window.set("Cadence : AIS (VDM)", 20)
        window.press("Démarrer l'émission")
        window.find("Arrêter l'émission")
        window.focus("Console", "list")
        time.sleep(60)
        before = resident_mib(pid)
        report("running at 2000 lines/s, everything open", load(pid, chosen.seconds), "%", "<= 15")
        time.sleep(60 * chosen.minutes)
        report(f"resident memory after {chosen.minutes:g} minutes of it", resident_mib(pid), "MB",
               "<= 70")
        report("growth after the first minute", resident_mib(pid) - before, "MB", "0")
        window.end()


if __name__ == "__main__":
    main()

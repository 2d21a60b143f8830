"""gpsd, an independent reader of NMEA and AIS, makes sense of the stream and of a replay."""

import datetime
import json
import os
import shutil
import socket
import subprocess
import tempfile
import time
import unittest

from program import PATIENCE, Program, free_port, main, run

SECONDS = 14  # a round of static reports, which carry the names, takes ten
SPELL = 8  # seconds of a replay at speed 10: more than a minute of its recording


def free_loopback_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def connect(port):
    deadline = time.monotonic() + PATIENCE
    while True:
        try:
            return socket.create_connection(("127.0.0.1", port), timeout=PATIENCE)
        except ConnectionRefusedError:
            if time.monotonic() > deadline:
                raise
            time.sleep(0.05)


def reports(port, seconds):
    """gpsd's reports of that time; those that are not JSON, which it is known to write, left out."""
    found = []
    with connect(port) as gpsd:
        gpsd.sendall(b'?WATCH={"enable":true,"json":true};\n')
        end = time.monotonic() + seconds
        rest = b""
        while time.monotonic() < end:
            *lines, rest = (rest + gpsd.recv(65536)).split(b"\n")
            for line in lines:
                try:
                    found.append(json.loads(line))
                except ValueError:
                    pass
    return found


def reports_on(*arguments, seconds):
    """gpsd's reports, for that time, on what the program sends with these options."""
    port, own = free_port(), free_loopback_port()
    with Program("--headless", "--no-udp", "--tcp-port", str(port), *arguments) as program:
        program.read_errors_until("Ctrl-C")
        gpsd = subprocess.Popen(
            ["gpsd", "-N", "-n", "-S", str(own), f"tcp://127.0.0.1:{port}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            return reports(own, seconds)
        finally:
            gpsd.terminate()
            gpsd.wait(PATIENCE)


@unittest.skipUnless(shutil.which("gpsd"), "gpsd is not installed")
class Follows(unittest.TestCase):
    """Has what gpsd reports."""

    def of_class(self, name):
        return [each for each in self.reports if each.get("class") == name]

    def fixes(self):
        return [each for each in self.of_class("TPV") if each.get("mode", 0) >= 2]


class Stream(Follows):
    @classmethod
    def setUpClass(cls):
        cls.reports = reports_on(seconds=SECONDS)

    def test_it_has_a_fix_with_speed_and_course(self):
        fixes = self.fixes()
        self.assertGreater(len(fixes), 5)
        last = fixes[-1]
        self.assertAlmostEqual(last["lat"], 47.4, delta=0.1)
        self.assertAlmostEqual(last["lon"], -3.55, delta=0.1)
        self.assertTrue(any(0 < each.get("speed", 0) < 10 for each in fixes))
        self.assertTrue(any(0 <= each.get("track", -1) < 360 for each in fixes))

    def test_it_sees_the_vessels_and_their_names(self):
        ais = self.of_class("AIS")
        positions = {each["mmsi"] for each in ais if each["type"] == 1}
        self.assertEqual(len(positions), 5)
        names = {each.get("shipname") for each in ais if each["type"] == 5}
        self.assertEqual(names, {"PEN DUICK", "GROIX EXPRESS", "MARIE GALANTE", "BRUNELLE",
                                 "L'ABEILLE"})
        self.assertEqual({each.get("callsign") for each in ais if each["type"] == 5},
                         {"FGA0", "FHB1", "FJC2", "FKD3", "FLE4"})


class Replay(Follows):
    """Of a recorded voyage, ten times as fast as it was recorded."""

    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            recording = os.path.join(folder, "recording")
            recorded = run("--seed", "7", "--start", "2026-06-01T12:00:00Z", "--speed", "max",
                           "--duration", "5m", "--output", recording)
            assert recorded.returncode == 0, recorded.stderr
            cls.reports = reports_on("--replay", recording, "--speed", "10", seconds=SPELL)

    def test_it_has_a_fix_for_each_second_of_the_recording(self):
        times = {datetime.datetime.fromisoformat(each["time"]).timestamp()
                 for each in self.fixes() if "time" in each}
        began = datetime.datetime.fromisoformat("2026-06-01T12:00:00+00:00").timestamp()
        self.assertTrue(began <= min(times) < max(times) <= began + 10 * (SPELL + PATIENCE))
        self.assertGreater(len(times), 5 * SPELL)
        self.assertEqual(len(times), max(times) - min(times) + 1)
        self.assertTrue(all(0 < each["speed"] < 10 for each in self.fixes() if "speed" in each))

    def test_it_sees_the_vessels_and_their_names(self):
        ais = self.of_class("AIS")
        self.assertEqual(len({each["mmsi"] for each in ais if each["type"] == 1}), 5)
        self.assertEqual(len({each.get("shipname") for each in ais if each["type"] == 5}), 5)


if __name__ == "__main__":
    main()

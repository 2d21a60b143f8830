"""gpsd, an independent reader of NMEA and AIS, makes sense of the stream."""

import json
import shutil
import socket
import subprocess
import time
import unittest

from program import PATIENCE, Program, free_port, main

SECONDS = 14  # a round of static reports, which carry the names, takes ten


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


@unittest.skipUnless(shutil.which("gpsd"), "gpsd is not installed")
class Gpsd(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        port, own = free_port(), free_loopback_port()
        with Program("--headless", "--no-udp", "--tcp-port", str(port)) as program:
            program.read_errors_until("Ctrl-C")
            gpsd = subprocess.Popen(
                ["gpsd", "-N", "-n", "-S", str(own), f"tcp://127.0.0.1:{port}"],
                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            try:
                cls.reports = reports(own, SECONDS)
            finally:
                gpsd.terminate()
                gpsd.wait(PATIENCE)

    def of_class(self, name):
        return [each for each in self.reports if each.get("class") == name]

    def test_it_has_a_fix_with_speed_and_course(self):
        fixes = [each for each in self.of_class("TPV") if each.get("mode", 0) >= 2]
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


if __name__ == "__main__":
    main()

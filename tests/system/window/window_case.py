"""What every test of the built window needs: the program, a port, and the words of the tests."""
import os
import pathlib
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "support"))
from measures import free_port  # noqa: E402
from nmea_client import NmeaClient, family  # noqa: E402
from window_driver import ControlWindow  # noqa: E402

program, locale = "", "C.UTF-8"


def environment():
    """The desktop's language; where the machine does not know it, compiled for this run."""
    chosen = {"LANG": locale, "LC_ALL": locale}
    if locale.startswith("fr_FR"):
        folder = os.path.join(os.environ["XDG_RUNTIME_DIR"], "locale")
        os.makedirs(folder, exist_ok=True)
        subprocess.run(["localedef", "-i", "fr_FR", "-f", "UTF-8", f"{folder}/{locale}"],
                       check=True)
        chosen["LOCPATH"] = folder
    return chosen


class WindowCase(unittest.TestCase):
    surroundings = {}

    def setUp(self):
        self.window = ControlWindow(program, environment() | self.surroundings)
        self.addCleanup(self.window.__exit__)
        self.port = free_port()

    def tearDown(self):
        if self.window.process.poll() is None:
            status, said = self.window.end()
            self.assertEqual((status, said), (0, ""))

    # Words of the tests

    def start(self):
        self.window.press("Réglages avancés")
        self.window.type("Port TCP", str(self.port))
        self.window.until(lambda: self.window.field("Port TCP") == str(self.port), "the port")
        self.window.press("Réglages avancés")
        self.window.press("Démarrer l'émission")
        self.window.find("Arrêter l'émission")

    def connect(self):
        client = NmeaClient(self.port)
        self.addCleanup(client.close)
        return client

    def eventually(self, what, label, timeout=None):
        return self.window.until(what, label, timeout)

    def says(self, text):
        return any(text in each for each in self.window.texts())

    def arrives(self, client, *families):
        """Waits until each of these families came, from now on."""
        start = time.monotonic()
        self.eventually(lambda: set(families) <= {family(x) for x in client.since(start)},
                        f"{families}")


def main():
    """Runs the tests of the calling module: PROGRAM LOCALE [NAMES...]"""
    global program, locale
    program, locale = sys.argv[1:3]
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2, warnings="ignore")

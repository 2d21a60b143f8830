"""Scenarios as tests of an app: TIDEWRIGHT=path/to/tidewright pytest"""

import contextlib
import os
import pathlib
import re
import subprocess
import sys
import threading

import pytest

HERE = pathlib.Path(__file__).parent
PROGRAM = os.environ.get("TIDEWRIGHT", "tidewright")
LIMIT = 60  # seconds that a scenario may take


class Gateway:
    """The program, playing a scenario to whoever connects to `port`."""

    def __init__(self, scenario):
        self.process = subprocess.Popen(
            [PROGRAM, "--headless", "--free-port", "--scenario", scenario],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8")
        self.limit = threading.Timer(LIMIT, self.process.kill)
        self.limit.start()
        self.said = ""

    @property
    def port(self):
        """Where it listens; fails the test if it cannot start."""
        while not (banner := re.search(r"^  TCP  .*:(\d+)$", self.said, re.MULTILINE)):
            line = self.process.stderr.readline()
            assert line, f"did not start: {self.said}"
            self.said += line
        return int(banner[1])

    def wait(self):
        """Its exit status: 0 when all that the scenario expects came true, 3 when not."""
        self.said += self.process.stderr.read()
        return self.process.wait()

    def close(self):
        self.limit.cancel()
        self.process.kill()
        self.process.communicate()


@pytest.fixture
def play():
    """play(SCENARIO) starts a gateway, which ends with the test at the latest."""
    with contextlib.ExitStack() as gateways:
        yield lambda scenario: gateways.enter_context(contextlib.closing(Gateway(scenario)))


@pytest.fixture
def open_app():
    """open_app(PORT) starts the app, yours in place of app.py; it ends with the test."""
    apps = []
    yield lambda port: apps.append(subprocess.Popen([sys.executable, HERE / "app.py", str(port)]))
    for app in apps:
        app.kill()
        app.wait()


def test_comes_back_when_the_gateway_does(play, open_app):
    gateway = play(HERE / "../passerelle-qui-revient.yaml")
    open_app(gateway.port)
    assert gateway.wait() == 0, gateway.said

"""The built program as a user meets it: its sockets, its standard error, its exit status.

Every wait is bounded; every process that a test starts is ended with it.
"""

import os
import pathlib
import re
import select
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "support"))
from measures import cpu_seconds, descriptor_count, free_port, resident_mib  # noqa: E402, F401

PROGRAM = os.environ["TIDEWRIGHT_PROGRAM"]
EMULATOR = os.environ.get("TIDEWRIGHT_EMULATOR", "").split()  # runs it if made for another machine
SANITIZED = bool(os.environ.get("TIDEWRIGHT_SANITIZED"))
PATIENCE = 20.0  # seconds that anything here may take before the test fails


class Program:
    """A running program, ended at the latest by the end of a `with` block. `prefix` is a command
    that runs it; `before` is called in its process beforehand; `stdin` is what it reads."""

    def __init__(self, *arguments, env=None, prefix=(), before=None, stdin=subprocess.DEVNULL):
        self.process = subprocess.Popen(
            [*prefix, *EMULATOR, PROGRAM, *arguments],
            stdin=stdin,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env={**os.environ, **(env or {})},
            preexec_fn=lambda: self._prepare(before),
        )
        self.errors = b""

    @staticmethod
    def _prepare(before):
        signal.signal(signal.SIGINT, signal.SIG_DFL)  # a shell's background jobs ignore it
        if before:
            before()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.communicate()

    def read_errors_until(self, text):
        """What stood on standard error when `text` came."""
        deadline = time.monotonic() + PATIENCE
        while text.encode() not in self.errors:
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self.process.stderr], [], [], left)[0]:
                raise AssertionError(f"no {text!r} in {self.errors!r}")
            piece = os.read(self.process.stderr.fileno(), 65536)
            if not piece:
                raise AssertionError(f"ended without {text!r}: {self.errors!r}")
            self.errors += piece
        return self.errors.decode()

    def wait(self):
        """Exit status, standard output and the rest of standard error once it has ended."""
        out, rest = self.process.communicate(timeout=PATIENCE)
        return self.process.returncode, out.decode(), (self.errors + rest).decode()

    def interrupt(self):
        self.process.send_signal(signal.SIGINT)
        return self.wait()


class Client:
    """A TCP client that reads whole sentences."""

    def __init__(self, port, host="127.0.0.1"):
        self.socket = connect(port, host)
        self.rest = b""

    @classmethod
    def over(cls, connection):
        """A client with a connection made elsewhere."""
        client = cls.__new__(cls)
        client.socket, client.rest = connection, b""
        return client

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def read_for(self, seconds):
        """The sentences of that time, with the moment at which each arrived."""
        sentences = []
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if not select.select([self.socket], [], [], left)[0]:
                break
            piece = self.socket.recv(65536)
            if not piece:
                break
            *whole, self.rest = (self.rest + piece).split(b"\r\n")
            now = time.monotonic()
            sentences += [(now, each.decode("ascii")) for each in whole]
        return sentences

    def read_to_end(self):
        """Everything until the stream ends; a reset raises ConnectionResetError."""
        self.socket.settimeout(PATIENCE)
        data = self.rest
        while piece := self.socket.recv(65536):
            data += piece
        return data


class Files(unittest.TestCase):
    """Has a folder for files, and in it the path of one."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = os.path.join(folder.name, "log")

    def content(self):
        return pathlib.Path(self.path).read_bytes()

    def write(self, name, content):
        """The path of a file in that folder which holds `content`."""
        path = pathlib.Path(self.path).with_name(name)
        path.write_bytes(content)
        return str(path)


def run(*arguments, **options):
    """What became of a headless run that ends by itself."""
    options.setdefault("stdin", subprocess.DEVNULL)
    return subprocess.run([*EMULATOR, PROGRAM, "--headless", *arguments], capture_output=True,
                          timeout=3 * PATIENCE, check=False, **options)


def port_of(program):
    """Where a program with --free-port listens."""
    return int(re.search(r"TCP  \S+:(\d+)", program.read_errors_until("Ctrl-C"))[1])


def lines(data):
    """The sentences of a recording, without their line ends."""
    assert data.endswith(b"\r\n"), data[-100:]
    return data.decode("ascii").split("\r\n")[:-1]


def connect(port, host="127.0.0.1"):
    """A connection to the program, as soon as it listens."""
    deadline = time.monotonic() + PATIENCE
    while True:
        try:
            return socket.create_connection((host, port), timeout=PATIENCE)
        except ConnectionRefusedError:
            if time.monotonic() > deadline:
                raise
            time.sleep(0.005)


def has_right_checksum(sentence):
    """Whether `sentence`, without its line end, carries the checksum of its body."""
    match = re.fullmatch(r"[$!]([^*]+)\*([0-9A-F]{2})", sentence)
    if not match:
        return False
    checksum = 0
    for byte in match[1].encode("ascii"):
        checksum ^= byte
    return checksum == int(match[2], 16)


def seconds_ahead(received):
    """By how much the time in the latest position (RMC) is ahead of the machine's clock when it
    arrived. `received` is what Client.read_for() gave."""
    at, text = [each for each in received if each[1][1:6] == "GPRMC"][-1]
    clock = text.split(",")[1]
    carried = int(clock[:2]) * 3600 + int(clock[2:4]) * 60 + float(clock[4:])
    arrived = time.time() - (time.monotonic() - at)
    half_a_day = 12 * 3600
    return (carried - arrived + half_a_day) % (2 * half_a_day) - half_a_day


def french_locale():
    """The environment of a French desktop, its locale made here if the machine lacks it."""
    folder = os.path.join(os.path.dirname(os.path.abspath(PROGRAM)), "locales")
    if not os.path.isdir(os.path.join(folder, "fr_FR.UTF-8")):
        os.makedirs(folder, exist_ok=True)
        subprocess.run(
            ["localedef", "-i", "fr_FR", "-f", "UTF-8", os.path.join(folder, "fr_FR.UTF-8")],
            check=True,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
    return {"LOCPATH": folder, "LANG": "fr_FR.UTF-8", "LC_ALL": "fr_FR.UTF-8"}


def main():
    unittest.main(verbosity=2)

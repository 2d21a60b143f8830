"""A client of the gateway that keeps every sentence it receives."""
import functools
import operator
import socket
import threading
import time


class NmeaClient:
    def __init__(self, port, host="127.0.0.1"):
        self.socket = socket.create_connection((host, port), timeout=10)
        self.socket.settimeout(None)
        self.lines = []
        self.closed = threading.Event()
        self.was_reset = False
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        rest = b""
        try:
            while data := self.socket.recv(65536):
                *whole, rest = (rest + data).split(b"\r\n")
                now = time.monotonic()
                self.lines += [(now, line.decode("ascii")) for line in whole]
        except OSError:
            self.was_reset = True
        self.closed.set()

    def close(self):
        self.socket.close()

    def since(self, moment):
        return [line for at, line in list(self.lines) if at >= moment]

    def watch(self, seconds):
        """What arrives in the next so many seconds."""
        start = time.monotonic()
        self.closed.wait(seconds)
        return self.since(start)


def family(line):
    """"RMC" for $GPRMC,...; "AIS" for the other vessels."""
    return "AIS" if line.startswith("!") else line[3:6]


def checksum_holds(line):
    body, _, said = line[1:].partition("*")
    return int(said, 16) == functools.reduce(operator.xor, body.encode(), 0)

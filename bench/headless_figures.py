"""Figures of the headless program from outside: memory, start, processor time. Linux only.

    python3 bench/headless_figures.py build/bench/bin/tidewright
"""

import pathlib
import socket
import statistics
import subprocess
import sys
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests/support"))
from measures import cpu_seconds, free_port, resident_mib  # noqa: E402

PUMP = 0.05  # seconds between two turns of the gateway
SECONDS = 60

def start(program, port, *options):
    return subprocess.Popen([program, "--headless", "--tcp-port", str(port), *options],
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def connect(port):
    while True:
        try:
            return socket.create_connection(("127.0.0.1", port), timeout=10)
        except ConnectionRefusedError:
            time.sleep(0.0005)


def read_forever(client):
    try:
        while client.recv(65536):
            pass
    except OSError:
        pass


def first_sentence(program):
    """Seconds from the start of the program to the first byte at a client."""
    port = free_port()
    began = time.monotonic()
    process = start(program, port)
    try:
        with connect(port) as client:
            client.recv(1)
            return time.monotonic() - began
    finally:
        process.kill()
        process.wait()


def minute(program, clients, *options):
    """Resident MiB after a minute, and the share of a core used in it."""
    port = free_port()
    process = start(program, port, *options)
    try:
        sockets = [connect(port) for _ in range(clients)]
        for each in sockets:
            threading.Thread(target=read_forever, args=(each,), daemon=True).start()
        before = cpu_seconds(process.pid)
        time.sleep(SECONDS)
        return resident_mib(process.pid), (cpu_seconds(process.pid) - before) / SECONDS
    finally:
        process.kill()
        process.wait()


def show(what, value, goal, reached):
    print(f"{what:<68}{value:>12}{goal:>12}  {'reached' if reached else 'MISSED'}", flush=True)


def main(program):
    print(f"\n{'what':<68}{'measured':>12}{'goal':>12}")
    pumps = statistics.median(first_sentence(program) for _ in range(9)) / PUMP
    show("start to first sentence at a client, median, in pump periods", f"{pumps:.2f}", "≤ 2",
         pumps <= 2)
    memory, _ = minute(program, 1)
    show("resident memory after a minute, 5 vessels, 1 client", f"{memory:.1f} MiB", "≤ 8 MiB",
         memory <= 8)
    memory, cpu = minute(program, 5)
    show("processor at defaults with 5 clients", f"{100 * cpu:.2f} %", "≤ 0.5 %", cpu <= 0.005)
    memory, cpu = minute(program, 1, "--ais", "100000")
    print(f"{'100,000 vessels, 1 client':<68}{memory:>8.0f} MiB, {100 * cpu:.0f} % of a core")


main(sys.argv[1])

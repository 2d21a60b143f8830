"""Figures of the headless program from outside: memory, start, processor time. Linux only.

    python3 bench/headless_figures.py build/bench/bin/tidewright
"""

import pathlib
import re
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests/support"))
from measures import cpu_seconds, free_port, peak_resident_mib, resident_mib  # noqa: E402

PUMP = 0.05  # seconds between two turns of the gateway
SECONDS = 60
DAY = 24 * 3600


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


def run(program, *options):
    """Seconds that such a run takes, and the most memory, in MiB, that it held."""
    began = time.monotonic()
    process = subprocess.Popen([program, "--headless", "--speed", "max", "--output", "/dev/null",
                                *options], stderr=subprocess.DEVNULL)
    memory = 0
    while process.poll() is None:
        memory = max(memory, peak_resident_mib(process.pid))
        time.sleep(0.01)
    assert process.returncode == 0
    return time.monotonic() - began, memory


def started_run(program, *options):
    """A run on a free port, and the port."""
    process = subprocess.Popen([program, "--headless", "--free-port", *options],
                               stderr=subprocess.PIPE, text=True)
    for line in process.stderr:
        if found := re.match(r"  TCP  \S+:(\d+)$", line):
            return process, int(found[1])
    raise SystemExit("it did not start")


def replayed_memory(program):
    """The most memory, in MiB, that replaying a gigabyte takes."""
    with tempfile.TemporaryDirectory() as folder:
        log = pathlib.Path(folder) / "log"
        subprocess.run([program, "--headless", "--speed", "max", "--duration", "24h", "--output",
                        log], check=True, stderr=subprocess.DEVNULL)
        day = log.read_bytes()
        with log.open("ab") as file:
            while file.tell() < 1 << 30:
                file.write(day)
        return run(program, "--replay", log)[1]


def milliseconds_late(program):
    """How late sentences leave a run at speed 1, at the 99th percentile: how much longer they took
    to a client than the promptest."""
    process, port = started_run(program, "--duration", f"{SECONDS}s", "--set",
                                "network.tag-block=true")
    delays = []
    with connect(port) as client:
        while piece := client.recv(65536):
            now = time.monotonic()
            delays += [now - int(each) / 1000 for each in re.findall(rb"c:(\d+)", piece)]
    process.wait()
    prompt = min(delays)
    return 1000 * (statistics.quantiles(delays, n=100)[98] - prompt)


def lost_at_speed(program, speed, clients):
    """How many sentences clients who read lost, of all that were sent to them."""
    with tempfile.TemporaryDirectory() as folder:
        log = pathlib.Path(folder) / "log"
        process, port = started_run(program, "--speed", str(speed), "--duration", f"{20 * speed}s",
                                    "--output", log)
        streams = [bytearray() for _ in range(clients)]

        def read(client, stream):
            while piece := client.recv(65536):
                stream += piece

        readers = [threading.Thread(target=read, args=(connect(port), each)) for each in streams]
        for each in readers:
            each.start()
        for each in readers:
            each.join()
        process.wait()
        recorded = log.read_bytes()
    lost = 0
    for stream in streams:
        sent = recorded[recorded.index(stream[:1000]):]
        lost += sent.count(b"\n") - stream.count(b"\n")
    return lost


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
    _, cpu = minute(program, 5, "--seed", "1")
    show("the same with a clock and chance of its own", f"{100 * cpu:.2f} %", "≤ 0.5 %",
         cpu <= 0.005)
    seconds, memory = min(run(program, "--duration", "24h") for _ in range(3))
    show("a day as fast as the machine can, against real time", f"{DAY / seconds:.0f} ×",
         "≥ 30000 ×", DAY / seconds >= 30_000)
    show("memory of that day", f"{memory:.1f} MiB", "≤ 10 MiB", memory <= 10)
    memory = replayed_memory(program)
    show("memory of replaying 1 GiB", f"{memory:.1f} MiB", "≤ 10 MiB", memory <= 10)
    late = milliseconds_late(program)
    show("sentences off their due time at speed 1, 99th percentile", f"{late:.2f} ms", "≤ 2 ms",
         late <= 2)
    lost = lost_at_speed(program, 100, 10)
    show("sentences lost by 10 clients who read, at speed 100", f"{lost}", "0", lost == 0)
    memory, cpu = minute(program, 1, "--ais", "100000")
    print(f"{'100,000 vessels, 1 client':<68}{memory:>8.0f} MiB, {100 * cpu:.0f} % of a core")


main(sys.argv[1])

"""The service: what systemd thinks of its sandbox, and whether the program can live in it."""

import ctypes
import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import tempfile
import unittest

from program import PROGRAM, Client, Program, free_port, has_right_checksum, main

UNIT = pathlib.Path(__file__).parents[2] / "packaging" / "systemd" / "tidewright.service"
WORST_EXPOSURE = 1.5
NETWORK = """ip link set lo up && ip link add wlan0 type veth peer name air0 &&
ip address add 192.168.1.37/24 broadcast + dev wlan0 && ip link set wlan0 up &&
ip link set air0 up && exec "$@" """


def setting(name):
    return re.findall(rf"^{name}=(.*)$", UNIT.read_text(), re.M)


def analyze(*arguments):
    return subprocess.run(["systemd-analyze", "--no-pager", *arguments],
                          capture_output=True, text=True)


class Unit(unittest.TestCase):
    def test_exposes_little(self):
        result = analyze("security", "--offline=true", UNIT)
        exposure = re.search(r"exposure level for .*: ([0-9.]+)", result.stdout)[1]
        print(f"exposure {exposure}")
        self.assertLessEqual(float(exposure), WORST_EXPOSURE)

    def test_has_no_mistake(self):
        with tempfile.TemporaryDirectory() as folder:
            unit = pathlib.Path(folder) / UNIT.name
            unit.write_text(UNIT.read_text().replace("/usr/bin/tidewright", PROGRAM))
            result = analyze("--man=no", "verify", unit)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))


class SystemCalls:
    """The kernel's filter, as systemd would set it, but ending the program at the first call that
    is not allowed: one that is merely refused might go unnoticed."""

    KILL, ALLOW = 0x80000000, 0x7FFF0000
    EQUAL = 4

    class Comparison(ctypes.Structure):
        _fields_ = [("argument", ctypes.c_uint), ("operator", ctypes.c_int),
                    ("first", ctypes.c_uint64), ("second", ctypes.c_uint64)]

    def __init__(self):
        self.library = ctypes.CDLL("libseccomp.so.2")
        self.library.seccomp_init.restype = ctypes.c_void_p
        self.filter = ctypes.c_void_p(self.library.seccomp_init(self.KILL))
        for call in self.allowed():
            number = self.library.seccomp_syscall_resolve_name(call.encode())
            if number >= 0 and call != "socket":
                self.add(number)
        for family in setting("RestrictAddressFamilies")[0].split():
            equal = self.Comparison(0, self.EQUAL, getattr(socket, family), 0)
            self.add(self.library.seccomp_syscall_resolve_name(b"socket"), equal)

    def add(self, number, *comparisons):
        array = (self.Comparison * len(comparisons))(*comparisons)
        if self.library.seccomp_rule_add_array(
                self.filter, self.ALLOW, number, len(comparisons), array):
            raise OSError(f"the kernel's filter refuses call {number}")

    def install(self):
        if self.library.seccomp_load(self.filter):
            raise OSError("the kernel refuses the filter")

    @staticmethod
    def allowed():
        calls = set()
        for line in setting("SystemCallFilter"):
            named = set().union(*(SystemCalls.of(word) for word in line.lstrip("~").split()))
            calls = calls - named if line.startswith("~") else calls | named
        return calls

    @staticmethod
    def of(name):
        """The calls of a group and of the groups in it; a call is its own only member."""
        if not name.startswith("@"):
            return {name}
        lines = analyze("syscall-filter", name).stdout.splitlines()[1:]
        members = [line.strip() for line in lines if line.strip() and "#" not in line]
        return set().union(*(SystemCalls.of(member) for member in members))


class Sandbox(unittest.TestCase):
    def test_the_program_makes_no_call_that_the_service_forbids(self):
        port = free_port()
        with Program("--headless", "--tcp-port", str(port),
                     before=SystemCalls().install) as program:
            program.read_errors_until("Ctrl-C")
            with Client(port) as client:
                sentences = [sentence for _, sentence in client.read_for(1.5)]
            program.process.send_signal(signal.SIGTERM)
            status, _, _ = program.wait()
        self.assertGreater(len(sentences), 10)
        self.assertTrue(all(map(has_right_checksum, sentences)))
        self.assertEqual(status, -signal.SIGTERM)

    def test_the_filter_ends_what_it_does_not_allow(self):
        for family, status in (("AF_INET", 0), ("AF_UNIX", -signal.SIGSYS)):
            opens = f"import socket; socket.socket(socket.{family})"
            result = subprocess.run([sys.executable, "-c", opens], preexec_fn=SystemCalls().install)
            self.assertEqual(result.returncode, status, family)


def in_own_network():
    """Starts over where what the program broadcasts goes nowhere, if the machine lets us."""
    os.environ["TIDEWRIGHT_OWN_NETWORK"] = "1"
    unshare = ["unshare", "-rn", "sh", "-c", NETWORK, "sh"]
    if subprocess.run([*unshare, "true"], stderr=subprocess.DEVNULL).returncode == 0:
        os.execvp("unshare", [*unshare, sys.executable, "-B", *sys.argv])


if __name__ == "__main__":
    if "TIDEWRIGHT_OWN_NETWORK" not in os.environ:
        in_own_network()
    main()

"""Networks of our own, of which nothing outside hears: a namespace a host, cables between them."""

import contextlib
import ctypes
import os
import shutil
import socket
import subprocess
import threading

LIBC = ctypes.CDLL(None, use_errno=True)
CLONE_NEWNET = 0x40000000


def can_be_made():
    """Whether this machine lets us make networks."""
    return shutil.which("unshare") is not None and shutil.which("ip") is not None and \
        subprocess.run(["unshare", "--net", "true"], stderr=subprocess.DEVNULL,
                       check=False).returncode == 0


class Host:
    """A host without interfaces but its loopback; gone at the end of a `with` block."""

    def __enter__(self):
        self.process = subprocess.Popen(["unshare", "--net", "sleep", "600"])
        own = os.readlink("/proc/self/ns/net")
        while os.readlink(self.namespace) == own:
            assert self.process.poll() is None
        self.ip("link", "set", "lo", "up")
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    @property
    def namespace(self):
        return f"/proc/{self.process.pid}/ns/net"

    @property
    def prefix(self):
        """What a command begins with to run on this host."""
        return ("nsenter", f"--net={self.namespace}")

    def run(self, *command):
        subprocess.run([*self.prefix, *command], check=True)

    def ip(self, *arguments):
        self.run("ip", *arguments)

    def cable(self, name, other, other_name):
        """Joins an interface of this host to one of another; both are up, without addresses."""
        self.ip("link", "add", name, "type", "veth", "peer", "name", other_name,
                "netns", str(other.process.pid))
        self.ip("link", "set", name, "up")
        other.ip("link", "set", other_name, "up")

    def address(self, interface, address):
        extra = ("nodad",) if ":" in address else ("broadcast", "+")
        self.ip("address", "add", address, "dev", interface, *extra)

    def socket(self, family, kind):
        """A socket of this host: a socket stays where it was made, wherever it is used."""
        made = []

        def make():
            with open(self.namespace) as namespace:
                if LIBC.setns(namespace.fileno(), CLONE_NEWNET) == 0:
                    made.append(socket.socket(family, kind))

        maker = threading.Thread(target=make)
        maker.start()
        maker.join()
        made[0].settimeout(20)
        return made[0]


@contextlib.contextmanager
def boat_and_quay():
    """Two hosts with two cables between them: boat0 to quay0 in 192.168.7.0/24, boat1 to quay1 in
    192.168.8.0/24; the boat is .5, the quay .9."""
    with Host() as boat, Host() as quay:
        for number, subnet in enumerate(("192.168.7", "192.168.8")):
            boat.cable(f"boat{number}", quay, f"quay{number}")
            boat.address(f"boat{number}", f"{subnet}.5/24")
            quay.address(f"quay{number}", f"{subnet}.9/24")
        yield boat, quay

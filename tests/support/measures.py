"""What a running process holds and uses, from outside. Linux only."""

import os
import pathlib
import socket

TICKS = os.sysconf("SC_CLK_TCK")


def free_port():
    """A TCP port that nobody holds, on either family."""
    with socket.socket(socket.AF_INET6, socket.SOCK_STREAM) as probe:
        probe.bind(("::", 0))
        return probe.getsockname()[1]


def cpu_seconds(pid):
    """Processor time used so far, its own and the system's for it."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def memory_mib(pid, kind):
    """Nothing once the process has ended."""
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith(kind):
            return int(line.split()[1]) / 1024
    return 0


def resident_mib(pid):
    return memory_mib(pid, "VmRSS")


def peak_resident_mib(pid):
    """The most that was resident since the program was loaded."""
    return memory_mib(pid, "VmHWM")


def descriptor_count(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))

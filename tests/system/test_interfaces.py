"""The networks that a host may have, lose and regain."""

import ctypes
import platform
import socket
import struct
import threading
import time
import unittest

import network
from program import Client, Program, has_right_checksum, main

TCP_PORT, UDP_PORT = 2000, 2001
OPTIONS = ("--headless", "--tcp-port", str(TCP_PORT), "--udp-port", str(UDP_PORT))


def client_on(host, address):
    family = socket.AF_INET6 if ":" in address else socket.AF_INET
    connection = host.socket(family, socket.SOCK_STREAM)
    connection.connect((address, TCP_PORT))
    return Client.over(connection)


def positions(received):
    return [text for _, text in received if text[1:6] == "GPRMC"]


def datagrams_during(listener, seconds):
    count = 0
    end = time.monotonic() + seconds
    while (left := end - time.monotonic()) > 0:
        listener.settimeout(left)
        try:
            count += has_right_checksum(listener.recv(65536).decode().removesuffix("\r\n"))
        except TimeoutError:
            break
    return count


@unittest.skipUnless(network.can_be_made(), "this machine lets us make no network of our own")
class LostInterface(unittest.TestCase):
    def test_datagrams_resume_and_clients_elsewhere_notice_nothing(self):
        with network.boat_and_quay() as (boat, quay), Program(*OPTIONS, prefix=boat.prefix) as program:
            self.assertIn("UDP  broadcast 192.168.7.255", program.read_errors_until("Ctrl-C"))
            with quay.socket(socket.AF_INET, socket.SOCK_DGRAM) as listener, \
                    client_on(quay, "192.168.8.5") as elsewhere, \
                    client_on(quay, "192.168.7.5") as through:
                listener.bind(("", UDP_PORT))
                undisturbed = []
                watch = threading.Thread(target=lambda: undisturbed.extend(elsewhere.read_for(5)))
                watch.start()
                with_cable = datagrams_during(listener, 2)
                boat.ip("link", "set", "boat0", "down")
                datagrams_during(listener, 0.2)
                without_cable = datagrams_during(listener, 2)
                boat.ip("link", "set", "boat0", "up")
                resumed_after = time.monotonic()
                datagrams_during(listener, 0.01)
                while datagrams_during(listener, 0.1) == 0:
                    self.assertLess(time.monotonic() - resumed_after, 5)
                resumed_after = time.monotonic() - resumed_after
                regained = datagrams_during(listener, 2)

                watch.join()
                late = through.read_for(6)
                self.assertIsNone(program.process.poll())
        self.assertGreater(with_cable, 40)
        self.assertEqual(without_cable, 0)
        self.assertGreater(regained, 40)
        self.assert_seconds_in_a_row(undisturbed)
        moments = [at for at, _ in undisturbed]
        longest = max(late - early for early, late in zip(moments, moments[1:]))
        self.assertGreater(moments[-1] - moments[0], 4)
        self.assertLess(longest, 1, "the lost cable was felt elsewhere")
        self.assert_seconds_in_a_row(late)
        print(f"cable out for 2 s: {with_cable} datagrams in 2 s before, none without, the first "
              f"{resumed_after:.1f} s after it was in again; sentences at most {longest:.2f} s apart "
              f"elsewhere; {len(positions(late))} positions in a row through it", flush=True)

    def assert_seconds_in_a_row(self, received):
        seconds = [int(text[11:13]) for text in positions(received)]
        for early, late in zip(seconds, seconds[1:]):
            self.assertEqual(late, (early + 1) % 60, seconds)


@unittest.skipUnless(network.can_be_made(), "this machine lets us make no network of our own")
class OneFamily(unittest.TestCase):
    def test_on_a_host_without_ipv4_it_serves_ipv6(self):
        with network.Host() as boat, network.Host() as quay:
            boat.cable("boat0", quay, "quay0")
            boat.address("boat0", "fd00:7::5/64")
            quay.address("quay0", "fd00:7::9/64")
            boat.ip("address", "del", "127.0.0.1/8", "dev", "lo")
            with Program(*OPTIONS, prefix=boat.prefix) as program:
                program.read_errors_until("Ctrl-C")
                with client_on(quay, "fd00:7::5") as client:
                    self.assertGreater(len(client.read_for(2)), 40)
                self.assertIsNone(program.process.poll())

    def test_on_a_host_without_ipv6_addresses_it_serves_ipv4(self):
        with network.Host() as boat, network.Host() as quay:
            boat.run("sh", "-c", "echo 1 >/proc/sys/net/ipv6/conf/all/disable_ipv6")
            self.serves_ipv4(boat, quay)

    @unittest.skipUnless(platform.machine() == "x86_64", "knows the numbers of one machine only")
    def test_on_a_host_that_knows_no_ipv6_it_serves_ipv4(self):
        with network.Host() as boat, network.Host() as quay:
            self.serves_ipv4(boat, quay, before=refuse_ipv6_sockets)

    def serves_ipv4(self, boat, quay, before=None):
        boat.cable("boat0", quay, "quay0")
        boat.address("boat0", "192.168.7.5/24")
        quay.address("quay0", "192.168.7.9/24")
        with Program(*OPTIONS, prefix=boat.prefix, before=before) as program:
            program.read_errors_until("Ctrl-C")
            with client_on(quay, "192.168.7.5") as client:
                self.assertGreater(len(client.read_for(2)), 40)
            self.assertIsNone(program.process.poll())


def refuse_ipv6_sockets():
    """From here on this process and what it starts live on a host without IPv6: the system answers
    socket(AF_INET6) with "address family not supported"."""
    load, equal, answer = 0x20, 0x15, 0x06
    socket_call, number_at, family_at = 41, 0, 16
    allow, refuse = 0x7FFF0000, 0x00050000 | 97
    program = b"".join(struct.pack("HBBI", *each) for each in (
        (load, 0, 0, number_at), (equal, 0, 3, socket_call),
        (load, 0, 0, family_at), (equal, 0, 1, socket.AF_INET6),
        (answer, 0, 0, refuse), (answer, 0, 0, allow)))
    code = ctypes.create_string_buffer(program)
    filter_ = ctypes.create_string_buffer(struct.pack("HxxxxxxP", 6, ctypes.addressof(code)))
    no_new_privileges, set_seccomp, filter_mode = 38, 22, 2
    assert network.LIBC.prctl(no_new_privileges, 1, 0, 0, 0) == 0
    assert network.LIBC.prctl(set_seccomp, filter_mode, filter_, 0, 0) == 0


if __name__ == "__main__":
    main()

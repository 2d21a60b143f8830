"""What clients receive from the running program."""

import ast
import collections
import contextlib
import shutil
import socket
import subprocess
import sys
import unittest

from program import (EMULATOR, PROGRAM, Client, Program, connect, free_port, french_locale,
                     has_right_checksum, main)

SECONDS = 12


def name(sentence):
    return sentence[1:6]


class Stream(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.port = free_port()
        options = ("--headless", "--no-udp", "--tcp-port", str(cls.port))
        with Program(*options, env=french_locale()) as program:
            program.read_errors_until("Ctrl-C")
            with Client(cls.port) as first, Client(cls.port, "::1") as second:
                first.read_for(0.5)
                received = first.read_for(SECONDS)
                cls.other = [text for _, text in second.read_for(0.2)]
            cls.times = [time for time, _ in received]
            cls.sentences = [text for _, text in received]
            cls.status = program.interrupt()

    def test_every_checksum_is_right(self):
        for sentence in self.sentences:
            self.assertTrue(has_right_checksum(sentence), sentence)

    def test_every_family_comes_at_its_rate_from_its_talker(self):
        counts = collections.Counter(map(name, self.sentences))
        for family, hertz in {
            "GPRMC": 1, "GPGGA": 1, "GPVTG": 1, "IIHDT": 5, "IIHDG": 5, "IIVHW": 2,
            "IIMWV": 4, "IIDBT": 1, "IIDPT": 1,
        }.items():
            self.assertAlmostEqual(counts[family], hertz * SECONDS, delta=hertz + 1, msg=family)
        self.assertIn(counts["IIMTW"], (2, 3))
        positions = sum(s.startswith("!AIVDM,1,1,,A,") for s in self.sentences)
        self.assertAlmostEqual(positions, 5 * SECONDS, delta=6)
        self.assertEqual(set(counts), {
            "GPRMC", "GPGGA", "GPVTG", "IIHDT", "IIHDG", "IIVHW", "IIMWV", "IIDBT", "IIDPT",
            "IIMTW", "AIVDM"})

    def test_sentences_of_a_family_keep_their_order(self):
        names = list(map(name, self.sentences))
        for first, second in (("GPRMC", "GPGGA"), ("IIHDT", "IIHDG"), ("IIDBT", "IIDPT")):
            pair = [each for each in names if each in (first, second)]
            start = pair.index(first)
            for i in range(start, len(pair) - 1, 2):
                self.assertEqual(pair[i:i + 2], [first, second])
        winds = [s.split(",")[2] for s in self.sentences if name(s) == "IIMWV"]
        winds = winds[winds.index("R"):]
        self.assertEqual(set(winds[::2]), {"R"})
        self.assertEqual(set(winds[1::2]), {"T"})

    def test_the_boat_moves(self):
        positions = {s.split(",")[3] for s in self.sentences if name(s) == "GPRMC"}
        self.assertGreater(len(positions), SECONDS - 3)

    def test_numbers_have_a_point_under_a_french_locale(self):
        for sentence in self.sentences:
            if name(sentence) == "GPVTG":
                self.assertRegex(sentence, r"^\$GPVTG,\d+\.\d,T,,M,\d+\.\d,N,\d+\.\d,K,A\*..$")

    def test_an_ipv6_client_receives_the_same(self):
        self.assertGreater(len(self.other), 27 * (SECONDS - 1))
        start = self.sentences.index(self.other[50])
        common = self.sentences[start:start + 200]
        self.assertEqual(self.other[50:50 + len(common)], common)

    def test_nothing_but_the_banner_is_written(self):
        _, out, errors = self.status
        self.assertEqual(out, "")
        self.assertEqual(len(errors.splitlines()), 4, errors)


class Datagrams(unittest.TestCase):
    """One datagram a sentence; without a network there is nowhere to broadcast to, so the receiver
    and the program share a network of their own where the machine lets us make one."""

    def test_each_sentence_is_a_datagram(self):
        receiver = r"""
import socket, sys
listener = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
listener.bind(("", 2001))
listener.settimeout(10)
print("ready", flush=True)
for _ in range(60):
    print(repr(listener.recv(65536)), flush=True)
"""
        if not shutil.which("unshare") or subprocess.run(
                ["unshare", "--net", "true"], stderr=subprocess.DEVNULL).returncode != 0:
            self.skipTest("this machine lets us make no network of our own")
        script = f"""
set -e
ip link set lo up
ip link add boat0 type veth peer name quay0
ip address add 192.168.7.5/24 broadcast 192.168.7.255 dev boat0
ip link set boat0 up
ip link set quay0 up
{sys.executable} -c '{receiver}' &
receiver=$!
"$0" "$@" --headless --no-tcp --udp-port 2001 & program=$!
wait $receiver
kill $program
"""
        done = subprocess.run(
            ["unshare", "--net", "bash", "-c", script, *EMULATOR, PROGRAM],
            capture_output=True, timeout=60, text=True)
        datagrams = [ast.literal_eval(line) for line in done.stdout.splitlines()[1:]]
        self.assertEqual(len(datagrams), 60, done.stderr)
        self.assertIn("UDP  broadcast 192.168.7.255:2001", done.stderr)
        for datagram in datagrams:
            self.assertTrue(has_right_checksum(datagram.decode().removesuffix("\r\n")), datagram)


@contextlib.contextmanager
def held_port():
    """A TCP port on which somebody else listens."""
    with socket.socket(socket.AF_INET6, socket.SOCK_STREAM) as holder:
        holder.bind(("::", 0))
        holder.listen()
        yield holder.getsockname()[1]


class Restart(unittest.TestCase):
    def test_interrupted_with_clients_it_runs_again_at_once(self):
        port = free_port()
        options = ("--headless", "--no-udp", "--tcp-port", str(port))
        for _ in range(5):
            with Program(*options) as program:
                program.read_errors_until("Ctrl-C")
                with Client(port) as reader, Client(port) as silent:
                    self.assertTrue(reader.read_for(0.3))
                    status, _, errors = program.interrupt()
                    self.assertEqual(status, -2)
                    self.assertNotIn("ERREUR", errors)
                    silent.socket.close()

    def test_a_taken_port_ends_it_with_a_message(self):
        with held_port() as port, Program("--headless", "--tcp-port", str(port)) as program:
            status, _, errors = program.wait()
        self.assertEqual(status, 1)
        self.assertTrue(errors.endswith(
            f"ERREUR : Le port TCP {port} est déjà utilisé : une autre instance du simulateur tourne "
            "probablement. Quittez-la (ou changez de port), puis relancez.\n"), errors)

    def test_a_port_in_use_cannot_be_taken_from_it(self):
        port = free_port()
        options = ("--headless", "--no-udp", "--tcp-port", str(port))
        with Program(*options) as program, Client(port) as reader:
            received = reader.read_for(0.5)
            with Program(*options) as second:
                status, _, errors = second.wait()
            self.assertEqual(status, 1)
            self.assertIn(f"ERREUR : Le port TCP {port} est déjà utilisé", errors)
            for family, address in ((socket.AF_INET, "127.0.0.1"), (socket.AF_INET6, "::1")):
                with socket.socket(family, socket.SOCK_STREAM) as thief:
                    thief.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
                    thief.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEPORT, 1)
                    self.assertRaises(OSError, thief.bind, (address, port))
            received += reader.read_for(1.5)
            headings = [at for at, text in received if name(text) == "IIHDT"]
            self.assertGreater(len(headings), 8)
            self.assertIsNone(program.process.poll())

    def test_a_port_is_served_as_soon_as_its_holder_lets_it_go(self):
        with held_port() as port, Program("--headless", "--tcp-port", str(port)) as program:
            self.assertEqual(program.wait()[0], 1)
        with Program("--headless", "--no-udp", "--tcp-port", str(port)), Client(port) as reader:
            self.assertTrue(reader.read_for(0.5))

    def test_a_reader_of_errors_that_goes_away_does_not_end_it(self):
        port = free_port()
        with Program("--headless", "--no-udp", "--tcp-port", str(port)) as program:
            program.process.stderr.close()
            with Client(port) as reader:
                self.assertTrue(reader.read_for(1.5))
            program.process.stderr = None
            self.assertIsNone(program.process.poll())

    def test_a_client_that_resets_does_not_end_it(self):
        port = free_port()
        with Program("--headless", "--no-udp", "--tcp-port", str(port)) as program:
            for _ in range(20):
                rude = connect(port)
                rude.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")
                rude.close()
            with Client(port) as reader:
                self.assertTrue(reader.read_for(0.5))


if __name__ == "__main__":
    main()

"""Runs with a clock and chance of their own: the same bytes again, recorded, to an end."""

import hashlib
import os
import pathlib
import re
import signal
import socket
import subprocess
import tempfile
import time
import unittest

from program import (EMULATOR, PATIENCE, PROGRAM, Client, Files, Program, free_port,
                     has_right_checksum, lines, main, port_of, run)

NOON = ("--seed", "7", "--start", "2026-06-01T12:00:00Z")
DRAWING_FAULTS = ("--set", "faults.loss=30")


def recorded(*arguments):
    """What such a run records on standard output, as fast as the machine can."""
    done = run(*NOON, "--speed", "max", "--output", "-", *arguments)
    assert done.returncode == 0, done.stderr
    return done.stdout


class Repeats(Files):
    def digest(self, speed, *arguments, duration="6s", busy=False):
        """Of what a run at `speed` records; with `busy`, beside as many busy processes as cores."""
        load = [subprocess.Popen(["sh", "-c", "while :; do :; done"])
                for _ in range((os.cpu_count() or 1) if busy else 0)]
        try:
            network = () if speed == "max" else ("--free-port",)
            done = run(*NOON, "--speed", speed, "--duration", duration, "--output", self.path,
                       *network, *arguments)
        finally:
            for each in load:
                each.kill()
                each.wait()
        self.assertEqual(done.returncode, 0, done.stderr)
        return hashlib.sha256(self.content()).hexdigest()

    def test_the_same_seed_and_start_give_the_same_bytes_at_every_speed_and_load(self):
        for arguments in ((), DRAWING_FAULTS):
            digests = {self.digest("max", *arguments), self.digest("1000", *arguments),
                       self.digest("10", *arguments), self.digest("10", *arguments, busy=True),
                       self.digest("1", *arguments)}
            self.assertEqual(len(digests), 1, arguments)

    def test_clients_who_come_and_go_change_nothing(self):
        with Program("--headless", *NOON, "--speed", "10", "--duration", "20s", "--output",
                     self.path, "--free-port", *DRAWING_FAULTS) as program:
            port = port_of(program)
            for _ in range(5):
                with Client(port) as client:
                    client.read_for(0.1)
            self.assertEqual(program.wait()[0], 0)
        self.assertEqual(self.content(), recorded("--duration", "20s", *DRAWING_FAULTS))

    def test_another_seed_gives_another_run(self):
        other = run("--seed", "8", *NOON[2:], "--speed", "max", "--duration", "1m", "--output", "-")
        self.assertNotEqual(other.stdout, recorded("--duration", "1m"))

    def test_a_longer_run_begins_like_a_shorter_one(self):
        self.assertTrue(recorded("--duration", "3m").startswith(recorded("--duration", "2m")))

    def test_a_run_without_a_seed_shows_one_with_which_it_can_be_had_again(self):
        first = run("--duration", "5s", "--speed", "max", "--output", "-")
        seed = re.search(rb"SEED  (\d+)", first.stderr)[1].decode()
        start = re.search(rb"CLOCK  (\S+)", first.stderr)[1].decode()
        again = run("--duration", "5s", "--speed", "max", "--output", "-", "--seed", seed,
                    "--start", start)
        self.assertEqual(first.stdout, again.stdout)

    def test_nothing_changes_in_a_stopped_and_continued_run_but_that_it_is_late(self):
        with Program("--headless", *NOON, "--duration", "4s", "--output", self.path,
                     "--free-port") as program:
            began = time.monotonic()
            program.read_errors_until("Ctrl-C")
            time.sleep(1)
            program.process.send_signal(signal.SIGSTOP)
            time.sleep(3)
            program.process.send_signal(signal.SIGCONT)
            self.assertEqual(program.wait()[0], 0)
            self.assertGreater(time.monotonic() - began, 6.9)
        self.assertEqual(self.content(), recorded("--duration", "4s"))


class Faults(unittest.TestCase):
    """Two runs that differ in one fault differ in nothing but what that fault did."""

    clean = staticmethod(lambda: lines(recorded("--duration", "5m")))

    def test_loss_takes_sentences_away_and_leaves_the_rest_as_it_was(self):
        lossy = lines(recorded("--duration", "5m", "--set", "faults.loss=30"))
        rest = iter(self.clean())
        self.assertTrue(all(any(line == other for other in rest) for line in lossy))
        share = 1 - len(lossy) / len(self.clean())
        self.assertAlmostEqual(share, 0.3, delta=0.03)

    def test_a_wrong_checksum_changes_two_digits(self):
        wrong = lines(recorded("--duration", "5m", "--set", "faults.bad-checksum=true"))
        clean = self.clean()
        self.assertEqual([each[:-2] for each in wrong], [each[:-2] for each in clean])
        self.assertFalse(any(has_right_checksum(each) for each in wrong))

    def test_a_frozen_position_changes_only_what_tells_of_it(self):
        frozen = lines(recorded("--duration", "5m", "--set", "faults.frozen-position=true"))
        clean = self.clean()
        self.assertEqual(len(frozen), len(clean))
        changed = {one[3:6] for one, other in zip(frozen, clean) if one != other}
        self.assertEqual(changed, {"RMC", "GGA", "VTG"})

    def test_latency_changes_nothing_but_the_times(self):
        times = re.compile(rb"\\s:tidewright,c:(\d+)\*[0-9A-F]{2}\\")
        tagged = ("--duration", "1m", "--set", "network.tag-block=true")
        prompt = recorded(*tagged)
        late = recorded(*tagged, "--set", "faults.latency=500")
        without = [times.sub(b"", data) for data in (prompt, late)]
        self.assertTrue(without[0].startswith(without[1]))
        for one, other in zip(times.findall(prompt), times.findall(late)):
            self.assertEqual(int(other) - int(one), 500)


class Recording(Files):
    def test_holds_what_a_client_gets(self):
        with Program("--headless", "--output", self.path, "--free-port", "--duration",
                     "3s") as program, Client(port_of(program)) as client:
            stream = client.read_to_end()
            self.assertEqual(program.wait()[0], 0)
        self.assertTrue(self.content().endswith(stream))
        self.assertGreater(len(stream), 1000)

    def test_replaces_the_file(self):
        pathlib.Path(self.path).write_bytes(b"x" * 100_000)
        self.assertEqual(run("--speed", "max", "--duration", "1s", "--output", self.path).returncode, 0)
        self.assertLess(len(self.content()), 10_000)

    def test_is_written_out_while_the_run_goes_on(self):
        with Program("--headless", "--no-tcp", "--no-udp", "--output", self.path) as program:
            self.assertIn(f"  FILE  {self.path}\n", program.read_errors_until("Ctrl-C"))
            deadline = time.monotonic() + PATIENCE
            while not self.content() and time.monotonic() < deadline:
                time.sleep(0.01)
            self.assertTrue(self.content())
            status, _, errors = program.interrupt()
        self.assertEqual(status, -signal.SIGINT)
        self.assertTrue(all(map(has_right_checksum, lines(self.content()))))
        self.assertNotIn("SEED", errors)

    def test_ends_with_a_whole_sentence_at_each_kind_of_interrupt(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with Program("--headless", *NOON, "--speed", "max", "--output", self.path) as program:
                program.read_errors_until("Ctrl-C")
                time.sleep(0.3)
                program.process.send_signal(number)
                self.assertEqual(program.wait()[0], -number)
            self.assertTrue(all(map(has_right_checksum, lines(self.content()))))

    def test_that_cannot_begin_is_status_1_and_nothing_is_started(self):
        for path, reason in (("/", "c'est un dossier."), ("/none/log", "son dossier n'existe pas.")):
            done = run("--output", path)
            self.assertEqual((done.returncode, done.stderr.decode()),
                             (1, f"ERREUR : L'enregistrement dans {path} ne peut commencer : {reason}\n"))

    def test_that_cannot_go_on_is_status_1(self):
        done = run("--output", "/dev/full", "--no-tcp", "--no-udp")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.decode().splitlines()[-1],
                         "ERREUR : L'enregistrement dans /dev/full s'arrête : il n'y a plus de place.")

    def test_that_may_not_grow_ends_with_a_whole_sentence(self):
        done = subprocess.run(["sh", "-c", 'ulimit -f 64; exec "$@"', "sh", *EMULATOR, PROGRAM,
                               "--headless", "--speed", "max", "--output", self.path],
                              capture_output=True, timeout=PATIENCE, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("il est devenu trop grand.", done.stderr.decode())
        self.assertTrue(all(map(has_right_checksum, lines(self.content()))))

    def test_a_reader_of_standard_output_who_goes_away_ends_it_with_0(self):
        with Program("--headless", "--speed", "max", "--output", "-") as program:
            program.process.stdout.read(1000)
            program.process.stdout.close()
            program.process.stdout = None
            self.assertEqual(program.process.wait(timeout=PATIENCE), 0)

    def test_waits_for_a_slow_reader_where_there_is_no_network(self):
        with Program("--headless", *NOON, "--speed", "max", "--duration", "3h", "--output",
                     "-") as program:
            time.sleep(1)
            self.assertIsNone(program.process.poll())
            data = program.process.stdout.read()
            self.assertEqual(program.process.wait(timeout=PATIENCE), 0)
        self.assertEqual(data, recorded("--duration", "3h"))

    def test_loses_whole_sentences_and_says_so_where_there_is(self):
        with Program("--headless", *NOON, "--speed", "1000", "--duration", "2h", "--free-port",
                     "--output", "-") as program:
            program.read_errors_until("ATTENTION : l'enregistrement n'est pas complet")
            errors = program.read_errors_until("Ctrl-C")
            data = program.process.stdout.read()
            self.assertEqual(program.process.wait(timeout=PATIENCE), 0)
            errors += program.process.stderr.read().decode()
        sentences = lines(data)
        missing = int(re.search(r"Il manque (\d+) phrases", errors)[1])
        self.assertEqual(len(sentences) + missing, 27.2 * 7200)
        self.assertTrue(all(map(has_right_checksum, sentences)))


class End(unittest.TestCase):
    def test_comes_after_the_duration_of_the_run(self):
        began = time.monotonic()
        self.assertEqual(run("--speed", "10", "--duration", "10s", "--free-port").returncode, 0)
        self.assertTrue(1 <= time.monotonic() - began < 6)

    def test_gives_clients_everything_and_a_clean_end_of_stream(self):
        with Program("--headless", *NOON, "--duration", "2s", "--free-port") as program:
            with Client(port_of(program)) as client:
                stream = client.read_to_end()
            self.assertEqual(program.wait()[0], 0)
        self.assertTrue(recorded("--duration", "2s").endswith(stream))

    def test_what_is_due_then_is_not_sent(self):
        self.assertEqual(len(lines(recorded("--duration", "1m"))), 27.2 * 60)


class FreePort(unittest.TestCase):
    def test_lets_many_run_side_by_side(self):
        programs = [Program("--headless", "--free-port") for _ in range(3)]
        try:
            ports = [port_of(each) for each in programs]
            self.assertEqual(len(set(ports)), 3)
            for port in ports:
                with Client(port) as client:
                    self.assertTrue(client.read_for(0.5))
        finally:
            for each in programs:
                each.__exit__()

    def test_beats_any_port_and_leaves_udp_off(self):
        taken = free_port()
        with socket.create_server(("", taken)), \
                Program("--headless", "--free-port", "--tcp-port", str(taken)) as program:
            banner = program.read_errors_until("Ctrl-C")
            self.assertNotIn("UDP", banner)
            self.assertNotIn(f":{taken}\n", banner)


class CommandLine(unittest.TestCase):
    def assert_refused(self, *arguments, because):
        done = run(*arguments)
        self.assertEqual(done.returncode, 2, arguments)
        self.assertEqual(done.stdout, b"")
        text = done.stderr.decode()
        self.assertRegex(text, r"^ERREUR : [^\n]+\n$")
        self.assertIn(because, text)

    def test_every_value_that_cannot_be_read_is_refused(self):
        for option, texts in {
                "--seed": ("-1", "x", "18446744073709551616", "1.5", ""),
                "--start": ("2026-06-01", "now", "2026-02-30T12:00:00Z"),
                "--speed": ("0", "0.05", "1001", "fast", "-1"),
                "--duration": ("60", "s", "-1s", "1m1h", "1 s")}.items():
            for text in texts:
                self.assert_refused(option, text, because=f"{option} : « {text} »")
                self.assert_refused(f"{option}={text}", because=f"{option} : « {text} »")
            self.assert_refused(option, because=f"{option} attend une valeur")
            self.assert_refused(option, "--no-udp", because=f"{option} attend une valeur")

    def test_options_given_twice_misspelt_or_with_a_needless_value_are_refused(self):
        self.assert_refused("--seed", "1", "--seed", "2", because="--seed est donnée deux fois.")
        self.assert_refused("--seed", "1", "--no-upd", because="la plus proche est --no-udp")
        self.assert_refused("--free-port=3", because="--free-port ne prend pas de valeur.")
        self.assert_refused("--seed", "1", "stray", because="« stray » n'est pas une option")

    def test_what_cannot_be_had_together_is_refused(self):
        self.assert_refused("--speed", "max", because="il faut aussi --output")
        for network in (("--free-port",), ("--tcp-port", "3000"), ("--set", "network.tcp=true")):
            self.assert_refused("--speed", "max", "--output", "/dev/null", *network,
                                because="--speed max coupe TCP et UDP")
        self.assert_refused("--replay-loop", because="--replay")

    def test_a_refused_command_line_leaves_the_recording_of_before_alone(self):
        with tempfile.NamedTemporaryFile() as log:
            log.write(b"$kept\r\n")
            log.flush()
            self.assert_refused("--output", log.name, "--set", "ais.count=-1", because="ais.count")
            self.assertEqual(pathlib.Path(log.name).read_bytes(), b"$kept\r\n")

    def test_the_banner_tells_how_to_have_the_run_again(self):
        done = run(*NOON, "--speed", "max", "--duration", "1s", "--output", "/dev/null", "--ais", "2")
        self.assertEqual(done.stderr.decode(),
                         "Tidewright — headless\n"
                         "  AIS  2 targets\n"
                         "  FILE  /dev/null\n"
                         "  SEED  7\n"
                         "  CLOCK  2026-06-01T12:00:00Z × max\n"
                         "  Ctrl-C pour arrêter.\n")

    def test_the_clock_shows_where_it_started(self):
        rmc = [line.split(",") for line in lines(recorded("--duration", "3s")) if line[3:6] == "RMC"]
        self.assertEqual([(row[1], row[9]) for row in rmc],
                         [(f"1200{second:02}.00", "010626") for second in range(3)])


if __name__ == "__main__":
    main()

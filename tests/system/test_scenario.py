"""Scenarios: read and checked as a whole, then played in the run's own time."""

import os
import pathlib
import re
import signal
import unittest

from program import Client, Files, Program, lines, main, port_of, run

EXAMPLES = pathlib.Path(__file__).parents[2] / "scenarios"
BEGUN = "  Ctrl-C pour arrêter.\n"
NOON = ("--seed", "7", "--start", "2026-06-01T12:00:00Z")
FILE_ALONE = ("--no-tcp", "--no-udp", "--output")

RECONNECTS = """\
name: Le lien tombe
steps:
  - within: 10s
    expect: {clients: 1}
  - after: 200ms
    do: drop-clients
    say: Le lien est tombé
  - within: 5s
    expect: {clients: 1, connections: {min: 2}}
    end: true
"""

BUSY = """\
seed: 11
start: 2026-06-01T12:00:00Z
set: {ais.count: 2, boat.mode: manual}
steps:
  - at: 5s
    set: {faults.loss: 30}
  - at: 10s
    do: tack
    set: {faults.latency: 300, boat.mode: auto}
  - at: 13s
    do: [stop, start]
  - at: 20s
    end: true
"""


def positions(data):
    """The times of the positions (RMC) of a recording."""
    return [line.split(",")[1] for line in lines(data) if line[3:6] == "RMC"]


class Scenarios(Files):
    def scenario(self, text):
        """The path of a scenario file that holds `text`."""
        return self.write("essai.yaml", text.encode())

    def played(self, text, *arguments, status=0):
        """What such a run, with the network off, wrote after its banner, and what it recorded."""
        done = run("--scenario", self.scenario(text), *FILE_ALONE, "-", *arguments)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stderr.decode().split(BEGUN)[1], done.stdout

    def assert_refused(self, text, *mistakes):
        """That those `mistakes`, each with its place, are all that is said."""
        path = self.scenario(text)
        done = run("--scenario", path)
        self.assertEqual((done.returncode, done.stdout), (2, b""))
        count = f"{len(mistakes)} faute{'s' if len(mistakes) > 1 else ''}"
        self.assertEqual(done.stderr.decode(), "".join(f"{path}:{each}\n" for each in mistakes) +
                         f"ERREUR : {count} dans {path}\n")


class Verdict(Scenarios):
    def test_is_good_for_a_client_that_connects_again(self):
        with Program("--headless", "--scenario", self.scenario(RECONNECTS),
                     "--free-port") as program:
            port = port_of(program)
            with Client(port) as client:
                self.assertTrue(client.read_to_end().endswith(b"\r\n"))
            with Client(port) as client:
                client.read_to_end()
            status, _, errors = program.wait()
        self.assertEqual(status, 0, errors)
        self.assertRegex(errors.split(BEGUN)[1],
                         r"^00:00:\d\d\.\d{3}  clients = 1 : attendu, 1\n"
                         r"00:00:\d\d\.\d{3}  drop-clients ; Le lien est tombé\n"
                         r"00:00:\d\d\.\d{3}  clients = 1 : attendu, 1\n"
                         r"00:00:\d\d\.\d{3}  connections = 2 : attendu, au moins 2\n$")

    def test_is_bad_for_a_client_that_does_not(self):
        with Program("--headless", "--scenario", self.scenario(RECONNECTS),
                     "--free-port") as program:
            with Client(port_of(program)) as client:
                client.read_to_end()
            status, _, errors = program.wait()
        self.assertEqual(status, 3)
        self.assertRegex(errors.split("Le lien est tombé\n")[1],
                         r"^00:00:\d\d\.\d{3}  clients = 0 : inattendu, il fallait 1\n"
                         r"00:00:\d\d\.\d{3}  connections = 1 : inattendu, il fallait au moins 2\n"
                         r"ÉCHEC : à 00:00:\d\d\.\d{3}, clients = 0, il fallait 1 ; "
                         r"connections = 1, il fallait au moins 2\.\n$")

    def test_is_bad_where_an_action_is_refused(self):
        text, _ = self.played("steps: [{at: 5s, do: [tack, gybe]}]", "--speed", "100", status=3)
        self.assertEqual(text, "00:00:05.000  tack ; gybe : Une manœuvre est déjà en cours.\n"
                               "ÉCHEC : à 00:00:05.000, gybe : Une manœuvre est déjà en cours.\n")

    def test_is_about_the_true_boat_not_what_faults_make_of_her(self):
        _, data = self.played("set: {boat.mode: manual, manual.speed: 4, faults.no-gps: true}\n"
                              "steps:\n"
                              "  - {at: 60s, expect: {sog: {max: 6}}}\n"
                              "  - {after: 0s, set: {manual.speed: 15}}\n"
                              "  - {within: 60s, expect: {sog: {min: 10}}, end: true}\n",
                              "--speed", "max")
        self.assertEqual(positions(data), [])

    def test_comes_once_a_sum_is_reached(self):
        text, data = self.played("steps: [{within: 10s, expect: {sentences: {min: 50}}, end: true}]",
                                 "--speed", "max")
        self.assertRegex(text, r"^00:00:01\.\d{3}  sentences = \d+ : attendu, au moins 50\n$")
        self.assertGreaterEqual(len(lines(data)), 50)


    def test_is_said_to_be_missing_where_the_run_ends_before_the_scenario(self):
        waits = "steps: [{within: 1m, expect: {clients: 1}}]"
        said, _ = self.played(waits, "--duration", "5s", "--speed", "10")
        self.assertEqual(said, "ATTENTION : la simulation s'arrête avant la fin du scénario.\n")


class Mistakes(Scenarios):
    def test_are_told_all_at_once_each_with_its_place(self):
        self.assert_refused(
            "name: Essai\n"
            "sed: 7\n"
            "set: {faults.los: 3}\n"
            "steps:\n"
            "  - at: 10s\n"
            "    set: {faults.loss: 120, faults.latency: 3}\n"
            "  - at: 5s\n"
            "    say: é, do\n"
            "    do: [tack, takc]\n"
            "  - within: 3s\n"
            "    say: rien\n"
            "  - {after: 1s, say: 'é', expect: {clients: {min: 3, max: 1}}}\n"
            "  - after: 1s\n",
            "2:1: « sed » n'est pas un mot connu ici ; le plus proche est « seed ».",
            "3:7: « faults.los » n'est pas un réglage ; le plus proche est « faults.loss ».",
            "6:24: « faults.loss » : « 120 » est refusé ; il faut un nombre entier de 0 à 100 %.",
            "7:9: « at » : « 5s » est avant l'étape précédente.",
            "9:16: « takc » n'est pas une action ; la plus proche est « tack ».",
            "10:5: « within » ne va pas sans « expect ».",
            "12:59: « max » : 1 est au-dessous de min, 3.",
            "13:5: cette étape ne fait rien : il faut set, do, say, expect ou end.")

    def test_may_be_a_single_one(self):
        self.assert_refused("seed: -1\n", "1:7: « seed » : « -1 » est refusé ; il faut un nombre "
                                          "entier de 0 à 2^64−1.")

    def test_are_counted_up_to_twenty(self):
        done = run("--scenario", self.scenario("".join(f"x{n}: 1\n" for n in range(30))))
        told = done.stderr.decode().splitlines()
        self.assertEqual(done.returncode, 2)
        self.assertEqual([int(each.split(":")[1]) for each in told[:-1]], list(range(1, 21)))
        self.assertTrue(told[-1].startswith("ERREUR : 20 fautes dans "))

    def test_start_nothing_and_leave_the_recording_of_before_alone(self):
        log = self.write("log", b"$kept\r\n")
        done = run("--scenario", self.scenario("steps: 3\n"), "--output", log)
        self.assertEqual(done.returncode, 2)
        self.assertNotIn("Tidewright", done.stderr.decode())
        self.assertEqual(self.content(), b"$kept\r\n")

    def test_are_files_that_cannot_be_read_too(self):
        folder = os.path.dirname(self.path)
        for path, why in ((self.path, "n'existe pas."), (folder, "est un dossier.")):
            done = run("--scenario", path)
            self.assertEqual((done.returncode, done.stderr.decode()),
                             (2, f"ERREUR : {path} {why}\n"))


class Options(Scenarios):
    FILE = "seed: 7\nstart: 2026-06-01T12:00:00Z\nspeed: 100\nsteps: [{at: 3s, end: true}]\n"

    def banner(self, *arguments):
        done = run("--scenario", self.scenario(self.FILE), *FILE_ALONE, os.devnull, *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stderr.decode().split(BEGUN)[0]

    def test_of_the_file_are_used(self):
        path = self.scenario(self.FILE)
        self.assertTrue(self.banner().endswith(f"  SCENARIO  {path}\n  SEED  7\n"
                                               "  CLOCK  2026-06-01T12:00:00Z × 100\n"))

    def test_of_the_command_line_win(self):
        self.assertTrue(self.banner("--seed", "8", "--start", "2027-01-01T00:00:00Z", "--speed",
                                    "200").endswith("  SEED  8\n"
                                                    "  CLOCK  2027-01-01T00:00:00Z × 200\n"))

    def test_come_in_order_the_file_the_older_ones_then_set(self):
        for arguments, count in (((), 2), (("--ais", "3"), 3), (("--set", "ais.count=4"), 4),
                                 (("--ais", "3", "--set", "ais.count=4", "--set", "ais.count=1"), 1)):
            text, _ = self.played("set: {ais.count: 2}\nsteps: [{at: 1s, end: true}]\n", *NOON,
                                  "--speed", "max", *arguments)
            self.assertEqual(text, "00:00:01.000  fin\n")
            done = run("--scenario", self.path.replace("log", "essai.yaml"), "--speed", "max",
                       "--output", os.devnull, *arguments)
            self.assertIn(f"  AIS  {count} targets\n", done.stderr.decode())

    def test_that_ask_for_the_network_beside_a_file_at_full_speed_are_refused(self):
        done = run("--scenario", self.scenario("speed: max\nset: {network.tcp-port: 3000}\n"),
                   "--output", os.devnull)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr.decode(), "ERREUR : --speed max coupe TCP et UDP : "
                                               "network.tcp-port ne va pas avec.\n")


class Steps(Scenarios):
    def test_stop_and_start_the_gateway_while_the_clock_goes_on(self):
        text, data = self.played("steps:\n"
                                 "  - {at: 2500ms, do: stop}\n"
                                 "  - {at: 5500ms, do: start}\n"
                                 "  - {at: 8s, do: restart}\n"
                                 "  - {at: 10s, end: true}\n", *NOON, "--speed", "10")
        self.assertEqual(positions(data), ["120000.00", "120001.00", "120002.00", "120005.50",
                                           "120006.50", "120007.50", "120008.00", "120009.00"])
        self.assertEqual(text, "00:00:02.500  stop\n00:00:05.500  start\n00:00:08.000  restart\n"
                               "00:00:10.000  fin\n")

    def test_change_what_acts_now_at_once_and_the_rest_with_the_next_start(self):
        text, data = self.played("steps:\n"
                                 "  - at: 2s\n"
                                 "    set: {network.talker: GN, rates.position: 2}\n"
                                 "  - {at: 4s, do: restart}\n"
                                 "  - {at: 6s, end: true}\n", *NOON, "--speed", "max")
        self.assertEqual(text.splitlines()[0], "00:00:02.000  network.talker = GN ; "
                         "rates.position = 2 (au prochain démarrage)")
        talkers = [line[1:3] for line in lines(data) if line[3:6] == "RMC"]
        self.assertEqual(talkers, ["GP"] * 2 + ["GN"] * 2 + ["GN"] * 4)

    def test_are_written_as_they_happen_at_their_times(self):
        steps = "".join(f"  - {{after: {n}ms, say: Étape {n}}}\n" for n in (0, 700, 1300, 1500))
        with Program("--headless", *NOON, "--speed", "10", "--free-port", "--scenario",
                     self.scenario("steps:\n" + steps)) as program:
            said = program.read_errors_until("Étape 1500\n").split(BEGUN)[1]
            self.assertEqual(said, "00:00:00.000  Étape 0\n00:00:00.700  Étape 700\n"
                                   "00:00:02.000  Étape 1300\n00:00:03.500  Étape 1500\n")
            self.assertIsNone(program.process.poll())  # without an end the run goes on
            self.assertEqual(program.interrupt()[0], -signal.SIGINT)

    def test_give_clients_everything_and_a_clean_end_of_stream(self):
        with Program("--headless", *NOON, "--free-port", "--output", self.path, "--scenario",
                     self.scenario("steps: [{at: 2s, end: true}]")) as program:
            with Client(port_of(program)) as client:
                stream = client.read_to_end()
            self.assertEqual(program.wait()[0], 0)
        self.assertTrue(self.content().endswith(stream))
        self.assertGreater(len(stream), 1000)
        self.assertEqual(positions(self.content()), ["120000.00", "120001.00"])

    def test_act_on_a_replay(self):
        recording = self.write("recording", b"".join(b"line %d\n" % n for n in range(30)))
        _, data = self.played("steps:\n"
                              "  - {at: 1050ms, set: {faults.stop-stream: true}}\n"
                              "  - {at: 2050ms, set: {faults.stop-stream: false}}\n", "--replay",
                              recording, "--speed", "10")
        self.assertEqual(lines(data), [f"line {n}" for n in (*range(11), *range(21, 30))])

    def test_cannot_judge_the_boat_in_a_replay(self):
        path = self.scenario("steps: [{at: 1s, expect: {sog: {min: 1}}}]\n")
        done = run("--scenario", path, "--replay", self.write("recording", b"one\n"))
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr.decode(),
                         f"{path}:1:27: « sog » ne peut être jugé pendant une relecture.\n"
                         f"ERREUR : 1 faute dans {path}\n")


class Repeats(Scenarios):
    def test_the_same_seed_gives_the_same_recording_and_lines_at_every_speed(self):
        first = self.played(BUSY, "--speed", "max")
        self.assertGreater(len(lines(first[1])), 200)
        for speed in ("max", "10"):
            self.assertEqual(self.played(BUSY, "--speed", speed), first)

    def test_another_seed_gives_another(self):
        self.assertNotEqual(self.played(BUSY, "--speed", "max")[1],
                            self.played(BUSY, "--speed", "max", "--seed", "12")[1])


class Examples(unittest.TestCase):
    def test_are_accepted_and_come_to_a_verdict(self):
        examples = sorted(EXAMPLES.glob("*.yaml"))
        self.assertTrue(examples)
        for path in examples:
            with self.subTest(path.name):
                done = run("--scenario", str(path), "--speed", "1000", "--free-port")
                self.assertIn(done.returncode, (0, 3), done.stderr)
                self.assertIn(f"  SCENARIO  {path}\n", done.stderr.decode())
                failed = re.search(r"^ÉCHEC : à \d\d:\d\d:\d\d\.\d{3}, .+\.$", done.stderr.decode(),
                                   re.MULTILINE)
                self.assertEqual(bool(failed), done.returncode == 3)


if __name__ == "__main__":
    main()

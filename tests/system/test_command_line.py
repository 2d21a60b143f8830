"""What the program says on a terminal, and how it ends."""

import os
import resource
import subprocess
import unittest

from program import PROGRAM, Program, free_port, french_locale, main

SANITIZED = bool(os.environ.get("TIDEWRIGHT_SANITIZED"))
LANGUAGES = {"C": {"LC_ALL": "C", "LANG": "C"}, "C.UTF-8": {"LC_ALL": "C.UTF-8", "LANG": "C.UTF-8"}}


def languages():
    return {**LANGUAGES, "fr_FR.UTF-8": french_locale()}


def run(*arguments, env=None):
    with Program(*arguments, env=env) as program:
        return program.wait()


class Banner(unittest.TestCase):
    def banner(self, *options, env=None):
        with Program("--headless", *options, env=env) as program:
            return program.read_errors_until("Ctrl-C pour arrêter.\n")

    def test_names_what_it_serves_whatever_the_language(self):
        for language, env in languages().items():
            with self.subTest(language):
                port = free_port()
                lines = self.banner("--preset", "yacht-devices", "--tcp-port", str(port),
                                    env=env).split("\n")
                self.assertEqual(lines[0], "Tidewright — headless")
                self.assertRegex(lines[1], rf"^  TCP  [0-9.]+:{port}$")
                self.assertRegex(lines[2], r"^  UDP  broadcast [0-9.]+:1456$")
                self.assertEqual(lines[3:], ["  AIS  5 targets", "  Ctrl-C pour arrêter.", ""])

    def test_counts_the_vessels(self):
        self.assertIn("  AIS  0 targets\n",
                      self.banner("--tcp-port", str(free_port()), "--ais", "0"))

    def test_without_outputs_it_ends_with_an_error_whatever_the_language(self):
        for language, env in languages().items():
            with self.subTest(language):
                self.assertEqual(
                    run("--headless", "--no-tcp", "--no-udp", env=env),
                    (1, "", "Tidewright — headless\n"
                            "  AIS  5 targets\n"
                            "  Ctrl-C pour arrêter.\n"
                            "ERREUR : Activez au moins une sortie (TCP ou UDP).\n"))

    def test_port_zero_ends_it_with_an_error(self):
        status, out, errors = run("--headless", "--tcp-port", "0", "--no-udp")
        self.assertEqual((status, out), (1, ""))
        self.assertTrue(errors.endswith("\nERREUR : TCP 0 : Port TCP invalide\n"), errors)

    def test_a_fleet_beyond_memory_ends_it_with_one_line(self):
        counts = ["9223372036854775807"]
        if not SANITIZED:  # whose allocator ends the program instead of refusing
            counts.append("4000000000000")
        for count in counts:
            status, _, errors = run("--headless", "--no-tcp", "--ais", count)
            self.assertEqual(status, 1)
            self.assertTrue(errors.endswith(
                f"\nERREUR : Mémoire insuffisante pour {count} cibles AIS.\n"), errors)

    @unittest.skipIf(SANITIZED, "sanitizers need the address space")
    def test_a_fleet_beyond_the_memory_it_may_have_ends_it_with_one_line(self):
        limit = 512 * 1024 * 1024
        done = subprocess.run(
            [PROGRAM, "--headless", "--no-tcp", "--ais", "3000000"], capture_output=True, timeout=60,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)))
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.decode().endswith(
            "\nERREUR : Mémoire insuffisante pour 3000000 cibles AIS.\n"), done.stderr)


class Help(unittest.TestCase):
    def test_help_and_version_go_to_standard_output(self):
        status, out, errors = run("--help")
        self.assertEqual((status, errors), (0, ""))
        self.assertIn("--headless", out)
        status, out, errors = run("--version")
        self.assertEqual((status, errors), (0, ""))
        self.assertRegex(out, r"^Tidewright \d+\.\d+\.\d+\n$")

    def test_headless_wins_over_help(self):
        with Program("--help", "--headless", "--tcp-port", str(free_port())) as program:
            program.read_errors_until("Ctrl-C")


class Window(unittest.TestCase):
    def test_where_the_window_is_missing_it_names_the_other_way(self):
        alone = os.path.join(os.path.dirname(PROGRAM), "alone")
        os.makedirs(alone, exist_ok=True)
        copy = os.path.join(alone, "tidewright")
        subprocess.run(["cp", PROGRAM, copy], check=True)
        done = subprocess.run([copy], capture_output=True, timeout=20, text=True)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "")
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertIn("--headless", done.stderr)


if __name__ == "__main__":
    main()

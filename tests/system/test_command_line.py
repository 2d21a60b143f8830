"""What the program says on a terminal, and how it ends."""

import os
import pathlib
import resource
import shutil
import subprocess
import tempfile
import unittest

from program import PROGRAM, SANITIZED, Program, free_port, french_locale, main

WITHOUT_PROC = ("unshare", "--mount", "sh", "-c", 'mount -t tmpfs none /proc && exec "$0"')
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

    def assert_ends_with_one_line(self, line, limit, most, *options):
        done = subprocess.run(
            [PROGRAM, "--headless", *options], capture_output=True, timeout=60,
            preexec_fn=lambda: resource.setrlimit(limit, (most, most)))
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertEqual(done.stderr.decode().splitlines()[-1], line)
        self.assertEqual(done.stderr.count(b"ERREUR"), 1)

    @unittest.skipIf(SANITIZED, "sanitizers need the address space")
    def test_a_fleet_beyond_the_memory_it_may_have_ends_it_with_one_line(self):
        for count, line in (("3500000", "ERREUR : Mémoire insuffisante pour 3500000 cibles AIS."),
                            ("2000000", "ERREUR : Mémoire insuffisante."),
                            ("1000000", "ERREUR : Mémoire insuffisante.")):
            with self.subTest(count):
                self.assert_ends_with_one_line(line, resource.RLIMIT_AS, 512 * 1024 * 1024,
                                               "--no-tcp", "--ais", count)

    @unittest.skipIf(SANITIZED, "sanitizers need descriptors of their own")
    def test_too_few_descriptors_to_begin_with_end_it_with_one_line(self):
        for most in range(4, 13):
            with self.subTest(most):
                self.assert_ends_with_one_line(
                    "ERREUR : Trop de fichiers et de connexions ouverts : le système n'en accorde "
                    "plus.", resource.RLIMIT_NOFILE, most, "--tcp-port", str(free_port()))


class Help(unittest.TestCase):
    def test_help_and_version_go_to_standard_output(self):
        status, out, errors = run("--help")
        self.assertEqual((status, errors), (0, ""))
        self.assertIn("--headless", out)
        status, out, errors = run("--version")
        self.assertEqual((status, errors), (0, ""))
        self.assertRegex(out, r"^Tidewright \d+\.\d+\.\d+\n$")

    @unittest.skipUnless(os.path.exists("/dev/full"), "this machine has no full disk to offer")
    def test_a_full_disk_is_a_failure(self):
        for option in ("--help", "--version"):
            with self.subTest(option), open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, option], stdout=full, stderr=subprocess.PIPE,
                                      timeout=20, check=False)
                self.assertEqual(done.returncode, 1)

    def test_headless_wins_over_help(self):
        with Program("--help", "--headless", "--tcp-port", str(free_port())) as program:
            program.read_errors_until("Ctrl-C")


def procfs_can_be_hidden():
    """Whether this machine lets us run a program that cannot read /proc."""
    return subprocess.run([*WITHOUT_PROC, "true"], stderr=subprocess.DEVNULL,
                          check=False).returncode == 0


class Window(unittest.TestCase):
    def setUp(self):
        alone = tempfile.TemporaryDirectory()
        self.addCleanup(alone.cleanup)
        self.folder = pathlib.Path(alone.name)
        self.copy = self.folder / "tidewright"
        shutil.copy(PROGRAM, self.copy)

    def assert_names_the_other_way(self, done):
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "")
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertIn("--headless", done.stderr)

    def test_where_the_window_is_missing_it_names_the_other_way(self):
        self.assert_names_the_other_way(
            subprocess.run([self.copy], capture_output=True, timeout=20, text=True, check=False))

    @unittest.skipIf(SANITIZED, "sanitizers read /proc")
    @unittest.skipUnless(procfs_can_be_hidden(), "this machine does not let us hide /proc")
    def test_without_proc_it_runs_nothing_from_the_current_folder(self):
        elsewhere = self.folder / "elsewhere"
        elsewhere.mkdir()
        strange = elsewhere / "tidewright-window"
        strange.write_text("#!/bin/sh\necho strange\n")
        strange.chmod(0o755)
        self.assert_names_the_other_way(
            subprocess.run([*WITHOUT_PROC, self.copy], cwd=elsewhere, capture_output=True,
                           timeout=20, text=True, check=False))


if __name__ == "__main__":
    main()

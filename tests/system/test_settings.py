"""The list of settings, as scripts meet it: --settings and --set."""

import pathlib
import re
import subprocess
import unittest

from program import EMULATOR, PROGRAM, Program, free_port, main

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "settings.md"


def run(*arguments):
    return subprocess.run([*EMULATOR, PROGRAM, *arguments], capture_output=True, text=True,
                          timeout=20, check=False)


class Setting:
    def __init__(self, line):
        self.name, self.kind, self.default, self.range, self.acts, self.label = re.split(" {2,}", line)

    def ends(self):
        """The lowest and the highest value."""
        return [float(each) for each in re.match(r"(-?[\d.]+) à (-?[\d.]+)", self.range).groups()]

    def other(self):
        """A value that is not the default."""
        if self.kind == "flag":
            return {"true": "false", "false": "true"}[self.default]
        if self.kind == "position":
            return "-33.5,151.25"
        if self.kind in ("integer", "number"):
            low, high = self.ends()
            return f"{low if float(self.default) != low else high:g}"
        return next(each for each in self.range.split(", ") if each != self.default)

    def refused(self):
        """Values of the wrong kind and beyond the range."""
        if self.kind in ("integer", "number"):
            low, high = self.ends()
            return ["x", "", "1e1", "nan", f"{low - 1:g}", f"{high + 1:.0f}"]
        return ["x", "", "7", "TRUE"]


SETTINGS = [Setting(line) for line in run("--settings").stdout.splitlines()]


class List(unittest.TestCase):
    def test_has_a_row_for_each_with_everything_in_it(self):
        self.assertGreaterEqual(len(SETTINGS), 55)
        for each in SETTINGS:
            with self.subTest(each.name):
                self.assertRegex(each.name, r"^[a-z]+\.[a-z-]+$")
                self.assertIn(each.kind, ("flag", "integer", "number", "choice", "text", "position"))
                self.assertIn(each.acts, ("now", "next-start"))
                self.assertTrue(each.label)
                if each.kind in ("integer", "number"):
                    low, high = each.ends()
                    self.assertTrue(low <= float(each.default) <= high)
                elif each.kind in ("choice", "text"):
                    self.assertIn(each.default, each.range.split(", "))
                else:
                    self.assertEqual(each.range, "-")

    def test_is_the_documentation_s(self):
        page = PAGE.read_text(encoding="utf-8")
        for each in SETTINGS:
            with self.subTest(each.name):
                self.assertIn(f"| `{each.name}` | {each.kind} | `{each.default}` |", page)
                group = each.name.split(".")[0]
                self.assertTrue(f"`{each.name}`" in page.split("## What they mean")[1]
                                or f"`{group}.…`" in page.split("## What they mean")[1])

    def test_is_printed_beside_headless_as_well(self):
        done = run("--headless", "--settings")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(len(done.stdout.splitlines()), len(SETTINGS))


class Set(unittest.TestCase):
    def refusal_of(self, *arguments):
        done = run(*arguments)
        self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        self.assertTrue(done.stderr.startswith("ERREUR : "), done.stderr)
        return done.stderr

    def test_takes_every_setting(self):
        options = [f"--set={each.name}={each.other()}" for each in SETTINGS
                   if not each.name.startswith(("network.", "sensors.ais"))]
        with Program("--headless", "--tcp-port", str(free_port()), *options,
                     "--set", "network.udp=false", "--set", "ais.count=7") as program:
            banner = program.read_errors_until("Ctrl-C pour arrêter.\n")
        self.assertNotIn("UDP", banner)
        self.assertIn("  AIS  7 targets\n", banner)

    def test_refuses_what_does_not_fit(self):
        for each in SETTINGS:
            for value in each.refused():
                with self.subTest(f"{each.name}={value}"):
                    self.assertIn(f"« {each.name} » : « {value} » est refusé",
                                  self.refusal_of("--headless", "--set", f"{each.name}={value}"))

    def test_suggests_the_nearest_name(self):
        for each in SETTINGS:
            with self.subTest(each.name):
                name = each.name[:-2] + each.name[-1] + each.name[-2] + "x"
                self.assertIn(f"le plus proche est « {each.name} »",
                              self.refusal_of("--headless", "--set", f"{name}={each.default}"))

    def test_comes_after_the_other_options_in_order(self):
        port = free_port()
        with Program("--headless", "--set", f"network.tcp-port={port}", "--tcp-port", "1",
                     "--set", "network.udp-port=1", "--set", "network.udp-port=3456",
                     "--preset", "nke") as program:
            banner = program.read_errors_until("Ctrl-C pour arrêter.\n")
        self.assertRegex(banner, rf"(?m)^  TCP  [0-9.]+:{port}$")
        self.assertRegex(banner, r"(?m)^  UDP  broadcast [0-9.]+:3456$")

    def test_names_the_address_that_datagrams_go_to(self):
        with Program("--headless", "--tcp-port", str(free_port()), "--set",
                     "network.udp-destination=127.0.0.1") as program:
            self.assertIn("  UDP  127.0.0.1:2000\n",
                          program.read_errors_until("Ctrl-C pour arrêter.\n"))

    def test_judges_the_wind_as_a_whole(self):
        self.assertIn("wind.low", self.refusal_of("--headless", "--set", "wind.low=30"))
        with Program("--headless", "--tcp-port", str(free_port()), "--set", "wind.low=30",
                     "--set", "wind.high=34") as program:
            program.read_errors_until("Ctrl-C pour arrêter.\n")


class StrictReading(unittest.TestCase):
    def problem(self, *arguments):
        done = run("--headless", *arguments, "--set", "ais.count=3")
        self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        return done.stderr

    def test_names_the_nearest_option(self):
        self.assertIn("la plus proche est --tcp-port", self.problem("--tcp-prot", "3000"))
        self.assertIn("« preset »", self.problem("preset"))
        self.assertIn("le plus proche est nke", self.problem("--preset", "nk"))

    def test_refuses_values_that_cannot_be_read(self):
        for option, value in (("--tcp-port", "70000"), ("--udp-port", "x"), ("--ais", "1.5"),
                              ("--program", "Beat"), ("--wind-range", "16-8"), ("--polar", "95%")):
            with self.subTest(option):
                self.assertIn(f"{option} : « {value} »", self.problem(option, value))

    def test_refuses_what_stands_there_twice(self):
        self.assertIn("--no-udp", self.problem("--no-udp", "--no-udp"))

    def test_needs_a_value_where_one_belongs(self):
        done = run("--headless", "--set")
        self.assertEqual(done.returncode, 2)
        self.assertIn("--set", done.stderr)
        self.assertIn("--set", self.problem("--set=x"))

    def test_needs_headless(self):
        done = run("--set", "ais.count=3")
        self.assertEqual(done.returncode, 2)
        self.assertIn("--headless", done.stderr)

    def test_is_not_for_lines_without_the_new_options(self):
        with Program("--headless", "word", "--tcp-prot", "1", "--tcp-port", str(free_port()),
                     "--ais", "x", "--no-udp", "--no-udp") as program:
            self.assertIn("  AIS  5 targets\n",
                          program.read_errors_until("Ctrl-C pour arrêter.\n"))


if __name__ == "__main__":
    main()

"""The logbook: a run of the gateway in virtual time, the same from the same seed."""

import os
import subprocess
import unittest


def run(*arguments):
    return subprocess.run([os.environ["TIDEWRIGHT_LOGBOOK"], *arguments], capture_output=True)


def sentences(*arguments):
    return run(*arguments).stdout.decode("ascii").split("\r\n")[:-1]


def fields_of(name, lines):
    return [line.split("*")[0].split(",")[1:] for line in lines if line[3:6] == name]


class Logbook(unittest.TestCase):
    def test_the_same_seed_gives_the_same_bytes(self):
        for mode in "sailing", "manual", "anchor":
            arguments = "--mode", mode, "--minutes", "10", "--seed", "7", "--times"
            self.assertEqual(run(*arguments).stdout, run(*arguments).stdout)

    def test_another_seed_gives_another_run(self):
        self.assertNotEqual(run("--seed", "7").stdout, run("--seed", "8").stdout)

    def test_a_longer_run_begins_like_a_shorter_one(self):
        self.assertTrue(run("--minutes", "3").stdout.startswith(run("--minutes", "2").stdout))

    def test_times_are_those_of_the_pump(self):
        times = [float(line.split(" ")[0]) for line in sentences("--times")]
        self.assertEqual((times[0], times), (0.05, sorted(times)))
        self.assertLessEqual(times[-1], 60)
        for time in times:
            self.assertAlmostEqual(time * 20, round(time * 20))

    def test_each_mode_is_what_its_name_says(self):
        self.assertEqual({row[0] for row in fields_of("HDT", sentences("--mode", "manual"))},
                         {"120.0"} | {fields_of("HDT", sentences())[0][0]})
        at_anchor = fields_of("VHW", sentences("--mode", "anchor"))
        self.assertEqual({row[4] for row in at_anchor[1:]}, {"0.0"})

    def test_takes_the_options_of_the_program(self):
        lines = sentences("--preset", "nke", "--ais", "2", "--no-tcp")
        self.assertEqual(lines[0][:6], "$IIRMC")
        self.assertEqual(sum(line.startswith("!AIVDM,1,1,") for line in lines), 120)

    def test_a_fleet_beyond_memory_ends_it_with_one_line(self):
        done = run("--ais", "9223372036854775807")
        self.assertEqual((done.returncode, done.stdout), (1, b""))
        self.assertEqual(len(done.stderr.splitlines()), 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)

"""Each example lets an app pass that connects again, and fails with one that does not."""

import os
import pathlib
import subprocess
import sys
import unittest

EXAMPLES = pathlib.Path(os.environ["TIDEWRIGHT_EXAMPLES"])
PATIENCE = 60.0  # seconds that an example may take before its test fails


def run(command, app="", program=os.environ["TIDEWRIGHT_PROGRAM"]):
    """Exit status and all that was written, of the example with that app."""
    ended = subprocess.run(
        command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        env={**os.environ, "APP": app, "TIDEWRIGHT": program}, timeout=PATIENCE, encoding="utf-8")
    return ended.returncode, ended.stdout


class Example:
    """What holds for every one. `command` runs it; `failed` is its status when the app fails."""

    failed = 1

    def test_lets_an_app_pass_that_connects_again(self):
        status, text = run(self.command)
        self.assertEqual(status, 0, text)

    def test_fails_with_an_app_that_does_not(self):
        status, text = run(self.command, app="lazy")
        self.assertEqual(status, self.failed, text)
        self.assertIn("ÉCHEC : ", text)

    def test_fails_where_the_program_cannot_start(self):
        status, text = run(self.command, program="/nowhere/tidewright")
        self.assertNotEqual(status, 0, text)


class Shell(Example, unittest.TestCase):
    command = [EXAMPLES / "shell/test.sh"]
    failed = 3


class Pytest(Example, unittest.TestCase):
    # Debian's own Python, which has Debian's pytest whatever other Pythons there are.
    command = ["/usr/bin/python3", "-B", "-m", "pytest", "-p", "no:cacheprovider",
               EXAMPLES / "pytest"]


class JavaScript(Example, unittest.TestCase):
    command = ["node", "--test", EXAMPLES / "javascript/reconnect.test.mjs"]


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])

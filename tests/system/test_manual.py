"""The manual pages, in English and in French."""

import pathlib
import re
import subprocess
import unittest

from program import PROGRAM, main

MANUALS = pathlib.Path(__file__).parents[2] / "packaging" / "man"
PAGES = {"English": MANUALS / "tidewright.1", "French": MANUALS / "tidewright.fr.1"}


def rendered(page):
    return subprocess.run(
        ["man", "--warnings=w", "-E", "UTF-8", "-l", page],
        env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "MANWIDTH": "100",
             "MAN_KEEP_FORMATTING": ""},
        capture_output=True, text=True, check=True)


def options_of(text):
    return set(re.findall(r"--[a-z][a-z-]+", text))


class Manual(unittest.TestCase):
    def test_is_written_without_a_mistake(self):
        for language, page in PAGES.items():
            with self.subTest(language):
                self.assertEqual(rendered(page).stderr, "")

    def test_tells_of_exactly_the_options_that_there_are(self):
        help_text = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, check=True)
        for language, page in PAGES.items():
            with self.subTest(language):
                self.assertEqual(options_of(rendered(page).stdout.replace("\N{HYPHEN}", "-")),
                                 options_of(help_text.stdout))


if __name__ == "__main__":
    main()

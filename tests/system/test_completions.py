"""What the shells offer when a command is half typed."""

import pathlib
import re
import shutil
import subprocess
import unittest

from program import PROGRAM, main

COMPLETIONS = pathlib.Path(__file__).parents[2] / "packaging" / "completions"
BASH = COMPLETIONS / "tidewright.bash"
ZSH = COMPLETIONS / "_tidewright"
FISH = COMPLETIONS / "tidewright.fish"


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


OPTIONS = set(re.findall(r"--[a-z][a-z-]+", output(PROGRAM, "--help")))


def bash_offers(*words):
    """What bash offers for the last of these words."""
    return set(output(
        "bash", "-c", 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tidewright; '
        'printf "%s\\n" "${COMPREPLY[@]}"', "bash", BASH, "tidewright", *words).split())


def fish_offers(line):
    offered = output("fish", "--no-config", "-c", f'source {FISH}; complete -C "{line}"')
    return {each.split("\t")[0] for each in offered.splitlines()}


class Bash(unittest.TestCase):
    def test_offers_every_option(self):
        self.assertEqual(bash_offers("--"), OPTIONS)

    def test_offers_the_presets_that_fit(self):
        self.assertEqual(bash_offers("--headless", "--preset", "n"), {"nke"})

    def test_offers_the_programs(self):
        self.assertEqual(bash_offers("--program", ""), {"sequence", "beat", "reach", "run"})

    def test_offers_files_where_one_is_wanted(self):
        offered = bash_offers("--headless", "--scenario", str(COMPLETIONS) + "/")
        self.assertIn(str(BASH), offered)

    def test_offers_no_numbers(self):
        self.assertEqual(bash_offers("--tcp-port", ""), set())


class Zsh(unittest.TestCase):
    def test_names_every_option(self):
        self.assertEqual(set(re.findall(r"^ *'\*?(--[a-z-]+)\[", ZSH.read_text(), re.M)), OPTIONS)

    @unittest.skipUnless(shutil.which("zsh"), "no zsh here")
    def test_can_be_read(self):
        output("zsh", "-n", ZSH)


@unittest.skipUnless(shutil.which("fish"), "no fish here")
class Fish(unittest.TestCase):
    def test_offers_every_option(self):
        self.assertEqual(fish_offers("tidewright --"), OPTIONS)

    def test_offers_the_presets_that_fit(self):
        self.assertEqual(fish_offers("tidewright --preset n"), {"nke"})

    def test_offers_files_where_one_is_wanted(self):
        self.assertIn(str(FISH), fish_offers(f"tidewright --replay {COMPLETIONS}/"))


if __name__ == "__main__":
    main()

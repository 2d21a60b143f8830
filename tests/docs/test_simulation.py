"""docs/simulation.md prints the polar of the source."""

import pathlib
import re
import sys
import unittest

SOURCE, PAGE = (pathlib.Path(sys.argv.pop(1)).read_text(encoding="utf-8") for _ in range(2))


def numbers(text):
    return [float(each) for each in re.findall(r"\d+(?:\.\d+)?", text)]


class Simulation(unittest.TestCase):
    def test_the_polar_is_that_of_the_source(self):
        angles = numbers(re.search(r"windAngles\{(.*?)\}", SOURCE, re.DOTALL)[1])
        winds = numbers(re.search(r"windSpeeds\{(.*?)\}", SOURCE)[1])
        speeds = re.search(r"boatSpeeds\{\{(.*?)\}\}", SOURCE, re.DOTALL)[1]
        rows = [numbers(row) for row in re.findall(r"\{(.*?)\}", speeds)]
        table = [numbers(row) for row in re.findall(r"^\| \*\*.*$", PAGE, re.MULTILINE)]
        self.assertEqual(table, [angles, *([wind, *row] for wind, row in zip(winds, rows))])
        self.assertEqual(len(rows), len(winds))


if __name__ == "__main__":
    unittest.main(verbosity=2)

"""docs/sentences.md tells the truth: its lines and example values are those of the run it names."""

import functools
import os
import pathlib
import re
import subprocess
import sys
import unittest

PAGE = pathlib.Path(sys.argv.pop(1)).read_text(encoding="utf-8")
EMULATOR = os.environ.get("TIDEWRIGHT_EMULATOR", "").split()
LINES = re.compile(r"^[$!].*\*[0-9A-F]{2}$", re.MULTILINE)


def run():
    """What the command on the page sends."""
    arguments = re.search(r"^ +tidewright (--headless .*)$", PAGE, re.MULTILINE)[1].split()
    done = subprocess.run([*EMULATOR, os.environ["TIDEWRIGHT_PROGRAM"], *arguments],
                          capture_output=True, text=True, check=True)
    return done.stdout.split("\n")[:-1]


def sections():
    """Each section that describes a sentence: its lines, and its table's rows of cells."""
    for section in re.split(r"^##+ ", PAGE, flags=re.MULTILINE):
        rows = [[cell.strip(" `") for cell in row.strip("|").split(" |")]
                for row in re.findall(r"^\| \d+ \|.*$", section, re.MULTILINE)]
        if lines := LINES.findall(section):
            yield lines, rows


def kinds(lines):
    """The addresses of `lines`, with those fields that choose between layouts."""
    chosen = {"$IIMWV": slice(2, 3), "!AIVDM": slice(1, 3)}
    rows = (line.split(",") for line in lines)
    return {(row[0], *row[chosen.get(row[0], slice(0))]) for row in rows}


def bits_of(lines):
    payload = "".join(line.split(",")[5] for line in lines)
    fill = int(lines[-1].split(",")[6][0])
    values = (ord(each) - (48 if each < "`" else 56) for each in payload)
    bits = "".join(f"{value:06b}" for value in values)
    return bits[:len(bits) - fill]


def reads_as(bits, example):
    """Whether `bits` hold `example`: a text, or a number that may be negative."""
    if re.fullmatch(r"-?\d+", example):
        return int(bits, 2) == int(example) % (1 << len(bits))
    codes = (int(bits[i:i + 6], 2) for i in range(0, len(bits), 6))
    return "".join(chr(code if code >= 32 else code + 64) for code in codes) == example


class Sentences(unittest.TestCase):
    def test_each_line_is_sent_by_the_run_that_the_page_names(self):
        sent = {line.removesuffix("\r") for line in run()}
        for line in LINES.findall(PAGE):
            self.assertIn(line, sent)

    def test_each_line_has_a_right_checksum(self):
        for line in LINES.findall(PAGE):
            body, checksum = line[1:].split("*")
            xor = functools.reduce(lambda sum_, byte: sum_ ^ byte, body.encode())
            self.assertEqual(f"{xor:02X}", checksum, line)

    def test_no_sentence_is_left_out(self):
        self.assertEqual(kinds(LINES.findall(PAGE)), kinds(run()))

    def test_each_field_is_where_the_table_says(self):
        for lines, rows in sections():
            if lines[0].startswith("$"):
                fields = lines[0].split("*")[0].split(",")[1:]
                self.assertEqual([[str(i), field] for i, field in enumerate(fields, 1)],
                                 [row[:2] for row in rows])

    def test_each_bit_is_where_the_table_says(self):
        for lines, rows in sections():
            if lines[0].startswith("!"):
                bits, end = bits_of(lines), 0
                for start, length, field, *_, example in rows:
                    self.assertEqual(int(start), end, field)
                    end += int(length)
                    self.assertTrue(reads_as(bits[int(start):end], example), field)
                self.assertEqual(end, len(bits))


if __name__ == "__main__":
    unittest.main(verbosity=2)

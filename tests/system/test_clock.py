"""Somebody, or a time server, sets the machine's clock while the program runs."""

import os
import pathlib
import tempfile
import unittest

from program import Client, Program, free_port, main, seconds_ahead

HOUR = 3600
LIBRARY = next(iter(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1")), None)


@unittest.skipIf(LIBRARY is None, "libfaketime is not installed")
@unittest.skipIf(os.environ.get("TIDEWRIGHT_SANITIZED"), "sanitizers want to be loaded first")
class SteppedClock(unittest.TestCase):
    def test_the_stream_keeps_its_pace_and_carries_the_new_time(self):
        port = free_port()
        with tempfile.TemporaryDirectory() as folder:
            clock = pathlib.Path(folder, "clock")
            clock.write_text("+0")
            pretend = {"LD_PRELOAD": str(LIBRARY), "FAKETIME_TIMESTAMP_FILE": str(clock),
                       "FAKETIME_NO_CACHE": "1", "FAKETIME_DONT_FAKE_MONOTONIC": "1"}
            with Program("--headless", "--no-udp", "--tcp-port", str(port), env=pretend) as program, \
                    Client(port) as client:
                program.read_errors_until("Ctrl-C")
                received = client.read_for(2.5)
                for step in (HOUR, 0, -HOUR):
                    clock.write_text(f"{step:+d}")
                    part = client.read_for(3)
                    received += part
                    self.assertLess(abs(seconds_ahead(part) - step), 1)
        headings = [at for at, text in received if text[1:6] == "IIHDT"]
        longest = max(late - early for early, late in zip(headings, headings[1:]))
        print(f"clock set 1 h on, back, and 1 h back: {len(headings)} headings in "
              f"{headings[-1] - headings[0]:.1f} s, at most {longest:.2f} s apart", flush=True)
        self.assertLess(longest, 0.45)
        self.assertAlmostEqual(len(headings), 5 * 11.5, delta=4)


if __name__ == "__main__":
    main()

"""The program held up, as by a debugger or a laptop's lid: it goes on, and makes up for nothing."""

import collections
import os
import signal
import threading
import time
import unittest

from program import Client, Program, free_port, main, seconds_ahead

PAUSES = (1, 3, 60) if os.environ.get("TIDEWRIGHT_SOAK") == "long" else (1, 3)

# In one second: a family may be due at once after a pause, then goes on at its rate; two MWV, and
# five vessels with a report each and now and then two sentences of their names.
MOST = {"GPRMC": 2, "GPGGA": 2, "GPVTG": 2, "IIHDT": 6, "IIHDG": 6, "IIVHW": 3, "IIMWV": 6,
        "IIDBT": 2, "IIDPT": 2, "IIMTW": 1, "AIVDM": 20}
HEADING_PERIOD = 0.2
SLACK = 0.25  # of a busy machine


class Pauses(unittest.TestCase):
    def test_the_stream_goes_on_in_the_next_period_without_catching_up(self):
        port = free_port()
        with Program("--headless", "--no-udp", "--tcp-port", str(port)) as program, \
                Client(port) as client:
            client.read_for(1.5)
            for seconds in PAUSES:
                with self.subTest(seconds=seconds):
                    self.pause(program.process, client, seconds)

    def pause(self, process, client, seconds):
        before = client.read_for(1.5)
        process.send_signal(signal.SIGSTOP)
        threading.Timer(seconds, process.send_signal, (signal.SIGCONT,)).start()
        before += client.read_for(seconds - 0.1)
        resumed = time.monotonic() + 0.1
        after = client.read_for(2.1)

        gap = after[0][0] - before[-1][0]
        self.assertLess(gap, seconds + HEADING_PERIOD + SLACK)
        first_second = [text for at, text in after if at < resumed + 1]
        counts = collections.Counter(text[1:6] for text in first_second)
        for family, count in counts.items():
            self.assertLessEqual(count, MOST[family], first_second)
        self.assertGreater(self.shortest_step(before + after), 0.8, "a period made up for")
        self.assertLess(abs(seconds_ahead(after)), 0.5, "old news")
        print(f"held up for {seconds} s: silent for {gap:.2f} s, then {len(first_second)} sentences "
              "in the first second", flush=True)

    @staticmethod
    def shortest_step(received):
        """Seconds between the two positions that followed each other soonest."""
        moments = [at for at, text in received if text[1:6] == "GPRMC"]
        return min(late - early for early, late in zip(moments, moments[1:]))


if __name__ == "__main__":
    main()

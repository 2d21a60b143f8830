"""More clients than the program may have descriptors for."""

import contextlib
import time
import unittest

from program import (Client, Program, connect, cpu_seconds, descriptor_count, free_port,
                     has_right_checksum, main)

LIMIT = 40
CROWD = 80


class Exhaustion(unittest.TestCase):
    def test_the_connected_go_on_and_the_others_come_in_when_there_is_room(self):
        port = free_port()
        with contextlib.ExitStack() as stack:
            program = stack.enter_context(Program(
                "--headless", "--no-udp", "--tcp-port", str(port),
                prefix=("prlimit", f"--nofile={LIMIT}:{LIMIT}")))
            pid = program.process.pid
            first = stack.enter_context(Client(port))
            first.read_for(0.5)
            before = descriptor_count(pid)

            crowd = [stack.enter_context(connect(port)) for _ in range(CROWD)]
            first.read_for(0.5)
            self.assertEqual(descriptor_count(pid), LIMIT)
            used = cpu_seconds(pid)
            received = [text for _, text in first.read_for(3)]
            used = cpu_seconds(pid) - used
            self.assertLess(used, 0.5, "it keeps trying without a pause")
            self.assertGreater(len(received), 3 * 25)
            for sentence in received:
                self.assertTrue(has_right_checksum(sentence), sentence)

            for each in crowd[:CROWD - 5]:
                each.close()
            for each in crowd[CROWD - 5:]:
                each.settimeout(10)
                self.assertTrue(each.recv(1))
            for each in crowd:
                each.close()
            deadline = time.monotonic() + 10
            while descriptor_count(pid) != before and time.monotonic() < deadline:
                time.sleep(0.05)
            self.assertEqual(descriptor_count(pid), before)
            print(f"{CROWD} clients at {LIMIT} descriptors: {100 * used / 3:.1f} % of a core, "
                  f"{before} descriptors before and after", flush=True)


if __name__ == "__main__":
    main()

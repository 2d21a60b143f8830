"""Replays: the lines of a file or a pipe go out as they are, at the pace of their recording."""

import os
import re
import socket
import statistics
import time
import unittest

from program import (EMULATOR, PATIENCE, SANITIZED, Client, Files, Program, has_right_checksum,
                     lines, main, port_of, resident_mib, run)

NOON = ("--seed", "7", "--start", "2026-06-01T12:00:00Z")
TAGGED = ("--set", "network.tag-block=true")
LONGEST_LINE = 8 * 2**20
LARGEST_DATAGRAM = 65507
STAMP = re.compile(rb"\\s:tidewright,c:(\d+)\*[0-9A-F]{2}\\")


def at(milliseconds, text):
    """A recorded line with the TAG block of that time after its recording's first second."""
    tag = f"s:boat,c:{1780315200000 + milliseconds}"
    checksum = 0
    for byte in tag.encode():
        checksum ^= byte
    return f"\\{tag}*{checksum:02X}\\{text}\r\n".encode()


def sailed(duration, *arguments):
    """What the boat herself sends in that time."""
    done = run(*NOON, "--speed", "max", "--duration", duration, "--output", "-", *arguments)
    assert done.returncode == 0, done.stderr
    return done.stdout


def times(data):
    """The times, in milliseconds, at which the sentences of a recording left."""
    return [int(each) for each in STAMP.findall(data)]


class Replays(Files):
    def replayed(self, content, *arguments, status=0):
        """What leaves where a file of `content` is replayed as fast as the machine can."""
        done = run("--replay", self.write("recording", content), "--speed", "max", "--output", "-",
                   *NOON, *arguments)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stdout


class Lines(Replays):
    def test_end_in_any_way_and_leave_with_cr_lf(self):
        self.assertEqual(self.replayed(b"one\ntwo\r\nthree\rfour\r\n"),
                         b"one\r\ntwo\r\nthree\r\nfour\r\n")

    def test_the_last_one_needs_no_end(self):
        for end in (b"", b"\r", b"\n", b"\r\n"):
            self.assertEqual(self.replayed(b"one\ntwo" + end), b"one\r\ntwo\r\n")

    def test_that_are_empty_are_passed_over(self):
        self.assertEqual(self.replayed(b"\n\r\n\r\rone\n\n\n\r\n\r\r\ntwo\r\n\r\n\n"),
                         b"one\r\ntwo\r\n")

    def test_leave_as_they_are_whatever_they_hold(self):
        every_byte = bytes(each for each in range(256) if each not in b"\r\n")
        for line in (every_byte, b"\0", b"\0\0$GPRMC\0", b" ", b"$GPRMC,120000.00,A*00", b"$", b"*",
                     b"\\c:1780315200*00\\", b"\\unfinished", "« Île d'Yeu »".encode("latin-1"),
                     b'{"class":"VERSION"}', b"!AIVDM,2,1,", b"$PTWX," + b"x" * 200):
            self.assertEqual(self.replayed(line + b"\n"), line + b"\r\n")

    def test_of_a_megabyte_stay_whole(self):
        line = bytes(range(32, 127)) * (2**20 // 95)
        self.assertEqual(self.replayed(b"one\n" + line + b"\ntwo\n"), b"one\r\n" + line + b"\r\ntwo\r\n")

    def test_beyond_8_mib_leave_in_pieces_of_that_size(self):
        line = bytes(range(32, 127)) * (2 * LONGEST_LINE // 95 + 1)
        self.assertGreater(len(line), 2 * LONGEST_LINE)
        pieces = [line[begin:begin + LONGEST_LINE] for begin in range(0, len(line), LONGEST_LINE)]
        self.assertEqual(self.replayed(line + b"\ntwo\n"), b"\r\n".join([*pieces, b"two", b""]))

    def test_of_exactly_8_mib_leave_in_one_piece(self):
        line = b"x" * LONGEST_LINE
        self.assertEqual(self.replayed(line + b"\ntwo\n"), line + b"\r\ntwo\r\n")

    def test_that_no_datagram_can_hold_leave_by_tcp_alone(self):
        whole, over = b"y" * (LARGEST_DATAGRAM - 2), b"z" * (LARGEST_DATAGRAM - 1)
        path = self.write("recording", at(0, "begun") + at(2000, "next") +
                          b"\n".join((whole, over, b"last")))
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as receiver:
            receiver.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 2**20)
            receiver.bind(("127.0.0.1", 0))
            receiver.settimeout(PATIENCE)
            with Program("--headless", "--replay", path, "--free-port", "--set", "network.udp=true",
                         "--set", "network.udp-destination=127.0.0.1", "--set",
                         f"network.udp-port={receiver.getsockname()[1]}") as program, \
                    Client(port_of(program)) as client:
                stream = client.read_to_end()
                self.assertEqual(program.wait()[0], 0)
            datagrams = [receiver.recv(LARGEST_DATAGRAM) for _ in range(4)]
        self.assertTrue(stream.endswith(b"\r\n".join((whole, over, b"last", b""))))
        self.assertEqual(datagrams[2:], [whole + b"\r\n", b"last\r\n"])


class Sources(Replays):
    def test_a_pipe_is_replayed_line_by_line_as_it_trickles(self):
        reader, writer = os.pipe()
        with Program("--headless", "--replay", "-", "--free-port", stdin=reader) as program:
            os.close(reader)
            with os.fdopen(writer, "wb", buffering=0) as pipe, Client(port_of(program)) as client:
                deadline = time.monotonic() + PATIENCE
                while not client.read_for(0.2) and time.monotonic() < deadline:
                    pipe.write(b"until the client is there\n")
                for number in range(5):
                    time.sleep(0.15)
                    pipe.write(f"line {number}\n".encode())
                    began = time.monotonic()
                    client.socket.settimeout(PATIENCE)
                    self.assertEqual(client.socket.recv(100), f"line {number}\r\n".encode())
                    self.assertLess(time.monotonic() - began, 5 if SANITIZED or EMULATOR else 0.5)
                pipe.write(b"without an end")
                pipe.close()
                self.assertEqual(client.read_to_end(), b"without an end\r\n")
            self.assertEqual(program.wait()[0], 0)

    def test_a_named_pipe_is_awaited_until_somebody_writes(self):
        pipe = self.path + ".pipe"
        os.mkfifo(pipe)
        with Program("--headless", "--replay", pipe, "--speed", "max", "--output",
                     self.path) as program:
            program.read_errors_until("Ctrl-C")
            with open(pipe, "wb") as writer:
                writer.write(b"one\ntwo\n")
            self.assertEqual(program.wait()[0], 0)
        self.assertEqual(self.content(), b"one\r\ntwo\r\n")

    def test_standard_input_may_be_a_file(self):
        with open(self.write("recording", b"one\ntwo"), "rb") as recording:
            done = run("--replay", "-", "--speed", "max", "--output", "-", stdin=recording)
        self.assertEqual((done.returncode, done.stdout), (0, b"one\r\ntwo\r\n"))

    def test_a_file_that_grows_is_replayed_with_what_was_added(self):
        path = self.write("recording", at(0, "one") + at(2000, "two"))
        with Program("--headless", "--replay", path, "--output", self.path, "--no-tcp",
                     "--no-udp") as program:
            program.read_errors_until("Ctrl-C")
            with open(path, "ab") as recording:
                recording.write(at(2500, "three") + b"four")
            self.assertEqual(program.wait()[0], 0)
        self.assertEqual(self.content(), at(0, "one") + at(2000, "two") + at(2500, "three") +
                         b"four\r\n")

    def test_a_loop_begins_again_a_second_after_the_last_line(self):
        path = self.write("recording", b"$GPGLL,,,,,120000.00,A*00\n$GPGLL,,,,,120002.50,A*00\n")
        done = run("--replay", path, "--replay-loop", *NOON, *TAGGED, "--speed", "max", "--output",
                   "-", "--duration", "8s")
        self.assertEqual(done.returncode, 0, done.stderr)
        left = times(done.stdout)
        self.assertEqual([each - left[0] for each in left], [0, 2500, 3500, 6000, 7000])


class Refused(Replays):
    def assert_refused(self, *arguments, text):
        done = run("--replay", *arguments)
        self.assertEqual((done.returncode, done.stdout), (2, b""))
        self.assertEqual(done.stderr.decode(), f"ERREUR : {text}\n")

    def test_what_cannot_be_read_is_status_2_and_nothing_is_started(self):
        folder = os.path.dirname(self.path)
        self.assert_refused(self.path, text=f"« {self.path} » n'existe pas.")
        self.assert_refused(folder, text=f"« {folder} » est un dossier.")

    def test_what_holds_no_line_is_status_2_and_nothing_is_started(self):
        empty, only_ends = self.write("empty", b""), self.write("ends", b"\n\r\n\r\r\n\n" * 50_000)
        for path in ("/dev/null", empty, only_ends):
            for loop in ((), ("--replay-loop",)):
                self.assert_refused(path, *loop, text=f"« {path} » ne contient aucune ligne.")

    def test_standard_input_cannot_begin_again(self):
        self.assert_refused("-", "--replay-loop", text="L'entrée standard ne peut être relue : "
                                                       "--replay-loop veut un fichier.")

    def test_standard_input_may_be_closed(self):
        with Program("--headless", "--replay", "-", before=lambda: os.close(0)) as program:
            self.assertEqual(program.wait(), (2, "", "ERREUR : L'entrée standard est fermée.\n"))

    def test_standard_input_that_ends_without_a_line_is_status_2_after_the_banner(self):
        for content in (b"", b"\r\n\n\r"):
            reader, writer = os.pipe()
            with Program("--headless", "--replay", "-", "--free-port", stdin=reader) as program:
                os.close(reader)
                port_of(program)
                os.write(writer, content)
                os.close(writer)
                status, out, errors = program.wait()
            self.assertEqual((status, out), (2, ""))
            self.assertEqual(errors.splitlines()[-1],
                             "ERREUR : L'entrée standard ne contient aucune ligne.")


class Pace(Replays):
    def test_a_recording_of_its_own_gives_the_same_bytes_at_every_speed(self):
        recording = sailed("20s", *TAGGED)
        path = self.write("recording", recording)
        self.assertEqual(self.replayed(recording), recording)
        for speed in ("10", "100"):
            done = run("--replay", path, "--speed", speed, "--free-port", "--output", "-")
            self.assertEqual((done.returncode, done.stdout), (0, recording))

    def test_sentences_leave_at_the_distances_of_their_recording(self):
        recording = sailed("5s", *TAGGED)
        distances = [each - times(recording)[0] for each in times(recording)]
        # Beside lines with a TAG block of their own, one is written for those without.
        twice = b"".join(line + b"\r\nmark\r\n" for line in recording.split(b"\r\n")[:-1])
        marks = [each for each in self.replayed(twice, *TAGGED).split(b"\r\n")
                 if each.endswith(b"\\mark")]
        left = times(b"".join(marks))
        self.assertEqual([each - left[0] for each in left], distances)

    def test_without_tag_blocks_the_times_of_positions_count(self):
        replayed = self.replayed(sailed("30s"), *TAGGED)
        left = [(int(STAMP.match(each)[1]), each) for each in replayed.split(b"\r\n")
                if b"$GPRMC" in each]
        self.assertEqual([each[0] - left[0][0] for each in left], [1000 * n for n in range(30)])

    @unittest.skipIf(SANITIZED or EMULATOR, "they are slower")
    def test_sentences_arrive_at_the_distances_of_their_recording(self):
        recording = sailed("4s", *TAGGED)
        with Program("--headless", "--replay", self.write("recording", recording), "--free-port") \
                as program, Client(port_of(program)) as client:
            arrived = client.read_for(PATIENCE)
            self.assertEqual(program.wait()[0], 0)
        self.assertGreater(len(arrived), 60)
        recorded = times("".join(text for _, text in arrived).encode())
        late = [at - stamp / 1000 for (at, _), stamp in zip(arrived, recorded)]
        middle = statistics.median(late)
        distances = sorted(abs(each - middle) for each in late)
        self.assertLess(distances[len(distances) * 9 // 10], 0.05)


class Faults(Replays):
    """They act on lines as on the boat's own sentences."""

    def test_loss_takes_lines_away_and_leaves_the_rest_as_it_was(self):
        recording = sailed("3m")
        lossy, clean = lines(self.replayed(recording, "--set", "faults.loss=30")), lines(recording)
        rest = iter(clean)
        self.assertTrue(all(any(line == other for other in rest) for line in lossy))
        self.assertAlmostEqual(1 - len(lossy) / len(clean), 0.3, delta=0.04)

    def test_a_wrong_checksum_changes_two_digits(self):
        recording = sailed("20s")
        wrong = lines(self.replayed(recording, "--set", "faults.bad-checksum=true"))
        self.assertEqual([each[:-2] for each in wrong], [each[:-2] for each in lines(recording)])
        self.assertFalse(any(map(has_right_checksum, wrong)))

    def test_latency_changes_nothing_but_the_times(self):
        recording = sailed("20s")
        prompt = self.replayed(recording, *TAGGED)
        late = self.replayed(recording, *TAGGED, "--set", "faults.latency=700")
        self.assertEqual(STAMP.sub(b"", late), recording)
        self.assertEqual(times(late), [each + 700 for each in times(prompt)])

    def test_a_stopped_stream_is_silent(self):
        recording = b"one\ntwo\n"
        self.assertEqual(self.replayed(recording), b"one\r\ntwo\r\n")
        self.assertEqual(self.replayed(recording, "--set", "faults.stop-stream=true"), b"")

    def test_the_same_seed_gives_the_same_faults(self):
        recording = sailed("1m")
        faults = ("--set", "faults.loss=20", "--set", "faults.latency=300")
        first, again = (self.replayed(recording, *faults) for _ in range(2))
        self.assertEqual(first, again)


class End(Replays):
    def test_gives_clients_everything_and_a_clean_end_of_stream(self):
        path = self.write("recording", at(0, "begun") + at(2000, "one") + b"x" * 300_000 + b"\nlast")
        for late in ((), ("--set", "faults.latency=2000")):
            with Program("--headless", "--replay", path, "--free-port", *late) as program:
                with Client(port_of(program)) as client:
                    stream = client.read_to_end()
                self.assertEqual(program.wait()[0], 0)
            self.assertTrue(stream.endswith(at(2000, "one") + b"x" * 300_000 + b"\r\nlast\r\n"))


class Memory(Replays):
    @unittest.skipIf(SANITIZED or EMULATOR, "they need memory of their own")
    def test_does_not_grow_with_the_file(self):
        second = sailed("1s")
        path = self.write("recording", second * (64 * 2**20 // len(second) + 1))
        most = 0
        with Program("--headless", "--replay", path, "--speed", "max", "--output",
                     os.devnull) as program:
            program.read_errors_until("Ctrl-C")
            deadline = time.monotonic() + 3 * PATIENCE
            while program.process.poll() is None and time.monotonic() < deadline:
                try:
                    most = max(most, resident_mib(program.process.pid))
                except LookupError:
                    break  # it has just ended
                time.sleep(0.02)
            self.assertEqual(program.wait()[0], 0)
        self.assertTrue(1 < most < 12, f"{most} MiB")


if __name__ == "__main__":
    main()

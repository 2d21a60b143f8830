"""What the built program is made of."""

import os
import shutil
import subprocess
import unittest

from program import EMULATOR, PROGRAM, Program, free_port, main

WINDOW = PROGRAM + "-window"
PROGRAMS = [PROGRAM, WINDOW] if os.path.exists(WINDOW) else [PROGRAM]
SYSTEM = {"libm", "libgcc_s", "libc", "ld-linux-x86-64", "ld-linux-aarch64", "ld-linux-armhf"}
RELEASE = os.environ.get("TIDEWRIGHT_BUILD_TYPE") == "Release"


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Libraries(unittest.TestCase):
    @unittest.skipIf(EMULATOR, "its libraries are another machine's")
    def test_it_links_no_toolkit(self):
        self.assertNotIn("Qt", output("ldd", PROGRAM))

    def test_it_loads_no_toolkit(self):
        with Program("--headless", "--no-udp", "--tcp-port", str(free_port())) as program:
            program.read_errors_until("Ctrl-C")
            with open(f"/proc/{program.process.pid}/maps") as maps:
                self.assertNotIn("Qt", maps.read())

    @unittest.skipIf(os.environ.get("TIDEWRIGHT_SANITIZED"), "sanitizers bring their own")
    def test_it_needs_nothing_but_the_system_and_the_language(self):
        needed = {line.split("[")[1].rstrip("]").split(".")[0]
                  for line in output("readelf", "-dW", PROGRAM).splitlines() if "(NEEDED)" in line}
        language = needed - SYSTEM
        self.assertIn(language, ({"libstdc++"}, {"libc++", "libc++abi", "libunwind"}))


@unittest.skipUnless(RELEASE and shutil.which("readelf"), "only a release is hardened")
class Hardening(unittest.TestCase):
    def test_it_can_be_loaded_anywhere(self):
        for program in PROGRAMS:
            with self.subTest(os.path.basename(program)):
                self.assertRegex(output("readelf", "-hW", program), r"Type:\s+DYN")

    def test_its_tables_are_read_only_once_it_runs(self):
        for program in PROGRAMS:
            with self.subTest(os.path.basename(program)):
                self.assertIn("GNU_RELRO", output("readelf", "-lW", program))
                self.assertIn("BIND_NOW", output("readelf", "-dW", program))

    def test_its_stack_is_guarded_and_its_copies_are_checked(self):
        for program in PROGRAMS:
            with self.subTest(os.path.basename(program)):
                symbols = output("readelf", "--dyn-syms", "-W", program)
                self.assertIn("__stack_chk_fail", symbols)
                self.assertRegex(symbols, r"__\w+_chk@")

    def test_it_takes_libraries_from_the_system_only(self):
        for program in PROGRAMS:
            with self.subTest(os.path.basename(program)):
                self.assertNotRegex(output("readelf", "-dW", program), "RPATH|RUNPATH")


if __name__ == "__main__":
    main()

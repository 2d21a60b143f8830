"""test_foreign.py PACKAGE EMULATOR...: unpacks the headless package made for another machine and runs
what is in it under the emulator, as its users would: version, stream, manuals, service."""

import os
import pathlib
import subprocess
import sys
import tempfile

package, *emulator = sys.argv[1:]
folder = tempfile.TemporaryDirectory(prefix="tidewright-foreign-")
root = pathlib.Path(folder.name)
subprocess.run(["dpkg-deb", "--extract", package, root], check=True)
os.environ["TIDEWRIGHT_PROGRAM"] = str(root / "usr/bin/tidewright")
os.environ["TIDEWRIGHT_EMULATOR"] = " ".join(emulator)
sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "system"))
from program import Client, Program, free_port, has_right_checksum  # noqa: E402


def check_version():
    with Program("--version") as program:
        status, out, errors = program.wait()
    version = package.rsplit("_", 2)[1]
    assert (status, out, errors) == (0, f"Tidewright {version}\n", ""), (status, out, errors)


def check_stream():
    port = free_port()
    with Program("--headless", "--tcp-port", str(port), "--set", "network.udp=false") as program:
        program.read_errors_until("Ctrl-C pour arrêter.\n")
        with Client(port) as client:
            sentences = [sentence for _, sentence in client.read_for(2)]
    assert len(sentences) > 20 and all(map(has_right_checksum, sentences)), sentences
    return len(sentences)


def check_files():
    for each in ("usr/share/man/man1/tidewright.1.gz", "usr/lib/systemd/system/tidewright.service",
                 "etc/default/tidewright", "usr/share/bash-completion/completions/tidewright"):
        assert (root / each).is_file(), each


check_version()
check_files()
print(f"   {pathlib.Path(package).name}: {check_stream()} sentences with their checksums in two seconds")

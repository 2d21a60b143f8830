"""test_install.py PACKAGES PICTURE: installs the packages in the folder PACKAGES in a fresh Debian
that is made for it, uses them there as their users would, photographs the window into PICTURE, and
takes them away again. It runs as root.

The fresh Debian comes from where this machine's own packages come from. It and all that runs in it
are gone at the end, however that comes.
"""

import contextlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
SYSTEM_TESTS = HERE.parent / "system"
os.environ["TIDEWRIGHT_PROGRAM"] = "tidewright"
sys.path.insert(0, str(SYSTEM_TESTS))
from program import Client, Program, free_port, has_right_checksum  # noqa: E402

PATIENCE = 600  # seconds that the slowest step may take
LIBRARIES = {"linux-vdso", "libstdc++", "libm", "libgcc_s", "libc", "ld-linux-x86-64",
             "ld-linux-aarch64"}
COMPLETIONS = ("usr/share/bash-completion/completions/tidewright",
               "usr/share/zsh/vendor-completions/_tidewright",
               "usr/share/fish/vendor_completions.d/tidewright.fish")
LEFT_TO_OTHERS = ("proc", "tmp", "var/cache", "var/lib/apt", "var/lib/dpkg", "var/log")
# The service's user, in the service's world: see packaging/systemd/tidewright.service.
AS_SERVICE = ("setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--no-new-privs",
              "--bounding-set=-all")


def run(*command, **options):
    done = subprocess.run(command, timeout=PATIENCE, text=True, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} ended with {done.returncode}\n{done.stdout or ''}")
    return done


def output(*command):
    return run(*command, stdout=subprocess.PIPE).stdout


def say(text):
    print("   " + text, flush=True)


class FreshDebian:
    """A Debian in a folder of its own, with nothing but the base system."""

    def __init__(self, root):
        self.root = root
        codename = re.search(r"^VERSION_CODENAME=(\w+)$",
                             pathlib.Path("/etc/os-release").read_text(), re.M)[1]
        run("apt-get", "update", "-qq")
        mirror = output("apt-get", "indextargets", "--format", "$(REPO_URI)",
                        "Origin: Debian", f"Codename: {codename}").split()[0]
        run("debootstrap", "--variant=minbase", codename, root, mirror, stdout=subprocess.DEVNULL)
        for each in ("etc/apt", "usr/share/keyrings"):
            shutil.rmtree(root / each)
            shutil.copytree(pathlib.Path("/") / each, root / each)
        for each in ("etc/resolv.conf", "etc/hosts"):
            shutil.copy(pathlib.Path("/") / each, root / each)
        run("mount", "-t", "proc", "proc", root / "proc")
        (root / "etc/dpkg/dpkg.cfg.d/hasty").write_text("force-unsafe-io\n")  # it need not last
        self("apt-get", "update", "-qq")

    def __call__(self, *command):
        """What `command` prints in there."""
        return run("chroot", self.root, *command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                   env={**os.environ, "DEBIAN_FRONTEND": "noninteractive", "LC_ALL": "C.UTF-8",
                        "PATH": "/usr/sbin:/usr/bin:/sbin:/bin"}).stdout

    def install(self, package):
        shutil.copy(package, self.root / "tmp")
        self("apt-get", "install", "-y", "-qq", "--no-install-recommends", f"/tmp/{package.name}")

    def purge(self, package):
        self("apt-get", "purge", "-y", "-qq", "--autoremove", package)

    def packages(self):
        return set(self("dpkg-query", "--show", "--showformat", "${Package}\n").split())

    def files(self):
        """Every file and folder but those that the packaging system keeps for itself."""
        found = set()
        for folder, folders, files in os.walk(self.root):
            here = os.path.relpath(folder, self.root)
            folders[:] = [each for each in folders
                          if os.path.normpath(os.path.join(here, each)) not in LEFT_TO_OTHERS]
            found.update(os.path.normpath(os.path.join(here, each)) for each in folders + files)
        return found


@contextlib.contextmanager
def as_service_sees_it(root):
    """The same Debian, read-only and without the kernel's own files in /proc."""
    run("mount", "--bind", root, root)
    run("mount", "-o", "remount,bind,ro", root)
    run("mount", "-t", "proc", "-o", "subset=pid,hidepid=invisible", "proc", root / "proc")
    try:
        yield
    finally:
        run("umount", root / "proc")
        run("umount", root)


def check_stream(*prefix):
    port = free_port()
    with Program("--headless", "--no-udp", "--tcp-port", str(port), prefix=prefix) as program:
        banner = program.read_errors_until("Ctrl-C pour arrêter.\n")
        with Client(port) as client:
            sentences = [sentence for _, sentence in client.read_for(2)]
        program.process.terminate()
        _, out, errors = program.wait()
    assert len(sentences) > 20, sentences
    assert all(map(has_right_checksum, sentences)), sentences
    assert (out, errors) == ("", banner), (out, errors)
    return len(sentences)


def check_headless(debian, before):
    assert debian.packages() - before == {"tidewright"}, debian.packages() - before
    needed = {line.split()[0].split("/")[-1].split(".so")[0]
              for line in debian("ldd", "/usr/bin/tidewright").splitlines()}
    assert needed <= LIBRARIES, needed
    say(f"needs {', '.join(sorted(needed))}")

    say(f"{check_stream('chroot', debian.root)} sentences with their checksums in two seconds")
    with as_service_sees_it(debian.root):
        check_stream("chroot", debian.root, *AS_SERVICE)
    say("as many in the service's world")

    with Program(prefix=("chroot", debian.root)) as program:
        status, out, errors = program.wait()
    assert (status, out) == (1, "") and errors.count("\n") == 1 and "--headless" in errors, errors
    say(f"without the window: {errors.strip()}")

    for folder, heading in (("man1", "NAME"), ("fr/man1", "NOM")):
        page = debian.root / "usr/share/man" / folder / "tidewright.1.gz"
        assert f"\n{heading}\n" in output("man", "--encoding=UTF-8", "--local-file", page)
    for completion in COMPLETIONS:
        assert (debian.root / completion).is_file(), completion
    assert (debian.root / "etc/default/tidewright").is_file()
    assert "etc/default/tidewright" in debian("dpkg-query", "--show", "--showformat",
                                              "${Conffiles}", "tidewright")
    enabled = list(debian.root.glob("etc/systemd/system/*.wants/tidewright.service"))
    assert not enabled, enabled
    say("manuals, completions and settings are in their places; the service waits to be enabled")


def check_window(debian, picture):
    run(SYSTEM_TESTS / "window" / "session.sh", HERE / "look_at_window.sh", debian.root, picture)
    say(f"the window is painted, as {picture} shows, and ends when asked")


def check(packages, picture, folder):
    machine = output("dpkg", "--print-architecture").strip()
    headless, window = (next(packages.glob(f"{name}_*_{machine}.deb"))
                        for name in ("tidewright", "tidewright-window"))
    debian = FreshDebian(folder / "root")
    before, bare = debian.packages(), debian.files()
    debian.install(headless)
    check_headless(debian, before)
    debian.purge("tidewright")
    left = debian.files() ^ bare
    assert not left, left
    say("purged, it leaves nothing behind")

    debian.install(headless)
    debian.install(window)
    check_window(debian, picture)
    debian.purge("tidewright*")
    left = [each for each in debian.files() if "tidewright" in each.lower()]
    assert not left and debian.packages() == before, (left, debian.packages() - before)
    say("purged, they leave nothing behind")


def check_in_own_namespaces(*paths):
    """The exit status of this program's other half, whose mounts and processes end with it."""
    inside = subprocess.Popen(
        ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc",
         sys.executable, "-B", __file__, "--inside", *paths], start_new_session=True)
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
        signal.signal(number, lambda *_: os.killpg(inside.pid, signal.SIGTERM))
    return inside.wait()


def main():
    first, *others = sys.argv[1:]
    if first == "--inside":
        signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended before the end"))
        check(*map(pathlib.Path, others))
    else:
        with tempfile.TemporaryDirectory(prefix="tidewright-debian-") as folder:
            sys.exit(check_in_own_namespaces(*map(os.path.abspath, sys.argv[1:]), folder))


main()

"""The running control window, driven as a person with assistive technology does (AT-SPI).

Controls are found by their French labels. Nothing here sleeps for a fixed time: whatever is expected
is looked for until it comes or the time is up.
"""
import os
import re
import signal
import subprocess
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.filterwarnings("ignore", category=DeprecationWarning)

TITLE = "Tidewright"
PIECES = {"label", "heading", "push button", "radio button", "check box", "slider", "spin button",
          "text", "alert"}


class NotFound(AssertionError):
    pass


class ControlWindow:
    """One run of the program, from its first frame to its end."""

    def __init__(self, program, environment=None, timeout=15.0):
        Atspi.init()
        Atspi.set_timeout(2000, 5000)
        self.timeout = timeout
        self.root = None
        # The registry must be up before the program looks for it, which it does only once.
        self.until(lambda: Atspi.get_desktop(0).get_child_count() >= 0, "the accessibility bus")
        self.process = subprocess.Popen(
            [program], stderr=subprocess.PIPE, env={**os.environ, **(environment or {})},
            preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_DFL))  # nohup ignores it
        try:
            self.root = self.until(self._application, "the application on the accessibility bus")
        except NotFound:
            self.process.kill()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stderr.close()

    def end(self, number=signal.SIGTERM):
        """Asks the program to end; its exit status and what it said on standard error."""
        self.process.send_signal(number)
        return self.wait()

    # Waiting and finding

    def until(self, what, label, timeout=None):
        """The first true answer of what(), asked again and again."""
        end = time.monotonic() + (timeout or self.timeout)
        while True:
            try:
                if answer := what():
                    return answer
            except GLib.Error:
                pass  # the tree changed under our feet
            if time.monotonic() > end:
                raise NotFound(f"never came: {label}")
            if self.root:
                self.root.clear_cache()  # no main loop runs here to hear of changes
            time.sleep(0.03)

    def _application(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            each = desktop.get_child_at_index(index)
            if each and each.get_process_id() == self.process.pid and each.get_child_count():
                return each
        return None

    def walk(self, node=None):
        node = node or self.root
        yield node
        try:
            children = [node.get_child_at_index(i) for i in range(node.get_child_count())]
        except GLib.Error:
            return
        for child in children:
            if child:
                yield from self.walk(child)

    def _named(self, name, role):
        """The first on the screen; else the first that is hidden or would have to be scrolled to."""
        elsewhere = None
        for node in self.walk():
            try:
                if node.get_name() == name and role in (None, node.get_role_name()):
                    if "showing" in states(node):
                        return node
                    elsewhere = elsewhere or node
            except GLib.Error:
                continue
        return elsewhere

    def find(self, name, role=None):
        return self.until(lambda: self._named(name, role), f"{role or 'control'} {name!r}")

    def has(self, name, role=None):
        self.root.clear_cache()
        return self._named(name, role) is not None

    def texts(self):
        """Every name and description in the window."""
        self.root.clear_cache()
        found = set()
        for node in self.walk():
            try:
                found |= {node.get_name(), node.get_description()}
            except GLib.Error:
                continue
        return found

    # Acting

    def press(self, name, role=None):
        node = self.find(name, role)
        actions = [node.get_action_name(i) for i in range(node.get_n_actions())]
        for wanted in ("Press", "Toggle"):
            if wanted in actions and node.do_action(actions.index(wanted)):
                return
        raise NotFound(f"{name!r} cannot be pressed; it offers {actions}")

    def set(self, name, value, role=None):
        if not self.find(name, role).set_current_value(float(value)):
            raise NotFound(f"{name!r} refuses {value}")

    def switch(self, name, on):
        """Brings a switch to a position, if it is not there."""
        if self.state(name, "checked") != on:
            self.press(name)
        self.until(lambda: self.state(name, "checked") == on, f"{name!r} at {on}")

    def focus(self, name, role=None):
        """Gives a control the keyboard, which scrolls it into sight."""
        node = self.find(name, role)
        node.grab_focus()
        self.until(lambda: self.state(name, "focused", role), f"the focus on {name!r}")

    def click(self, name, role=None):
        self.click_at(*self.centre(name, role))

    def click_at(self, x, y, times=1):
        xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 60, 1)

    def drag(self, start, end):
        """From one place on the screen to another, with the button held."""
        xdotool("mousemove", *start, "mousedown", 1)
        for share in (0.3, 0.6, 1):
            xdotool("mousemove", "--sync",
                    *(round(a + share * (b - a)) for a, b in zip(start, end)))
        xdotool("mouseup", 1)

    def wheel(self, place, notches):
        """Down by so many notches; up when negative."""
        xdotool("mousemove", *place, "click", "--repeat", abs(notches), "--delay", 20,
                5 if notches > 0 else 4)

    def paste(self, text):
        """Over what the field with the keyboard holds."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True)
        self.keys("ctrl+a", "ctrl+v")

    def type(self, name, text):
        """Types over what a field holds, and leaves it."""
        self.focus_window()
        self.focus(name, "text")
        xdotool("key", "ctrl+a")
        xdotool("type", text)
        xdotool("key", "Tab")

    def keys(self, *names):
        self.focus_window()
        xdotool("key", *names)

    def focus_window(self):
        xdotool("windowfocus", "--sync", self.window_id())

    # Reading

    def value(self, name, role=None):
        return self.find(name, role).get_current_value()

    def state(self, name, state, role=None):
        self.root.clear_cache()
        return state in states(self.find(name, role))

    def description(self, name, role=None):
        self.root.clear_cache()
        return self.find(name, role).get_description()

    def field(self, name):
        self.root.clear_cache()
        node = self.find(name, "text")
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def wait_text(self, text):
        return self.find(text)

    def rows(self):
        """The console's lines in sight, from top to bottom."""
        self.root.clear_cache()
        found = []
        for node in self.walk(self.find("Console", "list")):
            try:
                if node.get_role_name() == "list item" and "showing" in states(node):
                    found.append((node.get_extents(Atspi.CoordType.SCREEN).y, node.get_name()))
            except GLib.Error:
                continue
        return [text for _, text in sorted(found) if text.strip()]  # a row may change meanwhile

    def box(self, name, role=None):
        """Left, top, width and height on the screen."""
        self.root.clear_cache()
        box = self.find(name, role).get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def centre(self, name, role=None):
        left, top, width, height = self.box(name, role)
        return left + width // 2, top + height // 2

    def focused(self):
        """The name of the control that has the keyboard."""
        self.root.clear_cache()
        for node in self.walk():
            try:
                if {"focused", "showing"} <= states(node) and node.get_role_name() != "frame":
                    return node.get_name()
            except GLib.Error:
                continue
        return None

    def pieces(self):
        """Texts and controls in sight: their names and boxes."""
        self.root.clear_cache()
        found = []
        for node in self.walk():
            try:
                if node.get_role_name() in PIECES and "showing" in states(node) and node.get_name():
                    box = node.get_extents(Atspi.CoordType.SCREEN)
                    found.append((node.get_name(), (box.x, box.y, box.width, box.height)))
            except GLib.Error:
                continue
        return found

    # The window itself

    def window_id(self):
        return self.until(
            lambda: xdotool("search", "--onlyvisible", "--name", f"^{TITLE}$").split(), "the window"
        )[0]

    def resize(self, width, height):
        window = self.window_id()
        xdotool("windowsize", "--sync", window, width, height)

    def pixels(self, left, top, width, height):
        """Three bytes each."""
        return subprocess.run(
            ["import", "-window", self.window_id(), "-crop", f"{width}x{height}+{left}+{top}",
             "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout

    def smallest_size(self):
        """What the window asks the desktop never to go below."""
        said = subprocess.run(["xprop", "-id", self.window_id(), "WM_NORMAL_HINTS"],
                              capture_output=True, text=True, check=True).stdout
        return tuple(map(int, re.search(r"minimum size: (\d+) by (\d+)", said).groups()))

    def close(self):
        """Presses the button that a desktop puts on a window's frame."""
        from Xlib import X, display, protocol
        screen = display.Display()
        window = screen.create_resource_object("window", int(self.window_id()))
        data = (32, [screen.intern_atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0])
        window.send_event(protocol.event.ClientMessage(
            window=window, client_type=screen.intern_atom("WM_PROTOCOLS"), data=data))
        screen.flush()

    def wait(self):
        """For the program's end; its exit status and what it said on standard error."""
        _, said = self.process.communicate(timeout=self.timeout)
        return self.process.returncode, said.decode()

    def shoot(self, path):
        subprocess.run(["import", "-window", self.window_id(), path], check=True)


def states(node):
    return {each.value_nick for each in node.get_state_set().get_states()}


def xdotool(*arguments):
    done = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True,
                          timeout=10)
    return done.stdout


def clipboard():
    done = subprocess.run(["xclip", "-o", "-selection", "clipboard"], capture_output=True,
                          timeout=10)
    return done.stdout.decode()

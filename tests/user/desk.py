# SPDX-License-Identifier: MIT
"""A desk of its own for one trial: message bus, screen and the program, met from the outside only.

What the program shows is read over the accessibility bus, as a screen reader does; what a user does
is done by keys, pointer or actions on that bus; pictures are taken from the screen.
"""
import atexit
import os
import re
import subprocess
import sys
import tempfile
import time
import traceback

PATIENCE = 20  # seconds that a condition may take on a busy machine

_running, _failed, _checks = [], [], 0


def own_session():
    """Goes on in a message bus session and home of its own, so that nothing of the caller's desktop
    takes part."""
    if "TRIAL_HOME" in os.environ:
        sys.stderr = sys.stdout  # the outer stream is the bus's
        return
    with tempfile.TemporaryDirectory(prefix="trial-") as home:
        os.mkdir(home + "/run", 0o700)
        env = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "HOME": home, "TRIAL_HOME": home,
               "XDG_RUNTIME_DIR": home + "/run", "NO_AT_BRIDGE": "1", "PYTHONDONTWRITEBYTECODE": "1",
               "ASAN_OPTIONS": "detect_leaks=0"}  # the toolkit and its helpers keep what they have
        command = ["dbus-run-session", "--", "/usr/bin/python3", *sys.argv]
        sys.exit(subprocess.run(command, env=env, stderr=subprocess.DEVNULL, check=False).returncode)


def spawn(*command, **options):
    process = subprocess.Popen(command, **options)
    _running.append(process)
    return process


@atexit.register
def _end_all():
    for process in reversed(_running):
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False).stdout


def check(holds, what):
    global _checks
    _checks += 1
    if not holds:
        _failed.append(what)
        print("FAILED  " + what, flush=True)
    return bool(holds)


def wait(condition, what, patience=PATIENCE):
    """Waits until the condition holds and gives its value; one that doesn't come to hold is a
    failed check and ends the trial. What is looked at may go at this very moment."""
    from gi.repository import GLib
    end = time.monotonic() + patience
    while time.monotonic() < end:
        try:
            value = condition()
        except (GLib.GError, AttributeError, NotImplementedError, StopIteration, ValueError):
            value = None
        if value:
            check(True, what)
            return value
        time.sleep(0.01)
    traceback.print_stack(limit=4)
    check(False, "waited in vain: " + what)
    return finish()


def finish():
    """Prints the outcome and ends the process with it. No check at all is no success."""
    name = os.path.basename(sys.argv[0])
    print(f"{name}: {_checks - len(_failed)} of {_checks} checks passed", flush=True)
    sys.exit(1 if _failed or not _checks else 0)


def open_screen(width, height):
    """A screen with a window manager, a German keyboard and, once, the accessibility bus."""
    reader, writer = os.pipe()
    spawn("Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-screen", "0",
          f"{width}x{height}x24", pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as told:
        os.environ["DISPLAY"] = ":" + told.readline().strip()
    subprocess.run(["setxkbmap", "de"], check=True)  # umlauts as keys of their own
    spawn("openbox", "--sm-disable", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait(lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "window manager")
    if "AT_SPI_LAUNCHER" not in os.environ:
        spawn("/usr/libexec/at-spi-bus-launcher", "--launch-immediately", stdout=subprocess.DEVNULL,
              stderr=subprocess.DEVNULL)
        os.environ["AT_SPI_LAUNCHER"] = "started"
        wait(lambda: "/" in run("dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                                "/org/a11y/bus", "org.a11y.Bus.GetAddress"), "accessibility bus")


class Program:
    """The running program as a screen reader meets it."""

    def __init__(self, file, **environment):
        import pyatspi  # only now, as it connects to the bus at once
        self.pyatspi = pyatspi
        pyatspi.setTimeout(30000, 60000)  # milliseconds; a look that takes longer gives nothing
        self.heard = []
        self.scale = float(environment.get("QT_SCALE_FACTOR", 1))
        pyatspi.Registry.registerEventListener(
            self.hear, "object:state-changed:focused", "object:state-changed:checked")
        self.errors = tempfile.TemporaryFile("w+")
        env = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", **environment}
        self.process = spawn(os.path.abspath(file), env=env, stderr=self.errors)
        desktop = pyatspi.Registry.getDesktop(0)
        self.app = wait(lambda: next(app for app in desktop if app
                                     and app.get_process_id() == self.process.pid), "the program")
        self.app.set_cache_mask(pyatspi.cache.NONE)  # every look is a fresh one
        self.main = wait(lambda: next(window for window in self.app if window.childCount > 1
                                      and self.has(window, "ACTIVE")), "the main window")
        # These stay as long as the program: in a run each look waits for the run's next pause.
        self.pad = list(self.find("panel", "Zahlenfeld"))
        items = list(self.find("panel", "Nummern und Chancen"))
        self.labels, self.numbers, self.badges = items[:-74], items[-74:-37], items[-37:]
        self.grid = self.find("table")
        self.table = self.grid.queryTable()

    def hear(self, event):
        try:
            if event.host_application == self.app and event.detail1 in (0, 1):
                self.heard.append((str(event.type).rsplit(":", 1)[-1], event.source, event.detail1))
        except Exception:  # pylint: disable=broad-except # its source has gone
            pass

    def hears(self, kind, node, value=None):
        """Whether a screen reader has been told of such an event."""
        from gi.repository import GLib
        while GLib.MainContext.default().pending():
            GLib.MainContext.default().iteration(False)
        return any(event[:2] == (kind, node) and value in (None, event[2]) for event in self.heard)

    def has(self, node, state):
        return node.getState().contains(getattr(self.pyatspi, "STATE_" + state))

    def active(self):
        return next((window for window in self.app if window and self.has(window, "ACTIVE")), None)

    def front(self, name):
        """Waits for a window that the program and the screen hold for the active one, and gives it."""
        def there():
            window, focus = self.active(), run("xdotool", "getwindowfocus", "getwindowname").strip()
            return window.name == name == focus and window
        return wait(there, f"“{name}” in front", 60)

    def back(self):
        self.front(self.main.name)

    def nodes(self, root=None):
        """What is in view of a node and all below it, depth first, but for the cells of tables."""
        root = root or self.main
        yield root
        if root.getRoleName() not in ("table", "tree table"):
            for child in root:
                if child and self.has(child, "SHOWING"):
                    yield from self.nodes(child)

    def find(self, role, name=None, under=None):
        return next((node for node in self.nodes(under) if node.getRoleName() == role
                     and name in (None, node.name)), None)

    def focused(self):
        """What has the focus, as a screen reader is told: the last one heard of."""
        self.hears("", None)
        last = next((node for kind, node, on in reversed(self.heard) if kind == "focused" and on), None)
        return last if last and self.has(last, "FOCUSED") else None

    def rect(self, node):
        """Place relative to the screen: left, top, width, height."""
        box = node.queryComponent().getExtents(self.pyatspi.DESKTOP_COORDS)
        return (box.x, box.y, box.width, box.height)

    def place(self, node):
        """The same in the screen's own pixels, beside what a screen reader is told."""
        told = run("xwininfo", "-name", self.main.name)
        corner = [int(word) for word in re.findall(r"Absolute upper-left .: +(-?\d+)", told)]
        origin, box = self.rect(self.main), self.rect(node)
        return (*(round(corner[i] + (box[i] - origin[i]) * self.scale) for i in (0, 1)),
                round(box[2] * self.scale), round(box[3] * self.scale))

    def press(self, node):
        """The node's action; whether it has one."""
        return node.queryAction().nActions > 0 and node.queryAction().doAction(0)

    def counts(self):
        return [int(badge.name) for badge in self.badges]

    def rows(self):
        return self.table.nRows

    def row(self, index):
        return [self.table.getAccessibleAt(index, column).name for column in range(16)]

    def heads(self):
        return [self.table.getColumnHeader(column).name for column in range(16)]

    def text(self, node=None):
        return (node or self.focused()).queryText().getText(0, -1)

    def answer(self, text):
        """Types into what has the focus and confirms it once all of it has arrived."""
        wait(self.focused, "a box to type into")
        keys("ctrl+a")
        type_text(text)
        wait(lambda: self.text() == text, f"“{text}” in the box")
        keys("Return")

    def ends(self, patience=PATIENCE):
        """The program ends by itself, in time, well and without a word."""
        wait(lambda: self.process.poll() is not None, "the end of the program", patience)
        self.errors.seek(0)
        said = [line for line in self.errors if not line.startswith(("qt.qpa.", "QSpi", "\n"))]
        check(self.process.returncode == 0 and not said,
              f"exit code {self.process.returncode}: {''.join(said)}")


def keys(*names, times=1):
    subprocess.run(["xdotool", "key", "--delay", "12", *(list(names) * times)], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "12", "--", text], check=True)


def picture():
    """What the screen shows: red, green and blue by row and column."""
    import numpy
    data = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"],
                          check=True, stdout=subprocess.PIPE).stdout
    _, size, _, pixels = data.split(b"\n", 3)
    width, height = map(int, size.split())
    return numpy.frombuffer(pixels, numpy.uint8).reshape(height, width, 3)


def contrast(one, other):
    """The contrast of two colours, or of each two in pictures of the same size, from 1 to 21."""
    import numpy

    def light(color):
        part = color / 255
        linear = numpy.where(part <= 0.03928, part / 12.92, ((part + 0.055) / 1.055) ** 2.4)
        return linear @ (0.2126, 0.7152, 0.0722) + 0.05
    a, b = light(one), light(other)
    return numpy.maximum(a, b) / numpy.minimum(a, b)

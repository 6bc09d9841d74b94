# SPDX-License-Identifier: MIT
"""A desk of its own for one trial: message bus, screen and the program, met from the outside only.

What the program shows is read over the accessibility bus, as a screen reader does; what a user does
is done by keys or by actions on that bus; pictures are taken from the screen.
"""
import atexit
import functools
import os
import subprocess
import sys
import tempfile
import time

NESTED = "KESTRELWOOD_TRIAL_NESTED"
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PATIENCE = 15  # seconds that a condition may take on a busy machine

_running = []
_failed = []
_checks = 0


def program_from_arguments():
    """The program file: the first argument that can be run, or else the release build."""
    for argument in sys.argv[1:]:
        if os.path.isfile(argument) and os.access(argument, os.X_OK):
            return os.path.abspath(argument)
    return os.path.join(ROOT, "build", "release", "kestrelwood")


def own_session():
    """Goes on in a message bus session and home of its own, so that nothing of the caller's desktop
    takes part."""
    if NESTED in os.environ:
        return
    keep = ("PATH", "LANG", "LC_ALL", "LANGUAGE", "QT_SCALE_FACTOR", "QT_QPA_PLATFORMTHEME",
            "GTK_THEME", "FONTCONFIG_FILE")
    env = {name: os.environ[name] for name in keep if name in os.environ}
    home = tempfile.mkdtemp(prefix="kestrelwood-trial-")
    runtime = os.path.join(home, "run")
    os.mkdir(runtime, 0o700)
    env.update({"HOME": home, "XDG_RUNTIME_DIR": runtime, "NO_AT_BRIDGE": "1",
                "PYTHONDONTWRITEBYTECODE": "1", NESTED: home})
    env.setdefault("LANG", "C.UTF-8")
    command = ["dbus-run-session", "--", "/usr/bin/python3", *sys.argv]
    result = subprocess.run(command, env=env, stderr=subprocess.PIPE, text=True, check=False)
    for line in result.stderr.splitlines():
        if "dbus-daemon[" not in line and "SpiRegistry daemon" not in line:  # the bus itself
            print(line, file=sys.stderr)
    subprocess.run(["rm", "-rf", home], check=False)
    sys.exit(result.returncode)


def spawn(*command, **options):
    process = subprocess.Popen(command, **options)
    _running.append(process)
    return process


@atexit.register
def _end_all():
    for process in reversed(_running):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()


def wait(condition, what, patience=PATIENCE):
    """Waits until the condition holds and gives its value; a condition that doesn't come to hold is
    a failed check and ends the trial."""
    end = time.monotonic() + patience
    while True:
        try:
            value = condition()
        except vanished():
            value = None
        if value:
            check(True, what)
            return value
        if time.monotonic() > end:
            check(False, "waited in vain: " + what)
            finish()
        time.sleep(0.01)


def vanished():
    """What a look at something raises that goes at this moment."""
    from gi.repository import GLib
    return GLib.GError


def check(holds, what):
    global _checks
    _checks += 1
    if not holds:
        _failed.append(what)
        print("FAILED  " + what, flush=True)
    elif "--laut" in sys.argv:
        print("ok      " + what, flush=True)
    return bool(holds)


def finish():
    """Prints the outcome and ends the process with it. No check at all is no success."""
    print(f"{_checks - len(_failed)} of {_checks} checks passed", flush=True)
    sys.exit(1 if _failed or not _checks else 0)


class Screen:
    """A screen without a user's desktop, on a free display number."""

    def __init__(self, size="1280x1024", manager=None):
        reader, writer = os.pipe()
        spawn("Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-screen", "0",
              size + "x24", pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as told:
            os.environ["DISPLAY"] = ":" + told.readline().strip()
        # Umlauts as keys of their own: a tool that has to change the keyboard for each of them
        # loses some on a busy machine.
        subprocess.run(["setxkbmap", "de"], check=True)
        if manager:
            spawn(*manager, stdout=subprocess.DEVNULL,
                  stderr=subprocess.DEVNULL)
            wait(lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")
        if "AT_SPI_LAUNCHER" not in os.environ:
            spawn("/usr/libexec/at-spi-bus-launcher", "--launch-immediately",
                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            os.environ["AT_SPI_LAUNCHER"] = "started"
            wait(lambda: "true" in run("dbus-send", "--session", "--print-reply",
                                       "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                                       "org.freedesktop.DBus.NameHasOwner", "string:org.a11y.Bus"),
                 "the accessibility bus")


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False).stdout


class Program:
    """The running program as a screen reader meets it."""

    def __init__(self, file, **environment):
        import pyatspi  # only now, as it connects to the bus at once
        self.pyatspi = pyatspi
        self.env = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", **environment}
        self.process = spawn(file, env=self.env)
        self.desktop = pyatspi.Registry.getDesktop(0)
        self.app = wait(self._application, "the program on the accessibility bus")
        self.main = wait(lambda: self.window("Kestrelwood Beta 0.1", "frame"), "the main window")
        check(len(self.pad) == 37 and len(self.tableau[2]) == 37 and self.rows() == 0,
              "an empty permanence at the start")

    def _application(self):
        for app in self.desktop:
            if app and app.get_process_id() == self.process.pid:
                app.set_cache_mask(self.pyatspi.cache.NONE)  # every look is a fresh one
                return app
        return None

    def windows(self):
        return [window for window in self.app if window]

    def window(self, name, role=None):
        """A window in view by its title."""
        for window in self.windows():
            if window.name == name and role in (None, window.getRoleName()) and self.shown(window):
                return window
        return None

    def dialog(self, name):
        return wait(lambda: self.window(name), f"the window “{name}”")

    def active(self):
        for window in self.windows():
            if self.has(window, "STATE_ACTIVE"):
                return window
        return None

    def has(self, node, state):
        return node.getState().contains(getattr(self.pyatspi, state))

    def shown(self, node):
        return self.has(node, "STATE_SHOWING")

    def nodes(self, root=None, tables=False):
        """A node and all below it, depth first. The cells of tables are left out unless told."""
        root = root or self.main
        yield root
        if root.getRoleName() == "table" and not tables:
            return
        for child in root:
            if child:
                yield from self.nodes(child, tables)

    def find(self, role, name=None, under=None):
        return next((node for node in self.nodes(under) if node.getRoleName() == role
                     and name in (None, node.name)), None)

    def focused(self):
        """What has the focus: the innermost, as a pad has it along with one of its cells."""
        window = self.active()
        holder = self._holder(window) if window else None
        if holder is None or holder.getRoleName() == "table":
            return holder
        return next((node for node in holder if self.has(node, "STATE_FOCUSED")), holder)

    def _holder(self, node):
        if self.has(node, "STATE_FOCUSED"):
            return node
        # Closed lists keep a current entry; cells have no focus without their whole.
        if node.childCount > 30 or not self.shown(node):
            return None
        return next(filter(None, (self._holder(child) for child in node if child)), None)

    def rect(self, node):
        """Place relative to the screen."""
        box = node.queryComponent().getExtents(self.pyatspi.DESKTOP_COORDS)
        return (box.x, box.y, box.width, box.height)

    def press(self, node, action="Press"):
        actions = node.queryAction()
        for index in range(actions.nActions):
            if actions.getName(index) == action:
                return actions.doAction(index)
        return False

    def control(self, role, name=None, index=0):
        """A control of the main window; the index tells those of the same name apart."""
        found = [node for node in self.nodes()
                 if node.getRoleName() == role and name in (None, node.name)]
        return found[index] if index < len(found) else None

    # These three stay as long as the program. They are looked up once, because in a run each look
    # has to wait for the run's next pause.

    @functools.cached_property
    def pad(self):
        return list(self.control("panel", "Zahlenfeld"))

    @functools.cached_property
    def tableau(self):
        """The labels of the chances, the 37 numbers, the 37 badges."""
        items = list(self.control("panel", "Nummern und Chancen"))
        return items[:-74], items[-74:-37], items[-37:]

    @functools.cached_property
    def table(self):
        return self.control("table").queryTable()

    def counts(self):
        """What the badges show."""
        return [int(badge.name) for badge in self.tableau[2]]

    def count(self, number):
        return int(self.tableau[2][number].name)

    def rows(self):
        return self.table.nRows

    def row(self, index):
        table = self.table
        return [table.getAccessibleAt(index, column).name for column in range(table.nColumns)]

    def text(self, node):
        return node.queryText().getText(0, -1)

    def quits(self, patience=PATIENCE):
        """Whether the program ends by itself, and well."""
        return wait(lambda: self.process.poll() is not None, "the end of the program",
                    patience) and self.process.returncode == 0


def keys(*names, times=1):
    subprocess.run(["xdotool", "key", "--delay", "12", *(list(names) * times)], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "12", "--", text], check=True)


def picture(rect=None):
    """What the screen shows: (width, height, bytes in red, green, blue)."""
    crop = ["-crop", "{2}x{3}+{0}+{1}".format(*rect), "+repage"] if rect else []
    data = subprocess.run(["import", "-silent", "-window", "root", *crop, "-depth", "8", "ppm:-"],
                          check=True, stdout=subprocess.PIPE).stdout
    magic, size, depth, pixels = data.split(b"\n", 3)
    assert (magic, depth) == (b"P6", b"255"), data[:20]
    width, height = map(int, size.split())
    return width, height, pixels


def still_picture(rect=None):
    """The picture as soon as two looks in a row agree. Carets don't blink in the program's boxes
    that are left alone, so a focused text box is the caller's to avoid."""
    last = []

    def settled():
        last.append(picture(rect))
        return len(last) > 1 and last[-1] == last[-2]
    wait(settled, "a picture that stays")
    return last[-1]


def difference(one, other):
    """The pixels that differ: (how many, box around them as left, top, right, bottom)."""
    width, height, a = one
    assert (width, height) == other[:2]
    b = other[2]
    count, box = 0, [width, height, -1, -1]
    for y in range(height):
        start, end = y * width * 3, (y + 1) * width * 3
        if a[start:end] == b[start:end]:
            continue
        for x in range(width):
            at = start + 3 * x
            if a[at:at + 3] != b[at:at + 3]:
                count += 1
                box = [min(box[0], x), min(box[1], y), max(box[2], x), max(box[3], y)]
    return count, tuple(box)


def save(image, file):
    width, height, pixels = image
    subprocess.run(["convert", "-size", f"{width}x{height}", "-depth", "8", "rgb:-", file],
                   input=pixels, check=True)

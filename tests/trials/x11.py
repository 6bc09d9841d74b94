# SPDX-License-Identifier: MIT
"""A screen of its own without a window manager, and input to the program on it: pointer and keys by
the server's test extension, quick enough for thousands of clicks a second."""

import ctypes
import os
import pathlib
import random
import shutil
import subprocess
import tempfile
import time

HOME = pathlib.Path(__file__).resolve().parents[2]
X = ctypes.CDLL("libX11.so.6")
T = ctypes.CDLL("libXtst.so.6")
X.XOpenDisplay.restype = ctypes.c_void_p
X.XDefaultRootWindow.restype = ctypes.c_ulong
X.XInternAtom.restype = ctypes.c_ulong
X.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
for name in ("XDefaultRootWindow", "XSync", "XFlush", "XSendEvent"):
    getattr(X, name).argtypes = None


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 24)]


class Screen:
    """An Xvfb with the program on it; all of it goes at the end of a with statement."""

    def __init__(self, program, environment=None):
        self.folder = tempfile.mkdtemp(prefix="trial.")
        self.display = None
        while not self.display:
            self.number = str(random.randrange(100, 10000))
            self.server = subprocess.Popen(
                ["Xvfb", ":" + self.number, "-noreset", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            while self.server.poll() is None and not self.display:
                time.sleep(0.1)
                self.display = X.XOpenDisplay((":" + self.number).encode())
        self.display = ctypes.c_void_p(self.display)
        keep = {k: os.environ[k] for k in ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS") if k in os.environ}
        self.environment = {"HOME": self.folder, "XDG_RUNTIME_DIR": self.folder, "LANG": "C.UTF-8",
                            "DISPLAY": ":" + self.number, "QT_QPA_PLATFORM": "xcb",
                            # No message bus: one started for the program would outlive it.
                            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/dev/null", **keep,
                            **(environment or {})}
        self.errors = open(self.folder + "/errors", "w+")
        self.program = program
        self.process = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.server.terminate()
        self.server.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self):
        self.errors.truncate(0)
        self.process = subprocess.Popen([str(self.program)], env=self.environment, cwd=self.folder,
                                        stdin=subprocess.DEVNULL, stdout=self.errors, stderr=self.errors)
        title = "Kestrelwood Beta 0.1"
        self.main = self.window(title, 60)
        while self.shell(self.main).get("HEIGHT", 0) < 500:  # the splash has the same title
            time.sleep(0.02)
            self.main = self.window(title)

    def xdotool(self, *words):
        return subprocess.run(["xdotool", *words], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True).stdout.split()

    def window(self, title, seconds=20):
        """The visible window with this title."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = self.xdotool("search", "--onlyvisible", "--name", f"^{title}$")
            if found:
                return int(found[-1])
            if self.process.poll() is not None:
                break
            time.sleep(0.02)
        raise RuntimeError(f"no window “{title}”")

    def gone(self, title, seconds=20):
        end = time.monotonic() + seconds
        while self.xdotool("search", "--onlyvisible", "--name", f"^{title}$"):
            if time.monotonic() > end:
                raise RuntimeError(f"the window “{title}” stays")
            time.sleep(0.02)

    def focus(self, window):
        self.xdotool("windowfocus", "--sync", str(window))

    def shell(self, window):
        """Place and size of a window, by xdotool's words."""
        lines = self.xdotool("getwindowgeometry", "--shell", str(window))
        return {word: int(value) for word, value in (line.split("=") for line in lines)}

    def place(self):
        """Left, top and the height of the menu bar of the main window."""
        shell = self.shell(self.main)
        return shell["X"], shell["Y"], shell["HEIGHT"] - 714  # what lies below has that height

    def keys(self, *names):
        self.xdotool("key", *names)

    def enter(self, text):
        """Types a text and Return."""
        self.xdotool("type", text)
        self.keys("Return")

    def click(self, x, y):
        """Without waiting; flush() sends what has been gathered."""
        T.XTestFakeMotionEvent(self.display, -1, x, y, 0)
        T.XTestFakeButtonEvent(self.display, 1, 1, 0)
        T.XTestFakeButtonEvent(self.display, 1, 0, 0)

    def flush(self):
        X.XFlush(self.display)

    def close(self, window):
        """What a window manager sends when the user presses the window's close button."""
        event = ClientMessage(type=33, window=window, format=32,
                              message_type=X.XInternAtom(self.display, b"WM_PROTOCOLS", 0))
        event.data[0] = X.XInternAtom(self.display, b"WM_DELETE_WINDOW", 0)
        X.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
        self.flush()

    def said(self):
        """What the program has written, apart from what the toolkit says of this bare screen."""
        self.errors.flush()
        text = pathlib.Path(self.errors.name).read_text(errors="replace")
        return "\n".join(line for line in text.split("\n") if line and not line.startswith("qt.qpa."))

    # The window's places, from the plan at 96 dpi: 15 twips are a pixel.

    def pad(self, number, menu):
        """The middle of a cell of the number pad; `menu` is the height of the menu bar."""
        left, top = (420, 120) if number == 0 else (
            120 + 300 * ((number - 1) % 3), 480 + 300 * ((number - 1) // 3))
        return round((240 + left + 157) / 15), round((720 + top + 157) / 15) + menu


def build(target, preset):
    """Builds a program by a preset; its path."""
    folder = pathlib.Path(os.environ.get("KESTRELWOOD_BUILD", HOME / "build")) / preset
    if not (folder / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", preset, "-B", str(folder)], cwd=HOME, check=True,
                       stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", str(folder), "--target", target, "--", "--quiet"], check=True,
                   stdout=subprocess.DEVNULL)
    return folder / target

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What can befall a permanence on a real disk: odd targets, a full disk, a kill.

Usage: files.py FILES_TRIAL [KILLS [SEED]]
"""
import os
import pathlib
import random
import resource
import shutil
import subprocess
import sys
import tempfile
import time

LINE = 6  # bytes of a saved coup of two digits
OLD = b" 17 \r\n"
DENIED = "Die Zugriffsrechte fehlen."
MISSING = "Die Datei oder der Ordner wurde nicht gefunden."
FOLDER = "Es ist ein Ordner, keine Datei."
SPECIAL = "Es ist keine gewöhnliche Datei."
CIRCLE = "Die Verknüpfung führt im Kreis."
NO_FOLDER = "Der Pfad führt nicht durch einen Ordner."
TOO_LONG = "Der Dateiname ist zu lang."
FULL = "Der Datenträger ist voll."
USER = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}
failures = 0


def expect(what, is_, wanted):
    global failures
    if is_ != wanted:
        failures += 1
        print(f"Fault: {what}: {is_!r}, wanted: {wanted!r}")


def trial(*words):
    """The lines that the program says, as an ordinary user whoever calls."""
    done = subprocess.run([PROGRAM, *map(str, words)], stdout=subprocess.PIPE, text=True, timeout=300,
                          check=False, **USER)
    expect(f"exit code of {words}", done.returncode, 0)
    return done.stdout.splitlines()


def told(what, lines, reason):
    """A message with this reason, or none."""
    expect(f"{what} tells: {lines}", reason in lines if reason else not lines, True)


def odd_targets():
    long = "n" * 255
    held = lambda name: os.path.isfile(name) and pathlib.Path(name).read_bytes()
    make = """umask 022; for file in plain read-only secret; do printf ' 17 \\r\\n' >$file; done
        chmod 444 read-only; chmod 000 secret; mkdir folder closed locked; printf ' 17 \\r\\n' >closed/file
        chmod 555 closed; chmod 000 locked; mkfifo fifo; ln -s plain link; ln -s link link2
        ln -s circle circle; ln -s fifo to-fifo; ln -s folder to-folder; ln -s new dangling"""
    subprocess.run(make, shell=True, check=True, **USER)
    both = {"locked/file": DENIED, "circle": CIRCLE, "folder": FOLDER, "to-folder": FOLDER,
            "fifo": SPECIAL, "to-fifo": SPECIAL, "secret": DENIED, "plain/inside": NO_FOLDER,
            long + "n": TOO_LONG, "gone/file": MISSING, "link2": None}
    for name, reason in {**both, "dangling": MISSING, "nowhere": MISSING, "/dev/zero": SPECIAL,
                         "read-only": None}.items():
        lines = trial("load", name)
        expect(f"loading {name}", lines[0], "0 0" if reason else "1 17")
        told(f"loading {name}", lines[1:], reason)
    for name, reason in {**both, "dangling": None, "read-only": DENIED, "closed/file": DENIED,
                         "closed/new": DENIED, "/dev/full": SPECIAL, long: None,
                         "größe und leer.txt": None}.items():
        before = held(name)
        told(f"saving to {name}", trial("save", name, 2, 20)[2:], reason)
        expect(f"what {name} holds", held(name), before if reason else b" 20 \r\n" * 2)
    expect("links", (os.readlink("link2"), os.path.islink("dangling"), os.path.exists("new")),
           ("link", True, True))
    expect("files left aside", list(pathlib.Path(".").rglob(".kestrelwood-*")), [])


def full_disk():
    """A disk of 64 pages; room comes in pages, the missing byte by the length of the file."""
    page = resource.getpagesize()
    for free in (0, 1, 8, 40):
        for coups in (free * page // LINE, free * page // LINE + 1, 2 * free * page // LINE + 9):
            fits = 0 < coups * LINE <= free * page
            subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={64 * page},mode=777", "tmpfs",
                            "disk"], check=True)
            file = pathlib.Path("disk/permanenz.txt")
            file.write_bytes(OLD)
            file.chmod(0o666)
            pathlib.Path("disk/filler").write_bytes(bytes((63 - free) * page))
            told(f"{coups} coups in {free} pages", trial("save", file, max(coups, 1), 20)[2:],
                 None if fits else FULL)
            expect("the file", file.read_bytes(), b" 20 \r\n" * coups if fits else OLD)
            expect("what is there", sorted(os.listdir("disk")), ["filler", "permanenz.txt"])
            subprocess.run(["umount", "disk"], check=True)


def kills(times, draw):
    """After a kill at any moment of a save the file is the old one or the new one, whole."""
    file = pathlib.Path("killed.txt")
    file.write_bytes(OLD)
    old, amid, renewed, span = OLD, 0, 0, None
    for i in range(times + 1):  # the first one lives and tells how long a save takes here
        number, count = 10 + i % 27, 400_000
        process = subprocess.Popen([PROGRAM, "save", file, str(count), str(number)],
                                   stdout=subprocess.PIPE)
        process.stdout.readline()
        begun = time.monotonic()
        if span:
            time.sleep(draw.uniform(0, span))
            process.kill()
        amid += b"ended" not in process.communicate()[0]
        span = span or time.monotonic() - begun
        new = b" %d \r\n" % number * count
        is_ = file.read_bytes()
        expect(f"kill {i}: the file is whole", is_ in (old, new), True)
        renewed += is_ == new
        old = is_
        for aside in pathlib.Path(".").glob(".kestrelwood-*"):
            aside.unlink()
    expect("kills hit saves", amid > times / 4 and 1 < renewed <= times, True)
    return f"{times} kills, {amid} amid a save, {renewed - 1} with the new file"


if "TRIAL_MOUNTS" not in os.environ:  # mounts of our own, that go with this script
    root = [] if os.geteuid() == 0 else ["--map-root-user"]
    os.environ["TRIAL_MOUNTS"] = "own"
    os.execvp("unshare", ["unshare", "--mount", *root, sys.executable, *sys.argv])
seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(10**9)
folder = tempfile.mkdtemp()
try:
    os.chmod(folder, 0o777)
    PROGRAM = shutil.copy(sys.argv[1], folder)
    os.chdir(folder)
    os.mkdir("disk")
    odd_targets()
    full_disk()
    killed = kills(int(sys.argv[2]) if len(sys.argv) > 2 else 100, random.Random(seed))
finally:
    subprocess.run(["rm", "-rf", folder], check=False)
print(f"files: {killed}, {failures} faults, seed {seed}")
sys.exit(1 if failures else 0)

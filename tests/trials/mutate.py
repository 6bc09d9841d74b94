#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Finds out what faults the core's tests would miss: builds the core with one small fault at a time
and runs the tests on it.

  mutate.py [--count N] [--seed S] [--rooms a,b] [--work DIR] [--bar PERCENT]

The faults are drawn by the seed, in turn from every room and of every kind: a comparison changed, a
number or sign off by one, two table entries swapped, a statement dropped. Those that don't compile
or give the same machine code are replaced by the next ones. Everything is done in a copy."""

import argparse
import collections
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import time

HOME = pathlib.Path(__file__).resolve().parents[2]
ROOMS = ["chances", "controls", "coup", "files", "forms", "grids", "info", "progress", "shell", "stats"]
EXPLAINED = pathlib.Path(__file__).with_name("mutants_explained.txt")

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&"}
COMPARISON = re.compile(r" (<=|>=|==|!=|<|>|&&|\|\|) ")
NUMBER = re.compile(r"(?<![\w.'])(\d+)(?![\w.'])")
SIGN = re.compile(r"(?<=[\w)\]]) ([+-]) (?=[\w(])|(\+\+|--)(?=\w)")
TABLE_ROW = re.compile(r"^\s*(?:\w+)?\{.*\},?$")
ENTRY = re.compile(r'"[^"]*"|[\w:.]+')
STATEMENT = re.compile(r"^\s+(?:\+\+|--)?[A-Za-z_][\w:.\[\]()*>-]*(?: (?:=|\+=|-=|\|=|\*=|>>=) .*|\(.*\)|)?;$")
NO_STATEMENT = re.compile(r"^\s*(return|using|throw|friend|delete|public|private|struct)\b")
LITERAL = re.compile(r'"(?:[^"\\]|\\.)*"|\'(?:[^\'\\]|\\.)\'')

Mutant = collections.namedtuple("Mutant", "file line kind old new")


def mutants_of(path):
    """All faults that can be made in a file."""
    lines = path.read_text().split("\n")
    name = str(path.relative_to(HOME))
    for number, line in enumerate(lines):
        bare = line.strip()
        if not bare or bare.startswith(("//", "#", "///", "template", "static_assert", "assert(")) or "operator" in line:
            continue
        code = line.split("//")[0].rstrip()
        # Strings keep their length, so that places stay the same.
        blind = LITERAL.sub(lambda m: "_" * len(m.group()), code)

        def changed(kind, start, end, text):
            return Mutant(name, number, kind, line, code[:start] + text + code[end:])

        for m in COMPARISON.finditer(blind):
            yield changed("comparison", m.start(1), m.end(1), COMPARISONS[m.group(1)])
        for m in NUMBER.finditer(blind):
            value = int(m.group(1))
            yield changed("off by one", m.start(), m.end(), str(value + 1))
            if value > 0:
                yield changed("off by one", m.start(), m.end(), str(value - 1))
        for m in SIGN.finditer(blind):
            group = 1 if m.group(1) else 2
            other = {"+": "-", "-": "+", "++": "--", "--": "++"}[m.group(group)]
            yield changed("off by one", m.start(group), m.end(group), other)
        if TABLE_ROW.match(code):
            entries = list(ENTRY.finditer(code))
            for one, two in zip(entries, entries[1:]):
                between = code[one.end():two.start()]
                if one.group() != two.group() and between == ", ":
                    yield changed("swapped entries", one.start(), two.end(),
                                  two.group() + between + one.group())
        before = next((l.split("//")[0].strip() for l in reversed(lines[:number])
                       if l.strip() and not l.strip().startswith("//")), "")
        whole = before.endswith((";", "{", "}", ")", ":", "else"))
        if whole and STATEMENT.match(code) and not NO_STATEMENT.match(code):
            yield changed("dropped statement", 0, len(code), ";")


def draw(seed, rooms):
    """Mutants in random order, in turn from every room and kind."""
    piles = {}
    for room in rooms:
        kinds = collections.defaultdict(list)
        for path in sorted((HOME / "src" / room).glob("*")):
            if path.suffix in (".h", ".cpp"):
                for mutant in mutants_of(path):
                    kinds[mutant.kind].append(mutant)
        for kind, pile in sorted(kinds.items()):
            random.Random(f"{seed} {room} {kind}").shuffle(pile)
        piles[room] = collections.deque(sorted(kinds.items()))
    while any(piles.values()):
        for room in rooms:
            if not piles[room]:
                continue
            kind, pile = piles[room].popleft()
            if pile:
                yield room, pile.pop()
                piles[room].append((kind, pile))


def build(folder):
    return subprocess.run(["ninja", "-j1", "-C", folder, "core_tests"], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)


def run_tests(folder, groups, seconds):
    """True if all tests pass. `seconds` is the processor time that a group of them may take."""
    def limits():
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 5))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    for group in groups:
        try:
            run = subprocess.run([f"{folder}/tests/core_tests", "--gtest_filter=" + ":".join(group),
                                  "--gtest_fail_fast", "--gtest_brief=1"], stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, preexec_fn=limits, timeout=20 * seconds)
        except subprocess.TimeoutExpired:
            return False
        if run.returncode != 0:
            return False
    return True


def test_groups(folder):
    """The tests in two groups, quick and slow, so that most mutants die early, and their time."""
    report = f"{folder}/times.json"
    run = subprocess.run([f"{folder}/tests/core_tests", f"--gtest_output=json:{report}"],
                         stdout=subprocess.PIPE, text=True)
    if run.returncode != 0:
        sys.exit("The tests fail without any mutant:\n" + run.stdout[-3000:])
    times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
             for suite in json.load(open(report))["testsuites"] for test in suite["testsuite"]
             if suite["name"] != "Architecture"}
    quick = [name for name, time_ in times.items() if time_ < 0.2]
    slow = [name for name in sorted(times, key=times.get) if name not in quick]
    return [quick, slow], max(20, round(3 * sum(times.values())))


def objects(folder):
    """A digest of the core's machine code."""
    whole = hashlib.sha256()
    for path in sorted(pathlib.Path(folder).rglob("*.o")):
        whole.update(path.read_bytes())
    return whole.digest()


def put_back(pristine, folder):
    """Makes `folder` what it was, times included, so that nothing is built twice."""
    for path in pathlib.Path(pristine).rglob("*"):
        other = pathlib.Path(folder) / path.relative_to(pristine)
        if path.is_file() and (not other.exists() or other.stat().st_mtime_ns != path.stat().st_mtime_ns):
            shutil.copy2(path, other)


def prepare(work):
    tree = f"{work}/tree"
    shutil.rmtree(tree, ignore_errors=True)
    for folder in ("src", "tests", "cmake"):
        shutil.copytree(HOME / folder, f"{tree}/{folder}")
    top = (HOME / "CMakeLists.txt").read_text()
    standard = "<algorithm> <array> <chrono> <cstdint> <map> <memory> <optional> <span> <string> <vector>"
    (pathlib.Path(tree) / "CMakeLists.txt").write_text(
        top + f"target_precompile_headers(kestrelwood_core PRIVATE {standard})\n"
        + f"target_precompile_headers(core_tests PRIVATE <gtest/gtest.h> <functional> <random> <set> {standard})\n")
    tests = pathlib.Path(tree) / "tests/CMakeLists.txt"
    tests.write_text(re.sub(r"gtest_discover_tests\([^)]*\)", "", tests.read_text()))
    folder = f"{work}/build"
    shutil.rmtree(folder, ignore_errors=True)
    subprocess.run(["cmake", "-G", "Ninja", "-S", tree, "-B", folder, "-DKESTRELWOOD_WINDOW=OFF",
                    "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_CXX_FLAGS=-O0 -w -D_GLIBCXX_ASSERTIONS"],
                   check=True, stdout=subprocess.DEVNULL)
    made = build(folder)
    if made.returncode != 0:
        sys.exit(made.stdout)
    groups, seconds = test_groups(folder)
    shutil.rmtree(f"{work}/pristine", ignore_errors=True)
    shutil.copytree(folder, f"{work}/pristine")
    return tree, folder, groups, seconds


def explanations():
    """Mutants known to change nothing that can be seen: file | line | changed line | why."""
    if not EXPLAINED.exists():
        return {}
    rows = (line.split(" | ") for line in EXPLAINED.read_text().split("\n") if line.count(" | ") >= 3)
    return {(row[0], row[1], row[2]): row[3] for row in rows}


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--count", type=int, default=300)
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--rooms", default=",".join(ROOMS))
    options.add_argument("--work", default="")
    options.add_argument("--bar", type=float, default=90)
    args = options.parse_args()
    work = args.work or tempfile.mkdtemp(prefix="mutants.")
    tree, folder, groups, seconds = prepare(work)
    original = objects(folder)
    known = explanations()
    killed, total = collections.Counter(), collections.Counter()
    survivors, explained, useless = [], 0, 0
    for room, mutant in draw(args.seed, args.rooms.split(",")):
        if sum(total.values()) == args.count:
            break
        source = pathlib.Path(tree) / mutant.file
        old, info = source.read_text(), source.stat()
        lines = old.split("\n")
        lines[mutant.line] = mutant.new
        source.write_text("\n".join(lines))
        outcome = "doesn't compile"
        if build(folder).returncode == 0:
            if objects(folder) == original:
                outcome = "same code"
            else:
                outcome = "survived" if run_tests(folder, groups, seconds) else "killed"
        source.write_text(old)
        os.utime(source, ns=(info.st_atime_ns, info.st_mtime_ns))
        put_back(f"{work}/pristine", folder)
        key = (mutant.file, mutant.old.strip(), mutant.new.strip())
        if outcome == "survived" and key in known:
            outcome = "explained"
        print(f"{time.strftime('%H:%M:%S')} {outcome:16}{mutant.file}:{mutant.line + 1} {mutant.kind}\n"
              f"    - {mutant.old.strip()}\n    + {mutant.new.strip()}", flush=True)
        if outcome in ("killed", "survived", "explained"):
            total[room] += 1
            killed[room] += outcome == "killed"
            explained += outcome == "explained"
            if outcome == "survived":
                survivors.append(mutant)
        else:
            useless += 1
    count, dead = sum(total.values()), sum(killed.values())
    for room in sorted(total):
        print(f"  {room:10}{killed[room]:4} of {total[room]:4}")
    for mutant in survivors:
        print(f"  survivor: {mutant.file}:{mutant.line + 1}: {mutant.new.strip()}")
    rate = 100 * dead / max(count, 1)
    print(f"mutants: {dead} of {count} killed ({rate:.1f} %), {explained} explained, "
          f"{len(survivors)} to be looked at, {useless} useless ones passed over, seed {args.seed}")
    if not args.work:
        shutil.rmtree(work)
    return 0 if count > 0 and rate >= args.bar else 1


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures by clang's source-based coverage what the tests reach: branches of the core, lines of the
window.

  coverage.py [--teile]      --teile: also file by file, with the branches that are missed

A branch is either outcome of a condition as it is written; what a compiler adds for an exception's
clean-up is none. A template is one piece of source however often it is instantiated: an outcome
counts once, as reached if any of its instances reaches it. What is called from nowhere is missed;
what is worked out by the compiler alone doesn't count."""

import collections
import json
import os
import pathlib
import subprocess
import sys

HOME = pathlib.Path(__file__).resolve().parents[2]
CORE_BAR, WINDOW_BAR = 95, 80


def run(*command, **environment):
    result = subprocess.run(command, cwd=HOME, env={**os.environ, **environment},
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        sys.exit(result.stdout[-5000:])


def measured(folder, programs):
    """For each source file the outcomes by their place, and the lines reached and all lines."""
    profile = str(folder / "tests.profdata")
    run("llvm-profdata", "merge", "-o", profile, *(f"{folder}/{p}.profraw" for p in programs))
    # The parts of the libraries too: the programs leave out what no test asks for.
    parts = sorted(p for p in (folder / "src").rglob("*.cpp.o") if b"__llvm_covmap" in p.read_bytes())
    built = [*(folder / "tests" / p for p in programs), *parts]
    objects = [word for path in built for word in ("-object", str(path))][1:]
    report = json.loads(subprocess.run(["llvm-cov", "export", "-instr-profile", profile, *objects],
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                       check=True).stdout)["data"][0]
    core = str(HOME / "src") + "/"
    lines = {file["filename"].removeprefix(core): file["summary"]["lines"] for file in report["files"]
             if file["filename"].startswith(core)}
    outcomes = collections.defaultdict(dict)
    for function in report["functions"]:
        for line, column, to, end, yes, no, file, *_ in function["branches"]:
            name = function["filenames"][file].removeprefix(core)
            for which, count in (("true", yes), ("false", no)):
                key = (line, column, to, end, which)
                outcomes[name][key] = outcomes[name].get(key, 0) + count
    return {name: found for name, found in outcomes.items() if not name.startswith("/")}, lines


def main():
    folder = pathlib.Path(os.environ.get("KESTRELWOOD_BUILD", HOME / "build")) / "coverage"
    if not (folder / "build.ninja").exists():
        run("cmake", "--preset", "coverage", "-B", str(folder))
    run("cmake", "--build", str(folder), "--target", "core_tests", "window_tests")
    programs = ("core_tests", "window_tests")
    for program in programs:
        run(str(folder / "tests" / program), "--gtest_brief=1", QT_QPA_PLATFORM="offscreen", LANG="C",
            LLVM_PROFILE_FILE=f"{folder}/{program}.profraw")
    outcomes, lines = measured(folder, programs)

    taken = total = 0
    for name, found in sorted(outcomes.items()):
        if name.startswith("window/"):
            continue
        missed = [f"{line}:{column} {which}" for (line, column, _, _, which), n in sorted(found.items()) if not n]
        taken, total = taken + len(found) - len(missed), total + len(found)
        if "--teile" in sys.argv and missed:
            print(f"  {name}: {len(missed)} of {len(found)} missed: {', '.join(missed)}")
    reached = all_lines = 0
    for name, summary in sorted(lines.items()):
        if name.startswith("window/"):
            reached, all_lines = reached + summary["covered"], all_lines + summary["count"]
            if "--teile" in sys.argv:
                print(f"  {name}: {summary['covered']} of {summary['count']} lines")
    core, window = 100 * taken / max(total, 1), 100 * reached / max(all_lines, 1)
    tool = subprocess.run(["llvm-cov", "--version"], stdout=subprocess.PIPE, text=True).stdout
    version = next(line.strip() for line in tool.split("\n") if "version" in line)
    print(f"coverage: {taken} of {total} branches of the core ({core:.1f} %, bar {CORE_BAR}), {reached} of "
          f"{all_lines} lines of the window ({window:.1f} %, bar {WINDOW_BAR}), llvm-cov, {version}")
    return 0 if core >= CORE_BAR and window >= WINDOW_BAR else 1


if __name__ == "__main__":
    sys.exit(main())

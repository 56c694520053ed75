#!/usr/bin/env python3
"""Runs clang-tidy: tidy.py COMPILED [--all] UNIT...

COMPILED is the folder of a configured build. What ships (src, simulator, tools) is read at every run. Of
all else, a unit is left out while nothing that it is made of has changed since it last passed: its own
text, the project's headers that it includes, the checks and the program's version. scripts/tidy.passed
keeps a sum of that for each unit, and a run brings it up to date. With --all every unit is read.

Exits with 1 if a unit fails, or if there is none.
"""

import concurrent.futures
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
PASSED = ROOT / "scripts" / "tidy.passed"
ALWAYS = ("src/", "simulator/", "tools/")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
# Where the targets look for headers, beside the folder of the including file.
INCLUDE_FOLDERS = ("", "src", "tests", "tools")


def made_of(root, unit):
    """The files of the project that a unit is made of, with their bytes."""
    found, waiting = {}, [root / unit]
    while waiting:
        file = waiting.pop()
        if file in found:
            continue
        found[file] = file.read_bytes()
        for name in INCLUDE.findall(found[file].decode()):
            folders = [file.parent, *(root / folder for folder in INCLUDE_FOLDERS)]
            places = (folder / name for folder in folders)
            waiting += [place.resolve() for place in places if place.is_file()][:1]
    return found


def sum_of(root, unit, checks):
    """What changes with anything that a unit is made of, as a hexadecimal number."""
    total = hashlib.sha256(checks)
    for file, text in sorted(made_of(root, unit).items()):
        total.update(f"{file.relative_to(root)} {len(text)}\n".encode() + text)
    return total.hexdigest()[:24]


def is_due(unit, sums, passed):
    """Whether a unit must be read: what ships always, all else if it has changed since it passed."""
    return unit.startswith(ALWAYS) or passed.get(unit) != sums[unit]


def version():
    """The number of the version alone; clang-tidy tells the processor as well."""
    told = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    return re.search(rb"version (\S+)", told)[1]


def read_passed():
    if not PASSED.exists():
        return {}
    pairs = (line.split("  ", 1) for line in PASSED.read_text().splitlines())
    return {unit: known for known, unit in pairs}


def tidy(compiled, unit):
    """Reads a unit and returns whether it passed, what was said of it, and the seconds it took."""
    start = time.monotonic()
    done = subprocess.run(["clang-tidy", "--quiet", "-p", compiled, unit], cwd=ROOT, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    # On standard error it counts what it has left out, and tells what it can't do.
    said = done.stdout if done.returncode == 0 else done.stdout + done.stderr
    return done.returncode == 0 and not said, said, time.monotonic() - start


def main():
    compiled, *units = sys.argv[1:]
    everything = "--all" in units
    units = [unit for unit in units if unit != "--all"]
    checks = version() + (ROOT / ".clang-tidy").read_bytes()
    passed = read_passed()
    sums = {unit: sum_of(ROOT, unit, checks) for unit in units}
    due = [unit for unit in units if everything or is_due(unit, sums, passed)]

    failures = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        running = {pool.submit(tidy, compiled, unit): unit for unit in due}
        for count, job in enumerate(concurrent.futures.as_completed(running), 1):
            unit = running[job]
            good, said, seconds = job.result()
            print(f"[{count}/{len(due)}] {unit}  {seconds:.0f} s", flush=True)
            passed.pop(unit, None)
            if not good:
                failures += 1
                print(said, flush=True)
            elif not unit.startswith(ALWAYS):
                passed[unit] = sums[unit]

    PASSED.write_text("".join(f"{passed[unit]}  {unit}\n" for unit in sorted(passed) if unit in sums))
    print(f"clang-tidy: {len(due)} sources read, {len(units) - len(due)} unchanged since they "
          f"passed, {failures} failed")
    return 1 if failures or not units else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""An hour at the desk: endurance.py PROGRAM_FOLDER [--minutes N]

Drives the program of a program folder by keys in a virtual display, against the simulated board of
the same folder: page after page is opened and closed, values are typed, and faults of the board and
the cable come and go. Meanwhile the memory and the open files of both programs are measured. Prints a
line a minute.

Fails if a program ends or complains, if a box appears, if memory or open files grow, or if in the end
a page shows what the board doesn't hold.
"""

import argparse
import itertools
import pathlib
import random
import statistics
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "tools" / "tour"))
sys.dont_write_bytecode = True

from desk import Desk  # noqa: E402
from visit import DISCOUNTS, PAGES, Visit  # noqa: E402
from wait import wait_for  # noqa: E402

SAMPLE_EVERY = 5.0  # seconds
LINE_EVERY = 60.0  # seconds
MOST_GROWTH = 1.03  # of the last quarter over the second one
LANGUAGE = "English"
PRICES = (3,)
AMOUNTS = {DISCOUNTS: ("Discount", 43), PRICES: ("Price", 23)}  # captions and first parameters
ROWS = 10

# Faults by the words that the board takes, and for how many seconds they last.
FAULTS = (("silent 2", 3), ("wrong checksum 3", 1), ("wrong checksum 6", 1), ("short reply 1", 2),
          ("extra byte 2", 1), ("slow", 3), ("refuses day 0", 2), ("unplugged", 3), ("silent", 4),
          ("none", 1))
# An answer that is taken for another may bring a page a value that ends the program, as
# docs/faults.md tells. The page of the discounts takes any.
LATE = (("late reply 1", 3), ("late reply", 5))


# What is measured, in KiB by the kernel's name or in files, and how much it may grow. The share in
# memory that is common with other programs changes when these come and go.
MEASURED = (("Rss", MOST_GROWTH), ("Pss", None), ("Anonymous", MOST_GROWTH), ("files", 1.0))


def measure(process):
    """The measured values of a process, in their order."""
    rollup = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text(encoding="ascii")
    values = {line.split(":")[0]: int(line.split()[1])
              for line in rollup.splitlines() if line.endswith(" kB")}
    values["files"] = sum(1 for _ in pathlib.Path(f"/proc/{process}/fd").iterdir())
    return tuple(values[name] for name, _ in MEASURED)


class Samples:
    """What was measured of one program."""

    def __init__(self, name, process):
        self.name = name
        self._process = process
        self._taken = []

    def take(self):
        self._taken.append(measure(self._process))

    def last(self):
        return "  ".join(f"{name} {value:6}"
                         for (name, _), value in zip(MEASURED, self._taken[-1]))

    def growth(self):
        """In what the last quarter exceeds the second one, in words."""
        quarter = len(self._taken) // 4
        if quarter < 3:
            return [f"{self.name}: too few samples"]
        found = []
        for column, (what, most) in enumerate(MEASURED):
            second, last = (statistics.median(sample[column] for sample in part) for part in (
                self._taken[quarter:2 * quarter], self._taken[-quarter:]))
            print(f"{self.name}: {what} {second:g} in the second quarter, {last:g} in the last")
            if most and last > second * most:
                found.append(f"{self.name}: {what} grows from {second:g} to {last:g}")
        return found


class Endurance(Visit):
    def __init__(self, desk, built, minutes):
        super().__init__(desk, built, "endurance", LANGUAGE)
        self._random = random.Random(309)
        self._minutes = minutes
        self._pages = self._typed = self._faults = 0
        self._done = []

    def run(self):
        self._start_program()
        self._program.wait_ready()
        self._connect()
        self._samples = (Samples("Sorvane", self._program.process_id),
                         Samples("SorvaneBoard", self._board.process_id))
        self._begin = time.monotonic()
        self._next_sample = self._next_line = self._begin
        end = self._begin + 60 * self._minutes
        for way in itertools.cycle(PAGES):
            if time.monotonic() >= end:
                break
            self._use_page(way)
        print(f"{self._pages} pages opened, {self._typed} values typed, {self._faults} faults")
        found = self._compare_shown()
        for samples in self._samples:
            found += samples.growth()
        complaints = self._complaints()
        return found + ([f"complaints: {complaints}"] if complaints else [])

    def _complaints(self):
        return self._program.complaints.read_text(errors="replace")

    def _live(self, seconds):
        """Time passes; what is due to be measured is measured."""
        end = time.monotonic() + seconds
        while (now := time.monotonic()) < end:
            for program in (self._program, self._board):
                if not program.is_running():
                    raise RuntimeError(f"{type(program).__name__} has ended with code "
                                       f"{program.exit_code}: {self._complaints()}\n"
                                       f"at last: {'; '.join(self._done[-12:])}")
            if now >= self._next_sample:
                self._next_sample += SAMPLE_EVERY
                for samples in self._samples:
                    samples.take()
            if now >= self._next_line:
                self._next_line += LINE_EVERY
                for samples in self._samples:
                    print(f"{(now - self._begin) / 60:5.1f} min  {samples.name:12} "
                          f"{samples.last()}", flush=True)
            time.sleep(0.1)

    def _use_page(self, way):
        self._program.choose(*self._path(way))
        page = wait_for("page", lambda: next(iter(self._program.pages()), None))
        self._pages += 1
        self._done.append(f"page {page.name}")
        if way in AMOUNTS:
            self._type_amounts(page, AMOUNTS[way][0])
        for _ in range(2):
            self._suffer(self._random.choice(FAULTS + (LATE if way == DISCOUNTS else ())))
        self._suffer(("none", 1))
        if self._program.has_box():
            raise RuntimeError(f"a box appears: {self._program.box()}")
        self._program.close_page(page)

    def _suffer(self, fault):
        words, seconds = fault
        self._done.append(f"fault {words}")
        self._board.tell(f"fault {words}")
        self._faults += words != "none"
        self._live(seconds)

    @staticmethod
    def _fields(page, caption):
        """The fields of the amounts, once they can be typed into."""
        fields = [page.find("text", f"{caption} {row}") for row in range(1, ROWS + 1)]
        wait_for("open fields", lambda: all(field.has("enabled") for field in fields))
        return fields

    def _type_amounts(self, page, caption):
        for field in self._random.sample(self._fields(page, caption), 2):
            self._suffer(self._random.choice((("silent once", 0), ("wrong checksum 2", 0),
                                              ("none", 0), ("slow", 0))))
            self._program.type_into(field, f"{self._random.randrange(1, 650)}")
            self._typed += 1
            self._suffer(("none", 2))

    def _compare_shown(self):
        """Opens the pages of amounts anew and compares them with the board's memory."""
        found = []
        self._suffer(("none", 3))
        decimals = self._board.holds(22)
        for way, (caption, first) in AMOUNTS.items():
            page = self._open(way)
            shown = [field.text for field in self._fields(page, caption)]
            held = [f"{self._board.holds(first + row) / 10 ** decimals:.{decimals}f}"
                    for row in range(ROWS)]
            print(f"{page.name} shows {' '.join(shown)}")
            if shown != held:
                found.append(f"{page.name} shows {' '.join(shown)}, but held is {' '.join(held)}")
            self._program.close_page(page)
        return found


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program_folder", type=pathlib.Path)
    parser.add_argument("--minutes", type=float, default=60)
    arguments = parser.parse_args()
    desk = Desk()
    try:
        found = Endurance(desk, arguments.program_folder.resolve(strict=True),
                          arguments.minutes).run()
    finally:
        desk.close()
    print("\n".join(found) or "nothing grew, nothing ended, all is shown as the board holds it")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

"""Where sorvane-cli is at work in a test: a copy of the program folder, the board, and a terminal."""

import dataclasses
import os
import pathlib
import pty
import select
import shutil
import signal
import subprocess
import tempfile
import unittest

import offspring
from board import Board
from wait import PATIENCE, wait_for

# What the caller may set: how sanitized builds report.
PASSED_ON = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LD_PRELOAD")
QUESTION = "[y/N] "
SLOW = "baud 300"  # a write with its second copy and its reading back takes most of a second

# The numbers of prices in the board's memory, and of their second copies.
PRICES = {row: 22 + row for row in range(1, 11)}
PRICE_COPIES = {row: 390 + row for row in range(1, 11)}
MACHINE = 9


@dataclasses.dataclass(frozen=True)
class Done:
    """How a command has ended."""

    code: int
    out: str
    err: str

    def lines(self, word):
        """What stands behind a word that lines of the result begin with."""
        return [line.removeprefix(f"{word} ") for line in self.out.splitlines()
                if line.startswith(f"{word} ")]


def text_of(output):
    return output.decode("utf-8", "surrogateescape")


class Conversation(offspring.Running):
    """A command with a person before a terminal, who reads its errors and questions there; its
    result goes elsewhere."""

    def __init__(self, command, environment):
        self._end, terminal = pty.openpty()
        try:
            super().__init__(offspring.start(command, env=environment, stdin=terminal,
                                             stdout=subprocess.PIPE, stderr=terminal))
        finally:
            os.close(terminal)
        self._shown = b""

    def _read(self):
        """Takes what comes next; False when the command has let go of the terminal."""
        if not select.select([self._end], [], [], PATIENCE)[0]:
            raise TimeoutError(f"nothing but {self.shown}")
        try:
            piece = os.read(self._end, 4096)
        except OSError:
            return False
        self._shown += piece
        return piece != b""

    @property
    def shown(self):
        return text_of(self._shown)

    def wait_question(self):
        """Waits until something is asked; returns the question."""
        while not self.shown.endswith(QUESTION):
            if not self._read():
                raise AssertionError(f"nothing is asked: {self.shown}")
        return self.shown.rsplit("\r", 1)[1]

    def answer(self, word):
        os.write(self._end, f"{word}\n".encode())

    def interrupt(self):
        os.kill(self.process_id, signal.SIGINT)

    def done(self):
        """Waits for the end."""
        while self._read():
            pass
        out = self._process.stdout.read()
        return Done(self.wait_end(), text_of(out), self.shown)

    def close(self):
        self._process.kill()
        self._process.wait()
        self._process.stdout.close()
        os.close(self._end)


class Workplace(unittest.TestCase):
    """Base of all tests. The run gives built, the program folder of the build."""

    built = None

    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="sorvane-")
        self.addCleanup(place.cleanup)
        self.place = pathlib.Path(place.name)
        self.settle(self.place / "Sorvane")
        self.data = self.place / "data"
        self.environment = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        self.environment |= {"LC_ALL": "C.UTF-8", "HOME": str(self.place),
                             "XDG_DATA_HOME": str(self.data)}
        self.snapshot = self.place / "held.json"

    def settle(self, folder):
        """Chooses the folder that the programs run from."""
        self.folder = folder
        shutil.copytree(self.built, folder, ignore=shutil.ignore_patterns("COM1*"))

    def start_board(self, *arguments):
        self.board = Board(self.folder, self.environment, *arguments)
        self.addCleanup(self.board.close)
        self.addCleanup(self.end_board)

    def end_board(self):
        """In peace, so that its link is gone when the folder goes."""
        if self.board.is_running():
            self.board.tell("quit")
            self.board.wait_end()

    def command(self, *words):
        return [str(self.folder / "sorvane-cli"), *map(str, words)]

    def run_cli(self, *words, before=(), stdout=subprocess.PIPE, **variables):
        """A command without a terminal; before is what its line begins with."""
        run = subprocess.run([*before, *self.command(*words)], check=False, cwd=self.place,
                             env=self.environment | variables, stdin=subprocess.DEVNULL,
                             stdout=stdout, stderr=subprocess.PIPE, timeout=PATIENCE)
        return Done(run.returncode, text_of(run.stdout or b""), text_of(run.stderr))

    def run_well(self, *words, **options):
        """The same of a command that comes out with 0 and without complaint; returns its result."""
        done = self.run_cli("--quiet", *words, **options)
        self.assertEqual((done.code, done.err), (0, ""), words)
        return done.out

    def talk(self, *words):
        """A command before a terminal."""
        conversation = Conversation(self.command(*words), self.environment)
        self.addCleanup(conversation.close)
        return conversation

    def keep(self, *options):
        """Keeps what the board holds as the snapshot."""
        self.run_well("backup", self.snapshot, *options)

    def prices(self):
        return {row: self.board.holds(number) for row, number in PRICES.items()}

    def wait_held(self, parameter, number):
        wait_for(f"{number} in parameter {parameter} of the board",
                 lambda: self.board.holds(parameter) == number)

    def raise_prices(self):
        """Gives every price of the board, and its second copy, another value."""
        for numbers in (PRICES, PRICE_COPIES):
            for row, number in numbers.items():
                self.board.tell(f"set {number} {1000 + row}")

    def copies(self):
        """The copies made before writes, by their names."""
        return sorted(path.name for path in self.data.glob("sorvane/copies/*/*"))

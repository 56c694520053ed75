"""A technician's desk for one test: a copy of the program folder, the board, and the program."""

import itertools
import pathlib
import shutil
import unittest

import offspring
from board import Board
from folder_watch import FolderWatch
from program import END_WITHIN, Box, Program
from wait import wait_for

SETTINGS = b"Com=1\r\nLingua=Italiano\r\n"
SIBLING = '#!/bin/sh\necho started >> "${0%/*}/sibling.log"\n'
CONNECTED_ENTRIES = (
    ("Password",), ("Impostazioni",), ("Prezzi",), ("Sconti",), ("Pagamento",), ("Set ",),
    ("Set ", "Tasti / Colonne"), ("Set ", "Colonne / Prodotti"), ("Orologio",), ("Vendite",),
    ("Vendite", "Totali"), ("Vendite", "Contatori"), ("Vendite", "Monete"),
    ("Vendite", "Banconote"), ("Allarmi",))
NOT_READY = Box("Serial", "Board Not Ready\nCheck serial !", ("Retry", "Cancel"))


class Scene(unittest.TestCase):
    """Base of all tests. The run gives desk and built, the program folder of the build."""

    desk = None
    built = None
    _numbers = itertools.count(1)

    def setUp(self):
        self.parent = self.desk.folder / f"scene{next(self._numbers)}"
        self.folder = self.parent / "Sorvane"
        shutil.copytree(self.built, self.folder, symlinks=True,
                        ignore=shutil.ignore_patterns("COM1*"))
        self.settings = self.folder / "Sorvane.ini"
        self.settings.write_bytes(SETTINGS)
        sibling = self.parent / "ARDENZA.EXE"
        sibling.write_text(SIBLING, encoding="ascii")
        sibling.chmod(0o755)
        self.watch = FolderWatch(self.folder)
        self.addCleanup(self.watch.close)

    def start_board(self, *arguments):
        """The board on a line of its own; arguments are those of its command line."""
        self.board = Board(self.folder, self.desk.environment, *arguments)
        self.addCleanup(self.board.close)

    def launch(self, **options):
        """Starts the program, with options as Program has them, and waits for nothing."""
        self.program = Program(self.desk, self.folder, **options)
        self.addCleanup(self.check_and_end, self.program)

    def start(self, **options):
        """Starts the program and waits until it is idle."""
        self.launch(**options)
        self.program.wait_ready()

    def connect(self):
        """Starts board and program, connects, and waits until the connection stands."""
        self.start_board()
        self.start()
        self.program.choose("Connect")
        self.wait_connected()

    def wait_connected(self):
        wait_for("connection", lambda: self.open_entries() == list(CONNECTED_ENTRIES))

    def open_entries(self):
        """Those of the entries for a connected board that are enabled."""
        return self.program.enabled_among(CONNECTED_ENTRIES)

    def open(self, *path, title):
        """Opens a page by the captions of its menu entry and waits for it."""
        self.program.choose(*path)
        self.page = self.program.page(title)

    def open_discounts(self):
        """Opens the page of the discounts and waits until it is filled and can be edited.

        A number that is typed while the program reads it is lost.
        """
        self.open("Sconti", title="Sconti")
        self.board.wait_round()
        wait_for("open field", lambda: self.field(10).has("enabled"))

    def field(self, row):
        return self.page.find("text", f"Sconto {row}")

    def bar(self, row):
        return self.page.find("slider", f"Sconto {row}")

    def wait_shown(self, row, text):
        """Waits until a discount is shown as text."""
        field = self.field(row)
        wait_for(f"{text} in row {row}", lambda: field.text == text)

    def wait_held(self, parameter, number):
        """Waits until the board's memory holds a number."""
        wait_for(f"{number} in parameter {parameter} of the board",
                 lambda: self.board.holds(parameter) == number)

    def assert_closes(self):
        """Closes the frame: the program ends in time, saves once, hands over once."""
        saved = self.watch.written("Sorvane.ini")
        self.assert_ends_at_once(self.program.close_frame)
        self.assertEqual(self.watch.written("Sorvane.ini") - saved, 1, "savings of the settings")
        self.assertEqual(self.sibling_starts(), 1, "starts of the sibling program")

    def assert_ends_after(self, box, action=None):
        """The box says so; when it is answered, or by what else is done, the program ends, saves
        nothing and starts nothing."""
        self.assertEqual(self.program.box(), box)
        self.assert_ends_at_once(action or (lambda: self.program.answer("OK")))
        self.assertEqual(self.watch.written("Sorvane.ini"), 0, "savings of the settings")
        self.assertEqual(self.settings.read_bytes(), SETTINGS)
        self.assertEqual(self.sibling_starts(), 0, "starts of the sibling program")

    def assert_ends_at_once(self, action):
        """What is done ends the program in time and in peace."""
        code, seconds = self.program.end_by(action)
        self.assertEqual(code, 0)
        self.assertLessEqual(seconds, END_WITHIN)

    def sibling_starts(self):
        """How often the sibling has been started, once all that were started have ended.

        What is just being started has no command line yet.
        """
        own = str(self.parent / "ARDENZA.EXE")
        wait_for("end of the sibling",
                 lambda: not any(own in line or not line
                                 for line in offspring.descendants().values()))
        log = pathlib.Path(self.parent / "sibling.log")
        return log.read_text(encoding="ascii").count("started") if log.exists() else 0

    def check_and_end(self, program):
        """The program has not crashed unseen and has complained of nothing."""
        program.put_away()
        self.assertEqual(program.complaints.read_text(errors="replace"), "")

"""A technician's bench: the display, the Wine prefix, and the program of the zip for each test."""

import functools
import itertools
import shutil
import unittest

import places
from app import CONNECT, ENTRIES, App
from board import Board
from desk import Desk
from prefix import Prefix
from strangers import refuse_strangers
from wait import wait_for
from x_windows import XWindows

SETTINGS = b"Com=1\r\nLingua=Italiano\r\n"

FONTS = r"HKCU\Software\Wine\Fonts\Replacements"

_numbers = itertools.count(1)
_pictures = itertools.count(1)


class HeardBoard(Board):
    """The board, with all lines that it has printed: those up to an answer once that has come."""

    def __init__(self, *arguments):
        self.heard = []
        super().__init__(*arguments)

    def _hear(self, line):
        self.heard.append(line)
        super()._hear(line)


class Bench:
    """What all tests share, from its making to close(). Each part is made when it is first used."""

    @functools.cached_property
    def desk(self):
        return Desk()

    @functools.cached_property
    def windows(self):
        return XWindows(self.desk.environment["DISPLAY"])

    @functools.cached_property
    def unpacked(self):
        """The program folder of the zip, never changed."""
        return places.unpack(self.desk.folder)

    @functools.cached_property
    def board_folder(self):
        """A folder for the simulated board, in which the line COM1 comes and goes."""
        folder = self.desk.folder / "board"
        shutil.copytree(places.LINUX_FOLDER, folder, ignore=shutil.ignore_patterns("COM1*"))
        return folder

    @functools.cached_property
    def prefix(self):
        prefix = Prefix(self.desk.folder / "prefix", self.desk.environment)
        # The font of menus and boxes has a name that Wine has no font for, and Qt would take just
        # any.
        prefix.set_value(FONTS, "MS Shell Dlg", "DejaVu Sans")
        prefix.map_port(1, self.board_folder / "COM1")
        return prefix

    def close(self):
        if "windows" in vars(self):
            self.windows.close()
        if "prefix" in vars(self):
            self.prefix.close()
        if "desk" in vars(self):
            self.desk.close()


bench = Bench()


class Scene(unittest.TestCase):
    """Base of the tests that show the program."""

    def setUp(self):
        self.scene = f"scene{next(_numbers)}"
        self.parent = bench.desk.folder / self.scene
        self.put_program(self.parent)

    def put_program(self, parent):
        """Puts the program of the zip below a parent folder, with the sibling beside it."""
        self.parent = parent
        self.folder = parent / "Sorvane"
        shutil.copytree(bench.unpacked, self.folder)
        self.settings = self.folder / "Sorvane.ini"
        self.settings.write_bytes(SETTINGS)
        shutil.copy(places.SIBLING_STAND_IN, parent / "ARDENZA.EXE")
        self.sibling_log = parent / "sibling.log"

    def start_board(self, *arguments):
        """The board at COM1; arguments are those of its command line."""
        self.board = HeardBoard(bench.board_folder, bench.desk.environment, *arguments)
        self.addCleanup(self._end_board)

    def _end_board(self):
        line = bench.board_folder / "COM1"
        try:
            if line.exists():  # it isn't while the board is unplugged
                refuse_strangers(line)
        finally:
            self.board.close()
            line.unlink(missing_ok=True)

    def launch(self, cwd="/"):
        """Starts the program and waits for nothing."""
        process = bench.prefix.start(self.folder / "Sorvane.exe", cwd=cwd)
        self.app = App(bench.desk, bench.windows, process)
        self.addCleanup(self._end, process)

    def _end(self, process):
        if process.poll() is None:
            name = self.id().rsplit(".test_", 1)[1].replace("_", "-")
            self.take_picture(f"end-of-{name}")
        process.kill()
        process.wait()

    def start(self, cwd="/"):
        """Starts the program and waits until it is idle."""
        self.launch(cwd)
        self.app.wait_ready()

    def connect(self):
        """Starts board and program, connects, and waits until the connection stands."""
        self.start_board()
        self.start()
        self.app.choose(CONNECT)
        self.wait_connected()

    def wait_connected(self):
        self.wait_enabled([True] * ENTRIES)

    def wait_enabled(self, enabled):
        """Waits until just these entries of the menu bar are enabled."""
        wait_for(f"menu bar of {enabled}", lambda: self.app.enabled() == enabled)

    def wait_held(self, parameter, number):
        """Waits until the board's memory holds a number."""
        wait_for(f"{number} in parameter {parameter} of the board",
                 lambda: self.board.holds(parameter) == number)

    def close_app(self):
        """Closes the frame and waits for the end, which must be one without fault."""
        self.app.close_frame()
        self.assertEqual(self.app.wait_end(), 0)

    def take_picture(self, name):
        """Leaves a picture of the screen for people to look at."""
        places.PICTURES.mkdir(parents=True, exist_ok=True)
        bench.desk.take_picture(places.PICTURES / f"{next(_pictures):02}-{name}.png")

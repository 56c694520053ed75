"""A copy of the program folder with the simulated board and the program at work in it."""

import shutil
import time

from board import Board, came_round
from program import Program
from screen import names, texts, values, with_state
from wait import wait_for

QUIET = 0.6  # seconds for which the program asks nothing of the board

# The ways to the pages through the menu: lines of the language files, and captions that all
# languages share.
PAGES = ((1,), (2,), (3,), (4,), (5,), ("Set ", 6), ("Set ", 7), (8,), (9, 10), (9, 11), (9, 12),
         (9, 13), (14,))
DISCOUNTS = (4,)
PAYMENT = (5,)
LANGUAGES = 15


def wait_filled(program, board, look=lambda: None):
    """Waits until all that the open pages watch has been read and look returns the same as before.

    That is so once something has been read again after the last change, or when nothing is read any
    more. A number that is typed while the program reads it is lost.
    """
    seen, since, readings = None, time.monotonic(), []
    board.take_readings()

    def filled():
        nonlocal seen, since
        new, now = board.take_readings(), look()
        readings.extend(new)
        if new or now != seen:
            since = time.monotonic()
        if now != seen:
            seen = now
            readings[:] = set(readings)
        return came_round(readings) or (
            time.monotonic() - since > QUIET and not program.lamp("Transmit"))

    wait_for("page that is filled", filled)


class Visit:
    """Stands until its desk is closed. The program folder of the build stays as it is."""

    def __init__(self, desk, built, name, language, *board_arguments):
        self._desk = desk
        self._folder = desk.folder / name / "Sorvane"
        shutil.copytree(built, self._folder, symlinks=True,
                        ignore=shutil.ignore_patterns("COM1*"))
        settings = f"Com=1\r\nLingua={language}\r\n"
        (self._folder / "Sorvane.ini").write_bytes(settings.encode("cp1252"))
        self._read_captions(language)
        self._board = Board(self._folder, desk.environment, *board_arguments)
        self._program = None

    def _start_program(self):
        self._program = Program(self._desk, self._folder)

    def _read_captions(self, language):
        text = (self._folder / f"{language}.lng").read_text(encoding="cp1252")
        self._captions = text.splitlines()

    def _caption(self, step):
        return step if isinstance(step, str) else self._captions[step - 1].strip()

    def _path(self, way):
        return tuple(self._caption(step) for step in way)

    def _connect(self):
        self._program.choose("Connect")
        discounts = self._path(DISCOUNTS)
        wait_for("connection", lambda: self._program.enabled(*discounts))

    def _open(self, way):
        """Opens the only page by its way through the menu and waits until it has filled."""
        self._program.choose(*self._path(way))
        page = wait_for("page", lambda: next(iter(self._program.pages()), None))
        self._wait_settled(page)
        return page

    def _wait_settled(self, page):
        wait_filled(self._program, self._board, lambda: self._shown(page))

    @staticmethod
    def _shown(page):
        fields, bars = page.all("text"), page.all("progress bar")
        return (texts(fields), with_state(fields, "enabled"), names(page.all("label")),
                with_state(bars, "showing"), values(bars))

    def _take_picture(self, path, area=None):
        self._program.wait_painted()
        self._desk.take_picture(path, area)

    def _choose_system(self, page, key):
        """Moves the slider of the payment systems by a key and waits for what follows."""
        slider = page.all("slider")[0]
        before = slider.value
        self._program.press_in(slider, key)
        wait_for("another system", lambda: slider.value != before)
        self._wait_settled(page)

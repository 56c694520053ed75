#!/usr/bin/python3
"""A guided tour: tour.py PROGRAM_FOLDER PICTURES_FOLDER

Drives the program of a program folder by keys in a virtual display, against the simulated board of
the same folder, and leaves a numbered picture and a line of words for each step. The program folder
is copied first and stays as it is; the pictures folder is emptied.
"""

import pathlib
import shutil
import sys
import time

from board import Board
from desk import Desk
from program import Program
from wait import wait_for

SETTLED = 0.6  # seconds for which nothing on a page changes
THIRD_DISCOUNT = 45

# The language that the tour starts with, and the one that it changes to.
FIRST_LANGUAGE = "Italiano"
SECOND_LANGUAGE = "Deutsch"

# The ways to the pages through the menu: lines of the language files, and the caption that all
# languages share.
PAGES = ((1,), (2,), (3,), (4,), (5,), ("Set ", 6), ("Set ", 7), (8,), (9, 10), (9, 11), (9, 12),
         (9, 13), (14,))
PAYMENT = 5
DISCOUNTS = 4
LANGUAGES = 15


class Tour:
    def __init__(self, desk, built, pictures):
        self._desk = desk
        self._pictures = pictures
        self._steps = 0
        shutil.rmtree(pictures, ignore_errors=True)
        pictures.mkdir(parents=True)
        self._folder = desk.folder / "tour" / "Sorvane"
        shutil.copytree(built, self._folder, symlinks=True,
                        ignore=shutil.ignore_patterns("COM1"))
        settings = f"Com=1\r\nLingua={FIRST_LANGUAGE}\r\n"
        (self._folder / "Sorvane.ini").write_bytes(settings.encode("cp1252"))
        self._read_captions(FIRST_LANGUAGE)
        self._board = Board(self._folder, desk.environment)
        self._program = Program(desk, self._folder)

    def step(self, name, words):
        """Takes the picture of a step and writes its line."""
        self._steps += 1
        picture = f"{self._steps:02}-{name}.png"
        self._desk.take_picture(self._pictures / picture)
        line = f"{self._steps:02}  {words}"
        print(line, flush=True)
        with open(self._pictures / "tour.txt", "a", encoding="utf-8") as lines:
            print(line, file=lines)

    def _read_captions(self, language):
        text = (self._folder / f"{language}.lng").read_text(encoding="cp1252")
        self._captions = text.splitlines()

    def _caption(self, step):
        return step if isinstance(step, str) else self._captions[step - 1].strip()

    def run(self):
        self.start()
        self.open_each_page()
        self.choose_each_payment_system()
        self.change_a_discount()
        self.type_garbage()
        self.pull_the_cable()
        self.show_info()
        self.change_language()
        self.open_each_page()
        self.leave()

    def start(self):
        self._program.wait_ready()
        self.step("start", "The program stands idle; the entries for a board are shut.")
        self._program.choose("Connect")
        wait_for("connection", lambda: self._program.enabled("Sconti"))
        self.step("connect", "Connect has asked the board who it is and opened the entries.")

    def open_each_page(self):
        for way in PAGES:
            path = tuple(self._caption(step) for step in way)
            self._program.choose(*path)
            page = wait_for("page", lambda: next(iter(self._program.pages()), None))
            self._wait_settled(page)
            words = f"{' > '.join(path).replace('Set  ', 'Set ')}: page {page.name}"
            self.step(f"page-{way[-1]}", f"{words}.")
            self._show_tabs(page, f"page-{way[-1]}", words)
            self._program.close_page(page)

    def _show_tabs(self, page, name, words):
        """Takes a picture of each tab that can be brought to the front."""
        for strip in (strip for strip in page.all("page tab list") if strip.has("enabled")):
            for tab in self._program.tabs_to_the_right(strip):
                self._wait_settled(page)
                self.step(f"{name}-tab", f"{words}, tab {tab}.")

    def choose_each_payment_system(self):
        """The board's answer to the choice of system opens and closes the rest of the page."""
        self._program.choose(self._caption(PAYMENT))
        page = self._program.page(self._caption(PAYMENT))
        self._wait_settled(page)
        slider = page.all("slider")[0]
        for key, system in (("Home", "Validatore"), ("Right", "Executive"), ("End", "MDB")):
            self._program.press_in(slider, key)
            self._wait_settled(page)
            self.step(f"system-{system.lower()}", f"The payment system is {system}.")
            if system == "Validatore":
                self._show_tabs(page, "system-validatore", "With a validator, page Pagamento")
                self._program.press_in(page.all("page tab list")[0], "Left", "Left")
        self._program.close_page(page)

    def _wait_settled(self, page):
        seen, since = None, 0

        def settled():
            nonlocal seen, since
            now = [(field.text, field.has("enabled")) for field in page.all("text")]
            now += [label.name for label in page.all("label")]
            now += [(bar.has("showing"), bar.value) for bar in page.all("progress bar")]
            if now != seen:
                seen, since = now, time.monotonic()
            return time.monotonic() - since > SETTLED

        wait_for("page at rest", settled)

    def change_a_discount(self):
        self._program.choose("Sconti")
        page = self._program.page("Sconti")
        field = wait_for("field", lambda: page.find("text", "Sconto 3"))
        wait_for("open field", lambda: field.has("enabled"))
        old = field.text
        self._program.type_into(field, "0.5")
        wait_for("new discount", lambda: field.text == "0.50")
        self.step("discount", f"Discount 3 was {old}, 0.5 was typed, and {field.text} came back.")
        held = self._board.holds(THIRD_DISCOUNT)
        if held != 50:
            raise RuntimeError(f"the board holds {held} for discount 3")
        self.step("memory", f"The board, asked for parameter {THIRD_DISCOUNT}, holds {held}.")

    def type_garbage(self):
        page = self._program.page("Sconti")
        field = page.find("text", "Sconto 4")
        old = field.text
        self._program.type_into(field, "abc")
        box = self._program.box()
        self.step("garbage", f"Garbage is refused: \"{box.text.strip()}\".")
        self._program.answer("OK")
        wait_for("old text", lambda: field.text == old)

    def pull_the_cable(self):
        self._board.tell("fault unplugged")
        wait_for("error lamp", lambda: self._program.lamp("Error"))
        self.step("unplugged", "The cable is pulled: the error lamp is lit, and no box comes.")
        self._board.tell("fault none")
        wait_for("error lamp off", lambda: not self._program.lamp("Error"))
        self.step("plugged", "The cable is back: the lamp goes out, and the link goes on.")

    def show_info(self):
        self._program.choose("?")
        page = self._program.page("Info")
        self.step("info", "Info tells the program's name and revision.")
        self._program.point_at("Windows", "2 Info")
        self.step("windows", "Windows lists the pages that stand open.")
        self._desk.press("Escape", "Escape")
        self._program.close_page(page)

    def change_language(self):
        self._program.point_at(self._caption(LANGUAGES), SECOND_LANGUAGE)
        self.step("languages", "Lingue lists the languages, with a mark at the one in use.")
        self._desk.press("Return")
        self._read_captions(SECOND_LANGUAGE)
        page = self._program.page(self._caption(DISCOUNTS))
        self.step("second-language", f"Menu and open pages have taken on {SECOND_LANGUAGE}.")
        self._program.close_page(page)

    def leave(self):
        self._program.close_frame()
        code = self._program.wait_end(2)
        lines = (self._folder / "Sorvane.ini").read_text(encoding="cp1252").split()
        if code != 0 or lines != ["Com=1", f"Lingua={SECOND_LANGUAGE}"]:
            raise RuntimeError(f"the program ended with {code} and left {lines}")
        self.step("end", f"The program has ended; its settings say {' and '.join(lines)}.")


def main():
    built, pictures = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    desk = Desk()
    try:
        Tour(desk, built, pictures).run()
    finally:
        desk.close()
    print(f"Pictures and tour.txt are in {pictures}")


if __name__ == "__main__":
    main()

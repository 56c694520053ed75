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

# In Italian, the language that the tour starts with.
PAGES = (("Password",), ("Impostazioni",), ("Prezzi",), ("Sconti",), ("Pagamento",),
         ("Set ", "Tasti / Colonne"), ("Set ", "Colonne / Prodotti"), ("Orologio",),
         ("Vendite", "Totali"), ("Vendite", "Contatori"), ("Vendite", "Monete"),
         ("Vendite", "Banconote"), ("Allarmi",))


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
        (self._folder / "Sorvane.ini").write_bytes(b"Com=1\r\nLingua=Italiano\r\n")
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

    def run(self):
        self.start()
        self.open_each_page()
        self.change_a_discount()
        self.type_garbage()
        self.pull_the_cable()
        self.show_info()
        self.change_language()
        self.leave()

    def start(self):
        self._program.wait_ready()
        self.step("start", "The program stands idle; the entries for a board are shut.")
        self._program.choose("Connect")
        wait_for("connection", lambda: self._program.enabled("Sconti"))
        self.step("connect", "Connect has asked the board who it is and opened the entries.")

    def open_each_page(self):
        """Those entries that have no page yet answer with a box and are passed over."""
        absent = []
        for path in PAGES:
            self._program.choose(*path)
            wait_for("page or box", lambda: self._program.pages() or self._program.has_box())
            if self._program.has_box():
                self._program.answer("OK")
                absent.append(path[-1])
                continue
            page = self._program.pages()[0]
            self._wait_settled(page)
            name = path[-1].lower().replace(" / ", "-")
            fields = len(page.all("text"))
            self.step(name, f"{' > '.join(path).replace('Set  ', 'Set ')}: "
                            f"page {page.name} with {fields} fields.")
            self._program.close_page(page)
        if absent:
            print(f"    without a page so far: {', '.join(absent)}")

    def _wait_settled(self, page):
        seen, since = None, 0

        def settled():
            nonlocal seen, since
            now = [(field.text, field.has("enabled")) for field in page.all("text")]
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
        self._program.point_at("Lingue", "English")
        self.step("languages", "Lingue lists the languages, with a mark at the one in use.")
        self._desk.press("Return")
        self._program.page("Discounts")
        self.step("english", "Menu and open pages have taken on English.")

    def leave(self):
        self._program.close_frame()
        code = self._program.wait_end(2)
        lines = (self._folder / "Sorvane.ini").read_text(encoding="cp1252").split()
        if code != 0 or lines != ["Com=1", "Lingua=English"]:
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

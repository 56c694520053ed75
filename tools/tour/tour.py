#!/usr/bin/python3
"""A guided tour: tour.py PROGRAM_FOLDER PICTURES_FOLDER [--manual | --look]

Drives the program of a program folder by keys in a virtual display, against the simulated board of
the same folder, and leaves a numbered picture and a line of words for each step. The program folder
is copied first and stays as it is; the pictures folder is emptied.

With --manual it takes the pictures of the manual instead, under the names that the manual uses;
with --look those of docs/look.md.
"""

import argparse
import pathlib
import shutil

import look_pictures
from desk import SCREEN, Desk
from manual_pictures import take_manual_pictures
from panel import put_panel
from program import END_WITHIN
from visit import DISCOUNTS, LANGUAGES, PAGES, PAYMENT, Visit
from wait import wait_for

THIRD_DISCOUNT = 45

# The language that the tour starts with, and the one that it changes to.
FIRST_LANGUAGE = "Italiano"
SECOND_LANGUAGE = "Deutsch"


class Tour(Visit):
    def __init__(self, desk, built, pictures):
        super().__init__(desk, built, "tour", FIRST_LANGUAGE)
        self._pictures = pictures
        self._steps = 0

    def step(self, name, words, beside=None):
        """Takes the picture of a step and writes its line.

        What isn't on the screen can stand beside: a title, and lines.
        """
        self._steps += 1
        picture = self._pictures / f"{self._steps:02}-{name}.png"
        self._take_picture(picture)
        if beside:
            put_panel(picture, *beside)
        line = f"{self._steps:02}  {words}"
        print(line, flush=True)
        with open(self._pictures / "tour.txt", "a", encoding="utf-8") as lines:
            print(line, file=lines)

    def run(self):
        self.start()
        self.open_each_page()
        self.choose_each_payment_system()
        self.change_a_discount()
        self.type_to_a_silent_board()
        self.open_the_manual()
        self.type_garbage()
        self.pull_the_cable()
        self.show_info()
        self.change_language()
        self.open_each_page()
        self.leave()

    def start(self):
        self._start_program()
        self._program.wait_ready()
        self.step("start", "The program stands idle; the entries for a board are shut.")
        self._connect()
        self.step("connect", "Connect has asked the board who it is and opened the entries.")

    def open_each_page(self):
        for way in PAGES:
            page = self._open(way)
            path = " > ".join(self._path(way)).replace("Set  ", "Set ")
            words = f"{path}: page {page.name}"
            self.step(f"page-{way[-1]}", f"{words}.")
            self._show_tabs(page, f"page-{way[-1]}", words)
            self._program.close_page(page)

    def _show_tabs(self, page, name, words):
        """Takes a picture of each tab that can be brought to the front."""
        for strip in (strip for strip in page.all("page tab list") if strip.has("enabled")):
            for tab in self._program.tabs_to_the_right(strip):
                self.step(f"{name}-tab", f"{words}, tab {tab}.")

    def choose_each_payment_system(self):
        """The board's answer to the choice of system opens and closes the rest of the page."""
        page = self._open(PAYMENT)
        for key, system in (("Home", "Validatore"), ("Right", "Executive"), ("End", "MDB")):
            self._choose_system(page, key)
            self.step(f"system-{system.lower()}", f"The payment system is {system}.")
            if system == "Validatore":
                self._show_tabs(page, "system-validatore", "With a validator, page Pagamento")
                self._program.press_in(page.all("page tab list")[0], "Left", "Left")
        self._program.close_page(page)

    def change_a_discount(self):
        self._program.choose("Sconti")
        page = self._program.page("Sconti")
        self._board.wait_round()
        field = page.find("text", "Sconto 3")
        old = field.text
        self._program.type_into(field, "0.5")
        wait_for("new discount", lambda: field.text == "0.50")
        self.step("discount", f"Discount 3 was {old}, 0.5 was typed, and {field.text} came back.")
        question = f"get {THIRD_DISCOUNT}"
        answer = self._board.tell(question)
        if answer != f"{THIRD_DISCOUNT} = 50":
            raise RuntimeError(f"the board says {answer} of discount 3")
        self.step("memory", f"The board holds it: asked \"{question}\" in its terminal, it answers "
                  f"\"{answer}\".", ("SorvaneBoard, in its terminal", (question, answer)))

    def type_to_a_silent_board(self):
        field = self._program.page("Sconti").find("text", "Sconto 5")
        self._board.tell("fault silent")
        self._program.type_into(field, "0.45")
        self.step("unconfirmed", "The board is silent: what was typed stays slanted.")
        self._board.tell("fault none")
        self._board.wait_round()
        self.step("confirmed", "It answers again, and the discount stands upright.")

    def open_the_manual(self):
        self._desk.press("F1")
        wait_for("manual", self._program.manual)
        self.step("manual", "F1 opens the manual at the chapter of the page.")
        self._program.leave_manual()

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
        self._program.leave_menu()
        self._program.close_page(page)

    def change_language(self):
        self._program.point_at(self._caption(LANGUAGES), SECOND_LANGUAGE)
        self.step("languages", "Lingue lists the languages, with a mark at the one in use.")
        self._desk.press("Return")
        self._read_captions(SECOND_LANGUAGE)
        page = self._program.page(*self._path(DISCOUNTS))
        self.step("second-language", f"Menu and open pages have taken on {SECOND_LANGUAGE}.")
        self._program.close_page(page)

    def leave(self):
        lines = self._close_program()
        self._start_program()
        self._program.wait_ready()
        if self._path(DISCOUNTS)[0] not in self._program.captions():
            raise RuntimeError(f"the program comes back with {self._program.captions()}")
        self.step("end", f"The program was closed, left {' and '.join(lines)} in Sorvane.ini, and "
                  f"comes back in {SECOND_LANGUAGE}.", ("The file Sorvane.ini", lines))
        self._close_program()

    def _close_program(self):
        """Returns the lines of the settings that it leaves."""
        code, seconds = self._program.end_by(self._program.close_frame)
        lines = (self._folder / "Sorvane.ini").read_text(encoding="cp1252").split()
        if code != 0 or seconds > END_WITHIN or lines != ["Com=1", f"Lingua={SECOND_LANGUAGE}"]:
            raise RuntimeError(f"the program ended with {code} in {seconds:.1f} s and left {lines}")
        return lines


def main():
    parser = argparse.ArgumentParser(description="A guided tour of the program.")
    parser.add_argument("built", type=pathlib.Path, help="program folder")
    parser.add_argument("pictures", type=pathlib.Path, help="folder for the pictures, emptied")
    kind = parser.add_mutually_exclusive_group()
    kind.add_argument("--manual", action="store_true", help="take the pictures of the manual")
    kind.add_argument("--look", action="store_true", help="take the pictures of docs/look.md")
    arguments = parser.parse_args()
    built = arguments.built.resolve(strict=True)
    pictures = arguments.pictures.resolve()
    desk = Desk(look_pictures.SCREEN if arguments.look else SCREEN)
    try:
        shutil.rmtree(pictures, ignore_errors=True)
        pictures.mkdir(parents=True)
        if arguments.manual:
            take_manual_pictures(desk, built, pictures)
        elif arguments.look:
            look_pictures.take_look_pictures(desk, built, pictures)
        else:
            Tour(desk, built, pictures).run()
    finally:
        desk.close()
    words = "" if arguments.manual or arguments.look else ", their words in tour.txt beside them"
    print(f"The pictures are in {pictures}{words}")


if __name__ == "__main__":
    main()

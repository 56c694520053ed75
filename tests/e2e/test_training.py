"""The how-to for training, played by a trainer and a trainee who do what it says."""

import itertools
import pathlib
import re
import shlex

from board import EXCHANGE, Board
from scene import Scene
from screen import names
from visit import wait_filled
from wait import wait_for

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "howto" / "training.md"
CAPTIONS = {"Set": "Set "}  # of the menu, where they have more than their words


def parts(text):
    """What is typed, done and seen, top to bottom: a block as ("console", lines), and the row of a
    table as the first words of its head and its cells."""
    head = None
    lines = map(str.strip, text.splitlines())
    for line in lines:
        if line == "```console":
            yield "console", list(itertools.takewhile(lambda one: one != "```", lines))
        elif line.startswith("|"):
            cells = [cell.strip() for cell in line.strip("|").split("|")]
            if head is None:
                head = cells[0]
            elif not set(line) <= set("|-"):
                yield head, cells
        else:
            head = None


def commands(block):
    """Pairs of what is typed, with its sign, and the lines that follow."""
    found = []
    for line in block:
        if line.startswith(("$ ", "> ")):
            found.append((line, []))
        else:
            found[-1][1].append(line)
    return found


def fits(told, printed):
    """Whether lines were printed as they are told, where "..." stands for anything."""
    return len(told) == len(printed) and all(
        re.fullmatch(".*".join(map(re.escape, one.split("..."))), other)
        for one, other in zip(told, printed))


class Terminal(Board):
    """The board, with all that it has printed beside the exchanges."""

    def __init__(self, *arguments):
        self.printed = []
        super().__init__(*arguments)

    def _hear(self, line):
        if line.startswith("line ") or not line.startswith(("read ", *EXCHANGE)):
            self.printed.append(line)
        super()._hear(line)


class Training(Scene):
    def test_goes_from_start_to_end_as_told(self):
        done = {"console": 0, "do": 0, "command": 0}
        for kind, content in parts(PAGE.read_text(encoding="utf-8")):
            done[kind] += 1
            if kind == "console":
                for typed, told in commands(content):
                    self.type_in_terminal(typed, told)
            elif kind == "do":
                action, sights = content
                self.obey(ACTIONS, action)
                for sight in sights.split("; "):
                    self.obey(SIGHTS, sight)
        self.assertEqual(self.board.wait_end(), 0)
        self.assertFalse((self.folder / "COM1").is_symlink())
        self.assertGreater(min(done.values()), 5)

    def test_all_that_is_left_to_practise_is_a_command_of_the_board(self):
        self.start_board("--quiet")
        for kind, content in parts(PAGE.read_text(encoding="utf-8")):
            if kind == "command":
                for command in re.findall("`([^`]+)`", content[0]):
                    self.assertIn(command.split()[0], self.board.tell(command))

    def obey(self, table, words):
        """Does what the words say, by the row of the table that they fit."""
        for pattern, method in table:
            match = re.fullmatch(pattern, words)
            if match:
                return method(self, *match.groups())
        return self.fail(f"nobody knows how to do this: {words}")

    def rest(self):
        """Waits, as a person takes his time, until nothing that was asked or written is left."""
        wait_filled(self.program, self.board)

    # The trainer.

    def type_in_terminal(self, typed, told):
        sign, line = typed.split(" ", 1)
        if sign == "$":
            self.start_program(line, told)
        else:
            if line.startswith("get "):
                self.rest()
            before = len(self.board.printed)
            self.board.tell(line)
            printed = wait_for(f"lines of {line}", lambda: len(
                now := self.board.printed[before:]) >= len(told) and now)
            self.assertTrue(fits(told, printed), f"{line}: {printed}")

    def start_program(self, line, told):
        file, *arguments = shlex.split(line)
        path = self.parent / file
        if path == self.folder / "SorvaneBoard":
            arguments.remove("--quiet")  # the exchanges tell when the line is at rest
            self.board = Terminal(self.folder, self.desk.environment, *arguments)
            self.addCleanup(self.board.close)
            self.assertTrue(fits(told, self.board.printed), self.board.printed)
        else:
            self.assertEqual(path, self.folder / "Sorvane")
            self.assertEqual(told, [])
            self.start()

    # The trainee's hands.

    def choose(self, path):
        captions = re.findall(r"\*\*(.+?)\*\*", path)
        self.program.choose(*(CAPTIONS.get(caption, caption) for caption in captions))

    def part(self, role, name):
        """A control of the open pages, or None."""
        found = (page.find(role, name) for page in self.program.pages())
        return next(filter(None, found), None)

    def type_into(self, text, name):
        self.rest()
        self.program.press_in(self.part("text", name))
        self.type_over(text)

    def type_over(self, text):
        self.rest()  # an answer to what was typed before would take the place of the text
        self.desk.press("ctrl+a")
        self.desk.type(text)
        wait_for(f"{text} in the field", lambda: self.in_hand() == text)
        self.desk.press("Return")

    def press_on_bar(self, name):
        self.rest()
        self.program.press_in(self.part("slider", name), "Right")

    def close_pages(self):
        while before := len(self.program.pages()):
            self.desk.press("ctrl+w")
            wait_for("end of a page", lambda: len(self.program.pages()) < before)

    def close_page(self):
        self.assertEqual(len(self.program.pages()), 1)
        self.close_pages()

    def close_window(self):
        self.assert_ends_at_once(self.program.close_frame)

    def look(self):
        pass

    # The trainee's eyes.

    def shown(self, name):
        """What stands in a field, or beside a caption."""
        field = self.part("text", name)
        if field:
            return field.text
        labels = [names(page.all("label")) for page in self.program.pages()]
        return next((words[words.index(name) + 1] for words in labels if name in words), None)

    def in_hand(self):
        """What stands in the field that has the keyboard."""
        fields = filter(None, (page.focus() for page in self.program.pages()))
        return next((field.text for field in fields), None)

    def see_value(self, name, text):
        wait_for(f"{text} for {name}", lambda: self.shown(name) == text)

    def see_entry(self, caption, colour):
        wait_for(f"{caption} in {colour}", lambda: self.program.entry(caption) and
                 self.program.enabled(caption) == (colour == "black"))

    def see_box(self, lines):
        self.assertEqual([line.strip() for line in self.program.box().text.split("\n")],
                         re.findall("`([^`]+)`", lines))

    def see_lamp(self, state):
        wait_for(f"lamp {state}", lambda: self.program.lamp("Error") == (state == "lit"))

    def see_row(self, words):
        def first():
            cells = [names(page.all("tree item")) for page in self.program.pages()]
            return next((row[3].strip() for row in cells if row), None)
        self.assertEqual(wait_for("rows", first), words)

    def see_no_page(self):
        wait_for("end of the pages", lambda: not self.program.pages())

    def see_end(self):
        self.assertEqual(self.program.wait_end(), 0)


ACTIONS = (
    (r"choose (\*\*.+\*\*)", Training.choose),
    (r"type `(.+)` into \*\*(.+)\*\* and press Enter", Training.type_into),
    (r"press Ctrl\+A, type `(.+)` and press Enter", Training.type_over),
    (r"press the right arrow on the bar of \*\*(.+)\*\*", Training.press_on_bar),
    (r"press Ctrl\+W", Training.close_page),
    (r"press Ctrl\+W until no page is left", Training.close_pages),
    (r"answer `(.+)`", lambda self, button: self.program.answer(button)),
    (r"close the window", Training.close_window),
    (r"look", Training.look),
)
SIGHTS = (
    (r"\*\*(.+)\*\* shows `(.+)`", Training.see_value),
    (r"\*\*(.+)\*\* is (grey|black)", Training.see_entry),
    (r"the box (`.+`)", Training.see_box),
    (r"the exclamation mark is (lit|out)", Training.see_lamp),
    (r"the first row says `(.+)`", Training.see_row),
    (r"no page is open", Training.see_no_page),
    (r"the program has ended", Training.see_end),
)

"""The how-tos, followed word by word, and what the simulated board says of itself. That for training
is played by the end-to-end tests."""

import os
import pathlib
import pty
import re
import shutil
import subprocess
import tempfile
import unittest

from markdown import ROOT, Document

HOWTOS = ROOT / "docs" / "howto"
LIMIT = 60  # seconds for a command

BLOCK = re.compile(r"^ *```(\w+)\n(.*?)^ *```", re.MULTILINE | re.DOTALL)


def blocks(page, kind):
    """The blocks of a kind in a page, without the indentation of the list around them."""
    text = (HOWTOS / page).read_text(encoding="utf-8")
    found = []
    for match in BLOCK.finditer(text):
        if match[1] == kind:
            lines = match[2].splitlines()
            indent = min((len(line) - len(line.lstrip()) for line in lines if line), default=0)
            found.append([line[indent:] for line in lines])
    return found


def commands(block):
    """Pairs of a command and the lines that it prints."""
    found = []
    for line in block:
        if line.startswith("$ "):
            found.append((line[2:], []))
        elif line.startswith("> "):
            found[-1] = (found[-1][0] + "\n" + line[2:], [])
        else:
            found[-1][1].append(line)
    return found


def pattern(lines):
    """What the output looks like: "..." stands for anything, on a line of its own for any lines."""
    parts = [r"(?:.*\n)*" if line == "..." else
             ".*".join(map(re.escape, line.split("..."))) + r"\n" for line in lines]
    return re.compile("".join(parts))


def read_terminal(end):
    """What comes next; nothing when nobody has the terminal open any more."""
    try:
        return os.read(end, 4096).decode()
    except OSError:
        return ""


class ProgramFolder(unittest.TestCase):
    """A program folder of the test's own, beside the data of the sources."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copytree(os.environ["SORVANE_FOLDER"], self.folder / "Sorvane",
                        ignore=shutil.ignore_patterns("COM1*"))
        shutil.copytree(ROOT / "data", self.folder / "data")
        tools = os.environ["SORVANE_TOOLS"]
        self.environment = {**os.environ, "LC_ALL": "C.UTF-8",
                            "PATH": f"{tools}:{os.environ['PATH']}"}

    def run_command(self, command):
        done = subprocess.run(["bash", "-c", command], cwd=self.folder, env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              timeout=LIMIT, check=False)
        code = f"[exit code {done.returncode}]\n" if done.returncode else ""
        return done.stdout + code


class HowTos(ProgramFolder):
    def follow(self, page):
        count = 0
        for block in blocks(page, "console"):
            for command, lines in commands(block):
                printed = self.run_command(command)
                count += 1
                self.assertTrue(pattern(lines).fullmatch(printed),
                                f"{page}: {command}\n{printed}")
        self.assertGreaterEqual(count, 3, page)

    def test_a_new_index_file_is_made_as_told(self):
        self.follow("index-file.md")

    def test_a_translation_is_made_as_told(self):
        self.follow("translation.md")

    def test_the_page_that_is_told_is_the_page_that_is_built(self):
        built = ROOT / "tests" / "docs" / "howto"
        told = ["\n".join(block) + "\n" for block in blocks("page.md", "cpp")]
        for name in ("frm_interventi.h", "frm_interventi.cpp"):
            text = (built / name).read_text(encoding="utf-8")
            self.assertIn(text.replace("docs/howto/", "pages/audit/"), told)

    def test_every_how_to_is_followed(self):
        self.assertEqual(sorted(path.name for path in HOWTOS.glob("*.md")),
                         ["README.md", "cloning.md", "index-file.md", "page.md", "training.md",
                          "translation.md"])


class TenMachines(ProgramFolder):
    """The how-to for machines that are set alike: first the model, then the others at the same
    port, before a person who answers every question with yes."""

    def setUp(self):
        super().setUp()
        self.environment["XDG_DATA_HOME"] = str(self.folder / "copies")

    def plug_in(self, machine, price=None):
        """A machine of this number, with a price of its own for two selections."""
        board = subprocess.Popen([str(self.folder / "Sorvane/SorvaneBoard"), "--quiet"],
                                 stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(board.communicate)
        self.addCleanup(board.kill)
        self.assertIn("leads to", board.stdout.readline())
        orders = [f"set 9 {machine}"]
        if price is not None:
            orders += [f"set {number} {price}" for number in (25, 27, 393, 395)]
        for order in orders:
            board.stdin.write(f"{order}\n")
            board.stdin.flush()
            self.assertIn(" = ", board.stdout.readline())
        return board

    def unplug(self, board):
        board.stdin.write("quit\n")
        board.stdin.flush()
        self.assertEqual(board.wait(LIMIT), 0)

    def run_command(self, command):
        """The same before a terminal."""
        end, terminal = pty.openpty()
        self.addCleanup(os.close, end)
        process = subprocess.Popen(["bash", "-c", command], cwd=self.folder, env=self.environment,
                                   stdin=terminal, stdout=terminal, stderr=terminal)
        os.close(terminal)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        shown = ""
        while piece := read_terminal(end):
            shown += piece
            if shown.endswith("[y/N] "):
                os.write(end, b"y\n")
        code = process.wait(LIMIT)
        # Where a line was written anew, its last words stand.
        lines = [line.rpartition("\r")[2] for line in shown.replace("\r\n", "\n").split("\n")]
        return "\n".join(lines) + (f"[exit code {code}]\n" if code else "")

    def follow(self, block, number):
        for command, lines in commands(block):
            printed = self.run_command(command.replace("1001", number))
            expected = [line.replace("1001", number) for line in lines]
            self.assertTrue(pattern(expected).fullmatch(printed), f"{command}\n{printed}")

    def test_are_set_alike_as_told(self):
        model, *others = blocks("cloning.md", "console")
        self.assertEqual(len(others), 4)
        board = self.plug_in(100234)
        self.follow(model, "1001")
        self.unplug(board)
        for machine in range(1001, 1010):
            board = self.plug_in(machine, 110)
            for block in others:
                self.follow(block, str(machine))
            self.unplug(board)
        self.assertEqual(len(list(self.folder.glob("*.json"))), 10)


class SimulatorPage(ProgramFolder):
    """The simulated board's page against the board's own help."""

    def setUp(self):
        super().setUp()
        self.page = Document(ROOT / "simulator" / "README.md")
        said = self.run_command("printf 'help\\nquit\\n' | Sorvane/SorvaneBoard --quiet")
        orders, _, faults = said.rpartition("faults: ")
        self.orders = [line.split()[0] for line in orders.splitlines()
                       if not line.startswith("line ")]
        self.faults = faults.splitlines()[0].split(", ")
        self.assertIn("none", self.faults)

    def test_every_order_has_an_example(self):
        examples = {example.split()[0]
                    for line in self.page.path.read_text(encoding="utf-8").splitlines()
                    if line.startswith("    ") and "./" not in line
                    for example in re.split("  +", line.strip())}
        self.assertEqual(examples, set(self.orders))

    def test_every_fault_is_in_the_table(self):
        told = re.findall("^`([^`]*)` ", self.page.section("Faults"), re.MULTILINE)
        self.assertEqual({*told, "none"}, set(self.faults))
"""The manual pages of the Debian package: what all of them have, and those of the programs that
come along against what these programs say. Those of sorvane-cli are in test_command_line.

SORVANE_FOLDER names the program folder, SORVANE_TOOLS the folders of the tools."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from man_page import ManPage, plain
from markdown import ROOT
from program_help import OPTION, commands_of, options_of

PAGES = sorted((ROOT / "packaging" / "linux").glob("*.[1-8]"))
LIMIT = 60  # seconds for a program
# The programs as commands of the package, and as files of the build.
PROGRAMS = {"sorvane-board": "SorvaneBoard", "sorvane-index": "SorvaneIndex",
            "sorvane-languages": "SorvaneLanguages"}
PATH = os.pathsep.join([os.environ["SORVANE_FOLDER"], os.environ["SORVANE_TOOLS"]])


def said(name, *words, typed=""):
    program = shutil.which(PROGRAMS[name], path=PATH)
    return subprocess.run([program, *words], input=typed, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=LIMIT, check=True).stdout


def page_of(name):
    return ManPage(next(page for page in PAGES if page.stem == name))


class EveryPage(unittest.TestCase):
    def test_it_has_its_name_a_date_and_the_parts_that_readers_look_for(self):
        self.assertEqual(len(PAGES), 6)
        for path in PAGES:
            with self.subTest(page=path.name):
                page = ManPage(path)
                head = path.read_text(encoding="utf-8").splitlines()[0]
                self.assertRegex(
                    head, rf'^\.TH {path.stem.upper()} {path.suffix[1:]} "\d{{4}}-\d\d-\d\d" '
                          r'"Sorvane" "Service tool"$')
                self.assertTrue(plain(page.section("NAME")[0]).startswith(f"{path.stem} - "))
                for part in ("DESCRIPTION", "EXAMPLES", "SEE ALSO"):
                    self.assertTrue(page.section(part), part)

    def test_a_commands_page_tells_how_it_ends_and_which_files_it_needs(self):
        for path in PAGES:
            if path.suffix == ".1":
                with self.subTest(page=path.name):
                    page = ManPage(path)
                    self.assertTrue(page.section("SYNOPSIS"))
                    self.assertTrue(page.tags("FILES"))
                    self.assertTrue(all(tag.isdigit() for tag in page.tags("EXIT STATUS")))
                    self.assertGreaterEqual({*page.tags("EXIT STATUS")}, {"0", "1"})

    def test_a_page_that_another_one_names_is_there(self):
        there = {path.name for path in PAGES}
        for path in PAGES:
            named = re.findall(r"^\.BR ([\w\\-]+) \((\d)\)", path.read_text(encoding="utf-8"),
                               re.MULTILINE)
            self.assertTrue(named, path.name)
            names = {f"{name}.{number}".replace("\\-", "-") for name, number in named}
            self.assertLessEqual(names, there, path.name)


class ProgramPages(unittest.TestCase):
    def test_they_tell_every_option_and_no_other(self):
        for name in PROGRAMS:
            with self.subTest(page=name):
                whole = said(name, "--help")
                there = options_of(whole)
                for command in commands_of(whole):
                    there |= options_of(said(name, command, "--help"))
                self.assertLessEqual({"-h", "--help", "--version"}, there)
                told = {option for tag in page_of(name).tags("OPTIONS")
                        for option in OPTION.findall(tag)}
                self.assertEqual(told, there)

    def test_they_tell_how_a_line_that_cant_be_read_ends(self):
        for name in PROGRAMS:
            self.assertEqual(page_of(name).tags("EXIT STATUS"), ["0", "1", "2"], name)

    def test_the_compilers_page_tells_every_command_with_its_arguments(self):
        there = {}
        for command in commands_of(said("sorvane-index", "--help")):
            usage = re.search(r"\[OPTIONS\] (.*)$", said("sorvane-index", command, "--help"),
                              re.MULTILINE)[1]
            there[command] = {word.strip(".").removesuffix("s") for word in usage.split()}
        told = {tag.split()[0]: {word.strip(".").lower() for word in tag.split()[1:]}
                for tag in page_of("sorvane-index").tags("COMMANDS")}
        self.assertEqual(told, there)

    def test_the_checks_page_names_the_reference(self):
        reference = re.search(r"--reference TEXT=(\w+)", said("sorvane-languages", "--help"))[1]
        self.assertIn(reference, " ".join(page_of("sorvane-languages").section("OPTIONS")))


class BoardPage(unittest.TestCase):
    def setUp(self):
        self.page = page_of("sorvane-board")
        listed = said("sorvane-board", "--quiet", "--link", str(self.free_link()),
                      typed="help\nquit\n")
        commands, _, faults = listed.rpartition("faults: ")
        self.examples = [re.split("  +", line)[0] for line in commands.splitlines()
                         if not line.startswith("line ")]
        self.faults = faults.splitlines()[0].split(", ")

    def free_link(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return pathlib.Path(folder.name) / "COM1"

    def test_it_tells_every_command_in_the_boards_order(self):
        self.assertGreater(len(self.examples), 10)
        self.assertEqual([tag.split()[0] for tag in self.page.tags("COMMANDS")],
                         [example.split()[0] for example in self.examples])

    def test_it_tells_arguments_where_there_are_some(self):
        for tag, example in zip(self.page.tags("COMMANDS"), self.examples):
            self.assertEqual(" " in tag, " " in example, tag)

    def test_it_tells_every_fault_in_the_boards_order(self):
        self.assertGreater(len(self.faults), 5)
        self.assertEqual(self.page.tags("FAULTS"), self.faults)

    def test_it_tells_the_values_that_hold_without_an_option(self):
        rows = re.findall(r"^  (--\w+) INT:.*?=(\d+)", said("sorvane-board", "--help"),
                          re.MULTILINE)
        self.assertEqual(len(rows), 5)
        text = "\n".join(self.page.section("OPTIONS")).replace("\\-", "-")
        for option, value in rows:
            words = re.search(rf"^\.BR {option} .*\n((?:[^.].*\n)+)", text, re.MULTILINE)[1]
            self.assertRegex(words, rf"\b{value}\b", option)

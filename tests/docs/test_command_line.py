"""The manual pages of sorvane-cli and of its snapshots against what the program says and does."""

import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from man_page import ManPage
from markdown import ROOT
from program_help import OPTION, commands_of, options_of

PAGES = ROOT / "packaging" / "linux"
PROGRAM = pathlib.Path(os.environ["SORVANE_FOLDER"]) / "sorvane-cli"
LIMIT = 60  # seconds for a command


def said(*words, code=0):
    """What the program prints; another exit code is a failure."""
    run = subprocess.run([str(PROGRAM), *map(str, words)], stdin=subprocess.DEVNULL,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=LIMIT,
                         check=False)
    if run.returncode != code:
        raise AssertionError(f"{words}: exit code {run.returncode}: {run.stderr}")
    return run.stdout


def shape(value):
    """Of what a JSON value consists: names of members, and kinds of what they hold."""
    if isinstance(value, dict):
        return {name: shape(member) for name, member in value.items()}
    if isinstance(value, list):
        return [shape(value[0])] if value else []
    return type(value).__name__


class CommandPage(unittest.TestCase):
    def setUp(self):
        self.page = ManPage(PAGES / "sorvane-cli.1")
        self.helps = {(): said("--help")}
        for command in commands_of(self.helps[()]):
            self.helps[command,] = said(command, "--help")
            for further in commands_of(self.helps[command,]):
                self.helps[command, further] = said(command, further, "--help")

    def test_it_tells_every_command_and_no_other(self):
        there = {words for words, text in self.helps.items() if words and not commands_of(text)}
        self.assertGreater(len(there), 10)
        told = {tuple(word for word in re.split(r" [A-Z[]", tag)[0].split() if word.islower())
                for tag in self.page.tags("COMMANDS")}
        self.assertEqual(told, there)

    def test_it_tells_the_arguments_of_every_command(self):
        for words, text in self.helps.items():
            usage = re.search(r"^Usage: .*?\[OPTIONS\](.*)$", text, re.MULTILINE)[1]
            if not words or commands_of(text):
                continue
            tag = next(tag for tag in self.page.tags("COMMANDS")
                       if f"{tag} ".startswith(f"{' '.join(words)} "))
            arguments = re.sub(r"\[--[a-z-]+ [A-Z]+\]", "", tag)
            self.assertEqual(set(re.findall(r"\b[A-Z]+\b", arguments)),
                             set(re.findall(r"\b[A-Z]+\b", usage)), words)

    def test_it_tells_every_option_and_no_other(self):
        there = set().union(*map(options_of, self.helps.values()))
        self.assertGreater(len(there), 20)
        told = {option for section in ("OPTIONS", "COMMANDS") for tag in self.page.tags(section)
                for option in OPTION.findall(tag)}
        self.assertEqual(told, there)

    def test_the_manuals_type_what_there_is_and_the_same_in_both_languages(self):
        typed = {}
        for language in ("en", "it"):
            text = (ROOT / "docs" / "manual" / f"{language}.md").read_text(encoding="utf-8")
            lines = re.findall(r"(?:^    |`)sorvane-cli ([^`\n]+)", text, re.MULTILINE)
            typed[language] = [re.sub(r"\w+\.json", "FILE", line.removesuffix(" --language it"))
                               for line in lines]
        self.assertGreater(len(typed["en"]), 10)
        self.assertEqual(typed["it"], typed["en"])
        for line in typed["en"]:
            options = set(OPTION.findall(line))
            command = [word for word in line.split() if not word.startswith("-")]
            place = next(((word,) for word in command if (word,) in self.helps), ())
            self.assertTrue(place or not command, line)
            self.assertLessEqual(options, options_of(self.helps[()]) |
                                 options_of(self.helps[place]), line)

    def test_it_tells_every_exit_status_that_the_help_tells(self):
        footer = " ".join(self.helps[()].partition("Exit status:")[2].split())
        self.assertEqual(self.page.tags("EXIT STATUS"), re.findall(r"\b\d+\b", footer))

    def test_it_tells_every_group(self):
        told = re.findall(r"[a-z]+", " ".join(
            line.removeprefix(".BR") for line in self.page.section("GROUPS")))
        groups = {row["group"] for row in json.loads(said("--json", "names"))["names"]}
        self.assertEqual(set(told), groups)
        self.assertEqual(len(told), len(groups))


class Shapes(unittest.TestCase):
    """The objects that the page shows, against those that the program gives."""

    def setUp(self):
        self.shown = {}
        for tag, example in ManPage(PAGES / "sorvane-cli.1").examples("JSON"):
            for command in re.split(", | and ", tag):
                self.shown[command] = shape(json.loads(example))
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        folder = pathlib.Path(place.name)
        self.link = folder / "COM1"
        os.environ["XDG_DATA_HOME"] = str(folder / "data")
        self.snapshot = folder / "held.json"
        board = subprocess.Popen([str(PROGRAM.with_name("SorvaneBoard")), "--quiet", "--link",
                                  str(self.link)], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(board.communicate)
        self.addCleanup(board.terminate)  # it takes its link away itself
        self.assertIn(b"leads to", board.stdout.readline())

    def give(self, *words, **options):
        return shape(json.loads(said("--quiet", "--json", "--port", self.link, *words, **options)))

    def test_are_those_of_the_program(self):
        said("--port", self.link, "backup", self.snapshot)
        given = {
            "info": self.give("info"),
            "get": self.give("get", "price.3"),
            "audit": self.give("audit", "--since", self.snapshot),
            "names": self.give("names", "prices"),
            "set": self.give("--yes", "set", "price.3=1.75"),
            "diff": self.give("diff", self.snapshot, "-", code=1),
            "restore": self.give("--yes", "restore", self.snapshot),
            "undo": self.give("--yes", "undo"),
            "clock set": self.give("--yes", "clock", "set"),
        }
        self.snapshot.write_text(self.snapshot.read_text(encoding="utf-8").replace(
            '"raw": 150', '"raw": 65536', 1), encoding="utf-8")
        given["check"] = self.give("check", self.snapshot, code=1)
        for command, there in given.items():
            shown = self.shown.pop(command)
            if command == "clock set":  # the board's clock may be right already
                shown, there = set(shown), set(there)
            self.assertEqual(there, shown, command)
        # Of a computer that may have no port.
        self.assertEqual(self.shown, {"ports": {"ports": [{"name": "str", "words": "str"}]}})

    def test_a_snapshot_has_the_members_that_its_page_tells(self):
        page = ManPage(PAGES / "sorvane-snapshot.5")
        held = json.loads(said("--port", self.link, "backup"))
        told = [name for tag in page.tags("MEMBERS") for name in tag.split(", ")]
        self.assertEqual(told, [*held, *held["values"][0]])
        [(_, example)] = page.examples("EXAMPLES")
        self.assertEqual({**shape(json.loads(example)), "values": []},
                         {**shape(held), "values": []})
        self.snapshot.write_text(f"{example}\n", encoding="utf-8")
        self.assertEqual(said("check", self.snapshot), "")

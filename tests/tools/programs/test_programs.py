"""The companion programs: what they end with, on which stream they say what, and what they refuse
to read and to write. SORVANE_INDEX and its like in the environment name the programs."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
LIMIT = 20  # seconds for a program
USAGE_ERROR = 2

# A line that each of them can't read.
BAD_LINES = {
    "SORVANE_INDEX": ([], ["compile"], ["compile", "a", "b", "c"], ["mend", "a"],
                      ["decompile", "a", "b", "--level", "3"], ["decompile", "a", "b"], ["check"]),
    "SORVANE_LANGUAGES": ([], ["a", "b"], ["a", "--colour"], ["a", "--reference"],
                          ["a", "--from-utf8"]),
    "SORVANE_ICON": ([], ["a", "b"], ["--colour"]),
    "SORVANE_BOARD": (["--colour"], ["a"], ["--baud", "299"], ["--fault", "silence"], ["--link"],
                      ["--fault", "slow", "--refuse-day-0"]),
    "SORVANE_CLI": ([], ["--colour"], ["mend"], ["get"], ["--format", "xml", "audit"]),
}
# What each of them calls itself.
NAMES = {"SORVANE_INDEX": "SorvaneIndex", "SORVANE_LANGUAGES": "SorvaneLanguages",
         "SORVANE_ICON": "SorvaneIcon", "SORVANE_BOARD": "SorvaneBoard", "SORVANE_CLI": "sorvane-cli"}
VERSION = re.search(r"project\(Sorvane VERSION ([\d.]+)",
                    (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]


def run(program, *arguments):
    return subprocess.run([os.environ[program], *arguments], stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, timeout=LIMIT, check=False)


class CompanionTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def pipe(self, name):
        """A pipe in place of a file: whoever opens it to read waits for a writer for ever."""
        os.mkfifo(self.folder / name)
        return self.folder / name

    def table(self, name="table.txt"):
        return pathlib.Path(shutil.copy(ROOT / "data" / "index" / "W0309.txt", self.folder / name))

    def languages(self, name="languages"):
        folder = self.folder / name
        shutil.copytree(ROOT / "data" / "languages", folder)
        return folder

    def assert_failed(self, done, code, *words):
        """It ended with the code, and said so on standard error alone."""
        self.assertEqual((done.returncode, done.stdout), (code, ""), done.stderr)
        for word in words:
            self.assertIn(str(word), done.stderr)


class CommandLines(CompanionTest):
    def test_a_line_that_cant_be_read_ends_with_2_and_is_told_on_standard_error(self):
        for program, lines in BAD_LINES.items():
            for line in lines:
                with self.subTest(program=program, line=line):
                    done = run(program, *line)
                    self.assert_failed(done, USAGE_ERROR)
                    self.assertNotEqual(done.stderr, "")

    def test_help_ends_with_0_and_is_told_on_standard_output(self):
        for program in BAD_LINES:
            with self.subTest(program=program):
                done = run(program, "--help")
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertIn("--help", done.stdout)

    def test_the_version_is_that_of_the_project(self):
        self.assertEqual(set(NAMES), set(BAD_LINES))
        for program, name in NAMES.items():
            with self.subTest(program=program):
                done = run(program, "--version")
                self.assertEqual((done.returncode, done.stdout, done.stderr),
                                 (0, f"{name} {VERSION}\n", ""))


class IndexCompiler(CompanionTest):
    def assert_refused(self, command, source, target, *options):
        before = source.read_bytes()
        done = run("SORVANE_INDEX", command, str(source), str(target), *options)
        self.assert_failed(done, 1, f"{target}: ", "source")
        self.assertEqual(source.read_bytes(), before)

    def test_a_table_isnt_overwritten_by_its_index_file(self):
        table = self.table()
        self.assert_refused("compile", table, table)

    def test_a_table_isnt_overwritten_by_another_path_to_it(self):
        table = self.table()
        (self.folder / "below").mkdir()
        self.assert_refused("compile", table, self.folder / "below" / ".." / table.name)
        (self.folder / "link.inx").symlink_to(table)
        self.assert_refused("compile", table, self.folder / "link.inx")
        self.assert_refused("compile", self.folder / "link.inx", table)
        (self.folder / "second.inx").hardlink_to(table)
        self.assert_refused("compile", table, self.folder / "second.inx")

    def test_an_index_file_isnt_overwritten_by_its_table(self):
        index = self.folder / "a.inx"
        self.assertEqual(run("SORVANE_INDEX", "compile", str(self.table()), str(index)).returncode,
                         0)
        self.assert_refused("decompile", index, index, "--level", "1")

    def test_another_file_is_overwritten(self):
        table, index = self.table(), self.folder / "a.inx"
        index.write_bytes(table.read_bytes())
        self.assertEqual(run("SORVANE_INDEX", "compile", str(table), str(index)).returncode, 0)
        self.assertEqual(len(index.read_bytes()) % 5, 0)

    def test_a_pipe_in_place_of_a_table_is_told(self):
        pipe = self.pipe("table.txt")
        words = f"{pipe}: can't be read"
        self.assert_failed(run("SORVANE_INDEX", "check", str(pipe)), 1, words)
        self.assert_failed(
            run("SORVANE_INDEX", "compile", str(pipe), str(self.folder / "a.inx")), 1, words)

    def test_a_pipe_in_place_of_the_table_of_names_is_told(self):
        index, pipe = self.folder / "a.inx", self.pipe("names.txt")
        run("SORVANE_INDEX", "compile", str(self.table()), str(index))
        self.assert_failed(run("SORVANE_INDEX", "decompile", str(index), str(self.folder / "b.txt"),
                               "--level", "1", "--names", str(pipe)), 1, f"{pipe}: can't be read")

    def test_a_device_in_place_of_a_table_is_told(self):
        self.assert_failed(run("SORVANE_INDEX", "check", "/dev/zero"), 1,
                           "/dev/zero: can't be read")


class LanguageCheck(CompanionTest):
    def test_findings_are_told_on_standard_output(self):
        folder = self.languages()
        (folder / "Dansk.lng").write_bytes(b"Adgangskode\r\n")
        done = run("SORVANE_LANGUAGES", str(folder))
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertIn("Dansk.lng:2: missing line", done.stdout)

    def test_a_folder_that_isnt_there_is_told_on_standard_error(self):
        self.assert_failed(run("SORVANE_LANGUAGES", str(self.folder / "absent")), 2, "absent")

    def test_a_wrong_list_of_words_is_told_on_standard_error(self):
        folder = self.languages()
        (folder / "same-words.txt").write_text("words\n", encoding="ascii")
        self.assert_failed(run("SORVANE_LANGUAGES", str(folder)), 2, "same-words.txt:1: ")

    def test_a_pipe_in_place_of_a_file_is_told(self):
        for name in ("Italiano.lng", "Dansk.lng", "same-words.txt"):
            with self.subTest(name=name):
                folder = self.languages(f"without {name}")
                (folder / name).unlink()
                pipe = self.pipe(folder / name)
                self.assert_failed(run("SORVANE_LANGUAGES", str(folder)), 2, f"can't read {pipe}")

    def test_a_text_in_utf_8_becomes_a_language_file_and_is_checked(self):
        folder, text = self.languages(), self.folder / "Romansh.txt"
        words = (folder / "Dansk.lng").read_bytes().decode("cp1252")
        text.write_text(words.replace("\r\n", "\n"), encoding="utf-8")
        done = run("SORVANE_LANGUAGES", str(folder), "--from-utf8", str(text))
        self.assertEqual((folder / "Romansh.lng").read_bytes(), words.encode("cp1252"))
        # Danish has no word that is the same in Italian.
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        (folder / "same-words.txt").write_text("words\n", encoding="ascii")
        done = run("SORVANE_LANGUAGES", str(folder), "--from-utf8", str(text))
        self.assert_failed(done, 2, "same-words.txt:1: ")

    def test_a_text_that_the_character_set_cant_hold_is_told_and_not_checked(self):
        folder, text = self.languages(), self.folder / "Romana.txt"
        text.write_text("parolă\n", encoding="utf-8")
        done = run("SORVANE_LANGUAGES", str(folder), "--from-utf8", str(text))
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (1, "Romana.txt:1: U+0103, which code page 1252 doesn't have\n", ""))
        self.assertFalse((folder / "Romana.lng").exists())

    def test_a_text_that_isnt_there_is_told_on_standard_error(self):
        self.assert_failed(run("SORVANE_LANGUAGES", str(self.languages()), "--from-utf8",
                               str(self.folder / "absent.txt")), 2, "can't read", "absent.txt")

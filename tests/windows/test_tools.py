"""The tools of the zip: they tell and write the same as those of Linux."""

import shutil
import subprocess
import unittest

import places
from bench import bench


class Tools(unittest.TestCase):
    def setUp(self):
        self.folders = {}
        for system in ("linux", "windows"):
            folder = bench.desk.folder / f"{self.id()}-{system}"
            folder.mkdir()
            for file in (places.ROOT / "data" / "index").glob("*.txt"):
                shutil.copy(file, folder)
            (folder / "wrong.txt").write_bytes(b"level 2\n1 | name | 00 11 04 | 17 | 0 | 0 |\n")
            shutil.copytree(places.ROOT / "data" / "languages", folder / "languages")
            self.folders[system] = folder

    def run_both(self, tool, *arguments):
        """Runs the tool of either system in its folder; returns what both have told and left."""
        linux = subprocess.run([places.LINUX_TOOLS[tool], *arguments],
                               cwd=self.folders["linux"], capture_output=True, check=False)
        windows = bench.prefix.run(bench.unpacked / f"{tool}.exe", *arguments,
                                   cwd=self.folders["windows"])
        self.assertEqual(outcome(windows), outcome(linux))
        self.assertEqual(files(self.folders["windows"]), files(self.folders["linux"]))
        return linux

    def test_index_files_are_compiled_to_the_same_bytes_and_back_to_the_same_tables(self):
        self.assertEqual(self.run_both("SorvaneIndex", "compile", "W0309AA00.txt", "a.inx")
                         .returncode, 0)
        self.run_both("SorvaneIndex", "decompile", "a.inx", "b.txt", "--level", "2")
        self.assertIn("b.txt", files(self.folders["windows"]))

    def test_the_errors_of_a_table_are_told_in_the_same_words(self):
        told = self.run_both("SorvaneIndex", "check", "W0309.txt", "wrong.txt")
        self.assertEqual(told.returncode, 1)
        self.assertIn(b"wrong.txt:2:", told.stdout + told.stderr)

    def test_a_source_is_spared_and_a_bad_line_refused_in_the_same_words(self):
        spared = self.run_both("SorvaneIndex", "compile", "W0309.txt", "languages/../W0309.txt")
        self.assertEqual(spared.returncode, 1)
        self.assertEqual(self.run_both("SorvaneIndex", "compile").returncode, 2)
        self.assertEqual(self.run_both("SorvaneLanguages").returncode, 2)

    def test_language_files_are_checked_in_the_same_words(self):
        self.run_both("SorvaneLanguages", "languages")
        (self.folders["linux"] / "languages" / "Dansk.lng").write_bytes(b"Adgangskode\r\n")
        (self.folders["windows"] / "languages" / "Dansk.lng").write_bytes(b"Adgangskode\r\n")
        self.assertEqual(self.run_both("SorvaneLanguages", "languages").returncode, 1)

    def test_a_text_in_utf_8_becomes_the_same_language_file(self):
        words = (self.folders["linux"] / "languages" / "Dansk.lng").read_bytes().decode("cp1252")
        for folder in self.folders.values():
            (folder / "Romansh.txt").write_bytes(words.replace("\r\n", "\n").encode())
            (folder / "Romana.txt").write_bytes("parolă\n".encode())
        told = self.run_both("SorvaneLanguages", "languages", "--from-utf8", "Romansh.txt")
        self.assertEqual((told.returncode, told.stdout), (0, b""))
        made = self.folders["windows"] / "languages" / "Romansh.lng"
        self.assertEqual(made.read_bytes(), words.encode("cp1252"))
        told = self.run_both("SorvaneLanguages", "languages", "--from-utf8", "Romana.txt")
        self.assertEqual(told.returncode, 1)

    def test_they_tell_the_same_version(self):
        for tool in places.LINUX_TOOLS:
            told = self.run_both(tool, "--version")
            self.assertEqual(told.returncode, 0)
            self.assertRegex(told.stdout, rf"^{tool} \d".encode())


def outcome(run):
    """Exit code and words of a program that has ended, whatever ends its lines."""
    return run.returncode, run.stdout.replace(b"\r\n", b"\n"), run.stderr.replace(b"\r\n", b"\n")


def files(folder):
    return {str(file.relative_to(folder)): file.read_bytes()
            for file in folder.rglob("*") if file.is_file()}

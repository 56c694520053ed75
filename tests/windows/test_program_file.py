"""The programs' files: their sizes, what they need of Windows, and what they tell of themselves."""

import re
import subprocess
import unittest

from bench import bench

LARGEST = 25 * 2**20  # bytes

# Libraries that every Windows has had since version 10, the oldest one that Qt 6 runs on.
OF_WINDOWS = set("""
    advapi32.dll api-ms-win-core-synch-l1-2-0.dll api-ms-win-core-winrt-l1-1-0.dll
    api-ms-win-core-winrt-string-l1-1-0.dll authz.dll comdlg32.dll d3d11.dll d3d9.dll dwmapi.dll
    dxgi.dll gdi32.dll imm32.dll kernel32.dll msvcrt.dll netapi32.dll ole32.dll oleaut32.dll
    shcore.dll shell32.dll shlwapi.dll user32.dll userenv.dll uxtheme.dll version.dll winmm.dll
    ws2_32.dll wtsapi32.dll
    """.split())


class File:
    """Of a program; name, subsystem and descriptions are its own."""

    @classmethod
    def setUpClass(cls):
        cls.file = bench.unpacked / cls.name
        cls.headers = read("x86_64-w64-mingw32-objdump", "-p", cls.file).decode()

    def test_it_is_no_larger_than_a_quick_download(self):
        self.assertLess(self.file.stat().st_size, LARGEST)

    def test_it_needs_no_library_that_windows_hasnt(self):
        needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", self.headers)}
        self.assertIn("kernel32.dll", needed)
        self.assertEqual(needed - OF_WINDOWS, set())

    def test_it_tells_what_it_is_in_english_and_italian(self):
        told = read("wrestool", "--extract", "--raw", "--type=16", self.file).decode("utf-16-le",
                                                                                     "replace")
        both = re.search("040904E4(.*)041004E4(.*)VarFileInfo.*Translation\0+(.{4})", told,
                         re.DOTALL | re.IGNORECASE)
        for block, description in zip((both[1], both[2]), self.descriptions):
            values = dict(re.findall(r"(\w+)\0+([^\0]+)\0", block))
            self.assertEqual(values["FileDescription"], description)
            self.assertEqual(values["OriginalFilename"], self.name)
            self.assertEqual(values["ProductName"], "Sorvane")
            self.assertRegex(values["FileVersion"], r"^\d+\.\d+\.\d+$")
            self.assertEqual(values["ProductVersion"], values["FileVersion"])
        self.assertEqual([ord(number) for number in both[3]], [0x409, 1252, 0x410, 1252])

    def test_it_brings_a_console_where_that_is_its_place_alone(self):
        self.assertEqual(re.search(r"^Subsystem\s+\d+\s+\((.*)\)$", self.headers, re.M)[1],
                         self.subsystem)


class CommandLineFile(File, unittest.TestCase):
    name = "sorvane-cli.exe"
    subsystem = "Windows CUI"
    descriptions = ("Sorvane, command line", "Sorvane, riga di comando")


class IndexCompilerFile(File, unittest.TestCase):
    name = "SorvaneIndex.exe"
    subsystem = "Windows CUI"
    descriptions = ("Sorvane, compiler of index files", "Sorvane, compilatore dei file indice")


class LanguageCheckFile(File, unittest.TestCase):
    name = "SorvaneLanguages.exe"
    subsystem = "Windows CUI"
    descriptions = ("Sorvane, check of language files", "Sorvane, controllo dei file di lingua")


class ProgramFile(File, unittest.TestCase):
    name = "Sorvane.exe"
    subsystem = "Windows GUI"
    descriptions = ("Sorvane, service tool", "Sorvane, strumento di assistenza")

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.resources = read("wrestool", "--list", cls.file).decode()

    def test_it_has_one_manifest_which_asks_for_no_more_rights(self):
        self.assertEqual(len(re.findall(r"--type=24 ", self.resources)), 1)
        manifest = read("wrestool", "--extract", "--raw", "--type=24", self.file).decode()
        self.assertIn('level="asInvoker"', manifest)


def read(*command):
    return subprocess.run([str(word) for word in command], check=True,
                          stdout=subprocess.PIPE).stdout

"""Whether the programs are built so that memory which is written past its end ends them at once."""

import pathlib
import re
import tempfile
import unittest

import package

# With buffers watched, each of them gives way to one that is told how much fits. vsnprintf is no
# sign: the C++ library's headers take its address.
UNWATCHED = set("printf fprintf sprintf snprintf vprintf vfprintf vsprintf".split())


def read(file, what):
    return package.ask("readelf", "--wide", what, str(file))


def imports(file):
    """The functions of libraries that a program calls."""
    return set(re.findall(r" UND (\w+)", read(file, "--dyn-syms")))


class Hardening(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="sorvane-")
        cls.addClassCleanup(folder.cleanup)
        package.unpack(pathlib.Path(folder.name))
        cls.programs = package.programs(pathlib.Path(folder.name))

    def test_all_programs_are_looked_at(self):
        self.assertEqual({file.name for file in self.programs},
                         {"Sorvane", "SorvaneBoard", "sorvane-cli", "sorvane-index",
                          "sorvane-languages"})

    def test_they_lie_at_another_address_at_each_start(self):
        for file in self.programs:
            self.assertIn("Position-Independent Executable", read(file, "--file-header"), file.name)

    def test_what_the_loader_fills_in_is_complete_and_read_only(self):
        for file in self.programs:
            self.assertRegex(read(file, "--program-headers"), r"\n  GNU_RELRO ", file.name)
            self.assertRegex(read(file, "--dynamic"), r"\(FLAGS_1\) +Flags: NOW", file.name)

    def test_the_stack_holds_no_code(self):
        for file in self.programs:
            self.assertRegex(read(file, "--program-headers"), r"\n  GNU_STACK .* RW +0x", file.name)

    def test_buffers_on_the_stack_are_watched(self):
        for file in self.programs:
            self.assertIn("__stack_chk_fail", imports(file), file.name)

    def test_calls_that_fill_buffers_are_watched(self):
        for file in self.programs:
            self.assertEqual(imports(file) & UNWATCHED, set(), file.name)
        watched = {file.name for file in self.programs if "__snprintf_chk" in imports(file)}
        self.assertIn("Sorvane", watched)
        self.assertIn("sorvane-cli", watched)

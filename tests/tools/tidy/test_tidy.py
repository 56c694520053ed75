"""Which sources are read again, and which are left out since nothing of them has changed."""

import pathlib
import tempfile
import unittest

import tidy


class TidyTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        self.write("tests/link/a_test.cpp", '#include <vector>\n#include "support/fixture.h"\n')
        self.write("tests/support/fixture.h", '#include "outside/port.h"\n#include "near.h"\n')
        self.write("tests/support/near.h", "int Near();\n")
        self.write("src/outside/port.h", '#include "support/fixture.h"\nclass Port;\n')
        self.write("src/link/other.h", "class Other;\n")
        self.before = self.sum()

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def sum(self, checks=b"checks"):
        return tidy.sum_of(self.root, "tests/link/a_test.cpp", checks)

    def test_a_source_is_made_of_its_headers_and_theirs(self):
        found = {str(file.relative_to(self.root))
                 for file in tidy.made_of(self.root, "tests/link/a_test.cpp")}
        self.assertEqual(found, {"tests/link/a_test.cpp", "tests/support/fixture.h",
                                 "tests/support/near.h", "src/outside/port.h"})

    def test_the_sum_changes_with_the_source(self):
        self.write("tests/link/a_test.cpp", '#include "support/fixture.h"\n')
        self.assertNotEqual(self.sum(), self.before)

    def test_the_sum_changes_with_the_header_of_a_header(self):
        self.write("tests/support/near.h", "int Near(int);\n")
        self.assertNotEqual(self.sum(), self.before)

    def test_the_sum_changes_with_the_checks(self):
        self.assertNotEqual(self.sum(b"other checks"), self.before)

    def test_the_sum_stays_when_another_header_changes(self):
        self.write("src/link/other.h", "class Another;\n")
        self.assertEqual(self.sum(), self.before)

    def test_what_ships_is_read_at_every_run(self):
        for unit in ("src/link/frame.cpp", "simulator/main.cpp", "tools/icon/main.cpp"):
            self.assertTrue(tidy.is_due(unit, {unit: "1"}, {unit: "1"}), unit)

    def test_a_test_is_read_until_it_has_passed_as_it_is(self):
        unit = "tests/link/a_test.cpp"
        self.assertTrue(tidy.is_due(unit, {unit: "1"}, {}))
        self.assertTrue(tidy.is_due(unit, {unit: "1"}, {unit: "2"}))
        self.assertFalse(tidy.is_due(unit, {unit: "1"}, {unit: "1"}))


if __name__ == "__main__":
    unittest.main()

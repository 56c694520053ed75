"""A toy of one source, its tests, and what comes of its mutants."""

import pathlib
import shutil
import tempfile
import unittest

from bench import Bench
from mutants import mutants_of

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent.parent

HEADER = """#pragma once
int Larger(int a, int b);
bool Finish();
int Pick(const int* numbers);
"""

SOURCE = """#include "board/toy.h"
int Larger(int a, int b) { return a > b ? a : b; }
bool Finish() {
  bool done = false;
  while (!done) done = true;
  return done;
}
int Pick(const int* numbers) {
  if (numbers != nullptr) return *numbers;
  return 7;
}
"""

TESTS = """#include "board/toy.h"
#include <gtest/gtest.h>
TEST(Toy, KnowsTheLargerOfTwo) { EXPECT_EQ(Larger(2, 1), 2); }
TEST(Toy, Finishes) { EXPECT_TRUE(Finish()); }
TEST(Toy, PicksSevenFromNothing) { EXPECT_EQ(Pick(nullptr), 7); }
"""


class ToyTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        tree = pathlib.Path(cls.folder.name) / "tree"
        for part in ("src/board", "src/link", "tests/board", "tests/link", "tests/support"):
            (tree / part).mkdir(parents=True)
        (tree / "src/board/toy.h").write_text(HEADER)
        (tree / "src/board/toy.cpp").write_text(SOURCE)
        (tree / "tests/board/toy_test.cpp").write_text(TESTS)
        shutil.copy(ROOT / "tests/support/plain_main.cpp", tree / "tests/support")
        cls.bench = Bench(tree, pathlib.Path(cls.folder.name) / "bench", cpu_seconds=2)
        cls.bench.build(map)

    def outcome(self, old, new, number=1):
        """Of the one mutant of the toy that makes a change."""
        mutants = [mutant for mutant in mutants_of("src/board/toy.cpp", SOURCE)
                   if (mutant.old, mutant.new) == (old, new)]
        self.assertEqual(len(mutants), 1)
        outcome = self.bench.try_mutant(mutants[0], number)
        return outcome.kind, outcome.test

    def test_a_mutant_that_a_test_notices_is_caught_by_it(self):
        self.assertEqual(self.outcome(">", "<="), ("failed", "Toy.KnowsTheLargerOfTwo"))

    def test_a_mutant_that_changes_nothing_survives(self):
        self.assertEqual(self.outcome(">", ">="), ("passed", ""))

    def test_a_crash_belongs_to_the_test_that_ran(self):
        self.assertEqual(self.outcome("!=", "=="), ("crashed", "Toy.PicksSevenFromNothing"))

    def test_nothing_is_left_of_a_mutant(self):
        before = sorted(pathlib.Path(self.folder.name, "bench").iterdir())
        self.outcome(">", ">=", 2)
        self.assertEqual(sorted(pathlib.Path(self.folder.name, "bench").iterdir()), before)

    def test_a_loop_without_end_runs_into_the_time_limit(self):
        self.assertEqual(self.outcome("true", "false"), ("time limit", "Toy.Finishes"))

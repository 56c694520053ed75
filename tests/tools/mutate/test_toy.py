"""A toy of a library, a program and their tests, and what comes of its mutants."""

import pathlib
import tempfile
import unittest

from bench import Bench
from floors import Floor
from mutants import mutants_of

TREE = {
    "CMakeLists.txt": """
cmake_minimum_required(VERSION 3.25)
project(Toy LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
find_package(GTest REQUIRED)
enable_testing()
include_directories(${CMAKE_SOURCE_DIR})
add_library(toy STATIC toy/toy.cpp)
add_executable(toy_program program/main.cpp)
target_link_libraries(toy_program toy)
add_executable(alone toy/alone.cpp)
add_executable(toy_test tests/toy_test.cpp)
target_link_libraries(toy_test toy GTest::gtest_main)
add_test(NAME toy_test COMMAND toy_test)
set_tests_properties(toy_test PROPERTIES ENVIRONMENT "TOY_MODE=calm")
add_executable(program_test tests/program_test.cpp)
target_link_libraries(program_test GTest::gtest_main)
target_compile_definitions(program_test PRIVATE TOY_PROGRAM="$<TARGET_FILE:toy_program>")
add_test(NAME program_test COMMAND program_test)
""",
    "toy/toy.h": """
#pragma once
int Larger(int a, int b);
bool Finish();
bool Rest();
int Pick(const int* numbers);
int Double(int a);
template <typename T> T Same(T t);  // for the numbers that the source itself uses
""",
    "toy/toy.cpp": """
#include "toy/toy.h"
#include <unistd.h>
int Larger(int a, int b) { return a > b ? a : b; }
bool Finish() {
  bool done = false;
  while (!done) done = true;
  return done;
}
bool Rest() {
  if (Larger(8, 9) == 8) pause();
  return Larger(8, 9) == 9;
}
int Pick(const int* numbers) {
  if (numbers != nullptr) return *numbers;
  return 7;
}
int Double(int a) { return a * 2; }
template <typename T> T Same(T t) { return t; }
void Use() { Same(1); }
""",
    "toy/alone.cpp": """
int main() { return 0; }
""",
    "program/main.cpp": """
#include "toy/toy.h"
int main() { return Double(21) - 42; }
""",
    "tests/toy_test.cpp": """
#include "toy/toy.h"
#include <gtest/gtest.h>
#include <cstdlib>
#include <string>
TEST(Toy, RunsInItsEnvironment) { EXPECT_EQ(std::getenv("TOY_MODE"), std::string("calm")); }
TEST(Toy, KnowsTheLargerOfTwo) { EXPECT_EQ(Larger(2, 1), 2); }
TEST(Toy, Finishes) { EXPECT_TRUE(Finish()); }
TEST(Toy, Rests) { EXPECT_TRUE(Rest()); }
TEST(Toy, PicksSevenFromNothing) { EXPECT_EQ(Pick(nullptr), 7); }
TEST(Toy, StaysTheSame) { EXPECT_EQ(Same(5), 5); }
""",
    "tests/program_test.cpp": """
#include <gtest/gtest.h>
#include <cstdlib>
TEST(Program, Succeeds) {
  const char* other = std::getenv("TOY_PROGRAM");
  EXPECT_EQ(std::system(other != nullptr ? other : TOY_PROGRAM), 0);
}
""",
}


class ToyTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.tree = pathlib.Path(cls.folder.name) / "tree"
        for name, text in TREE.items():
            (cls.tree / name).parent.mkdir(parents=True, exist_ok=True)
            (cls.tree / name).write_text(text)
        floors = [Floor("toy", ("toy_test", "program_test")), Floor("program", ("program_test",))]
        cls.bench = Bench(cls.tree, pathlib.Path(cls.folder.name) / "bench", floors,
                          {"TOY_PROGRAM": "toy_program"}, cpu_seconds=2, wall_seconds=10)
        cls.bench.configure()
        cls.bench.build(map)
        cls.floors = floors

    def outcome(self, old, new, source="toy/toy.cpp"):
        """Of the first mutant of a source that makes a change."""
        mutant = next(mutant for mutant in mutants_of(source, self.bench.text(source))
                      if (mutant.old, mutant.new) == (old, new))
        outcome = self.bench.try_mutant(mutant, 1)
        return outcome.kind, outcome.test

    def files(self):
        return {str(path): path.stat().st_mtime_ns
                for path in pathlib.Path(self.folder.name).rglob("*") if path.is_file()}

    def test_a_floor_has_the_sources_that_its_tests_are_made_of(self):
        self.assertEqual([self.bench.sources(floor) for floor in self.floors],
                         [["toy/toy.cpp"], ["program/main.cpp"]])

    def test_a_mutant_that_a_test_notices_is_caught_by_it(self):
        self.assertEqual(self.outcome(">", "<="), ("failed", "Toy.KnowsTheLargerOfTwo"))

    def test_a_mutant_that_changes_nothing_survives(self):
        self.assertEqual(self.outcome(">", ">="), ("passed", ""))

    def test_a_crash_belongs_to_the_test_that_ran(self):
        self.assertEqual(self.outcome("!=", "=="), ("crashed", "Toy.PicksSevenFromNothing"))

    def test_the_program_that_a_test_starts_is_mutated_with_it(self):
        self.assertEqual(self.outcome("*", "/"), ("failed", "Program.Succeeds"))
        self.assertEqual(self.outcome("42", "43", "program/main.cpp"),
                         ("failed", "Program.Succeeds"))

    def test_what_does_not_compile_is_told(self):
        self.bench.text = lambda source: "int main() { return 1 +; }"
        self.addCleanup(lambda: delattr(self.bench, "text"))
        self.assertEqual(self.outcome("1", "2"), ("not compiled", ""))

    def test_what_does_not_link_counts_as_not_compiled(self):
        self.assertEqual(self.outcome("Same(1)", ""), ("not compiled", ""))

    def test_nothing_is_left_of_a_mutant_and_nothing_built_is_touched(self):
        before = self.files()
        self.outcome(">", ">=")
        self.assertEqual(self.files(), before)

    def test_a_loop_without_end_runs_into_the_time_limit(self):
        self.assertEqual(self.outcome("true", "false"), ("time limit", "Toy.Finishes"))

    def test_waiting_for_what_never_comes_runs_into_the_time_limit_too(self):
        self.assertEqual(self.outcome("==", "!="), ("time limit", "Toy.Rests"))

    def test_tests_that_fail_by_themselves_try_no_mutant(self):
        (self.tree / "program/main.cpp").write_text("int main() { return 1; }\n")
        self.addCleanup((self.tree / "program/main.cpp").write_text, TREE["program/main.cpp"])
        with tempfile.TemporaryDirectory() as folder:
            bench = Bench(self.tree, folder, self.floors, {"TOY_PROGRAM": "toy_program"})
            bench.configure()
            with self.assertRaisesRegex(RuntimeError, "program_test failed without a mutant"):
                bench.build(map)

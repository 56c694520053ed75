"""When the tool is content, and what its report shows."""

import unittest

from bench import Outcome
from mutants import mutants_of
from report import Result

CAUGHT = Outcome("failed", "Toy.Works")
SURVIVED = Outcome("passed")
MUTANT = mutants_of("src/board/toy.cpp", "bool b = c || d;\n")[0]
OTHER = mutants_of("src/board/room/toy.cpp", "bool b = true;\n")[0]
REASONS = {(MUTANT.source, MUTANT.before, MUTANT.after): "no caller tells them apart"}


class JudgementTest(unittest.TestCase):
    def test_all_caught_is_fine(self):
        self.assertEqual(Result([(MUTANT, CAUGHT)], {}).faults(), [])

    def test_a_crash_and_the_time_limit_catch(self):
        outcomes = [Outcome("crashed", "Toy.Works"), Outcome("time limit", "Toy.Works")]
        result = Result([(MUTANT, outcome) for outcome in outcomes], {})
        self.assertEqual((len(result.caught), result.faults()), (2, []))

    def test_a_survivor_without_a_reason_is_named(self):
        faults = Result([(MUTANT, SURVIVED)], {}).faults()
        self.assertEqual(
            faults, ["survived: src/board/toy.cpp:1:12: `||` becomes `&&` in: bool b = c || d;"])

    def test_a_survivor_with_a_reason_is_let_pass(self):
        self.assertEqual(Result([(MUTANT, SURVIVED)], REASONS).faults(), [])

    def test_a_reason_for_what_was_caught_is_wrong(self):
        self.assertEqual(len(Result([(MUTANT, CAUGHT)], REASONS).faults()), 1)

    def test_what_does_not_compile_is_not_counted(self):
        result = Result([(MUTANT, Outcome("not compiled"))], {})
        self.assertEqual((len(result.counted), result.left_out), (0, 1))
        self.assertEqual(result.faults(), ["no mutant was tried"])

    def test_of_many_mutants_nineteen_in_twenty_must_be_caught(self):
        def share(caught, of):
            return Result([(MUTANT, CAUGHT)] * caught + [(MUTANT, SURVIVED)] * (of - caught),
                          REASONS).faults()
        self.assertNotIn("fewer than 95% caught", share(285, 300))
        self.assertIn("fewer than 95% caught", share(284, 300))
        self.assertNotIn("fewer than 95% caught", share(3, 4))


class ReportTest(unittest.TestCase):
    def test_names_place_change_and_test(self):
        page = Result([(MUTANT, CAUGHT)], {}).page(1)
        self.assertIn("| src/board/toy.cpp:1:12 | `\\|\\|` becomes `&&` | `Toy.Works` |", page)
        self.assertIn("1 of 1 mutants caught (100.0%)", page)

    def test_gives_each_survivor_its_reason(self):
        row = "| src/board/toy.cpp:1:12 | `\\|\\|` becomes `&&` |"
        self.assertIn(f"{row} no caller tells them apart |",
                      Result([(MUTANT, SURVIVED)], REASONS).page(1))
        self.assertIn(f"{row} none |", Result([(MUTANT, SURVIVED)], {}).page(1))

    def test_counts_by_folder_and_by_source(self):
        page = Result([(MUTANT, CAUGHT), (MUTANT, SURVIVED), (OTHER, CAUGHT)], {}).page(1)
        for row in ("| `src/board` | 2 | 1 |", "| `src/board/room` | 1 | 1 |",
                    "| `src/board/toy.cpp` | 2 | 1 |", "| `src/board/room/toy.cpp` | 1 | 1 |"):
            self.assertIn(row, page)

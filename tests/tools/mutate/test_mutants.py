"""Which changes the tool makes, and which it keeps away from."""

import unittest

from mutants import choose, mutants_of


def changes(text):
    return [(mutant.old, mutant.new) for mutant in mutants_of("toy.cpp", text)]


class MutantsTest(unittest.TestCase):
    def test_texts_characters_and_comments_stay(self):
        for text in ('auto t = "a < b && 1";', "auto c = '1';", "// a == 1\n", "/* a\n < 1 */",
                     'auto r = R"x(1 + ")" 2)x";', "auto c = '\\'';", 'auto t = "\\"1 < 2\\"";'):
            self.assertEqual(changes(text), [], text)

    def test_what_follows_a_text_is_mutated(self):
        self.assertEqual(changes("auto t = \"'\"; int a = 5;"), [("5", "6"), ("5", "4")])

    def test_lines_of_the_preprocessor_stay(self):
        self.assertEqual(changes('#include <a>\n#if A < 1 && \\\n    B < 2\n#endif\n'), [])

    def test_brackets_of_templates_stay(self):
        for text in ("std::vector<int> v;", "template <typename T>\nT F(T t);",
                     "std::map<int, std::vector<T>> m;", "auto x = static_cast<int>(y);"):
            self.assertEqual(changes(text), [], text)

    def test_signs_of_pointers_and_references_stay(self):
        for text in ("int* p;", "const T& F(T&& t);", "auto& [x, y] = z;"):
            self.assertEqual(changes(text), [], text)

    def test_a_comparison_moves_its_bound_and_turns_round(self):
        self.assertEqual(changes("bool b = x < y;"), [("<", "<="), ("<", ">=")])
        self.assertEqual(changes("bool b = x == y;"), [("==", "!=")])

    def test_arithmetic_and_logic_take_the_other_operator(self):
        self.assertEqual(changes("int z = x + y;"), [("+", "-")])
        self.assertEqual(changes("int z = x && y;"), [("&&", "||")])
        self.assertEqual(changes("int z = x & ~y;"), [("&", "|"), ("~", "")])

    def test_whole_numbers_move_by_one(self):
        self.assertEqual(changes("int z = 0;"), [("0", "1")])
        self.assertEqual(changes("unsigned z = 1U;"), [("1U", "2U"), ("1U", "0U")])
        self.assertEqual(changes("int z = 0x10;"), [("0x10", "17"), ("0x10", "15")])
        self.assertEqual(changes("double z = 1.5e-3;"), [])

    def test_truths_turn(self):
        self.assertEqual(changes("bool b = true;"), [("true", "false")])

    def test_a_condition_of_several_parts_is_negated(self):
        self.assertIn(("a && b", "!(a && b)"), changes("if (a && b) F();"))
        self.assertIn(("a()", "!(a())"), changes("while (a()) F();"))

    def test_a_condition_that_its_own_sign_turns_is_not_negated_again(self):
        self.assertEqual(changes("if (!a) x = y;"), [("!", ""), ("x = y", "")])

    def test_a_condition_that_declares_is_not_negated(self):
        self.assertNotIn("!", "".join(new for _, new in changes("if (auto* p = F()) G();")))

    def test_calls_assignments_and_jumps_go(self):
        body = "void F() { a.b->C(x); d[i] = e; if (g) return; ++h; throw E(x); }"
        gone = [old for old, new in changes(body) if new == ""]
        self.assertEqual(gone, ["a.b->C(x)", "d[i] = e", "return", "++h", "throw E(x)"])

    def test_declarations_values_returned_and_heads_of_loops_stay(self):
        body = "int F() { T t(x); T& u = v; auto w = x; for (; G(i); ++i) {} return H(x); }"
        self.assertEqual(changes(body), [("++", "--")])

    def test_a_mutant_tells_its_place_and_holds_the_whole_source(self):
        mutant = mutants_of("toy.cpp", "int a;\nbool b = c != d;\n")[0]
        self.assertEqual((mutant.source, mutant.line, mutant.column), ("toy.cpp", 2, 12))
        self.assertEqual(mutant.after, "bool b = c == d;")
        self.assertEqual(mutant.text, "int a;\nbool b = c == d;\n")


class ChoiceTest(unittest.TestCase):
    def setUp(self):
        self.all = [mutant for source in ("one.cpp", "two.cpp")
                    for mutant in mutants_of(source, "int f = 5 + 6 + 7 + 8 + 9;\n" * 4)]
        self.all += mutants_of("small.cpp", "bool b = true;\n")

    def test_the_same_seed_chooses_the_same(self):
        self.assertEqual(choose(self.all, 10, 1), choose(self.all, 10, 1))

    def test_another_seed_chooses_others(self):
        self.assertNotEqual(choose(self.all, 10, 1), choose(self.all, 10, 2))

    def test_every_source_is_in_the_choice_by_its_share(self):
        chosen = [mutant.source for mutant in choose(self.all, 20, 1)]
        self.assertEqual([chosen.count(source) for source in ("one.cpp", "two.cpp", "small.cpp")],
                         [10, 10, 1])

    def test_more_than_there_are_gives_all(self):
        chosen = choose(self.all, 10000, 1)
        self.assertCountEqual(chosen, self.all)

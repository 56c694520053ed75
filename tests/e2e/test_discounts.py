"""The page of the discounts, from the keyboard to the board's memory and back."""

import os

from program import Box
from scene import Scene
from wait import wait_for

FIRST = 43  # the parameter of the first discount
DECIMALS = 22


class Discounts(Scene):
    def setUp(self):
        super().setUp()
        self.connect()

    def pass_a_round(self):
        """Waits until the board has had any other write, by two writes of the last discount."""
        for _ in range(2):
            held = self.board.holds(FIRST + 9)
            self.program.press_in(self.bar(10), "Right")
            self.wait_held(FIRST + 9, held + 1)

    def test_ten_discounts_are_shown_as_the_board_holds_them(self):
        numbers = [0, 5, 10, 99, 100, 101, 1250, 9999, 65534, 65535]
        for row, number in enumerate(numbers):
            self.board.tell(f"set {FIRST + row} {number}")
        self.open_discounts()
        shown = ("0.00", "0.05", "0.10", "0.99", "1.00", "1.01", "12.50", "99.99", "655.34",
                 "655.35")
        for row, text in enumerate(shown, start=1):
            self.wait_shown(row, text)
        self.assertEqual([self.bar(row).value for row in range(1, 11)], numbers)

    def test_a_typed_discount_comes_back_from_the_board_that_holds_it(self):
        self.open_discounts()
        self.program.type_into(self.field(3), "12.5")
        self.wait_shown(3, "12.50")
        self.assertEqual(self.board.holds(45), 1250)
        self.assertEqual(self.bar(3).value, 1250)

    def test_a_text_that_is_not_confirmed_is_gone(self):
        self.open_discounts()
        self.wait_shown(2, "0.10")
        self.program.press_in(self.field(2), "7", "7", "Tab")
        self.wait_shown(2, "0.10")
        self.pass_a_round()
        self.assertEqual(self.board.holds(44), 10)

    def test_garbage_is_refused_in_words_and_the_old_text_returns(self):
        self.open_discounts()
        self.wait_shown(4, "0.15")
        self.program.type_into(self.field(4), "abc")
        self.assertEqual(self.program.box(), Box("Error", "Please Insert Only Number ", ("OK",)))
        self.program.answer("OK")
        self.wait_shown(4, "0.15")
        self.pass_a_round()
        self.assertEqual(self.board.holds(46), 15)

    def test_an_amount_too_high_is_refused_without_words(self):
        self.open_discounts()
        self.wait_shown(5, "0.15")
        self.program.type_into(self.field(5), "655.36")
        self.wait_shown(5, "0.15")
        self.assertFalse(self.program.has_box())
        self.pass_a_round()
        self.assertEqual(self.board.holds(47), 15)

    def test_a_bar_is_moved_by_keys_and_the_board_holds_each_step(self):
        self.open_discounts()
        self.wait_shown(6, "0.20")
        self.program.press_in(self.bar(6), "Right")
        self.wait_held(48, 21)
        self.wait_shown(6, "0.21")
        self.program.press_in(self.bar(6), "Next")
        self.wait_held(48, 121)
        self.program.press_in(self.bar(6), "End")
        self.wait_held(48, 65535)
        self.wait_shown(6, "655.35")

    def test_only_as_many_rows_open_as_the_machine_has_selections(self):
        self.board.tell("set 2 6")
        self.program.choose("Sconti")
        self.page = self.program.page("Sconti")
        wait_for("open field", lambda: self.field(1).has("enabled"))
        self.assertEqual([self.field(row).has("enabled") for row in range(1, 11)],
                         [True] * 6 + [False] * 4)

    def test_a_cable_pulled_and_put_back_goes_by_without_a_box(self):
        self.open_discounts()
        self.wait_shown(1, "0.10")
        self.board.tell("fault unplugged")
        wait_for("error lamp", lambda: self.program.lamp("Error"))
        # The name of the old line goes to somebody else, so that the new one has another.
        for terminal in os.openpty():
            self.addCleanup(os.close, terminal)
        self.board.tell(f"set {DECIMALS} 1")
        self.board.tell("fault none")
        self.wait_shown(1, "1.0")
        self.program.type_into(self.field(1), "7.50")
        self.wait_shown(1, "7.5")
        self.assertEqual(self.board.holds(FIRST), 75)
        self.assertFalse(self.program.has_box())
        self.assertTrue(self.program.is_running())

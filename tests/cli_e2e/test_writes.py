"""Writes that a person is asked about, that aren't for this board, and that are cut short."""

from wait import wait_for
from workplace import MACHINE, PRICE_COPIES, PRICES, SLOW, Workplace


class AWrite(Workplace):
    def setUp(self):
        super().setUp()
        self.start_board()

    def assert_untouched(self):
        self.assertEqual(self.board.holds(PRICES[1]), 100)
        self.assertEqual(self.copies(), [])

    def test_without_a_terminal_and_without_leave_writes_nothing(self):
        done = self.run_cli("set", "price.1=1.75")
        self.assertEqual((done.code, done.err), (2, "sorvane-cli: nothing is written\n"))
        self.assert_untouched()

    def test_asks_before_a_terminal_and_goes_on_after_yes(self):
        conversation = self.talk("set", "price.1=1.75")
        conversation.wait_question()
        self.assert_untouched()
        conversation.answer("y")
        done = conversation.done()
        self.assertEqual((done.code, done.lines("confirmed")), (0, ["price.1"]))
        self.assertEqual(self.board.holds(PRICES[1]), 175)

    def test_stops_after_any_other_answer(self):
        for word in ("n", "", "Yes please"):
            conversation = self.talk("set", "price.1=1.75")
            conversation.wait_question()
            conversation.answer(word)
            done = conversation.done()
            self.assertEqual((done.code, done.lines("confirmed")), (2, []), word)
        self.assert_untouched()

    def test_interrupted_at_the_question_is_told_as_such(self):
        conversation = self.talk("set", "price.1=1.75")
        conversation.wait_question()
        conversation.interrupt()
        done = conversation.done()
        self.assertEqual(done.code, 130)
        self.assertTrue(done.err.endswith("\r\nsorvane-cli: interrupted\r\n"), done.err)
        self.assert_untouched()

    def test_out_of_range_writes_nothing_at_all(self):
        done = self.run_cli("--yes", "set", "price.1=1.75", "selections=11")
        self.assertEqual(done.code, 2)
        self.assertIn("selections", done.err)
        self.assert_untouched()


class ASnapshotOfAnother(Workplace):
    def setUp(self):
        super().setUp()
        self.start_board()
        self.keep()
        self.raise_prices()

    def assert_refused(self, words, *options):
        done = self.run_cli("--yes", *options, "restore", self.snapshot)
        self.assertEqual(done.code, 4, done.err)
        self.assertIn(words, done.err)
        self.assertEqual(self.prices(), {row: 1000 + row for row in PRICES})
        self.assertEqual(self.copies(), [])

    def edit(self, old, new):
        text = self.snapshot.read_text(encoding="utf-8")
        self.assertEqual(text.count(old), 1)
        self.snapshot.write_text(text.replace(old, new), encoding="utf-8")

    def test_machine_asks_even_where_everything_else_is_agreed_to(self):
        self.board.tell(f"set {MACHINE} 777")
        for word, code in (("n", 4), ("y", 0)):
            conversation = self.talk("--yes", "restore", self.snapshot)
            question = conversation.wait_question()
            self.assertIn("machine 100234", question)
            self.assertIn("machine 777", question)
            self.assertEqual(self.board.holds(PRICES[1]), 1001)
            conversation.answer(word)
            self.assertEqual(conversation.done().code, code, word)
        self.assertEqual(self.board.holds(PRICES[1]), 100)
        self.assertEqual(self.board.holds(MACHINE), 777)

    def test_machine_is_refused_where_nobody_can_be_asked(self):
        self.board.tell(f"set {MACHINE} 777")
        self.assert_refused("nothing is written")

    def test_type_is_refused(self):
        self.edit('"type": 309', '"type": 308')
        self.assert_refused("another type", "--other-revision")

    def test_software_is_refused(self):
        self.edit('"software": 0', '"software": 1')
        self.assert_refused("another type", "--other-revision")

    def test_revision_is_refused_unless_asked_for(self):
        self.board.tell("revision 7")
        self.assert_refused("revision 0, the board of 7")
        done = self.run_cli("--yes", "--other-revision", "restore", self.snapshot)
        self.assertEqual((done.code, len(done.lines("confirmed"))), (0, 10))
        self.assertEqual(self.prices()[10], 300)

    def test_board_that_the_program_serves_none_of_is_refused(self):
        self.board.tell("type 308")
        done = self.run_cli("--yes", "restore", self.snapshot)
        self.assertEqual(done.code, 4)
        self.assertIn("Not Compatible", done.err)


class ARestoreThatIsCutShort(Workplace):
    """After the first price is held, and long before the last one could be."""

    def setUp(self):
        super().setUp()
        self.start_board()
        self.keep()
        self.old = {row: 1000 + row for row in PRICES}
        self.new = self.prices()
        self.raise_prices()
        self.conversation = self.talk("restore", self.snapshot)
        self.conversation.wait_question()
        self.board.tell(SLOW)
        self.conversation.answer("y")
        self.wait_held(PRICE_COPIES[1], self.new[1])

    def assert_told_the_truth(self, done):
        """Each price stands in one list, and the board holds what the lists say; returns those that
        are unsure."""
        told = [done.lines(word) for word in ("confirmed", "unsure", "unsent")]
        names = [[line.split(":")[0] for line in lines] for lines in told]
        self.assertEqual(sum(names, []), [f"price.{row}" for row in PRICES])
        confirmed, unsure, unsent = ({int(name.split(".")[1]) for name in part} for part in names)
        held = self.prices()
        for row in PRICES:
            may_hold = {self.new[row]} if row in confirmed else {self.old[row]}
            if row in unsure:
                may_hold = {self.old[row], self.new[row]}
            self.assertIn(held[row], may_hold, row)
        self.assertGreaterEqual(len(confirmed | unsure), 1)
        self.assertGreaterEqual(len(unsent), 5)
        return unsure

    def assert_completed_by_a_second_run(self):
        """Which sends only what the board doesn't hold in both of its places."""
        copies = {row: self.board.holds(number) for row, number in PRICE_COPIES.items()}
        held = self.prices()
        missing = [f"price.{row}" for row in PRICES
                   if not held[row] == copies[row] == self.new[row]]
        self.board.tell("baud unlimited")
        rest = self.run_cli("--yes", "restore", self.snapshot)
        self.assertEqual((rest.code, rest.lines("confirmed")), (0, missing))
        self.assertEqual(self.prices(), self.new)
        self.assertEqual([self.board.holds(number) for number in PRICE_COPIES.values()],
                         list(self.new.values()))

    def test_by_the_person_ends_the_running_write_and_tells_the_rest(self):
        self.conversation.interrupt()
        done = self.conversation.done()
        self.assertEqual(done.code, 130)
        unsure = self.assert_told_the_truth(done)
        self.assertEqual(unsure, set())
        self.assert_completed_by_a_second_run()

    def test_by_a_cable_that_is_unplugged_tells_what_is_sure(self):
        self.board.tell("fault unplugged")
        done = self.conversation.done()
        self.assertEqual(done.code, 5)
        self.board.tell("fault none")
        wait_for("line", (self.folder / "COM1").exists)
        unsure = self.assert_told_the_truth(done)
        self.assertLessEqual(len(unsure), 1)
        self.assert_completed_by_a_second_run()

    def test_by_a_board_that_falls_silent_tells_what_is_sure(self):
        self.board.tell("fault silent")
        done = self.conversation.done()
        self.assertEqual(done.code, 5)
        self.board.tell("fault none")
        unsure = self.assert_told_the_truth(done)
        self.assertLessEqual(len(unsure), 1)
        self.assert_completed_by_a_second_run()

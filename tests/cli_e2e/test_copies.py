"""Keeping what a board holds, comparing it, putting it back, and taking a change back."""

import json
import os
import stat

from workplace import MACHINE, PRICE_COPIES, PRICES, Workplace


class ABoard(Workplace):
    def setUp(self):
        super().setUp()
        self.start_board()

    def test_what_was_changed_is_told_and_put_back(self):
        self.keep()
        self.assertEqual(self.run_well("diff", self.snapshot, "-"), "")
        changed = self.run_well("--yes", "set", "price.3=1.75", "option.free-vend=on",
                                "motor.timeout=12.5")
        self.assertEqual(changed.splitlines(), [
            "options: 104 -> 105", "motor.timeout: 12 -> 12.5", "price.3: 1.50 -> 1.75",
            "confirmed options", "confirmed motor.timeout", "confirmed price.3"])
        self.assertEqual([self.board.holds(number) for number in (3, 6, PRICES[3])],
                         [105, 125, 175])
        self.assertEqual(self.board.holds(PRICE_COPIES[3]), 175)
        differs = self.run_cli("diff", self.snapshot, "-")
        self.assertEqual((differs.code, differs.out.splitlines()), (1, [
            "options: 104 -> 105", "motor.timeout: 12 -> 12.5", "price.3: 1.50 -> 1.75"]))
        self.run_well("--yes", "restore", self.snapshot)
        self.assertEqual(self.run_well("diff", self.snapshot, "-"), "")
        self.assertEqual([self.board.holds(number) for number in (3, 6, PRICES[3])],
                         [104, 120, 150])

    def test_putting_back_twice_writes_once(self):
        self.keep()
        self.raise_prices()
        first = self.run_cli("--yes", "restore", self.snapshot)
        self.assertEqual((first.code, len(first.lines("confirmed"))), (0, 10))
        again = self.run_cli("--yes", "restore", self.snapshot)
        self.assertEqual((again.code, again.out, again.err), (0, "", "nothing differs\n"))
        self.assertEqual(len(self.copies()), 1)

    def test_a_dry_run_tells_the_plan_and_writes_nothing(self):
        self.keep()
        self.raise_prices()
        done = self.run_cli("--dry-run", "restore", self.snapshot)
        self.assertEqual(done.code, 1)
        self.assertEqual(len(done.out.splitlines()), 10)
        self.assertEqual(self.prices(), {row: 1000 + row for row in PRICES})
        self.assertEqual(self.copies(), [])

    def test_undo_twice_is_redo(self):
        self.run_well("--yes", "set", "price.1=1.75", "option.free-vend=on")
        self.run_well("--yes", "undo")
        self.assertEqual((self.board.holds(PRICES[1]), self.board.holds(3)), (100, 104))
        self.run_well("--yes", "undo")
        self.assertEqual((self.board.holds(PRICES[1]), self.board.holds(3)), (175, 105))
        self.run_well("--yes", "undo")
        self.assertEqual((self.board.holds(PRICES[1]), self.board.holds(3)), (100, 104))

    def test_undo_finds_the_machine_whose_number_was_changed(self):
        self.run_well("--yes", "set", "machine.number=777")
        self.assertEqual(self.board.holds(MACHINE), 777)
        self.run_well("--yes", "undo")
        self.assertEqual(self.board.holds(MACHINE), 100234)

    def test_without_a_copy_there_is_nothing_to_take_back(self):
        done = self.run_cli("--yes", "undo")
        self.assertEqual(done.code, 2)
        self.assertIn("no copy of machine 100234", done.err)

    def test_the_last_twenty_copies_of_a_machine_stay(self):
        for price in range(22):
            self.run_well("--yes", "set", f"price.1=2.{price:02}")
        self.assertEqual(self.copies(), [f"{number:06}.json" for number in range(3, 23)])

    def test_copies_are_for_their_owner_alone(self):
        self.keep()
        self.run_well("--yes", "set", "price.1=1.75")
        kept = self.data / "sorvane" / "copies" / "100234" / "000001.json"
        for file in (self.snapshot, kept):
            self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600, file)
        self.assertEqual(stat.S_IMODE((self.data / "sorvane" / "copies").stat().st_mode), 0o700)

    def test_a_snapshot_that_others_could_read_is_made_anew_for_its_owner(self):
        self.snapshot.write_text("old", encoding="ascii")
        os.chmod(self.snapshot, 0o644)
        self.keep()
        self.assertEqual(stat.S_IMODE(self.snapshot.stat().st_mode), 0o600)

    def test_a_snapshot_holds_the_password_only_if_asked(self):
        def names(*options):
            return {value["name"] for value in
                    json.loads(self.run_well("backup", *options))["values"]}
        self.assertEqual({name for name in names() if "password" in name}, set())
        self.assertEqual({name for name in names("--password") if "password" in name},
                         {f"password.{digit}" for digit in range(1, 5)})

    def test_the_board_that_holds_a_snapshot_equals_it(self):
        self.raise_prices()
        self.board.tell("set 9 4711")
        self.keep("--mirrors", "--password")
        self.end_board()
        self.start_board("--load", str(self.snapshot))
        self.assertEqual(self.run_well("--mirrors", "diff", self.snapshot, "-"), "")
        self.assertEqual(self.board.holds(MACHINE), 4711)
        held = json.loads(self.snapshot.read_text(encoding="utf-8"))["values"]
        again = json.loads(self.run_well("backup", "--mirrors", "--password"))["values"]
        clock = ("clock.hours", "clock.minutes")
        self.assertEqual([value for value in again if value["name"] not in clock],
                         [value for value in held if value["name"] not in clock])

    def test_a_bad_line_of_a_snapshot_is_told_and_nothing_is_written(self):
        self.keep()
        self.raise_prices()
        lines = self.snapshot.read_text(encoding="utf-8").splitlines()
        line = next(number for number, text in enumerate(lines) if '"price.3"' in text)
        lines[line] = lines[line].replace('"raw": 150', '"raw": 65536')
        self.snapshot.write_text("\n".join(lines) + "\n", encoding="utf-8")
        where = f"{self.snapshot}:{line + 1}: price.3"
        checked = self.run_cli("check", self.snapshot)
        self.assertEqual(checked.code, 1)
        self.assertTrue(checked.out.startswith(where), checked.out)
        refused = self.run_cli("--yes", "restore", self.snapshot)
        self.assertEqual(refused.code, 2)
        self.assertIn(where, refused.err)
        self.assertEqual(self.prices(), {row: 1000 + row for row in PRICES})

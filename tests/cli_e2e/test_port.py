"""The line to the board: nobody at it, another program at it, a board that says nothing."""

import os
import subprocess

import offspring
from wait import wait_for
from workplace import PRICES, Workplace


class ThePort(Workplace):
    def test_that_is_missing_is_told(self):
        done = self.run_cli("--port", self.place / "missing", "info")
        self.assertEqual((done.code, done.out), (3, ""))
        self.assertIn(f"can't open {self.place / 'missing'}", done.err)

    def test_that_another_holds_is_refused_with_the_holders_name(self):
        self.start_board()
        holder = offspring.start(self.command("watch", "vends.total"), env=self.environment,
                                 stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        self.addCleanup(holder.communicate)
        self.addCleanup(holder.kill)
        self.assertIn(b"vends.total = 2140", holder.stdout.readline())
        with open(os.devnull, "rb"):  # another device, which this process holds
            done = self.run_cli("info")
        self.assertEqual(done.code, 3)
        self.assertRegex(done.err, rf"held by .*sorvane-cli \(process {holder.pid}\)")
        self.assertNotIn(f"(process {os.getpid()})", done.err)
        holder.terminate()
        self.assertEqual(holder.wait(), 0)
        self.assertIn("machine   100234", self.run_well("info"))

    def test_at_which_a_board_is_silent_is_no_answer(self):
        self.start_board("--fault", "silent")
        done = self.run_cli("info")
        self.assertEqual(done.code, 3)
        self.assertIn("no answer from the board", done.err)

    def test_a_board_that_misses_one_request_is_asked_again(self):
        self.start_board("--fault", "silent 1")
        self.assertIn("machine   100234", self.run_well("info"))

    def test_a_board_that_falls_silent_while_it_is_read_leaves_no_snapshot(self):
        self.start_board("--baud", "1200")
        reader = self.talk("backup", self.snapshot)
        wait_for("reading of a price", lambda: any(
            reading.startswith(f"read {PRICES[1]} ") for reading in self.board.take_readings()))
        self.board.tell("fault silent")
        done = reader.done()
        self.assertEqual(done.code, 3)
        self.assertIn("the board doesn't answer for ", done.err)
        self.assertFalse(self.snapshot.exists())

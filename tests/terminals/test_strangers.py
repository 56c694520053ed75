"""Who has a terminal open, and who of them is a stranger."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

from stranger import Stranger
from strangers import StrangerError, holders, refuse_strangers

WRAPPER = pathlib.Path(__file__).resolve().parent.parent / "support" / "own_terminals.py"

# Opens terminals until it has one of a name, or so many that it will never get it. Tells whether.
NAMESAKE = """
import os, sys
names = []
while sys.argv[1] not in names and len(names) < 100:
    names.append(os.ttyname(os.openpty()[1]))
print(sys.argv[1] in names, flush=True)
sys.stdin.read()
"""

HOLDER = """
import os, sys
terminal = os.open(sys.argv[1], os.O_RDWR | os.O_NOCTTY)
print("open", flush=True)
sys.stdin.read()
"""


class StrangersTest(unittest.TestCase):
    def setUp(self):
        board, self.held = os.openpty()
        self.addCleanup(os.close, board)
        self.addCleanup(os.close, self.held)
        self.device = os.ttyname(self.held)

    def start(self, *command):
        process = subprocess.Popen(command, text=True, stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.communicate)
        return process

    def bring_stranger(self):
        stranger = Stranger(self.device)
        self.addCleanup(stranger.close)
        return stranger.process

    def test_a_terminal_of_this_process_alone_has_no_holders(self):
        self.assertEqual(holders(self.held), [])
        refuse_strangers(self.held)

    def test_a_stranger_is_named_with_what_it_has_open(self):
        process = self.bring_stranger()
        words = (r"a stranger holds the line: process python\S* "
                 rf"\({process}\) has {self.device} open")
        with self.assertRaisesRegex(StrangerError, f"^{words}$"):
            refuse_strangers(self.held)

    def test_the_terminal_may_be_given_by_its_path(self):
        self.bring_stranger()
        with self.assertRaises(StrangerError):
            refuse_strangers(self.device)

    def test_two_strangers_are_both_named(self):
        processes = [self.bring_stranger(), self.bring_stranger()]
        with self.assertRaises(StrangerError) as raised:
            refuse_strangers(self.held)
        self.assertEqual(sorted(map(int, re.findall(r"\((\d+)\)", str(raised.exception)))),
                         sorted(processes))

    def test_who_is_below_this_process_holds_a_line_and_is_no_stranger(self):
        shell = self.start("sh", "-c", '"$@"; true', "sh", sys.executable, "-c", HOLDER,
                           self.device)
        self.assertEqual(shell.stdout.readline(), "open\n")
        self.assertEqual([device for _, device in holders(self.held)], [self.device])
        self.assertNotIn(shell.pid, [process for process, _ in holders(self.held)])
        refuse_strangers(self.held)

    def test_a_terminal_of_the_same_name_elsewhere_is_another_one(self):
        namesake = self.start(sys.executable, WRAPPER, sys.executable, "-c", NAMESAKE, self.device)
        has_name = namesake.stdout.readline() == "True\n"
        self.assertEqual(holders(self.held), [])
        _, complaint = namesake.communicate()
        self.assertNotEqual(has_name, bool(complaint), complaint)


if __name__ == "__main__":
    unittest.main()

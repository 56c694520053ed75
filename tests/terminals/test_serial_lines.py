"""The lines of a program under Wine: what is answered, and what ends in words."""

import os
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

import serial_lines
from serial_lines import Lines
from stranger import Stranger
from strangers import StrangerError

# Asks by COM3 as the program under Wine does: PROGRAM COM1 COM3 WORD..., with COM1 open.
ASKING = """
import os, sys, tty
com1 = os.open(sys.argv[1], os.O_RDWR | os.O_NOCTTY)
com3 = os.fdopen(os.open(sys.argv[2], os.O_RDWR | os.O_NOCTTY), "rb+", buffering=0)
for word in sys.argv[3:]:
    com3.write(word.encode() + b"\\n")
    print(com3.readline().decode(), end="", flush=True)
"""


class LinesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.lines = Lines(folder.name)
        for terminal in (self.lines.com1, self.lines.com2, self.lines.com3):
            self.addCleanup(terminal.close)
            self.addCleanup(terminal.vanish)

    def start(self, *command):
        process = subprocess.Popen(command, text=True, stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def ask(self, *words):
        process = self.start(sys.executable, "-c", ASKING, self.lines.com1.device,
                             self.lines.com3.device, *words)
        self.lines.run_until_end_of(process)
        return process.stdout.read()

    def bring_stranger(self, terminal):
        stranger = Stranger(terminal.device)
        self.addCleanup(stranger.close)
        return rf"a stranger holds the line: process \S+ \({stranger.process}\)"

    def say(self, more):
        """Puts bytes on the line COM3, of which nobody knows where they come from."""
        terminal = os.open(self.lines.com3.device, os.O_RDWR | os.O_NOCTTY)
        os.write(terminal, more)
        os.close(terminal)

    def test_words_of_the_program_are_answered(self):
        self.assertEqual(self.ask("settings", "arrived", "open"),
                         "another speed, 1 stop bit\n0\nyes\n")

    def test_nobody_has_the_device_open_once_its_holder_has_ended(self):
        self.ask("open")
        self.assertEqual(self.lines.open(), "no")

    def test_foreign_bytes_are_told(self):
        for said, words in ((b"AT+GCAP\n", r"b'AT\+GCAP'"), (b"\xff\x00\n", r"b'\\xff\\x00'"),
                            (b"com1\n", "b'com1'"), (b"\n", "b''")):
            with self.subTest(said=said):
                self.say(said)
                with self.assertRaisesRegex(StrangerError, f"^foreign bytes at COM3: {words}$"):
                    self.lines.run_until_end_of(self.start("cat"))

    def test_foreign_bytes_before_a_word_of_the_program_are_told(self):
        self.say(b"AT")
        with self.assertRaisesRegex(StrangerError, "foreign bytes at COM3: b'ATopen'"):
            self.ask("open")

    def test_whoever_has_sent_foreign_bytes_and_is_still_there_is_named(self):
        words = self.bring_stranger(self.lines.com3)
        self.say(b"AT\n")
        with self.assertRaisesRegex(StrangerError, words):
            self.lines.run_until_end_of(self.start("cat"))

    def test_a_stranger_at_a_silent_line_is_named_while_the_program_runs(self):
        words = self.bring_stranger(self.lines.com3)
        process = self.start("cat")
        with mock.patch.object(serial_lines, "LOOK", 0.01):
            with self.assertRaisesRegex(StrangerError, words):
                self.lines.run_until_end_of(process)
        self.assertIsNone(process.poll())

    def test_a_stranger_at_any_line_is_named_at_the_end_of_the_program(self):
        for name in ("com1", "com2", "com3"):
            with self.subTest(line=name):
                stranger = Stranger(getattr(self.lines, name).device)
                with self.assertRaisesRegex(StrangerError, rf"\({stranger.process}\)"):
                    self.lines.run_until_end_of(self.start("true"))
                stranger.close()

    def test_a_program_that_is_silent_for_too_long_is_told(self):
        process = self.start("cat")
        with mock.patch.multiple(serial_lines, LOOK=0.01, SILENCE=0.02):
            with self.assertRaisesRegex(TimeoutError, "nothing on the lines for 0.02 s"):
                self.lines.run_until_end_of(process)


class Main(unittest.TestCase):
    def test_a_stranger_makes_a_failure_of_the_run_in_words(self):
        refused = mock.Mock(side_effect=StrangerError("foreign bytes at COM3: b'AT'"))
        with mock.patch.multiple(serial_lines, take_own_terminals=mock.DEFAULT,
                                 adopt_orphans=mock.DEFAULT, ctypes=mock.DEFAULT,
                                 Prefix=mock.DEFAULT) as parts, \
                mock.patch.object(Lines, "run_until_end_of", refused), \
                mock.patch.object(sys, "argv", ["serial_lines.py", "prefix", "program"]):
            self.assertEqual(serial_lines.main(), "serial_lines.py: foreign bytes at COM3: b'AT'")
        parts["Prefix"].return_value.close.assert_called_once_with()


if __name__ == "__main__":
    unittest.main()

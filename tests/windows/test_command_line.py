"""The command line program of the zip over COM1: a copy, a change, its undoing, and what goes wrong."""

import json
import pathlib
import subprocess

import places
from bench import Scene, bench


class CommandLine(Scene):
    def setUp(self):
        super().setUp()
        self.cli = self.folder / "sorvane-cli.exe"
        self.copy = self.folder / "copy.json"

    def type(self, *arguments, code=0):
        """Runs a command line in the program's folder, which must end with a code; gives its result."""
        run = bench.prefix.run(self.cli, *arguments, cwd=self.folder)
        self.assertEqual(run.returncode, code, run.stdout + run.stderr)
        self.told = run.stderr.decode()
        return run.stdout.decode()

    def test_a_copy_is_the_same_as_that_of_linux(self):
        self.start_board()
        self.type("backup", "copy.json")
        linux = subprocess.run(
            [places.LINUX_FOLDER / "sorvane-cli", "--port", bench.board_folder / "COM1", "backup"],
            capture_output=True, check=True)
        ours, theirs = (json.loads(text) for text in (self.copy.read_bytes(), linux.stdout))
        for snapshot in (ours, theirs):
            snapshot.pop("time")
            snapshot["values"] = [value for value in snapshot["values"]
                                  if not value["name"].startswith("clock.")]
        self.assertEqual(ours, theirs)
        self.assertNotIn(b"\r", self.copy.read_bytes())

    def test_a_change_is_kept_a_copy_of_and_undone(self):
        self.start_board("--revision", "7")
        self.type("backup", "copy.json")
        before = self.board.holds(25)
        self.assertEqual(self.type("set", "price.3=1.55", "--yes"),
                         "price.3: 1.50 -> 1.55\nconfirmed price.3\n")
        self.assertEqual(self.board.holds(25), 155)
        self.assertIn("a copy is kept as C:\\", self.told)
        self.assertEqual(self.type("diff", "copy.json", "-", code=1), "price.3: 1.50 -> 1.55\n")
        self.type("undo", "--yes")
        self.assertEqual(self.board.holds(25), before)
        self.assertEqual(self.type("diff", "copy.json", "-"), "")

    def test_without_yes_and_without_a_person_nothing_is_written(self):
        self.start_board()
        before = self.board.holds(25)
        self.type("set", "price.3=1.55", code=2)
        self.assertIn("nothing is written", self.told)
        self.assertEqual(self.board.holds(25), before)

    def test_the_ports_of_the_computer_are_listed(self):
        self.assertIn("COM1", self.type("ports"))

    def test_a_silent_board_is_told(self):
        self.start_board("--fault", "silent")
        self.type("info", code=3)
        self.assertIn("no answer from the board", self.told)

    def test_the_audit_is_the_same_as_that_of_linux_byte_by_byte(self):
        self.start_board()
        self.type("backup", "copy.json")
        for form in ("text", "csv", "json", "dts", "html"):
            linux = subprocess.run(
                [places.LINUX_FOLDER / "sorvane-cli", "audit", "--format", form, self.copy],
                capture_output=True, check=True)
            out = pathlib.Path(f"audit.{form}")
            self.type("audit", "--format", form, "-o", out, "copy.json")
            self.assertEqual((self.folder / out).read_bytes(), linux.stdout, form)

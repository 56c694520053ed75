#!/usr/bin/python3
"""Runs the tests of what all companion programs have in common."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "support")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402

if __name__ == "__main__":
    sys.exit(run_counted(["test_programs"]))

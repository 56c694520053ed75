#!/usr/bin/python3
"""Runs tests of the terminals that other tests use: run.py TEST..."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
TESTS = HERE.parent
sys.path[:0] = [str(HERE), str(TESTS / "support"), str(TESTS / "windows")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402

if __name__ == "__main__":
    sys.exit(run_counted(sys.argv[1:]))

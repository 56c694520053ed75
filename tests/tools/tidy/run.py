#!/usr/bin/python3
"""Runs the tests of the choice of sources for clang-tidy."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
sys.path[:0] = [str(HERE), str(ROOT / "tests" / "support"), str(ROOT / "scripts")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402

if __name__ == "__main__":
    sys.exit(run_counted(["test_tidy"]))

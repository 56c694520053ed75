#!/usr/bin/python3
"""Runs tests of the mutating tool: run.py TEST..."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
sys.path[:0] = [str(HERE), str(ROOT / "tests" / "support"), str(ROOT / "tools" / "mutate")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402

if __name__ == "__main__":
    sys.exit(run_counted(sys.argv[1:]))

#!/usr/bin/python3
"""Runs tests of the documents: run.py TEST_FILE...

Each file is a module of unittest beside this one. Finding no test is a failure, and so is a test
that is skipped.
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402

if __name__ == "__main__":
    sys.exit(run_counted([pathlib.Path(file).name.removesuffix(".py") for file in sys.argv[1:]]))

#!/usr/bin/python3
"""Tests the packed Windows program under Wine: run.py [TEST_FILE]...

Each file is a module of unittest beside this one; without any, all of them run. Whatever they need
and don't find is a failure, and so is a test that is skipped.
"""

import pathlib
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(HERE), str(ROOT / "tests" / "support"), str(ROOT / "tools" / "tour")]
sys.dont_write_bytecode = True

import places  # noqa: E402
from counted_run import run_counted  # noqa: E402
from own_terminals import take_own_terminals  # noqa: E402


def main():
    take_own_terminals()
    files = sys.argv[1:] or HERE.glob("test_*.py")
    names = sorted(pathlib.Path(file).name.removesuffix(".py") for file in files)
    shutil.rmtree(places.PICTURES, ignore_errors=True)
    try:
        return run_counted(names)
    finally:
        # What can't be imported is a failure of the tests that do it.
        if "bench" in sys.modules:
            sys.modules["bench"].bench.close()


if __name__ == "__main__":
    sys.exit(main())

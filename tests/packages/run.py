#!/usr/bin/python3
"""Tests a Debian package: run.py PACKAGE

The modules of unittest beside this one look at the package itself and run what it holds.
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support"), str(HERE.parent.parent / "tools" / "tour")]
sys.dont_write_bytecode = True

import package  # noqa: E402
from counted_run import run_counted  # noqa: E402
from desk import Desk  # noqa: E402


def main():
    package.file = pathlib.Path(sys.argv[1]).resolve(strict=True)
    package.desk = Desk()
    try:
        return run_counted(sorted(file.stem for file in HERE.glob("test_*.py")))
    finally:
        package.desk.close()


if __name__ == "__main__":
    sys.exit(main())

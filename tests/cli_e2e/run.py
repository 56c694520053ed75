#!/usr/bin/python3
"""Runs end-to-end tests of sorvane-cli: run.py PROGRAM_FOLDER TEST_FILE...

Each file is a module of unittest beside this one. Finding no test is a failure, and so is a test
that is skipped.
"""

import os
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support"),
                str(HERE.parent.parent / "tools" / "tour")]
sys.dont_write_bytecode = True

from counted_run import run_counted  # noqa: E402
from own_terminals import take_own_terminals  # noqa: E402
from workplace import Workplace  # noqa: E402


def main():
    if not sys.flags.utf8_mode:  # names of files are UTF-8, whatever the caller's language
        os.execv(sys.executable, [sys.executable, "-X", "utf8", *sys.argv])
    take_own_terminals()
    Workplace.built = pathlib.Path(sys.argv[1]).resolve(strict=True)
    return run_counted([pathlib.Path(file).name.removesuffix(".py") for file in sys.argv[2:]])


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Runs end-to-end tests: run.py PROGRAM_FOLDER TEST_FILE...

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
from desk import Desk  # noqa: E402
from scene import Scene  # noqa: E402


def main():
    if not sys.flags.utf8_mode:  # names of files are UTF-8, whatever the caller's language
        os.execv(sys.executable, [sys.executable, "-X", "utf8", *sys.argv])
    Scene.built = pathlib.Path(sys.argv[1]).resolve(strict=True)
    names = [pathlib.Path(file).name.removesuffix(".py") for file in sys.argv[2:]]
    Scene.desk = Desk()
    try:
        return run_counted(names)
    finally:
        Scene.desk.close()


if __name__ == "__main__":
    sys.exit(main())

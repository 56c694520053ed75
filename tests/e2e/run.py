#!/usr/bin/python3
"""Runs end-to-end tests: run.py PROGRAM_FOLDER TEST_FILE...

Each file is a module of unittest beside this one. Finding no test is a failure, and so is a test
that is skipped.
"""

import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "tools" / "tour")]
sys.dont_write_bytecode = True

from desk import Desk  # noqa: E402
from scene import Scene  # noqa: E402


def main():
    Scene.built = pathlib.Path(sys.argv[1]).resolve(strict=True)
    names = [pathlib.Path(file).name.removesuffix(".py") for file in sys.argv[2:]]
    tests = unittest.defaultTestLoader.loadTestsFromNames(names)
    Scene.desk = Desk()
    try:
        result = unittest.TextTestRunner(verbosity=2).run(tests)
    finally:
        Scene.desk.close()
    unhappy = [*result.failures, *result.errors, *result.skipped, *result.expectedFailures]
    failed = len({test.id() for test, _ in unhappy} |
                 {test.id() for test in result.unexpectedSuccesses})
    if result.testsRun == 0:
        print("no tests found")
    print(f"{result.testsRun - failed} passed, {failed} failed")
    return 1 if failed or result.testsRun == 0 else 0


if __name__ == "__main__":
    sys.exit(main())

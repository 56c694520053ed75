"""Running tests of unittest and counting them, the same way everywhere."""

import unittest


class _Result(unittest.TextTestResult):
    passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1


def run_counted(names):
    """Runs the modules named, says how many tests passed, and returns the exit code.

    Finding no test is a failure, and so is a test that is skipped. What is set up for several tests
    counts as one more test if it fails.
    """
    tests = unittest.defaultTestLoader.loadTestsFromNames(names)
    result = unittest.TextTestRunner(verbosity=2, resultclass=_Result).run(tests)
    unhappy = [*result.failures, *result.errors, *result.skipped, *result.expectedFailures]
    failed = len({test.id() for test, _ in unhappy} |
                 {test.id() for test in result.unexpectedSuccesses})
    if result.passed + failed == 0:
        print("no tests found")
    print(f"{result.passed} passed, {failed} failed")
    return 1 if failed or result.passed == 0 else 0

"""Building and running the tests of board and link, with one source mutated at a time."""

import dataclasses
import os
import pathlib
import re
import shutil
import signal
import subprocess

# The library's checks stand for those of the sanitizers, with which all tests run too.
COMPILE = ["g++", "-std=c++20", "-O0", "-w", "-D_GLIBCXX_ASSERTIONS", "-c"]
# The tests run on virtual time. What takes longer, grows larger or writes more has run wild.
CPU_SECONDS = 20
MEMORY = 2 << 30
LARGEST_FILE = 64 << 20
# For a test that waits for something outside; none should.
WALL_SECONDS = 300

SOURCES = ("src/board", "src/link")
TESTS = ("tests/board", "tests/link", "tests/support")

FAILED = re.compile(r"^\[  FAILED  \] ([\w./]+)", re.MULTILINE)
BEGUN = re.compile(r"^\[ RUN      \] ([\w./]+)", re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Outcome:
    kind: str       # "passed", "failed", "crashed", "time limit" or "not compiled"
    test: str = ""  # the test in which it ended

    def caught(self):
        return self.kind in ("failed", "crashed", "time limit")


def _run(command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stderr=subprocess.STDOUT, check=False,
                          **options)


class Bench:
    """The sources of a tree and their tests, built once in a folder of their own."""

    def __init__(self, tree, folder, cpu_seconds=CPU_SECONDS):
        self._tree = pathlib.Path(tree)
        self._folder = pathlib.Path(folder)
        self._cpu_seconds = cpu_seconds
        self._compiler = [shutil.which("ccache")] if shutil.which("ccache") else []
        for part in (*SOURCES, *TESTS):
            shutil.copytree(self._tree / part, self._folder / part)
        self.sources = self._files(SOURCES)

    def _files(self, parts):
        """The sources of this system; what the helpers of tests have in tests is left out."""
        return [str(file.relative_to(self._folder)) for part in parts
                for file in sorted((self._folder / part).glob("*.cpp"))
                if not file.name.endswith("_windows.cpp") and
                not (part == "tests/support" and file.name.endswith("_test.cpp"))]

    def text(self, source):
        return (self._folder / source).read_text(encoding="utf-8")

    def _compile(self, source, output, compiler=()):
        """Whether a source compiled, by its path within the folder or elsewhere."""
        return _run([*compiler, *COMPILE, "-Isrc", "-Itests", source, "-o", output],
                    cwd=self._folder, stdout=subprocess.DEVNULL).returncode == 0

    @staticmethod
    def _object(source):
        return source.replace("/", "_") + ".o"

    def _link(self, objects, program):
        done = _run(["g++", "-o", program, *objects, "-lgmock", "-lgtest", "-pthread"],
                    cwd=self._folder, stdout=subprocess.PIPE, text=True)
        if done.returncode != 0:
            raise RuntimeError(f"the tests don't link: {done.stdout}")

    def build(self, run_each):
        """Compiles all as it stands; run_each maps a function over sources, several at a time."""
        # Tests run in the order of their objects: those of board, which lies below, come first.
        self._order = [*self._files(TESTS), *self.sources]
        compiled = run_each(
            lambda source: self._compile(source, self._object(source), self._compiler), self._order)
        wrong = [source for source, fine in zip(self._order, compiled) if not fine]
        if wrong:
            raise RuntimeError(f"doesn't compile: {', '.join(wrong)}")
        outcome = self._try_objects([self._object(source) for source in self._order], "unmutated")
        if outcome.kind != "passed":
            raise RuntimeError(f"{outcome.kind} without a mutant: {outcome.test}")

    def _try_objects(self, objects, name):
        place = self._folder / name
        (place / "tmp").mkdir(parents=True)
        try:
            self._link(objects, str(place / "tests"))
            return self._run_tests(place)
        finally:
            shutil.rmtree(place)

    def _run_tests(self, place):
        limits = [f"--cpu={self._cpu_seconds}", f"--as={MEMORY}", f"--fsize={LARGEST_FILE}",
                  "--core=0"]
        command = ["prlimit", *limits, place / "tests", "--gtest_fail_fast", "--gtest_color=no"]
        environment = {**os.environ, "TMPDIR": str(place / "tmp"), "LC_ALL": "C.UTF-8"}
        with open(place / "output", "wb") as output:
            try:
                code = _run(command, cwd=place, stdout=output, env=environment,
                            timeout=WALL_SECONDS).returncode
            except subprocess.TimeoutExpired:
                code = -int(signal.SIGXCPU)
        text = (place / "output").read_text(encoding="utf-8", errors="replace")
        if code == 0:
            return Outcome("passed")
        failed = FAILED.search(text)
        begun = BEGUN.findall(text)
        test = failed.group(1) if failed else begun[-1] if begun else "before the first test"
        # The kernel ends by either signal what runs into its processor limit.
        if code in (-int(signal.SIGXCPU), -int(signal.SIGKILL)):
            return Outcome("time limit", test)
        return Outcome("failed" if failed else "crashed", test)

    def try_mutant(self, mutant, number):
        """Builds the tests with one source mutated, and runs them until one fails."""
        name = f"mutant{number}"
        source = self._folder / f"{name}.cpp"
        output = f"{name}.o"
        source.write_text(mutant.text, encoding="utf-8")
        try:
            if not self._compile(str(source), output):
                return Outcome("not compiled")
            return self._try_objects([output if other == mutant.source else self._object(other)
                                      for other in self._order], name)
        finally:
            source.unlink()
            (self._folder / output).unlink(missing_ok=True)

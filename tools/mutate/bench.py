"""Building a tree with CMake, and running its tests with one source mutated at a time."""

import contextlib
import dataclasses
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess

# The library's checks stand for those of the sanitizers, with which all tests run too.
CONFIGURE = ("-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_COMPILER=g++",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS")
# What takes longer, grows larger or writes more has run wild.
CPU_SECONDS = 100
MEMORY = 2 << 30
LARGEST_FILE = 64 << 20
# For a test that waits for what never comes.
WALL_SECONDS = 200

# The target that an object belongs to.
OWNER = re.compile(r"CMakeFiles/(.+?)\.dir/")
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
                          text=True, **options)


def _output(*command, cwd=None):
    """What a command that must succeed prints."""
    done = _run(command, cwd=cwd, stdout=subprocess.PIPE)
    if done.returncode != 0:
        raise RuntimeError(f"{shlex.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Bench:
    """A copy of a tree, its tests built once, and private copies of the tests for each mutant."""

    def __init__(self, tree, folder, floors, started, cpu_seconds=CPU_SECONDS,
                 wall_seconds=WALL_SECONDS):
        """floors: those that are mutated. started: programs that tests start, by their variable.

        What was built in the folder before serves again.
        """
        self._folder = pathlib.Path(folder)
        self._tree = self._folder / "tree"
        self._objects = self._folder / "objects"
        self._trials = self._folder / "trials"
        self._floors = floors
        self._started = started
        self._cpu_seconds = cpu_seconds
        self._wall_seconds = wall_seconds
        for old in (self._tree, self._trials):
            shutil.rmtree(old, ignore_errors=True)
        self._trials.mkdir(parents=True)
        shutil.copytree(tree, self._tree, symlinks=True, ignore=lambda place, names: [
            name for name in names if pathlib.Path(place) == tree and name in ("build", ".git")])

    def configure(self):
        """Finds out how sources are compiled and programs linked."""
        _output("cmake", "-S", self._tree, "-B", self._objects, *CONFIGURE)
        rows = json.loads((self._objects / "compile_commands.json").read_text())
        self._compilations = {os.path.relpath(row["file"], self._tree): shlex.split(row["command"])
                              for row in rows}
        tests = dict.fromkeys(name for floor in self._floors for name in floor.tests)
        self._links = {name: self._link_command(name)
                       for name in (*tests, *self._started.values())}
        self._libraries = {word for words in self._links.values() for word in words
                           if word.endswith(".a") and not os.path.isabs(word)}

    def _link_command(self, program):
        commands = _output("ninja", "-t", "commands", program, cwd=self._objects)
        words = shlex.split(commands.splitlines()[-1])
        start = words.index("&&") + 1
        return words[start:words.index("&&", start)]

    def sources(self, floor):
        """The sources of a floor that are built on this system, and that its tests are made of."""
        programs = (*floor.tests, *self._started.values())
        return sorted(source for source in self._compilations
                      if self._floor_of(source) == floor and
                      any(self._holds(program, source) for program in programs))

    def _holds(self, program, source):
        own, library = self._own_object(source)
        return any(word == own or os.path.basename(word) == library
                   for word in self._links[program])

    def _floor_of(self, source):
        return next((floor for floor in self._floors if source.startswith(f"{floor.folder}/")), None)

    def text(self, source):
        return (self._tree / source).read_text(encoding="utf-8")

    def build(self, run_each):
        """Builds all as it stands; run_each maps a function over tests, several at a time."""
        _output("ninja", *self._links, cwd=self._objects)
        # CTest tells the commands of programs that are there.
        shown = json.loads(_output("ctest", "--show-only=json-v1", cwd=self._objects))
        self._tests = {test["name"]: test for test in shown["tests"] if test["name"] in self._links}
        for name, outcome in zip(self._tests, run_each(self._try_unmutated, self._tests)):
            if outcome.kind != "passed":
                raise RuntimeError(f"{name} {outcome.kind} without a mutant: {outcome.test}")

    def _try_unmutated(self, name):
        place = self._trials / name
        place.mkdir()
        try:
            return self._run_test(name, place, {})
        finally:
            shutil.rmtree(place)

    def try_mutant(self, mutant, number):
        """Runs the tests of a mutant's floor with its source mutated, until one fails."""
        place = self._trials / str(number)
        place.mkdir()
        try:
            return self._try_in(place, mutant)
        finally:
            shutil.rmtree(place)

    def _try_in(self, place, mutant):
        if not self._compile(mutant, place):
            return Outcome("not compiled")
        variables = {}
        for variable, program in self._started.items():
            if not self._link(program, mutant.source, place):
                return Outcome("not compiled")
            if (place / program).exists():
                variables[variable] = str(place / program)
        for name in self._floor_of(mutant.source).tests:
            if not self._link(name, mutant.source, place):
                return Outcome("not compiled")
            outcome = self._run_test(name, place, variables)
            if outcome.kind != "passed":
                break
        return outcome

    def _compile(self, mutant, place):
        """Makes the mutant's object, and a copy of the library that it is from with it."""
        (place / "mutant.cpp").write_text(mutant.text, encoding="utf-8")
        command = [*self._compilations[mutant.source], "-w"]
        command[command.index("-c") + 1] = str(place / "mutant.cpp")
        command[command.index("-o") + 1] = str(place / "mutant.o")
        if _run(command, cwd=self._objects, stdout=subprocess.DEVNULL).returncode != 0:
            return False
        own, library = self._own_object(mutant.source)
        for found in self._libraries:
            if os.path.basename(found) == library:
                shutil.copy(self._objects / found, place / library)
                _output("ar", "d", place / library, os.path.basename(own))
                _output("ar", "q", place / library, place / "mutant.o")
        return True

    def _own_object(self, source):
        """The object of a source, and the name of the library that it would be in."""
        compilation = self._compilations[source]
        own = compilation[compilation.index("-o") + 1]
        return own, f"lib{OWNER.search(own).group(1)}.a"

    def _link(self, program, source, place):
        """Links a private copy of a program that the source is in. False where it doesn't link."""
        if not self._holds(program, source):
            return True
        own, library = self._own_object(source)
        private = {own: place / "mutant.o", library: place / library}
        command = [str(private.get(word) or private.get(os.path.basename(word)) or word)
                   for word in self._links[program]]
        command[command.index("-o") + 1] = str(place / program)
        return _run(command, cwd=self._objects, stdout=subprocess.DEVNULL).returncode == 0

    def _run_test(self, name, place, variables):
        """Runs a test, by the private copy of its program if there is one."""
        tmp = place / "tmp"
        tmp.mkdir()
        test = self._tests[name]
        properties = {row["name"]: row["value"] for row in test.get("properties", [])}
        given = dict(text.split("=", 1) for text in properties.get("ENVIRONMENT", []))
        command = list(test["command"])
        if (place / name).exists():
            command[-1] = str(place / name)
        with open(place / "output", "wb") as output:
            run = subprocess.Popen(
                ["prlimit", f"--cpu={self._cpu_seconds}", f"--as={MEMORY}",
                 f"--fsize={LARGEST_FILE}", "--core=0", *command, "--gtest_fail_fast",
                 "--gtest_color=no"],
                cwd=tmp, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                env={**os.environ, **given, **variables, "TMPDIR": str(tmp)},
                start_new_session=True)
            try:
                code = run.wait(self._wall_seconds)
            except subprocess.TimeoutExpired:
                code = -int(signal.SIGXCPU)
            finally:
                # What the test has started goes too.
                with contextlib.suppress(ProcessLookupError):
                    os.killpg(run.pid, signal.SIGKILL)
                run.wait()
        shutil.rmtree(tmp)
        return _outcome(code, (place / "output").read_text(encoding="utf-8", errors="replace"))


def _outcome(code, text):
    """What the exit code of a test and its words tell."""
    if code == 0:
        return Outcome("passed")
    failed = FAILED.search(text)
    begun = BEGUN.findall(text)
    test = failed.group(1) if failed else begun[-1] if begun else "before the first test"
    # The kernel ends by either signal what runs into its processor limit.
    if code in (-int(signal.SIGXCPU), -int(signal.SIGKILL)):
        return Outcome("time limit", test)
    return Outcome("failed" if failed else "crashed", test)

#!/usr/bin/python3
"""Mutates the sources of board and link, and counts the mutants that their tests catch.

Fails if a mutant survives without a reason, or too many survive. With the count that it has by itself
it writes docs/mutation.md; with another it takes a sample and writes nothing.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import sys
import tempfile

from bench import CPU_SECONDS, Bench, Outcome
from mutants import choose, mutants_of
from report import Result, change, place, read_reasons

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
REASONS = pathlib.Path(__file__).resolve().parent / "equivalent.json"
PAGE = ROOT / "docs" / "mutation.md"
LAST_RUN = ROOT / "build" / "mutation.json"
COUNT = 400
SEED = 1


def chosen_mutants(bench, count, seed):
    return choose([mutant for source in bench.sources
                   for mutant in mutants_of(source, bench.text(source))], count, seed)


def try_mutants(tree, count, seed, report_one, known=lambda mutants: {}):
    """Pairs of a mutant and its outcome, in the order of their places.

    known gives the outcomes that need no new trial, by the mutant's place in the list it is handed.
    """
    with (tempfile.TemporaryDirectory() as folder,
          concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool):
        bench = Bench(tree, folder)
        mutants = chosen_mutants(bench, count, seed)
        old = known(mutants)
        bench.build(pool.map)
        tried = []
        outcomes = pool.map(
            lambda number: old.get(number) or bench.try_mutant(mutants[number], number),
            range(len(mutants)))
        for number, (mutant, outcome) in enumerate(zip(mutants, outcomes)):
            tried.append((mutant, outcome))
            if number not in old:
                report_one(mutant, outcome)
        return tried


def identity(mutants):
    """Tells a list of mutants of these very sources from any other."""
    changes = "\0".join(f"{mutant.source} {mutant.text}" for mutant in mutants)
    return hashlib.sha256(changes.encode()).hexdigest()


def read_caught(mutants):
    """The outcomes of the last run but those of survivors, if it was a run of the same mutants."""
    last = json.loads(LAST_RUN.read_text(encoding="utf-8"))
    if last["identity"] != identity(mutants):
        sys.exit("The sources have changed since the last run.")
    outcomes = [Outcome(*row) for row in last["outcomes"]]
    return {number: outcome for number, outcome in enumerate(outcomes) if outcome.kind != "passed"}


def write_run(tried):
    LAST_RUN.parent.mkdir(exist_ok=True)
    LAST_RUN.write_text(json.dumps({
        "identity": identity([mutant for mutant, _ in tried]),
        "outcomes": [[outcome.kind, outcome.test] for _, outcome in tried]}), encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=COUNT, help="about how many (%(default)s)")
    parser.add_argument("--seed", type=int, default=SEED, help="of the choice (%(default)s)")
    parser.add_argument("--survivors", action="store_true",
                        help="try those again that survived the last whole run")
    arguments = parser.parse_args()
    os.nice(5)

    def report_one(mutant, outcome):
        print(f"{outcome.kind:12} {place(mutant)}: {change(mutant)}  {outcome.test}", flush=True)

    whole = (arguments.count, arguments.seed) == (COUNT, SEED)
    known = {"known": read_caught} if arguments.survivors else {}
    tried = try_mutants(ROOT, arguments.count, arguments.seed, report_one, **known)
    result = Result(tried, read_reasons(REASONS))
    if whole:
        write_run(tried)
        PAGE.write_text(result.page(SEED, CPU_SECONDS), encoding="utf-8")
    print(result.summary())
    faults = result.faults()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Mutates the sources of the program, and counts the mutants that their tests catch.

Fails if a mutant survives without a reason, or too many survive. Writes build/mutation/report.md.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import sys

from bench import Bench, Outcome
from floors import GROUPS, STARTED
from mutants import choose, mutants_of
from report import Result, change, place, read_reasons

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
REASONS = pathlib.Path(__file__).resolve().parent / "equivalent.json"
FOLDER = ROOT / "build" / "mutation"
LAST_RUN = FOLDER / "outcomes.json"
COUNT = sum(group.count for group in GROUPS)
SEED = 1


def chosen_mutants(bench, count, seed):
    """About count mutants, shared among the groups as in a whole run."""
    chosen = []
    for group in GROUPS:
        mutants = [mutant for floor in group.floors for source in bench.sources(floor)
                   for mutant in mutants_of(source, bench.text(source))]
        chosen += choose(mutants, count * group.count / COUNT, seed)
    return chosen


def identity(mutant):
    """Tells a mutant of this very source from any other."""
    return hashlib.sha256(f"{mutant.source} {mutant.text}".encode()).hexdigest()


def read_caught():
    """The outcomes of the last run but those of survivors, by the identity of the mutant."""
    outcomes = json.loads(LAST_RUN.read_text(encoding="utf-8"))
    return {key: Outcome(*row) for key, row in outcomes.items() if row[0] != "passed"}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=COUNT, help="about how many (%(default)s)")
    parser.add_argument("--seed", type=int, default=SEED, help="of the choice (%(default)s)")
    parser.add_argument("--survivors", action="store_true",
                        help="leave out those that were caught the last time")
    arguments = parser.parse_args()
    os.nice(5)

    bench = Bench(ROOT, FOLDER, [floor for group in GROUPS for floor in group.floors], STARTED)
    bench.configure()
    mutants = chosen_mutants(bench, arguments.count, arguments.seed)
    known = read_caught() if arguments.survivors else {}
    tried = []

    def outcome_of(number):
        return known.get(identity(mutants[number])) or bench.try_mutant(mutants[number], number)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        bench.build(pool.map)
        outcomes = {}
        for mutant, outcome in zip(mutants, pool.map(outcome_of, range(len(mutants)))):
            tried.append((mutant, outcome))
            outcomes[identity(mutant)] = (outcome.kind, outcome.test)
            LAST_RUN.write_text(json.dumps(outcomes), encoding="utf-8")
            print(f"{outcome.kind:12} {place(mutant)}: {change(mutant)}  {outcome.test}", flush=True)

    result = Result(tried, read_reasons(REASONS))
    (FOLDER / "report.md").write_text(result.page(arguments.seed), encoding="utf-8")
    print(result.summary())
    faults = result.faults()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

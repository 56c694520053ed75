"""What came of the mutants: the judgement and the page."""

import json

MOST_SURVIVORS = 10
LEAST_CAUGHT = 0.95
# A share of fewer mutants says little.
ENOUGH = 300

HEAD = """# Mutants

Are the tests of `src/board` and `src/link` sharp? `scripts/mutate` changes one operator, constant,
condition or statement of these sources at a time, builds `tests/board` and `tests/link` with it, and runs
them until one fails. A mutant that no test notices shows a behaviour that nobody tests, or one that can't
be noticed from outside.

`scripts/mutate` wrote this page, in a few minutes on two idle cores. With `--survivors` it tries those again
that survived the last time, after a test was added; with `--count 20` it takes a sample, in a minute or two.

- A mutant that doesn't compile isn't counted.
- A test program that crashes, or that takes more than {cpu} seconds of processor time, has caught its
  mutant; the table names the test it was in.
- A survivor needs a reason in `tools/mutate/equivalent.json`, or else the missing test.

"""


def read_reasons(file):
    """Why a mutant can't be caught, by its source and its lines before and after the change."""
    rows = json.loads(file.read_text(encoding="utf-8"))
    return {(row["source"], row["line"], row["becomes"]): row["reason"] for row in rows}


def reason_of(reasons, mutant):
    return reasons.get((mutant.source, mutant.before, mutant.after), "")


class Result:
    def __init__(self, tried, reasons):
        """tried: pairs of a mutant and its outcome."""
        self.counted = [(mutant, outcome) for mutant, outcome in tried
                        if outcome.kind != "not compiled"]
        self.left_out = len(tried) - len(self.counted)
        self.caught = [(mutant, outcome) for mutant, outcome in self.counted if outcome.caught()]
        self.survivors = [mutant for mutant, outcome in self.counted if not outcome.caught()]
        self._reasons = reasons

    def faults(self):
        """What is wrong with the tests or with the list of reasons."""
        found = [f"survived: {place(mutant)}: {change(mutant)} in: {mutant.before}"
                 for mutant in self.survivors if not reason_of(self._reasons, mutant)]
        found += [f"has a reason but was caught: {place(mutant)}: {change(mutant)}"
                  for mutant, _ in self.caught if reason_of(self._reasons, mutant)]
        if not self.counted:
            found.append("no mutant was tried")
        if len(self.survivors) > MOST_SURVIVORS:
            found.append(f"more than {MOST_SURVIVORS} survivors")
        if len(self.counted) >= ENOUGH and len(self.caught) < LEAST_CAUGHT * len(self.counted):
            found.append(f"fewer than {LEAST_CAUGHT:.0%} caught")
        return found

    def summary(self):
        kinds = [outcome.kind for _, outcome in self.caught]
        share = len(self.caught) / max(1, len(self.counted))
        return (f"{len(self.caught)} of {len(self.counted)} mutants caught ({share:.1%}): "
                f"{kinds.count('failed')} by a failure, {kinds.count('crashed')} by a crash, "
                f"{kinds.count('time limit')} by the time limit. {len(self.survivors)} survived. "
                f"{self.left_out} more didn't compile.")

    def page(self, seed, cpu_seconds):
        lines = [HEAD.format(cpu=cpu_seconds) + self.summary() + f" Seed {seed}.", ""]
        lines += ["| source | mutants | caught |", "|---|---|---|"]
        for source in sorted({mutant.source for mutant, _ in self.counted}):
            of_source = [outcome for mutant, outcome in self.counted if mutant.source == source]
            caught = sum(outcome.caught() for outcome in of_source)
            lines.append(f"| `{source}` | {len(of_source)} | {caught} |")
        lines += ["", "## Survivors", "", "| place | change | reason |", "|---|---|---|"]
        lines += [f"| {place(mutant)} | {_cell(change(mutant))} | {reason_of(self._reasons, mutant)} |"
                  for mutant in self.survivors]
        lines += ["", "## Caught", "", "Places are `file:line:column` below `src`.", "",
                  "| place | change | caught by |", "|---|---|---|"]
        lines += [f"| {place(mutant)} | {_cell(change(mutant))} | {_by(outcome)} |"
                  for mutant, outcome in self.caught]
        return "\n".join(lines) + "\n"


def place(mutant):
    return f"{mutant.source.removeprefix('src/')}:{mutant.line}:{mutant.column}"


def change(mutant):
    return f"`{mutant.old}` becomes `{mutant.new}`" if mutant.new else f"without `{mutant.old}`"


def _cell(text):
    return text.replace("|", "\\|")


def _by(outcome):
    if outcome.kind == "failed":
        return f"`{outcome.test}`"
    return f"`{outcome.test}`, {'crash' if outcome.kind == 'crashed' else 'time limit'}"

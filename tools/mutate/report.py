"""What came of the mutants: the judgement and the page."""

import json
import pathlib

LEAST_CAUGHT = 0.95
# A share of fewer mutants says little.
ENOUGH = 300


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

    def page(self, seed):
        """The report, which docs/mutation.md tells how to read."""
        lines = ["# Mutants", "", f"{self.summary()} Seed {seed}.", ""]
        lines += self._shares("floor", lambda mutant: pathlib.PurePath(mutant.source).parent)
        lines += ["", "## Survivors", "", "| place | change | reason |", "|---|---|---|"]
        lines += [f"| {place(mutant)} | {_cell(change(mutant))} | "
                  f"{reason_of(self._reasons, mutant) or 'none'} |" for mutant in self.survivors]
        lines += ["", "## Sources", ""]
        lines += self._shares("source", lambda mutant: mutant.source)
        lines += ["", "## Caught", "", "| place | change | caught by |", "|---|---|---|"]
        lines += [f"| {place(mutant)} | {_cell(change(mutant))} | {_by(outcome)} |"
                  for mutant, outcome in self.caught]
        return "\n".join(lines) + "\n"

    def _shares(self, title, kind_of):
        """A table of how many were caught of each kind of mutants."""
        kinds = {}
        for mutant, outcome in self.counted:
            kinds.setdefault(str(kind_of(mutant)), []).append(outcome.caught())
        return [f"| {title} | mutants | caught |", "|---|---|---|"] + [
            f"| `{kind}` | {len(caught)} | {sum(caught)} |" for kind, caught in sorted(kinds.items())]


def place(mutant):
    return f"{mutant.source}:{mutant.line}:{mutant.column}"


def change(mutant):
    return f"`{mutant.old}` becomes `{mutant.new}`" if mutant.new else f"without `{mutant.old}`"


def _cell(text):
    return text.replace("|", "\\|")


def _by(outcome):
    if outcome.kind == "failed":
        return f"`{outcome.test}`"
    return f"`{outcome.test}`, {'crash' if outcome.kind == 'crashed' else 'time limit'}"

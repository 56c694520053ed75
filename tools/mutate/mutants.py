"""Mutants of a source: each changes one operator, constant, condition or statement."""

import dataclasses
import random
import re

from tokens import stands_between_spaces, tokens_of

# Operators of two values, and what each becomes.
OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "&&": ("||",), "||": ("&&",), "&": ("|",), "|": ("&",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "|=": ("&=",), "&=": ("|=",),
}
COMPARISONS = {"<", "<=", ">", ">=", "==", "!=", "!"}
# Signs before or behind one value.
SINGLE_SIGNS = {"++": "--", "--": "++", "!": "", "~": ""}
TRUTHS = {"true": "false", "false": "true"}
WHOLE_NUMBER = re.compile(r"(0[xX][\da-fA-F]+|\d+)([uUlL]*)$")

# Statements that can go by themselves.
JUMPS = {"break", "continue", "throw"}
# Names that begin what isn't a call or an assignment.
OTHER_STATEMENTS = {
    "auto", "case", "catch", "class", "const", "constexpr", "default", "do", "else", "enum", "for", "if",
    "namespace", "private", "public", "return", "static", "struct", "switch", "template", "try",
    "typedef", "using", "while",
}
OPENING = {"(": ")", "[": "]", "{": "}"}


@dataclasses.dataclass(frozen=True)
class Mutant:
    source: str   # path below the root
    line: int     # of the change, from 1
    column: int   # from 1
    old: str      # what stood there
    new: str      # what stands there now; nothing where it was taken away
    before: str   # the lines of the change, in one line
    after: str    # the same with the change
    text: str     # the whole mutated source


def _one_line(text):
    return " ".join(text.split())


def _mutant(source, text, start, end, new):
    first = text.rfind("\n", 0, start) + 1
    last = text.find("\n", end)
    last = len(text) if last < 0 else last
    return Mutant(source, text.count("\n", 0, start) + 1, start - first + 1,
                  _one_line(text[start:end]), new, _one_line(text[first:last]),
                  _one_line(text[first:start] + new + text[end:last]),
                  text[:start] + new + text[end:])


def _closing(tokens, place):
    """The place of the bracket that closes the one at a place."""
    depth = 0
    for at in range(place, len(tokens)):
        if tokens[at].text in OPENING:
            depth += 1
        elif tokens[at].text in OPENING.values():
            depth -= 1
            if depth == 0:
                return at
    return len(tokens) - 1


def _numbers(token):
    """A constant one higher and one lower, in decimal digits."""
    whole = WHOLE_NUMBER.match(token.text)
    if not whole:
        return []
    value = int(whole.group(1), 16 if whole.group(1)[:2] in ("0x", "0X") else 10)
    return [f"{near}{whole.group(2)}" for near in (value + 1, value - 1) if near >= 0]


def _of_token(text, token):
    if token.kind == "number":
        return _numbers(token)
    if token.text in TRUTHS:
        return [TRUTHS[token.text]]
    if token.text in SINGLE_SIGNS:
        return [SINGLE_SIGNS[token.text]]
    if token.text in OPERATORS and stands_between_spaces(text, token):
        return OPERATORS[token.text]
    return []


def _negated_condition(text, tokens, place):
    """The condition of an if or while, negated.

    None for one that declares a variable, and for one that a change of its own sign negates.
    """
    if tokens[place].text not in ("if", "while") or tokens[place + 1].text != "(":
        return None
    close = _closing(tokens, place + 1)
    signs = {token.text for token in tokens[place + 2:close]}
    if signs & {"=", ";"} or signs & COMPARISONS and not signs & {"&&", "||"}:
        return None
    start, end = tokens[place + 1].end, tokens[close].start
    return start, end, f"!({text[start:end]})"


def _call_or_assignment(statement):
    """Whether a statement is a call or an assignment, and no declaration."""
    first = statement[0]
    if first.text in ("++", "--"):
        return True
    if first.kind != "name" or first.text in OTHER_STATEMENTS:
        return False
    for left, right in zip(statement, statement[1:]):
        if right.text == "(" or right.text.endswith("="):
            return True
        if right.text not in (".", "->", "::", "[", "]") and left.text not in (".", "->", "::", "["):
            return False
    return False


def _statement(tokens, place):
    """The span of a statement that can go, without its semicolon."""
    if place == 0 or tokens[place - 1].text not in (";", "{", "}", ")", "else"):
        return None
    at = place
    while at < len(tokens) and tokens[at].text != ";":
        if tokens[at].text in OPENING.values():
            return None
        at = _closing(tokens, at) + 1 if tokens[at].text in OPENING else at + 1
    if at == place or at == len(tokens):
        return None
    first = tokens[place]
    bare_return = first.text == "return" and first.end == tokens[at].start
    if first.text in JUMPS or bare_return or _call_or_assignment(tokens[place:at]):
        return first.start, tokens[at].start
    return None


def mutants_of(source, text):
    """All mutants of a source, in the order of their places."""
    tokens = tokens_of(text)
    found = []
    open_brackets = []
    for place, token in enumerate(tokens):
        changes = [(token.start, token.end, new) for new in _of_token(text, token)]
        changes.append(_negated_condition(text, tokens, place))
        # Between round brackets stands the head of a loop, whose parts end with semicolons too.
        removed = open_brackets[-1:] != ["("] and _statement(tokens, place)
        changes.append(removed and (*removed, ""))
        if token.text in OPENING:
            open_brackets.append(token.text)
        elif token.text in OPENING.values():
            open_brackets.pop()
        found += [_mutant(source, text, *change) for change in changes if change]
    return found


def choose(all_mutants, count, seed):
    """About count mutants, the same for the same seed, from every source by its share of all."""
    by_source = {}
    for mutant in all_mutants:
        by_source.setdefault(mutant.source, []).append(mutant)
    chosen = []
    for source, mutants in sorted(by_source.items()):
        share = max(1, round(count * len(mutants) / len(all_mutants)))
        drawn = random.Random(f"{seed} {source}").sample(mutants, min(share, len(mutants)))
        chosen += sorted(drawn, key=lambda mutant: (mutant.line, mutant.column, mutant.new))
    return chosen

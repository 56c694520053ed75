"""What a Markdown file consists of, as far as the tests of the documents ask for it."""

import dataclasses
import functools
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
CODE_SPAN = re.compile(r"`[^`]*`")
LINK = re.compile(r"(!?)\[((?:!\[[^]]*\]\([^)]*\)|[^]])*)\]\(([^)\s]+)\)")
HEADING = re.compile(r"(#{1,6}) (.+)")


@dataclasses.dataclass(frozen=True)
class Heading:
    level: int
    text: str


@dataclasses.dataclass(frozen=True)
class Link:
    target: str
    is_picture: bool
    line: int


@dataclasses.dataclass(frozen=True)
class Table:
    rows: tuple  # of tuples of cells; the first is the head


@dataclasses.dataclass(frozen=True)
class Text:
    text: str


def _cells(line):
    return tuple(cell.strip() for cell in line.strip().strip("|").split("|"))


def _is_rule(line):
    return re.fullmatch(r"\|[-:| ]+\|", line.strip()) is not None


def slug(heading):
    """The name by which a link reaches a heading."""
    plain = re.sub(r"[^\w\- ]", "", heading.lower())
    return plain.replace(" ", "-")


class Document:
    def __init__(self, path):
        self.path = path
        self._lines = path.read_text(encoding="utf-8").splitlines()

    def _prose(self):
        """The lines outside code blocks, with their numbers."""
        fenced = False
        after_blank = True
        indented = False
        for number, line in enumerate(self._lines, 1):
            if line.lstrip().startswith("```"):
                fenced = not fenced
                continue
            # A list's further lines are indented as well, but follow a line of words.
            indented = line.startswith("    ") and (after_blank or indented)
            after_blank = not line.strip()
            if not fenced and not indented:
                yield number, line

    @functools.cached_property
    def blocks(self):
        """Headings, tables and other lines, top to bottom."""
        blocks, rows = [], []
        for _, line in self._prose():
            if line.startswith("|"):
                if not _is_rule(line):
                    rows.append(_cells(line))
                continue
            if rows:
                blocks.append(Table(tuple(rows)))
                rows = []
            heading = HEADING.fullmatch(line)
            if heading:
                blocks.append(Heading(len(heading[1]), heading[2].strip()))
            elif line.strip():
                blocks.append(Text(line))
        if rows:
            blocks.append(Table(tuple(rows)))
        return blocks

    @functools.cached_property
    def links(self):
        """All links and pictures outside code."""
        found = []
        for number, line in self._prose():
            for mark, words, target in LINK.findall(CODE_SPAN.sub("``", line)):
                found.append(Link(target, mark == "!", number))
                found += [Link(inner, True, number)
                          for inner_mark, _, inner in LINK.findall(words) if inner_mark]
        return found

    @property
    def pictures(self):
        return [link.target for link in self.links if link.is_picture]

    @property
    def headings(self):
        return [block for block in self.blocks if isinstance(block, Heading)]

    @property
    def anchors(self):
        return {slug(heading.text) for heading in self.headings}

    @property
    def rows(self):
        """The rows of all tables without their heads."""
        return [row for block in self.blocks if isinstance(block, Table) for row in block.rows[1:]]

    def section(self, title):
        """The lines and rows below a heading, up to the next one of its level; None without one.

        The heading is the title, or begins with it and a blank.
        """
        level, found = None, []
        for block in self.blocks:
            if isinstance(block, Heading):
                if level is not None and block.level <= level:
                    break
                if level is None and f"{block.text} ".startswith(f"{title} "):
                    level = block.level
            elif level is not None:
                found += [block.text] if isinstance(block, Text) else map(" ".join, block.rows)
        return None if level is None else "\n".join(found)

"""What a manual page in troff consists of, as far as the tests of the documents ask for it."""

import re
import shlex

FONT = re.compile(r"\\f[A-Z]")


def plain(line):
    """The words of a line without its macro and escapes; fonts that alternate set no blanks."""
    macro = re.match(r"\.(\w+) ", line)
    words = line
    if macro:
        parts = shlex.split(line[macro.end():].replace("\\", "\\\\"))
        words = ("" if len(macro[1]) == 2 else " ").join(parts)
    return FONT.sub("", words).replace("\\-", "-")


class ManPage:
    def __init__(self, path):
        self._sections = {}
        section = None
        for line in path.read_text(encoding="utf-8").splitlines():
            if line.startswith(".SH "):
                section = self._sections.setdefault(line.removeprefix(".SH "), [])
            elif section is not None:
                section.append(line)

    def section(self, name):
        return self._sections[name]

    def tags(self, name):
        """The words in front of each paragraph of a section."""
        lines = self.section(name)
        return [plain(line) for before, line in zip(lines, lines[1:]) if before == ".TP"]

    def examples(self, name):
        """Pairs of a tag and the example below it; the tag is empty where there is none."""
        found, tag, example = [], "", None
        lines = self.section(name)
        for before, line in zip([""] + lines, lines):
            if before == ".TP":
                tag = plain(line)
            if line == ".EX":
                example = []
            elif line == ".EE":
                found.append((tag, "\n".join(example)))
                example = None
            elif example is not None:
                example.append(line)
        return found

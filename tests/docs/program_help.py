"""What the help of a program lists."""

import re

OPTION = re.compile(r"(?<![\w-])--?[a-z][a-z0-9-]*")


def rows(text, title):
    """The rows of a part of the help, each without its explanation."""
    part = re.search(rf"^{title}:\n((?:  .*\n)*)", text, re.MULTILINE)
    return [line for line in part[1].splitlines() if not line.startswith("   ")] if part else []


def options_of(text):
    return {option for row in rows(text, "Options")
            for option in OPTION.findall(re.split(r" {2,}|[ :]", row.strip())[0])}


def commands_of(text):
    return [row.split()[0] for row in rows(text, "Subcommands")]

"""What the sources of the program say about its pages, menu, captions and boxes."""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SOURCES = ROOT / "src"
LANGUAGES = ROOT / "data" / "languages"

LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
ICON = re.compile(r"\bk(?:Critical|Exclamation)Icon\b")
SHOW = re.compile(r"\b(?:dialogs\w*\.Show|ShowAndEnd)\(\s*")
SHOWN = re.compile(r"\{|\w+Box\(|box\b|const MessageBox& box\)")
# Draws what it is handed; the words of a run-time error are the gate's.
DRAWS_BOXES = "qt_dialogs.cpp"
ESCAPES = {"n": "\n", "r": "\n", '"': '"', "\\": "\\"}


def _read(*path):
    text = SOURCES.joinpath(*path).read_text(encoding="utf-8")
    return re.sub(r"//[^\n]*", "", text)


def _words(literal):
    return re.sub(r"\\(.)", lambda escape: ESCAPES.get(escape[1], escape[0]), literal)


def all_sources():
    """Pairs of name and text without comments."""
    return [(path.name, _read(path.relative_to(SOURCES)))
            for path in sorted(SOURCES.rglob("*.cpp")) + sorted(SOURCES.rglob("*.h"))]


def messages(language):
    """The lines of a language file; element n is message n."""
    text = (LANGUAGES / f"{language}.lng").read_text(encoding="cp1252")
    return ["", *text.splitlines()]


def pages():
    """The form of each page with its menu entry, as the program lists them."""
    text = _read("pages", "program_pages.cpp")
    rows = re.findall(r'\{MenuEntry::(\w+),\s*"(Frm\w+)"', text)
    rows += re.findall(r'RowOf<\w+>\(MenuEntry::(\w+),\s*k(Frm\w+)\)', text)
    return {form: entry for entry, form in rows}


def page_rows():
    """How many rows of pages the program has, counted in another way."""
    return _read("pages", "program_pages.cpp").count("MenuEntry::")


@dataclasses.dataclass(frozen=True)
class MenuRow:
    caption: str
    parent: str
    message: int


def _value(fields, pattern, missing=""):
    found = re.search(pattern, fields)
    return found[1] if found else missing


def menu():
    """The rows of the menu by their entries."""
    numbers = dict(re.findall(r"\b(k\w+) = (\d+);", _read("board", "message.h")))
    text = _read("shell", "frame", "main_menu.cpp")
    rows = re.findall(r"\.entry = MenuEntry::(\w+),(.*?)\}", text, re.DOTALL)
    return {entry: MenuRow(_value(fields, r'\.caption = "([^"]*)"'),
                           _value(fields, r"\.parent = MenuEntry::(\w+)"),
                           int(numbers[_value(fields, r"message::(\w+)")])
                           if "message::" in fields else 0)
            for entry, fields in rows}


def menu_path(entry, lines):
    """The way to an entry through the menu in a language, such as "Set > Keys / Columns"."""
    row = menu()[entry]
    caption = (lines[row.message] if row.message else row.caption).strip()
    return f"{menu_path(row.parent, lines)} > {caption}" if row.parent else caption


def captions(language):
    """All words that the program can show: those of a language and those that it brings."""
    words = [line for line in messages(language)[1:] if not line.startswith(";--")]
    for _, text in all_sources():
        words += [_words(literal).replace("&", "") for literal in LITERAL.findall(text)]
    return [word for word in words if word.strip()]


def _enclosing(text, place):
    """What stands in the braces around a place, up to the place."""
    depth = 0
    for at in range(place - 1, -1, -1):
        if text[at] == "}":
            depth += 1
        elif text[at] == "{":
            if depth == 0:
                return text[at + 1:place]
            depth -= 1
    raise ValueError("no braces")


def _texts(name, text, place):
    """The texts that one box can have."""
    first = re.match(r'\s*((?:"(?:[^"\\]|\\.)*"|[^",])+),', _enclosing(text, place))
    expression = first[1].strip() if first else ""
    literals = LITERAL.findall(expression)
    if not literals and re.fullmatch(r"\w+", expression):
        literals = re.findall(rf'\b{expression}\s*=\s*"((?:[^"\\]|\\.)*)"', text)
    if not literals:
        raise ValueError(f"{name}: the words of the box {expression!r} can't be read")
    return [_words(literal) for literal in literals]


def boxes():
    """The texts of all message boxes but the run-time errors, each as its lines.

    Raises ValueError for a box whose words can't be read from the source.
    """
    found = set()
    for name, text in all_sources():
        if name == DRAWS_BOXES or not name.endswith(".cpp"):
            continue
        for show in SHOW.finditer(text):
            if not SHOWN.match(text, show.end()):
                raise ValueError(f"{name}: a box is shown in a way that isn't known here")
        for icon in ICON.finditer(text):
            found.update(_texts(name, text, icon.start()))
    return sorted(tuple(line.strip() for line in text.split("\n") if line.strip())
                  for text in found)


def error_words():
    """The number and words of each run-time error."""
    numbers = dict(re.findall(r"\b(k\w+) = (\d+)", _read("board", "errors.h")))
    words = dict(re.findall(r'ErrorCode::(k\w+):\s*return "([^"]+)"', _read("board", "errors.cpp")))
    if numbers.keys() != words.keys():
        raise ValueError(f"errors without words or number: {numbers.keys() ^ words.keys()}")
    return {numbers[name]: words[name] for name in numbers}


def error_reports():
    """How the report of an error begins."""
    return sorted(set(re.findall(r'"(Run-time error)', _read("shell", "gate", "program_gate.cpp"))))

"""What stands on a picture: a line of words, an entry of a menu, a field, a message box."""

import dataclasses

from PIL import Image

import sight
from sight import columns, ink_by_columns, ink_by_rows, ink_on, main_colour, rows

# What alone is read where nothing else can stand: in numbers and dates, and in names of ports.
NUMBER = "0123456789.,/-:"
PORT = "CMOUSB0123456789"

# Pixels: the height of a menu bar, the least size of a button, the narrowest table, and the size of
# a field.
BARS = range(12, 60)
BUTTON = 30
BUTTON_HEIGHT = 12
TABLE = 300
LINE = 200  # the lightest that a line around a table is
NARROWEST = 20
HEIGHTS = range(12, 33)


class Line:
    """A line of words. It equals a text if one of its readings does."""

    def __init__(self, ink, alphabet=""):
        self._ink = ink
        self._alphabet = alphabet

    def __eq__(self, text):
        return any(reading == text for reading in sight.readings(self._ink, self._alphabet))

    def __repr__(self):
        return repr(next(sight.readings(self._ink, self._alphabet)))

    __hash__ = None

    def __bool__(self):
        return sight.is_clear(self._ink)


@dataclasses.dataclass
class Entry:
    """An entry of a menu."""

    caption: Line
    left: int  # pixels
    marked: bool  # where the keyboard is
    enabled: bool
    checked: bool = False


def menu_bar(frame):
    """The entries of the menu bar, left to right, from a picture of the frame; none while it isn't
    drawn."""
    ground = frame.getpixel((1, 1))
    height = next((y for y in range(frame.height) if frame.getpixel((1, y)) != ground), 0)
    if height not in BARS:
        return []
    bar = frame.crop((0, 0, frame.width, height))
    ink = ink_by_columns(bar, 2)
    return [Entry(Line(words), left, bar.getpixel((left, 2)) != ground, sight.is_clear(words))
            for left, right in columns(ink, 9)
            for words in [ink.crop((left, 0, right, ink.height))]]


def drop_down(menu, alphabet):
    """The entries of an open menu, from a picture of it, read as words of an alphabet."""
    menu = menu.crop((2, 2, menu.width - 2, menu.height - 2))
    ink = ink_by_rows(menu, 1)
    ground = main_colour(menu)
    found = []
    for top, bottom in rows(ink, 3):
        if bottom - top < 5:  # a separator
            continue
        row = ink.crop((0, top, ink.width, bottom))
        mark = _mark(row)
        words = row.crop((mark[1] if mark else 0, 0, row.width, row.height))
        checked = bool(mark) and _is_ticked(menu.crop((mark[0], top, mark[1], bottom)))
        found.append(Entry(Line(_without_underline(words), alphabet), 0,
                           menu.getpixel((1, top)) != ground, sight.is_clear(words), checked))
    return found


def _mark(row):
    """Left and right of the box for a check mark at the beginning of a row, or None."""
    left, right = columns(row, 3)[0]
    top, bottom = rows(row.crop((left, 0, right, row.height)), 3)[0]
    return (left, right) if right - left >= 10 and abs(right - left - bottom + top) <= 2 else None


def _is_ticked(mark):
    inside = mark.crop((3, 3, mark.width - 3, mark.height - 3))
    return sight.is_clear(ink_on(inside, main_colour(inside)))


def _without_underline(words):
    """Words without the line below that tells an access key."""
    parts = rows(words, 1)
    if len(parts) > 1 and parts[-1][1] - parts[-1][0] == 1:
        return words.crop((0, 0, words.width, parts[-2][1]))
    return words


@dataclasses.dataclass
class Box:
    """A message box: its title, its lines of text, its buttons, and the colour of its icon."""

    title: str
    text: list
    buttons: list
    icon: str


def message_box(title, picture):
    """A message box from a picture of it; None while it isn't drawn yet."""
    ink = ink_on(picture, main_colour(picture))
    parts = rows(ink, 4)
    if len(parts) < 2:
        return None
    upper, (below, end) = ink.crop((0, 0, ink.width, parts[-2][1])), parts[-1]
    blocks = columns(upper, 6)
    if len(blocks) < 2 or end - below < BUTTON_HEIGHT:
        return None
    text = upper.crop((blocks[1][0], 0, upper.width, upper.height))
    icon = picture.crop((blocks[0][0], 0, blocks[0][1], upper.height))
    edges = [(left, right) for left, right in columns(ink.crop((0, below, ink.width, below + 3)), 3)
             if right - left >= BUTTON]
    faces = [picture.crop((left + 4, below + 4, right - 4, end - 4)) for left, right in edges]
    words = [text.crop((0, top, text.width, bottom)) for top, bottom in rows(text, 1)]
    return Box(title, [Line(line) for line in words],
               [Line(ink_by_rows(face, 1)) for face in faces], icon_colour(icon))


def icon_colour(icon):
    """Which colour an icon has for the most part, red or yellow."""
    amounts = {"red": 0, "yellow": 0}
    for red, green, blue in icon.getdata():
        if red > 150 and green < 100 and blue < 100:
            amounts["red"] += 1
        elif red > 180 and green > 130 and blue < 120:
            amounts["yellow"] += 1
    most = max(amounts, key=amounts.get)
    return most if amounts[most] * 8 > icon.width * icon.height else "none"


@dataclasses.dataclass
class Field:
    """An open field, where something can be typed."""

    text: Line
    focused: bool


def fields(picture):
    """The open fields of a picture: those on white, column by column, each from above."""
    white = ink_on(picture, "white").point(lambda value: 255 * (value == 0))
    lines, upright = _lines(white), _lines(white.transpose(Image.Transpose.TRANSPOSE))
    found = set()
    for y, line in enumerate(lines):
        for left, right in sight.runs(line):
            if right - left >= NARROWEST:
                top, bottom = next(run for run in sight.runs(upright[left + 3]) if run[1] > y)
                if bottom - top in HEIGHTS:
                    found.add((left, top, right, bottom))
    return [_field(picture, place) for place in _by_columns(_widest(found))]


def _widest(places):
    """Those that are no part of another one; text and caret divide a field."""
    kept = []
    for place in sorted(places, key=lambda place: place[0] - place[2]):
        if all(place[0] >= other[2] or place[2] <= other[0] or place[1] >= other[3] or
               place[3] <= other[1] for other in kept):
            kept.append(place)
    return kept


def _by_columns(places):
    """Places in their order; left sides of one column may differ by the border of the focus."""
    lefts = {place[0] for place in places}
    return sorted(places, key=lambda place: (
        min(left for left in lefts if abs(left - place[0]) <= 2), place[1]))


def table(picture):
    """The rows of the table on a picture, each as the lines of words in it."""
    ink = ink_on(picture, "white").point(lambda value: 255 * (value == 0))
    wide = [(y, max((right - left, left, right) for left, right in sight.runs(line)))
            for y, line in enumerate(_lines(ink)) if any(line)]
    wide = [(y, left, right) for y, (width, left, right) in wide if width >= TABLE]
    if not wide:
        return []
    left, right = wide[0][1:]
    bottom = wide[-1][0] + 1
    while min(picture.getpixel((left, bottom))) > LINE:  # each second row is a little darker
        bottom += 1
    body = picture.crop((left, wide[0][0], right, bottom))
    ink = ink_by_rows(body, 1)
    return [[Line(ink.crop((start, top, end, bottom)), alphabet)
             for (start, end), alphabet in zip(columns(row, 10), (NUMBER, NUMBER, NUMBER, ""))]
            for top, bottom in rows(ink, 3) for row in [ink.crop((0, top, ink.width, bottom))]]


def _lines(picture):
    data = picture.tobytes()
    return [data[at:at + picture.width] for at in range(0, len(data), picture.width)]


def _field(picture, place):
    left, top, _, bottom = place
    red, _, blue = picture.getpixel((left - 2, (top + bottom) // 2))
    return Field(Line(ink_on(picture.crop(place), "white"), NUMBER), blue - red > 60)

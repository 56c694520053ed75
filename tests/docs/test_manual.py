"""The technician's manual tells of the whole program, in both languages alike."""

import json
import math
import os
import pathlib
import re
import unittest

from markdown import ROOT, Document, Heading, Table, Text

FOLDER = ROOT / "docs" / "manual"
MANUALS = {"en": "English", "it": "Italiano"}
QUOTED = {"en": re.compile("“([^”]*)”"), "it": re.compile("«([^»]*)»")}
RANGE = re.compile(r"(\d+(?:[.,]\d+)?) (?:to|a) (\d+(?:[.,]\d+)?)")
RANGES = 22  # of bars, that each manual tells
MOST_BYTES = 2_500_000  # of all pictures


def picture_of(form, language):
    return f"pictures/{form.removeprefix('Frm').lower()}.{language}.png"


def without_language(picture):
    return re.sub(r"\.(en|it)\.png$", ".png", picture)


def raw_ranges(low, high):
    """The ranges of raw values that words may stand for: plain, tenths, hundredths."""
    return [[round(float(end.replace(",", ".")) * unit, 6) for end in (low, high)]
            for unit in (1, 10, 100)]


def told_ranges(line, bars, language):
    """Pairs of a caption of a bar and one of the ranges that a line tells of it."""
    captions = [words for words in QUOTED[language].findall(line) if words in bars]
    ranges = RANGE.findall(line)
    if len(captions) == len(ranges):
        return list(zip(captions, ranges))
    return [(caption, told) for caption in captions for told in ranges]


def polled(table):
    """How many values the pages of what the machine has counted ask for over and over, and how many
    that of the alarms asks for once, by the words of their names."""
    rows = [[cell.strip() for cell in line.split("|")] for line in
            (ROOT / "data" / "index" / table).read_text(encoding="ascii").splitlines()
            if line[:1].isdigit()]
    again = [name for _, name, _, _, divider, *_ in rows
             if int(divider, 0) and "decimals" not in name]
    coins, notes = (len([name for name in again if name.startswith(f"{kind} taken")])
                    for kind in ("coins", "banknotes"))
    alarms = [name for _, name, *_ in rows if "alarm" in name]
    return {"coins": coins, "notes": notes, "counters": len(again) - coins - notes,
            "alarms": len(alarms)}


def longest_wait(values):
    """Seconds at most until a typed value goes out: it waits for all values that are asked for in
    one go, for the decimals, for the end of the pass and for the tick."""
    source = (ROOT / "src" / "link" / "frm_ser.cpp").read_text(encoding="utf-8")
    tick = int(re.search(r"kTick\{(\d+)\}", source)[1])  # milliseconds
    return math.ceil((values + 3) * tick / 100) / 10


def structure(document):
    """Headings by level, tables by their size, and pictures, in their order."""
    found = []
    for block in document.blocks:
        if isinstance(block, Heading):
            found.append(("heading", block.level))
        elif isinstance(block, Table):
            found.append(("table", len(block.rows), len(block.rows[0])))
        words = block.text if isinstance(block, Text) else str(getattr(block, "rows", ""))
        found += [("picture", without_language(picture))
                  for picture in re.findall(r"!\[[^]]*\]\(([^)]+)\)", words)]
    return found


class ManualTest(unittest.TestCase):
    """What the program has comes from lists.json, which documents_lists writes."""

    def setUp(self):
        self.manuals = {language: Document(FOLDER / f"{language}.md") for language in MANUALS}
        self.program = json.loads(pathlib.Path(os.environ["SORVANE_LISTS"]).read_bytes())

    def in_language(self, language):
        return self.program["languages"][MANUALS[language]]

    def test_every_page_of_the_program_was_reached_through_its_menu(self):
        self.assertIn("FrmTastiColonna", self.program["forms"])
        for language in MANUALS:
            self.assertEqual(sorted(self.in_language(language)["pages"]),
                             sorted(self.program["forms"]))

    def test_every_page_has_a_section_by_its_menu_entry_with_its_picture(self):
        for language, document in self.manuals.items():
            for form, title in self.in_language(language)["pages"].items():
                section = document.section(title)
                self.assertIsNotNone(section, f"{language}: no section {title}")
                self.assertIn(f"({picture_of(form, language)})", section, title)

    def test_every_page_has_an_anchor_above_its_heading_that_both_languages_share(self):
        for language, document in self.manuals.items():
            text = document.path.read_text(encoding="utf-8")
            anchors = dict(re.findall(r'^<a id="(\w+)"></a>\n\n#+ (.+)$', text, re.MULTILINE))
            pages = self.in_language(language)["pages"]
            self.assertEqual(anchors.keys(), pages.keys(), language)
            for form, heading in anchors.items():
                self.assertTrue(f"{heading} ".startswith(f"{pages[form]} "), heading)

    def test_every_range_that_is_told_is_that_of_the_bar(self):
        for language, document in self.manuals.items():
            seen = set()
            for form, title in self.in_language(language)["pages"].items():
                # A caption with a number behind it stands for several bars of one range.
                bars = {re.sub(r" ?\d+$", "", name): ends
                        for name, ends in self.in_language(language)["ranges"][form].items()}
                for line in document.section(title).splitlines():
                    for caption, told in told_ranges(line, bars, language):
                        seen.add((form, caption))
                        self.assertIn(bars[caption], raw_ranges(*told), f"{language}: {line}")
            self.assertEqual(len(seen), RANGES, language)

    def test_a_typed_value_waits_no_longer_than_told(self):
        for table in ("W0309AA00.txt", "W0309AA07.txt"):
            count = polled(table)
            self.assertEqual(count["coins"], count["notes"])
            pages = (0, count["coins"], count["counters"],
                     count["coins"] + count["notes"] + count["counters"], count["alarms"])
            waits = [f"{longest_wait(values):.1f} s" for values in pages]
            for language, document in self.manuals.items():
                told = [row[1].replace(",", ".") for row in document.rows
                        if re.fullmatch(r"\d[.,]\d s", row[1])]
                self.assertEqual(told, waits, language)

    def test_the_folders_and_the_first_language_are_those_of_the_packages(self):
        launcher = (ROOT / "packaging" / "linux" / "sorvane").read_text(encoding="ascii")
        setup = (ROOT / "packaging" / "windows" / "NSIS.template.in").read_text(encoding="ascii")
        below, name = re.search(r"own=\$\{XDG_DATA_HOME:-\$HOME/(.+?)\}(/\S+)", launcher).groups()
        in_local = re.search(r'InstallDir "\$LOCALAPPDATA(.+)"', setup)[1]
        folders = (f"`~/{below}{name}`", f"`%LOCALAPPDATA%{in_local}`")
        for document in self.manuals.values():
            for folder in folders:
                self.assertTrue(any(row[1].startswith(folder) for row in document.rows), folder)
        settings = (ROOT / "data" / "Sorvane.ini").read_text(encoding="ascii")
        self.assertIn("Lingua=Italiano\n", settings)

    def test_no_caption_is_quoted_that_the_program_does_not_show(self):
        for language, document in self.manuals.items():
            known = self.in_language(language)["words"]
            quoted = {" ".join(words.split()) for words in QUOTED[language].findall(
                re.sub(r"`[^`]*`", "", document.path.read_text(encoding="utf-8")))} - {""}
            self.assertGreater(len(quoted), 50)
            for words in sorted(quoted):
                parts = [words] if any(words in one for one in known) else words.split("/")
                self.assertTrue(all(any(part in one for one in known) for part in parts),
                                f"{language}: {words}")

    def test_every_message_box_is_in_a_table(self):
        self.assertIn(["Board Not Ready", "Check serial !"], self.program["boxes"])
        for language, document in self.manuals.items():
            told = [re.findall("`([^`]*)`", row[0]) for row in document.rows]
            for box in self.program["boxes"]:
                # A file's name stands in front of the words of one box.
                self.assertTrue(any(all(any(span.endswith(line) for span in spans) for line in box)
                                    for spans in told), f"{language}: {box}")

    def test_every_run_time_error_is_in_a_table(self):
        self.assertEqual(len(self.program["reports"]), 2)
        for language, document in self.manuals.items():
            text = document.path.read_text(encoding="utf-8")
            for report in self.program["reports"]:
                self.assertIn(f"`{report}`", text)
            told = {row[0]: row[1].strip("`") for row in document.rows if row[0].isdigit()
                    and row[1].startswith("`")}
            self.assertEqual(told, self.program["errors"], language)

    def test_every_kind_of_alarm_is_in_the_table_of_their_page(self):
        kinds = {re.sub(r"\d+", "n", text.rpartition("_")[0]) for text in self.program["alarms"]}
        self.assertIn("OBC_n", kinds)
        for language, document in self.manuals.items():
            section = document.section(self.in_language(language)["pages"]["FrmAllarmi"])
            told = re.findall(r"^`(\w+)`", section, re.MULTILINE)
            self.assertEqual(sorted(told), sorted(kinds - {""}), language)

    def test_each_manual_shows_the_pictures_of_its_language(self):
        for language, document in self.manuals.items():
            for picture in document.pictures:
                other = re.search(r"\.(en|it)\.png$", picture)
                self.assertTrue(other is None or other[1] == language,
                                f"{language}: {picture}")

    def test_both_manuals_are_built_alike(self):
        english, italian = (structure(self.manuals[language]) for language in ("en", "it"))
        self.assertGreater(len([part for part in english if part[0] == "heading"]), 30)
        for place, (one, other) in enumerate(zip(english, italian)):
            self.assertEqual(one, other, f"part {place}, behind {english[max(0, place - 3):place]}")
        self.assertEqual(len(english), len(italian))

    def test_the_pictures_stay_small(self):
        sizes = [path.stat().st_size for path in pathlib.Path(FOLDER, "pictures").glob("*.png")]
        self.assertGreater(len(sizes), 0)
        self.assertLess(sum(sizes), MOST_BYTES)

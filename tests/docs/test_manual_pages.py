"""The manual's HTML pages, as the build makes them: SORVANE_MANUAL names their folder."""

import html.parser
import os
import pathlib
import unittest
from urllib.parse import unquote

FOLDER = pathlib.Path(os.environ["SORVANE_MANUAL"])
CONTENTS = {"en": "Contents", "it": "Indice"}
VOID = {"br", "col", "hr", "img", "input", "link", "meta"}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.language = None
        self.ids = []
        self.targets = []
        self.headings = []  # levels and ids
        self.words = ""
        self._open = []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()
        if self._open:
            raise ValueError(f"{path}: not closed: {self._open}")

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag not in VOID:
            self._open.append(tag)
        if tag == "html":
            self.language = attributes.get("lang")
        self.ids += [attributes["id"]] if "id" in attributes else []
        self.targets += [attributes[name] for name in ("href", "src") if name in attributes]
        if tag in ("h2", "h3", "h4"):
            self.headings.append((tag, attributes.get("id")))

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)

    def handle_endtag(self, tag):
        if not self._open or self._open.pop() != tag:
            raise ValueError(f"line {self.getpos()[0]}: </{tag}> closes nothing")

    def handle_data(self, data):
        self.words += data


class ManualPagesTest(unittest.TestCase):
    def setUp(self):
        self.pages = {language: Page(FOLDER / f"{language}.html") for language in CONTENTS}

    def test_each_page_names_its_language_and_has_its_contents(self):
        for language, page in self.pages.items():
            self.assertEqual(page.language, language)
            self.assertIn("TOC", page.ids)
            self.assertIn(CONTENTS[language], page.words)

    def test_every_heading_can_be_reached_and_both_pages_have_the_same(self):
        for page in self.pages.values():
            self.assertTrue(all(name for _, name in page.headings))
            self.assertEqual(len(page.ids), len(set(page.ids)))
        levels = [[tag for tag, _ in page.headings] for page in self.pages.values()]
        self.assertGreater(len(levels[0]), 30)
        self.assertEqual(levels[0], levels[1])

    def test_both_pages_have_the_same_anchors_of_the_programs_pages(self):
        forms = [[name for name in page.ids if name.startswith("Frm")]
                 for page in self.pages.values()]
        self.assertGreater(len(forms[0]), 10)
        self.assertEqual(forms[0], forms[1])

    def test_everything_that_a_page_names_is_in_the_folder(self):
        for language, page in self.pages.items():
            self.assertIn("style.css", page.targets)
            self.assertGreater(len(page.targets), 50)
            for target in page.targets:
                file, _, anchor = unquote(target).partition("#")
                with self.subTest(page=language, target=target):
                    self.assertTrue((FOLDER / file).is_file() if file else anchor in page.ids)

"""The how-tos' HTML pages, as the build makes them: SORVANE_HOWTO names their folder."""

import os
import pathlib
import unittest
from urllib.parse import unquote

from html_page import Page
from markdown import ROOT, Document

FOLDER = pathlib.Path(os.environ["SORVANE_HOWTO"])
HOWTOS = ROOT / "docs" / "howto"
TEXTS = {"index": HOWTOS / "README.md", "files": ROOT / "docs" / "files.md",
         "languages": ROOT / "data" / "languages" / "README.md",
         "board": ROOT / "simulator" / "README.md"}
FOR_SOURCES = HOWTOS / "page.md"  # a how-to for who has the sources, with which it stays


class HowtoPagesTest(unittest.TestCase):
    def setUp(self):
        self.texts = TEXTS | {text.stem: text for text in HOWTOS.glob("*.md")
                              if text not in (TEXTS["index"], FOR_SOURCES)}
        self.pages = {name: Page(FOLDER / f"{name}.html") for name in self.texts}

    def test_every_howto_and_what_it_leads_to_is_a_page_and_nothing_else(self):
        self.assertEqual({file.stem for file in FOLDER.glob("*.html")}, set(self.texts))

    def test_each_page_says_what_its_text_says(self):
        for name, page in self.pages.items():
            self.assertEqual(page.language, "en", name)
            for heading in Document(self.texts[name]).headings:
                words = heading.text.replace("`", "").replace("'", "\u2019")
                self.assertIn(words, " ".join(page.words.split()), name)

    def test_a_link_leads_to_the_page_of_the_text_to_which_it_led(self):
        page_of = {text: name for name, text in self.texts.items()}
        for name, text in self.texts.items():
            expected = ["style.css"]
            for link in Document(text).links:
                path, _, anchor = link.target.partition("#")
                led = (text.parent / path).resolve() if path else text
                if led in page_of:
                    expected.append((f"{page_of[led]}.html" if path else "") +
                                    (f"#{anchor}" if anchor else ""))
            self.assertEqual(self.pages[name].targets, expected, name)

    def test_everything_that_a_page_names_is_in_the_folder(self):
        for name, page in self.pages.items():
            for target in page.targets:
                file, _, anchor = unquote(target).partition("#")
                with self.subTest(page=name, target=target):
                    self.assertTrue((FOLDER / file).is_file() if file else True)
                    if anchor:
                        there = self.pages[pathlib.Path(file).stem] if file else page
                        self.assertIn(anchor, there.ids)

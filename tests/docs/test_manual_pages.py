"""The manual's HTML pages, as the build makes them: SORVANE_MANUAL names their folder."""

import os
import pathlib
import unittest
from urllib.parse import unquote

from html_page import Page

FOLDER = pathlib.Path(os.environ["SORVANE_MANUAL"])
CONTENTS = {"en": "Contents", "it": "Indice"}


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

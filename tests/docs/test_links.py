"""Links and pictures of all Markdown files of the repository."""

import unittest
from urllib.parse import unquote

from markdown import ROOT, Document

NOT_OURS = {"build"}


def documents():
    """All Markdown files outside build folders and hidden ones."""
    found = []
    for path in sorted(ROOT.rglob("*.md")):
        parts = path.relative_to(ROOT).parts
        if parts[0] not in NOT_OURS and not any(part.startswith(".") for part in parts):
            found.append(Document(path))
    return found


class LinksTest(unittest.TestCase):
    def setUp(self):
        self.documents = documents()
        names = {str(document.path.relative_to(ROOT)) for document in self.documents}
        self.assertLessEqual({"README.md", "docs/manual/en.md", "docs/manual/it.md"}, names)

    def test_every_link_and_picture_leads_somewhere(self):
        count, dead = 0, []
        for document in self.documents:
            for link in document.links:
                if "://" in link.target or link.target.startswith("mailto:"):
                    continue
                count += 1
                file, _, anchor = unquote(link.target).partition("#")
                target = document.path.parent / file if file else document.path
                if not target.exists() or (anchor and anchor not in Document(target).anchors):
                    dead.append(f"{document.path.relative_to(ROOT)}:{link.line}: {link.target}")
        self.assertGreater(count, 50)
        self.assertEqual(dead, [])

    def test_every_picture_file_is_shown_somewhere(self):
        shown = {(document.path.parent / unquote(picture)).resolve()
                 for document in self.documents for picture in document.pictures}
        files = set((ROOT / "docs").rglob("*.png"))
        self.assertTrue(files)
        self.assertEqual(sorted(map(str, files - shown)), [])

"""A program folder whose name is not plain."""

from folder_watch import FolderWatch
from scene import Scene
from wait import wait_for

ODD = "Pr\u00fcfstand N\u00ba 1 \u2013 caf\u00e9 \u65e5\u672c"


class OddFolder(Scene):
    def setUp(self):
        super().setUp()
        self.folder = self.folder.rename(self.parent / ODD)
        self.settings = self.folder / "Sorvane.ini"
        self.watch = FolderWatch(self.folder)
        self.addCleanup(self.watch.close)

    def test_the_program_runs_in_it_with_its_board_and_saves_there(self):
        self.connect()
        self.open_discounts()
        self.program.type_into(self.field(3), "1.25")
        self.wait_shown(3, "1.25")
        self.wait_held(45, 125)
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")

    def test_a_language_file_with_a_name_of_the_western_set_is_listed_and_saved(self):
        (self.folder / "Francais.lng").rename(self.folder / "Fran\u00e7ais \u20ac.lng")
        self.start()
        self.program.choose("Lingue", "Fran\u00e7ais \u20ac")
        wait_for("menu in the language", lambda: self.program.entry("Mot de passe") is not None)
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Fran\xe7ais \x80\r\n")

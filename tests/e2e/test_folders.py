"""A program folder whose name is not plain, and a program under another name."""

import os

from folder_watch import FolderWatch
from scene import Scene
from wait import wait_for

NO_TEXT = os.fsdecode(b"caf\xe9 N\xba 1")  # as systems wrote names before they wrote UTF-8
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


class FolderThatIsNoText(Scene):
    """So are the names of the folders above it."""

    def setUp(self):
        super().setUp()
        self.parent = self.parent.rename(self.desk.folder / f"{self.parent.name} {NO_TEXT}")
        self.folder = (self.parent / "Sorvane").rename(self.parent / NO_TEXT)
        self.settings = self.folder / "Sorvane.ini"
        self.watch = FolderWatch(self.folder)
        self.addCleanup(self.watch.close)

    def test_the_program_runs_in_it_with_its_board_and_saves_there(self):
        self.connect()
        self.open_discounts()
        self.program.type_into(self.field(3), "1.25")
        self.wait_held(45, 125)
        self.program.choose("COM", "COM2")
        wait_for("mark on COM2", lambda: self.program.checked("COM") == ["COM2"])
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(), b"Com=2\r\nLingua=Italiano\r\n")

    def test_the_program_runs_in_it_where_the_system_knows_plain_letters_only(self):
        self.start(variables={"LC_ALL": "C"})
        self.program.choose("Lingue", "English")
        wait_for("menu in the language", lambda: self.program.entry("Prices") is not None)
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=English\r\n")


class OtherName(Scene):
    def test_the_settings_of_a_renamed_program_bear_its_name(self):
        (self.folder / "Sorvane").rename(self.folder / "Demo 1.2")
        own = self.folder / "Demo 1.2.ini"
        own.write_bytes(b"Com=3\r\nLingua=English\r\n")
        self.start(file="Demo 1.2")
        self.assertEqual(self.program.checked("COM"), ["COM3"])
        self.assertIsNotNone(self.program.entry("Prices"))
        self.program.choose("COM", "COM4")
        wait_for("mark on COM4", lambda: self.program.checked("COM") == ["COM4"])
        self.assertEqual(own.read_bytes(), b"Com=4\r\nLingua=English\r\n")
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")

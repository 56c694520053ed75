"""Starting without what the program needs, and leaving it in each of its states."""

from program import Box
from scene import NOT_READY, Scene
from wait import wait_for


class StartingWithoutFiles(Scene):
    def test_no_language_file_ends_the_program_before_the_frame_shows(self):
        for file in self.folder.glob("*.lng"):
            file.unlink()
        self.launch()
        wait_for("message box", self.program.has_box)
        self.assertIsNone(self.program.frame())
        self.assert_ends_after(Box("Error", "File missing!\nReinstall program", ("OK",)))

    def test_no_second_level_index_file_ends_the_program(self):
        (self.folder / "W0309AA00.inx").unlink()
        self.launch()
        self.assert_ends_after(Box("ERROR", "W0309AA00.inx not found !", ("OK",)))

    def test_closing_behind_the_box_of_an_index_file_is_its_answer(self):
        (self.folder / "W0309AA00.inx").unlink()
        self.launch()
        self.assert_ends_after(Box("ERROR", "W0309AA00.inx not found !", ("OK",)),
                               self.program.close_frame)

    def test_no_first_level_index_file_ends_the_program_without_naming_it(self):
        (self.folder / "W0309.inx").unlink()
        self.launch()
        self.assert_ends_after(Box("ERROR", " not found !", ("OK",)))


class Leaving(Scene):
    def test_idle_program_closes_at_once(self):
        self.start()
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")

    def test_program_that_waits_for_a_silent_board_closes_at_once(self):
        self.start_board("--fault", "silent")
        self.start()
        self.program.choose("Connect")
        wait_for("transmit lamp and no box",
                 lambda: not self.program.has_box() and self.program.lamp("Transmit"))
        self.assert_closes()

    def test_program_with_the_box_of_a_silent_board_closes_at_once(self):
        self.start_board("--fault", "silent")
        self.start()
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), NOT_READY)
        self.assert_closes()

    def test_program_with_the_box_of_a_wrong_board_closes_at_once_like_answered(self):
        self.start_board("--type", "308")
        self.start()
        self.program.choose("Connect")
        self.assert_ends_after(Box("ERROR", "Board Type\nNot Compatible", ("OK",)),
                               self.program.close_frame)

    def test_connected_program_closes_at_once(self):
        self.connect()
        self.open_discounts()
        self.assert_closes()

    def test_program_whose_cable_is_pulled_closes_at_once(self):
        self.connect()
        self.open_discounts()
        self.board.tell("fault unplugged")
        wait_for("error lamp", lambda: self.program.lamp("Error"))
        self.assert_closes()

    def test_no_sibling_is_no_hindrance(self):
        (self.parent / "ARDENZA.EXE").unlink()
        self.start()
        self.program.choose("COM", "COM4")
        wait_for("mark on COM4", lambda: self.program.checked("COM") == ["COM4"])
        self.settings.unlink()
        self.assert_ends_at_once(self.program.close_frame)
        self.assertEqual(self.settings.read_bytes(), b"Com=4\r\nLingua=Italiano\r\n")
        self.assertEqual(self.sibling_starts(), 0)

    def test_a_board_left_by_one_program_serves_the_next(self):
        self.connect()
        self.assert_closes()
        self.start()
        self.program.choose("Connect")
        self.wait_connected()

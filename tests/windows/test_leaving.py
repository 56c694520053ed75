"""Leaving: the settings are saved, and the sibling program goes on."""

from app import COM, CONNECT
from bench import Scene, bench
from wait import wait_for


class Leaving(Scene):
    def test_the_settings_are_saved_and_the_sibling_starts_in_the_parent_folder(self):
        self.start()
        self.settings.unlink()
        self.close_app()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")
        wait_for("start of the sibling", self.sibling_log.exists)
        wait_for("its note", lambda: self.sibling_log.read_text(encoding="cp1252") ==
                 bench.prefix.windows_path(self.parent) + "\n")

    def test_without_a_sibling_the_program_ends_in_silence(self):
        (self.parent / "ARDENZA.EXE").unlink()
        self.start()
        self.close_app()

    def test_a_silent_board_doesnt_hold_the_program(self):
        self.start_board("--fault", "silent")
        self.start()
        self.app.choose(CONNECT)
        wait_for("question to the board", self.board_was_asked)
        self.assertEqual(self.app.boxes(), [])
        self.close_app()
        wait_for("start of the sibling", self.sibling_log.exists)

    def board_was_asked(self):
        self.board.tell("clock")
        return any(line.startswith("read system") for line in self.board.heard)

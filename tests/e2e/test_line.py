"""The line to the board: a link that goes and comes back, an adapter that is plugged in again."""

import os
import pathlib
import signal

from scene import NOT_READY, Scene
from wait import wait_for

EDITED = 4  # the row of the discounts page in which these tests type
PARAMETER = 46  # and its parameter


class AStandingConnection(Scene):
    def open_terminals(self):
        """What the program has open of the machine's serial lines and terminals."""
        found = []
        for entry in pathlib.Path(f"/proc/{self.program.process_id}/fd").iterdir():
            try:
                found.append(os.readlink(entry))
            except OSError:  # closed meanwhile
                continue
        return [name for name in found if name.startswith(("/dev/tty", "/dev/pts"))]

    def type_and_see(self, typed, shown, held):
        self.program.type_into(self.field(EDITED), typed)
        self.wait_shown(EDITED, shown)
        self.wait_held(PARAMETER, held)

    def wait_given_up(self):
        wait_for("error lamp", lambda: self.program.lamp("Error"))
        wait_for("closed port", lambda: not self.open_terminals())

    def test_a_link_that_is_taken_away_is_a_port_that_vanished_until_it_is_back(self):
        self.connect()
        self.open_discounts()
        link = os.readlink(self.folder / "COM1")
        terminal = os.path.realpath(self.folder / "COM1")
        (self.folder / "COM1").unlink()
        self.board.tell("fault silent")
        self.wait_given_up()
        self.assertFalse(self.program.has_box())
        self.board.tell("fault none")
        (self.folder / "COM1").symlink_to(link)
        wait_for("open port", lambda: self.open_terminals() == [terminal])
        self.board.wait_round()
        self.type_and_see("0.4", "0.40", 40)

    def test_an_adapter_that_comes_back_under_another_number_is_found_by_its_link(self):
        self.connect()
        self.open_discounts()
        before = os.path.realpath(self.folder / "COM1")
        self.board.tell("fault silent")  # so that the program stands at a timeout
        kept = os.open(self.folder / "COM1", os.O_RDWR | os.O_NOCTTY)  # the number stays in use
        self.addCleanup(os.close, kept)
        self.board.close()
        self.wait_given_up()
        self.start_board()
        self.assertNotEqual(os.path.realpath(self.folder / "COM1"), before)
        self.board.wait_round()
        self.type_and_see("0.4", "0.40", 40)
        self.assertFalse(self.program.has_box())


class AnAdapterThatIsPluggedInAgain(Scene):
    def test_the_first_retry_asks_the_board(self):
        self.start_board("--fault", "silent")
        self.start()
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), NOT_READY)
        self.board.close()
        self.start_board()
        self.program.answer("Retry")
        self.wait_connected()
        self.assertFalse(self.program.has_box())


class ATerminalThatAnotherProcessHoldsToo(Scene):
    def setUp(self):
        super().setUp()
        self.start_board("--fault", "silent")
        self.holder = os.open(self.folder / "COM1", os.O_RDWR | os.O_NOCTTY)
        self.addCleanup(os.close, self.holder)

    def test_a_silent_board_is_told_as_such_at_every_attempt(self):
        self.start()
        self.program.choose("Connect")
        for _ in range(2):
            self.assertEqual(self.program.box(), NOT_READY)
            self.program.answer("Retry")
        self.assertEqual(self.program.box(), NOT_READY)
        self.board.tell("fault none")
        self.program.answer("Retry")
        self.wait_connected()

    def test_a_program_that_was_killed_leaves_the_terminal_free(self):
        self.board.tell("fault none")
        self.start()
        self.program.choose("Connect")
        self.wait_connected()
        os.kill(self.program.process_id, signal.SIGKILL)
        self.program.wait_end()
        self.start()
        self.program.choose("Connect")
        self.wait_connected()

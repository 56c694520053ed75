"""Connecting: a board that fits, boards that don't, silence, and a port that can't be had."""

import contextlib
import fcntl
import os
import termios

from board import Board
from scene import CONNECTED_ENTRIES, NOT_READY, Scene
from program import Box
from wait import wait_for

PORT_ERROR = Box("ERROR ", "Error com", ("OK",))


def not_compatible(what):
    return Box("ERROR", f"{what}\nNot Compatible", ("OK",))


class AFittingBoard(Scene):
    def test_entries_are_shut_until_the_connection_stands(self):
        self.start_board()
        self.start()
        self.assertEqual(self.open_entries(), [])
        self.program.choose("Connect")
        self.wait_connected()
        self.assertFalse(self.program.has_box())

    def test_connecting_again_changes_nothing(self):
        self.connect()
        self.open_discounts()
        self.program.choose("Connect")
        self.program.type_into(self.field(1), "0.4")
        self.wait_shown(1, "0.40")
        self.assertFalse(self.program.has_box())
        self.assertEqual(self.open_entries(), list(CONNECTED_ENTRIES))

    def test_port_number_1_is_opened_whatever_port_is_chosen(self):
        self.start_board()
        self.start()
        self.program.choose("COM", "COM3")
        wait_for("mark on COM3", lambda: self.program.checked("COM") == ["COM3"])
        self.assertEqual(self.settings.read_bytes(), b"Com=3\r\nLingua=Italiano\r\n")
        self.program.choose("Connect")
        self.wait_connected()

    def test_revision_7_is_served_from_its_own_index_file(self):
        self.start_board("--revision", "7")
        self.start()
        self.program.choose("Connect")
        self.wait_connected()
        self.open_discounts()
        self.program.type_into(self.field(10), "1.2")
        self.wait_shown(10, "1.20")
        self.assertEqual(self.board.holds(52), 120)


class ABoardThatDoesntFit(Scene):
    def refuse(self, box, *arguments):
        self.start_board(*arguments)
        self.start()
        self.program.choose("Connect")
        self.assert_ends_after(box)

    def test_another_board_number_ends_the_program(self):
        self.refuse(not_compatible("Board"), "--number", "17")

    def test_another_type_ends_the_program(self):
        self.refuse(not_compatible("Board Type"), "--type", "308")

    def test_a_type_that_differs_in_its_high_byte_ends_the_program(self):
        self.refuse(not_compatible("Board Type"), "--type", "53")

    def test_another_software_ends_the_program(self):
        self.refuse(not_compatible("Board Software"), "--software", "1")

    def test_the_last_of_several_misfits_is_told(self):
        self.refuse(not_compatible("Board Type"), "--number", "17", "--type", "308")

    def test_a_revision_without_index_file_ends_the_program(self):
        self.refuse(Box("ERROR", "W0309AA09.inx not found !", ("OK",)), "--revision", "9")


class ASilentBoard(Scene):
    def meet(self):
        self.start_board("--fault", "silent")
        self.start()
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), NOT_READY)

    def test_retry_asks_again_for_as_long_as_the_board_is_silent(self):
        self.meet()
        self.program.answer("Retry")
        self.assertEqual(self.program.box(), NOT_READY)
        self.board.tell("fault none")
        self.program.answer("Retry")
        self.wait_connected()
        self.assertFalse(self.program.has_box())

    def test_cancel_leaves_the_entries_shut_and_a_later_connection_stands(self):
        self.meet()
        self.program.answer("Cancel")
        self.assertTrue(self.program.enabled("Connect"))
        self.assertEqual(self.open_entries(), [])
        self.board.tell("fault none")
        self.program.choose("Connect")
        self.wait_connected()

    def test_one_lost_reply_is_mended_by_retry(self):
        self.start_board()
        self.start()
        self.board.tell("fault silent 1")
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), NOT_READY)
        self.program.answer("Retry")
        self.wait_connected()


class APortThatCantBeHad(Scene):
    def test_a_link_that_leads_nowhere_is_told(self):
        (self.folder / "COM1").symlink_to("/dev/pts/nowhere")
        self.start()
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), PORT_ERROR)
        self.program.answer("OK")
        self.assertEqual(self.open_entries(), [])
        (self.folder / "COM1").unlink()
        self.start_board()
        self.program.choose("Connect")
        self.wait_connected()

    def test_a_board_that_was_killed_leaves_the_link_to_the_adapter(self):
        adapter = self.parent / "adapter"
        self.start_board("--link", str(adapter))  # stands for the adapter and what is behind it
        link = self.folder / "COM1"
        link.symlink_to(adapter)
        training = Board(self.folder, self.desk.environment)
        self.addCleanup(training.close)
        self.assertNotEqual(os.readlink(link), str(adapter))
        training.close()
        wait_for("link to the adapter", lambda: os.readlink(link) == str(adapter))
        self.start()
        self.program.choose("Connect")
        self.wait_connected()

    def test_without_a_link_the_first_port_of_the_machine_is_asked_in_vain(self):
        with first_port_held():
            self.start()
            self.program.choose("Connect")
            self.assertEqual(self.program.box(), PORT_ERROR)
            self.program.answer("OK")
        self.assertEqual(self.open_entries(), [])

    def test_a_port_that_another_program_holds_is_told(self):
        self.start_board()
        holder = os.open(self.folder / "COM1", os.O_RDWR | os.O_NOCTTY)
        fcntl.ioctl(holder, termios.TIOCEXCL)
        self.start()
        self.program.choose("Connect")
        self.assertEqual(self.program.box(), PORT_ERROR)
        self.program.answer("OK")
        fcntl.ioctl(holder, termios.TIOCNXCL)
        os.close(holder)
        self.program.choose("Connect")
        self.wait_connected()


@contextlib.contextmanager
def first_port_held():
    """Keeps the machine's own serial port from the program, whatever may hang on it."""
    try:
        port = os.open("/dev/ttyS0", os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
    except OSError:  # the program can't open it either
        yield
        return
    try:
        fcntl.flock(port, fcntl.LOCK_EX | fcntl.LOCK_NB)
        yield
    finally:
        os.close(port)


class AnAdapterChoice(Scene):
    def test_without_an_adapter_the_box_says_so_and_no_port_stays_checked(self):
        self.start()
        self.program.choose("COM", "USB")
        self.assertEqual(self.program.box(), Box(
            "Error", "USB port not available\nPlease select a different COM port", ("OK",)))
        self.program.answer("OK")
        self.assertEqual(self.program.checked("COM"), [])
        self.assertEqual(self.watch.written("Sorvane.ini"), 0)



"""Connecting by COM1: a board that fits, one that doesn't, silence, and a line that is gone."""

from app import CONNECT, DISCOUNTS
from bench import Scene, bench
from lines import Box
from test_starting import IDLE
from wait import wait_for

ASKED = [f"read system {number} = " for number in (1, 17, 11, 12, 13, 14, 18)]
NOT_READY = Box("Serial", ["Board Not Ready", "Check serial !"], ["Retry", "Cancel"], "yellow")
PORT_ERROR = Box("ERROR ", ["Error com"], ["OK"], "red")
WRONG_TYPE = Box("ERROR", ["Board Type", "Not Compatible"], ["OK"], "red")


class Connecting(Scene):
    def test_the_board_is_asked_seven_times_who_it_is(self):
        self.connect()
        self.take_picture("connected")
        self.board.tell("clock")
        asked = [line for line in self.board.heard if line.startswith("read")]
        self.assertEqual([line[:len(start)] for line, start in zip(asked, ASKED)], ASKED)
        self.assertEqual(len(asked), len(ASKED))

    def test_a_board_of_another_type_ends_the_program(self):
        self.start_board("--type", "308")
        self.start()
        self.app.choose(CONNECT)
        self.assertEqual(self.app.box(), WRONG_TYPE)
        self.take_picture("wrong-type")
        self.app.answer("Return")
        self.assertEqual(self.app.wait_end(), 0)
        self.assertFalse(self.sibling_log.exists())


class WithoutABoard(Scene):
    def test_escape_gives_up_and_a_later_connection_stands(self):
        self.start_board("--fault", "silent")
        self.start()
        self.app.choose(CONNECT)
        self.assertEqual(self.app.box(), NOT_READY)
        self.take_picture("not-ready")
        self.app.answer("Escape")
        self.wait_enabled(IDLE)
        self.board.tell("fault none")
        self.app.choose(CONNECT)
        self.wait_connected()

    def test_retry_asks_until_the_board_answers(self):
        self.start_board("--fault", "silent")
        self.start()
        self.app.choose(CONNECT)
        self.assertEqual(self.app.box(), NOT_READY)
        self.app.answer("Return")
        self.assertEqual(self.app.box(), NOT_READY)
        self.board.tell("fault none")
        self.app.answer("Return")
        self.wait_connected()

    def test_a_port_without_a_line_is_told(self):
        self.start()
        self.app.choose(CONNECT)
        self.assertEqual(self.app.box(), PORT_ERROR)
        self.take_picture("no-port")
        self.app.answer("Return")
        self.wait_enabled(IDLE)
        self.start_board()
        self.app.choose(CONNECT)
        self.wait_connected()


class ALineThatIsLost(Scene):
    def test_the_error_lamp_tells_and_the_link_goes_on_when_the_cable_is_back(self):
        self.connect()
        self.app.choose(DISCOUNTS)
        self.app.wait_fields(10)
        self.assertFalse(self.app.lamp("error"))
        self.board.tell("fault unplugged")
        wait_for("error lamp", lambda: self.app.lamp("error"))
        self.take_picture("unplugged")
        self.assertEqual(self.app.boxes(), [])
        self.board.tell("set 22 1")
        self.board.tell("fault none")
        self.app.wait_text(0, "1.0")
        wait_for("error lamp to go out", lambda: not self.app.lamp("error"))
        self.assertEqual(self.app.boxes(), [])
        self.close_app()

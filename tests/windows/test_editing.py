"""Changing what the board holds by keys, in the forms that the user of the machine has set."""

from app import ALARMS, CONNECT, DISCOUNTS, PRICES
from bench import Scene, bench
from lines import Box
from wait import wait_for

INTERNATIONAL = r"HKCU\Control Panel\International"
ALARM_FILL = 60  # seconds: 161 exchanges of 40 ms, and room for a slow machine


class Editing(Scene):
    def set_forms(self, **values):
        """Sets international settings, such as sDecimal, for this test."""
        for name, value in values.items():
            before = bench.prefix.value(INTERNATIONAL, name)
            self.addCleanup(bench.prefix.set_value, INTERNATIONAL, name, before)
            bench.prefix.set_value(INTERNATIONAL, name, value)

    def open(self, entry, count):
        """Opens a page and waits until its fields are open."""
        self.app.choose(entry)
        self.app.wait_fields(count)

    def test_a_typed_discount_is_held_by_the_board_and_comes_back_from_it(self):
        self.set_forms(sDecimal=".", sThousand=",")
        self.connect()
        self.open(DISCOUNTS, 10)
        self.board.wait_round()  # what is typed while the program reads it is lost
        self.app.type_into(2, 3, "0.4")
        self.app.wait_text(2, "0.40")
        self.take_picture("discount")
        self.assertEqual(self.board.holds(45), 40)
        self.app.type_into(3, 1, "abc")
        self.assertEqual(self.app.box(),
                         Box("Error", ["Please Insert Only Number"], ["OK"], "red"))
        self.take_picture("garbage")
        self.app.answer("Return")
        self.app.wait_text(3, "0.15")
        self.assertEqual(self.board.holds(46), 15)

    def test_a_price_is_held_twice(self):
        self.start_board()
        # The page loses its decimals with the answer of an item number. So there are none here.
        self.board.tell("set 22 0")
        self.start()
        self.app.choose(CONNECT)
        self.wait_connected()
        self.open(PRICES, 20)
        self.take_picture("prices")
        self.app.wait_text(3, "150")
        self.app.type_into(3, 4, "175")
        self.wait_held(26, 175)
        self.wait_held(394, 175)
        self.app.wait_text(3, "175")

    def test_amounts_and_dates_have_the_forms_of_the_international_settings(self):
        self.set_forms(sDecimal=",", sThousand=".", sShortDate="dd.MM.yyyy")
        self.connect()
        self.open(DISCOUNTS, 10)
        self.app.wait_text(9, "0,30")
        self.app.type_into(0, 1, "12,5")
        self.app.wait_text(0, "12,50")
        self.take_picture("decimal-comma")
        self.assertEqual(self.board.holds(43), 1250)
        self.app.close_page()
        self.assertEqual(self.newest_alarm()[:3], ["1", "05.03.2024", "13:05"])
        self.take_picture("alarms")

    def newest_alarm(self):
        """The first row of the page of the alarms, after an alarm on 5 March 2024, at 13:05."""
        for parameter, number in {54: 13, 55: 5, 56: 5, 57: 3, 58: 24}.items():
            self.board.tell(f"set {parameter} {number}")
        self.board.tell("alarm 34")
        self.app.choose(ALARMS)
        return wait_for("twenty alarms", lambda: len(found := self.app.table()) == 20 and found,
                        ALARM_FILL)[0]

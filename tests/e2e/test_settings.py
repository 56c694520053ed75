"""The settings pages, from the keyboard to the board's memory: primaries and mirrors."""

import re

from scene import Scene
from screen import names
from visit import wait_filled
from wait import wait_for


class Settings(Scene):
    def setUp(self):
        super().setUp()
        self.connect()

    def open(self, *path, title):
        super().open(*path, title=title)
        wait_filled(self.program, self.board)

    def text(self, name):
        return wait_for(f"field {name}", lambda: self.page.find("text", name))

    def wait_text(self, name, text):
        field = self.text(name)
        wait_for(f"{text} in {name}", lambda: field.text == text)

    def wait_open(self, name):
        field = self.text(name)
        wait_for(f"{name} to open", lambda: field.has("enabled"))

    def show_tab(self, row, number):
        """Brings a tab of a row to the front by the keyboard; both count from 0."""
        strip = wait_for("tabs", lambda: self.page.all("page tab list"))[row]
        for _ in range(number):
            self.program.press_in(strip, "Right")

    def wait_probe(self):
        """Waits until the clock page has found that the board has a clock."""
        date = re.compile(r"\d\d/\d\d/\d{4}")
        wait_for("date", lambda: any(date.fullmatch(name)
                                     for name in names(self.page.all("label"))))

    def leave_held(self, numbers):
        """Waits until the board holds numbers, leaves the page, and looks again."""
        for parameter, number in numbers.items():
            self.wait_held(parameter, number)
        self.program.close_page(self.page)
        for parameter, number in numbers.items():
            self.assertEqual(self.board.holds(parameter), number, f"parameter {parameter}")

    def test_a_price_is_held_twice(self):
        # The page loses its decimals with the answer of an item number. So there are none here.
        self.board.tell("set 22 0")
        self.open("Prezzi", title="Impostazione prezzi")
        self.wait_open("Prezzo 4")
        self.wait_text("Prezzo 4", "150")
        self.program.type_into(self.text("Prezzo 4"), "175")
        self.leave_held({26: 175, 394: 175, 25: 150})

    def test_a_discount_band_is_held(self):
        self.open("Orologio", title="Orologio")
        self.wait_probe()
        self.show_tab(0, 1)
        self.program.type_into(self.text("Fine Sconto 2 minuti"), "45")
        self.wait_text("Fine Sconto 2 minuti", "45")
        self.leave_held({66: 45, 65: 16})

    def test_the_time_of_switching_on_is_held_twice(self):
        self.open("Orologio", title="Orologio")
        self.wait_probe()
        self.show_tab(0, 2)
        bar = self.page.find("slider", "Accendi ore")
        self.program.press_in(bar, "Right")
        self.wait_text("Accendi ore", "8")
        self.leave_held({67: 8, 361: 8})

    def test_the_probe_leaves_the_day_as_it_was(self):
        day = self.board.holds(56)
        self.open("Orologio", title="Orologio")
        self.wait_probe()
        self.wait_text("giorno", str(day))
        self.leave_held({56: day})

    def test_a_board_that_refuses_day_0_keeps_the_page_shut(self):
        self.board.tell("fault refuses day 0")
        self.open("Orologio", title="Orologio")
        wait_for("shut page", lambda: not self.text("giorno").has("enabled"))
        self.assertNotEqual(self.board.holds(56), 0)

    def test_a_banknote_channel_is_held_twice(self):
        self.open("Pagamento", title="Pagamento")
        self.wait_text("Punto Decimale", "000.00")
        low, high = self.board.holds(88), self.board.holds(89)
        self.show_tab(0, 1)
        switch = wait_for("switch", lambda: self.page.find("check box", "Banconota 10"))
        self.program.press_in(switch, "space")
        self.leave_held({88: low, 89: high ^ 2, 382: high ^ 2})

    def test_a_tube_level_is_held_twice(self):
        self.open("Pagamento", title="Pagamento")
        self.wait_text("Punto Decimale", "000.00")
        self.show_tab(1, 1)
        self.program.type_into(self.text("Tubo3"), "12")
        self.wait_text("Tubo3", "12")
        self.leave_held({78: 12, 372: 12})

    def test_a_payment_system_is_taken_up_from_the_boards_answer(self):
        self.open("Pagamento", title="Pagamento")
        slider = wait_for("slider", lambda: self.page.find("slider", "Tipo Sistema"))
        wait_for("MDB", lambda: slider.value == 2)
        self.program.press_in(slider, "Home")
        wait_for("shut field", lambda: not self.text("Timeout Credito").has("enabled"))
        self.wait_open("Punto Decimale")
        self.leave_held({71: 1, 365: 1})

    def test_a_password_digit_is_held_twice(self):
        self.open("Password", title="Password")
        self.wait_text("Password 2", "2")
        self.program.type_into(self.text("Password 2"), "7")
        self.wait_text("Password 2", "7")
        self.leave_held({411: 1, 412: 7, 416: 7})

    def test_general_settings_are_held_twice_and_numbers_once(self):
        self.open("Impostazioni", title="Impostazioni")
        self.wait_text("Lingue", "Italiano        ")
        self.program.type_into(self.text("Timeout Motori (sec.)"), "12.5")
        self.program.type_into(self.text("N° Macchina"), "16777215")
        self.leave_held({6: 125, 358: 125, 9: 16777215})

    def test_a_key_and_a_product_land_where_boards_expect_them(self):
        self.open("Set ", "Tasti / Colonne", title="Set Tasti/Colonna")
        self.wait_text("Tasto n° 1", "1")
        self.program.type_into(self.text("Tasto n° 1"), "7")
        self.leave_held({98: 7, 401: 7})
        self.open("Set ", "Colonne / Prodotti", title="Set Colonna/Prodotti")
        self.wait_text("Colonna n° 3", "13")
        self.program.type_into(self.text("Colonna n° 3"), "8")
        # The third product lands on the number of selections too.
        wait_for("row 9 to shut", lambda: not self.text("Colonna n° 9").has("enabled"))
        self.leave_held({110: 8, 2: 8})

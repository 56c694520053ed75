"""Choosing a language, and the language of the next start."""

import itertools

from scene import Scene
from screen import names, places, with_state
from wait import wait_for

ITALIAN = ["Connect", "Password", "Impostazioni", "Prezzi", "Sconti", "Pagamento", "Set ",
           "Orologio", "Vendite", "Allarmi", "Lingue", "Windows", "COM", "?"]
ENGLISH = ["Connect", "Password", "Settings", "Prices", "Discounts", "Payment", "Set ",
           "Clock", "Sales", "Alarms", "Languages", "Windows", "COM", "?"]


class Languages(Scene):
    def wait_captions(self, captions):
        wait_for("menu in the language", lambda: self.program.captions() == captions)

    def test_a_choice_changes_the_menu_and_the_open_page(self):
        self.connect()
        self.open_discounts()
        self.wait_captions(ITALIAN)
        self.program.choose("Lingue", "English")
        self.wait_captions(ENGLISH)
        page = self.program.page("Discounts")
        labels = names(page.all("label"))
        self.assertEqual(sorted(labels), sorted(f"Discount {row}" for row in range(1, 11)))
        self.assertEqual(len(self.program.pages()), 1)
        self.assertEqual(self.program.checked("Languages"), ["English"])
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=English\r\n")

    def test_the_page_goes_on_working_in_the_new_language(self):
        self.connect()
        self.open_discounts()
        self.program.choose("Lingue", "English")
        page = self.program.page("Discounts")
        self.program.type_into(page.find("text", "Discount 7"), "2")
        wait_for("new amount", lambda: page.find("text", "Discount 7").text == "2.00")
        self.assertEqual(self.board.holds(49), 200)

    def test_the_language_returns_at_the_next_start(self):
        self.start()
        self.program.choose("Lingue", "English")
        self.wait_captions(ENGLISH)
        self.assert_closes()
        self.start()
        self.wait_captions(ENGLISH)
        self.assertEqual(self.program.checked("Languages"), ["English"])

    def test_the_tenth_language_gives_way_to_the_first_at_the_next_start(self):
        self.start()
        languages = self.program.captions("Lingue")
        self.assertEqual(len(languages), 10)
        self.program.choose("Lingue", languages[9])
        wait_for("mark on the tenth language", lambda: languages[9] in self.checked_anywhere())
        self.assert_closes()
        self.assertEqual(self.settings.read_bytes(),
                         f"Com=1\r\nLingua={languages[9]}\r\n".encode())
        self.start()
        self.assertEqual([name for name in self.checked_anywhere() if name in languages],
                         [languages[0]])

    def checked_anywhere(self):
        """The captions of all entries with a check mark, whatever the language of the menu."""
        return names(with_state(self.program.frame().all("menu item"), "checked"))

    def test_an_unfit_file_is_refused_and_the_old_language_stays(self):
        (self.folder / "English.lng").write_bytes(b"Password\r\n")
        self.start()
        self.program.choose("Lingue", "English")
        box = self.program.box()
        self.assertEqual((box.title, box.text), ("Wrong file", "Check file message !!!"))
        self.program.answer("OK")
        self.assertEqual(self.program.captions(), ITALIAN)
        self.assertEqual(self.program.checked("Lingue"), ["Italiano"])

    def test_controls_keep_clear_of_each_other_in_every_language(self):
        self.connect()
        self.open_discounts()
        for name in self.program.captions("Lingue"):
            self.program.choose(self.program.captions()[10], name)
            wait_for(f"mark on {name}", lambda: name in self.program.checked(
                self.program.captions()[10]))
            page = self.program.pages()[0]
            try:
                wait_for("clear layout", lambda: not clashes(page))
            except TimeoutError:
                self.fail(f"{name}: {clashes(page)}")


def clashes(page):
    """The controls of the discounts page that are cut off or lie on another one, in words."""
    controls = [control for role in ("label", "text", "slider") for control in page.all(role)]
    placed = list(zip(names(controls), places(controls)))
    within = page.place
    found = [] if len(placed) == 30 else [f"{len(placed)} controls"]
    found += [f"{name} is cut off" for name, place in placed if not lies_in(place, within)]
    found += [f"{one[0]} lies on {other[0]}" for one, other in itertools.combinations(placed, 2)
              if overlap(one[1], other[1])]
    return found


def lies_in(inner, outer):
    left, top, width, height = inner
    return (outer[0] <= left and left + width <= outer[0] + outer[2] and
            outer[1] <= top and top + height <= outer[1] + outer[3])


def overlap(one, other):
    return (one[0] < other[0] + other[2] and other[0] < one[0] + one[2] and
            one[1] < other[1] + other[3] and other[1] < one[1] + one[3])

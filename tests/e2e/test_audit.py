"""The pages of what the machine has recorded, from the board's memory to the screen."""

from scene import Scene
from screen import names
from wait import wait_for


class Audit(Scene):
    def setUp(self):
        super().setUp()
        self.connect()

    def alarms(self):
        """The rows of the list, each as its cells."""
        cells = names(self.page.all("tree item"))
        return [tuple(cells[i:i + 4]) for i in range(0, len(cells), 4)]

    def open_alarms(self):
        self.open("Allarmi", title="Allarmi")
        bar = wait_for("progress bar", lambda: next(iter(self.page.all("progress bar")), None))
        wait_for("end of the reading", lambda: not bar.has("showing"))
        return wait_for("alarms", self.alarms)

    def values(self):
        """The values of a page that only reads, by their captions."""
        shown = names(self.page.all("label"))
        return dict(zip(shown[0::2], shown[1::2]))

    def wait_value(self, caption, text):
        wait_for(f"{text} for {caption}", lambda: self.values().get(caption) == text)

    def test_twenty_alarms_are_listed_and_a_new_one_comes_first(self):
        before = self.open_alarms()
        self.assertEqual([row[0] for row in before], [str(n) for n in range(1, 21)])
        self.program.close_page(self.page)
        self.board.tell("alarm 34")
        after = self.open_alarms()
        self.assertEqual(after[0][3], "EJB_2_blocco motore 2 ")
        self.assertEqual([row[1:] for row in after[1:]], [row[1:] for row in before[:-1]])

    def test_the_alarm_page_shows_how_far_it_has_read(self):
        self.open("Allarmi", title="Allarmi")
        bar = wait_for("progress bar", lambda: next(iter(self.page.all("progress bar")), None))

        def listed_at_work():
            listed = self.alarms()
            return [listed] if 20 < bar.value < 161 and bar.has("showing") else None

        self.assertEqual(wait_for("progress", listed_at_work), [[]])

    def test_counters_move_while_they_are_watched(self):
        self.open("Vendite", "Contatori", title="Contatori")
        self.wait_value("Battute Selezione 3", "295")
        self.board.tell("vend 3")
        self.wait_value("Battute Selezione 3", "296")
        self.assertEqual(self.board.holds(322), 296)

    def test_coins_and_banknotes_move_while_they_are_watched(self):
        self.open("Vendite", "Monete", title="Monete")
        self.wait_value("Moneta 2", "640")
        self.board.tell("coin 2")
        self.wait_value("Moneta 2", "641")
        self.program.close_page(self.page)
        self.open("Vendite", "Banconote", title="Banconote")
        wait_for("first count", lambda: self.values().get("Banconota 1", "").isdigit())
        count = int(self.values()["Banconota 1"])
        self.board.tell("banknote 1")
        self.wait_value("Banconota 1", str(count + 1))

    def test_totals_stand_with_the_decimals_of_the_board(self):
        self.open("Vendite", "Totali", title="Totali")
        self.wait_value("Incasso Totale Azzerabile", "568.30")
        self.wait_value("Battute Totali Azzerabili", "356")

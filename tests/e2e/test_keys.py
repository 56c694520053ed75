"""Keys of the frame that technicians know from other desktops."""

from scene import Scene
from wait import wait_for


class FrameKeys(Scene):
    def setUp(self):
        super().setUp()
        self.connect()
        self.open_discounts()
        self.discounts = self.page
        self.open("?", title="Info")

    def test_f10_goes_to_the_menu_bar(self):
        self.desk.press("F10")
        wait_for("mark on the first entry", lambda: self.program.entry("Connect").has("focused"))
        self.desk.press("Escape")
        wait_for("no mark", lambda: not self.program.entry("Connect").has("focused"))

    def test_ctrl_f6_goes_to_the_next_page(self):
        self.desk.press("ctrl+F6")
        wait_for("discounts in use", self.discounts_have_the_keyboard)

    def discounts_have_the_keyboard(self):
        return self.discounts.focus() is not None or self.discounts.has("focused")

    def test_f1_shows_the_manual_at_the_page_in_front(self):
        self.desk.press("F1")
        manual = wait_for("manual", self.program.manual)
        self.assertEqual(manual.name, "Sorvane: manuale del tecnico")
        self.assertFalse(self.program.has_box())
        self.program.leave_manual()
        self.desk.press("ctrl+F6")
        wait_for("discounts in use", self.discounts_have_the_keyboard)

    def test_ctrl_f4_closes_the_page_in_front(self):
        self.desk.press("ctrl+F4")
        wait_for("end of the page", lambda: not self.page.has("showing"))
        self.assertEqual([page.name for page in self.program.pages()], ["Sconti"])
        self.assertTrue(self.program.is_running())

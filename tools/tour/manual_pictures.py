"""The pictures of the manual: each page in each language of the manual, menus, lamps and boxes."""

from visit import DISCOUNTS, LANGUAGES, PAYMENT, Visit
from wait import wait_for

# The manual's languages: the language file, and the locale that its readers' computers have.
LANGUAGES_OF_THE_MANUAL = {"en": ("English", "en_GB.UTF-8"), "it": ("Italiano", "it_IT.UTF-8")}

# Pages that take one picture, by the name of their form.
PLAIN_PAGES = {"password": (1,), "imposta": (2,), "prezzi": (3,), "sconti": DISCOUNTS,
               "tasticolonna": ("Set ", 6), "colonnaprod": ("Set ", 7), "totali": (9, 10),
               "contatori": (9, 11), "monete": (9, 12), "banconote": (9, 13), "allarmi": (14,),
               "info": ("?",)}
CLOCK = (8,)
COUNTERS = (9, 11)

# The rows of tabs on the payment page, in their order there.
GENERAL_TABS = 0
MDB_TABS = 1

# Boards that the program turns away: the box, and what the simulated board is told to be.
REFUSED = {"not-compatible": ("--type", "308"), "not-found": ("--revision", "9")}

LAMPS = ("Transmit", "Receive", "Error")
ROOM = 6  # pixels beside the lamps and below a menu
EDGE = 2  # pixels above and below the lamps, which fill the status bar


class ManualVisit(Visit):
    def __init__(self, desk, built, pictures, name, language, *board_arguments):
        file, locale = LANGUAGES_OF_THE_MANUAL[language]
        super().__init__(desk, built, name, file, *board_arguments)
        desk.environment["LC_ALL"] = locale
        self._pictures = pictures
        self._language = language

    def _start(self):
        self._start_program()
        self._program.wait_ready()

    def _end(self):
        self._program.put_away()

    def _take(self, name, area):
        self._take_picture(self._pictures / f"{name}.png", area)

    def _take_page(self, name, page):
        self._take(f"{name}.{self._language}", page.place)

    def _window_area(self, element):
        """The place of the window in front with its border and title."""
        left, top, width, height = element.place
        at_left, at_right, above, below = self._desk.front_edges()
        return (left - at_left, top - above, width + at_left + at_right, height + above + below)

    def _take_box(self, name, answer, *path):
        self._program.choose(*path)
        self._take_standing_box(name)
        self._program.answer(answer)

    def _take_standing_box(self, name):
        self._program.box()
        self._take(f"box-{name}", self._window_area(self._program.front_box()))


class PagesVisit(ManualVisit):
    """All that differs between the languages."""

    def __init__(self, desk, built, pictures, language):
        super().__init__(desk, built, pictures, f"pages-{language}", language)

    def run(self):
        self._start()
        self.take_menu("menu-com", "COM", "COM1")
        self.take_menu("menu-languages", self._caption(LANGUAGES),
                       LANGUAGES_OF_THE_MANUAL[self._language][0])
        self._connect()
        page = self._open(DISCOUNTS)
        self._take(f"window.{self._language}", self._window_area(self._program.frame()))
        self._program.close_page(page)
        for name, way in PLAIN_PAGES.items():
            page = self._open(way)
            self._take_page(name, page)
            self._program.close_page(page)
        self.take_clock()
        self.take_payment()
        self._end()

    def take_menu(self, name, *path):
        """The window from its title down to the end of an open menu."""
        self._program.point_at(*path)
        left, top, width, _ = self._window_area(self._program.frame())
        entries = self._program.entry(path[0]).all("menu item")
        bottom = max(entry.place[1] + entry.place[3] for entry in entries if entry.has("showing"))
        self._take(f"{name}.{self._language}", (left, top, width, bottom + ROOM - top))
        self._program.leave_menu()

    def take_clock(self):
        page = self._open(CLOCK)
        wait_for("open clock", lambda: page.find("push button", "Copy PC Time").has("enabled"))
        self._wait_settled(page)
        self._take_page("orologio", page)
        tabs = self._program.tabs_to_the_right(page.all("page tab list")[0])
        for name, _ in zip(("orologio-sconti", "orologio-accendi"), tabs):
            self._wait_settled(page)
            self._take_page(name, page)
        self._program.close_page(page)

    def take_payment(self):
        page = self._open(PAYMENT)
        self._take_page("pagamento", page)
        self._go_right(page, GENERAL_TABS)
        self._go_right(page, MDB_TABS)
        self._take_page("pagamento-banconote-tubi", page)
        self._program.press_in(page.all("page tab list")[GENERAL_TABS], "Left")
        self._go_right(page, MDB_TABS)
        self._take_page("pagamento-token", page)
        self._program.press_in(page.all("page tab list")[MDB_TABS], "Left", "Left")
        self._choose_system(page, "Left")
        self._take_page("pagamento-executive", page)
        self._choose_system(page, "Home")
        self._go_right(page, GENERAL_TABS)
        self._take_page("pagamento-monete", page)
        self._program.close_page(page)

    def _go_right(self, page, row):
        """Brings the next open tab of a row to the front."""
        next(self._program.tabs_to_the_right(page.all("page tab list")[row]))
        self._wait_settled(page)


class LampsVisit(ManualVisit):
    """The lamps, and the boxes behind which the program goes on."""

    def __init__(self, desk, built, pictures):
        super().__init__(desk, built, pictures, "lamps", "en")

    def run(self):
        (self._folder / "Svenska.lng").write_bytes(b"Losenord\r\n")
        self._board.tell("fault unplugged")
        self._start()
        self._take_box("error-com", "OK", "Connect")
        self._board.tell("fault silent")
        self._take_box("board-not-ready", "Cancel", "Connect")
        self._take_box("usb-port", "OK", "COM", "USB")
        self._take_box("wrong-file", "OK", self._caption(LANGUAGES), "Svenska")
        self._board.tell("fault none")
        self._connect()
        self.take_lamps()
        self.take_number_box()
        self.take_error_box()

    def take_lamps(self):
        self._take_lamps("rest", ())
        page = self._open(COUNTERS)
        self._take_lamps("work", ("Transmit", "Receive"))
        self._board.tell("fault unplugged")
        self._take_lamps("error", ("Error",))
        self._board.tell("fault none")
        wait_for("error lamp off", lambda: not self._program.lamp("Error"))
        self._program.close_page(page)

    def _take_lamps(self, name, lit):
        wait_for(f"lamps for {name}", lambda: all(
            self._program.lamp(lamp) == (lamp in lit) for lamp in LAMPS))
        places = [lamp.place for lamp in self._program.frame().all("label")
                  if lamp.name.split(":")[0] in LAMPS]
        left = min(place[0] for place in places) - ROOM
        right = max(place[0] + place[2] for place in places) + ROOM
        _, top, _, height = places[0]
        self._take(f"lamps-{name}", (left, top - EDGE, right - left, height + 2 * EDGE))

    def take_number_box(self):
        page = self._open(DISCOUNTS)
        self._program.type_into(page.find("text", "Discount 4"), "abc")
        self._take_standing_box("only-number")
        self._program.answer("OK")
        self._program.close_page(page)

    def take_error_box(self):
        """Day 0 ends the program."""
        page = self._open(CLOCK)
        day = page.find("text", self._caption(50))
        wait_for("open clock", lambda: day.has("enabled"))
        self._wait_settled(page)
        self._program.press_in(day, "ctrl+a")
        self._desk.type("0")
        self._desk.press("Return")
        self._take_standing_box("run-time-error")
        self._program.answer("OK")


class EndVisit(ManualVisit):
    """The boxes behind which the program ends."""

    def refuse_board(self, name):
        self._start()
        self._take_box(name, "OK", "Connect")

    def miss_languages(self):
        for file in self._folder.glob("*.lng"):
            file.unlink()
        self._start_program()
        self._take_standing_box("file-missing")
        self._program.answer("OK")


def take_manual_pictures(desk, built, pictures):
    for language in LANGUAGES_OF_THE_MANUAL:
        PagesVisit(desk, built, pictures, language).run()
        print(f"pages: {language}", flush=True)
    LampsVisit(desk, built, pictures).run()
    for name, arguments in REFUSED.items():
        EndVisit(desk, built, pictures, name, "en", *arguments).refuse_board(name)
    EndVisit(desk, built, pictures, "languages", "en").miss_languages()

"""Sorvane for Windows as the person in front of it has it: worked by keys, seen by pictures."""

import subprocess

import lines
from wait import wait_for

END = 10.0  # seconds; Wine takes some of them for itself
MENU_INDENT = 20  # pixels, at most, from the left of a menu to the caption above it
KEYS = 3.0  # seconds, for the opening of a menu
START = 60.0  # seconds; a prefix of Wine wakes up slowly on a busy machine

# The entries of the menu bar, which has them in the same places in all languages.
(CONNECT, PASSWORD, SETTINGS, PRICES, DISCOUNTS, PAYMENT, SET, CLOCK, SALES, ALARMS, LANGUAGES,
 WINDOWS, COM, INFO) = range(14)
ENTRIES = 14

LAMPS = {"transmit": (0, 150, 80), "receive": (0, 120, 215), "error": (210, 30, 30)}
LAMP_SIZE = 30  # pixels of its colour, at least


class App:
    """A running program, on a desk whose windows are watched."""

    def __init__(self, desk, windows, process):
        self._desk = desk
        self._windows = windows
        self._process = process
        self._seen = {}  # what each box or menu has looked like when it was looked at last

    # The windows.

    def windows(self):
        return [window for window in self._windows.all() if window.process == self._process.pid]

    def frame(self):
        """The main frame, or None while it isn't shown."""
        return next((window for window in self.windows()
                     if window.managed and window.title == "Sorvane" and window.width > 500), None)

    def picture(self, window):
        """What the screen shows where a window is."""
        return self._windows.picture().crop(window.area)

    def _settled(self, window):
        """The picture of a window, or None if it has changed since the last look."""
        picture = self.picture(window)
        before = self._seen.get(window.number)
        self._seen[window.number] = picture.tobytes()
        return picture if before == picture.tobytes() else None

    def _front(self):
        return wait_for("frame in front", lambda: (frame := self.frame()) and
                        frame.number == self._windows.active() and frame)

    def wait_ready(self):
        """Waits until a connection can be asked for."""
        wait_for("entry Connect", lambda: self.enabled()[:1] == [True], START)

    # The menu.

    def menu_bar(self):
        """The entries of the menu bar; none while there is no frame."""
        frame = self.frame()
        return lines.menu_bar(self.picture(frame)) if frame else []

    def captions(self):
        return [entry.caption for entry in self.menu_bar()]

    def enabled(self):
        """Which entries of the menu bar are enabled."""
        return [entry.enabled for entry in self.menu_bar()]

    def _menus(self):
        return [window for window in self.windows()
                if not window.managed and window.width > 50 and window.height > 20]

    def _drop_down(self, entry):
        """The entries of the menu that is open below one of the bar; none if it isn't drawn yet."""
        left = self.frame().left + self.menu_bar()[entry].left
        menu = next((menu for menu in self._menus() if abs(menu.left - left) < MENU_INDENT), None)
        picture = menu and self._settled(menu)
        alphabet = lines.PORT if entry == COM else ""
        return lines.drop_down(picture, alphabet) if picture else []

    def choose(self, entry):
        """Chooses an entry of the menu bar by its number."""
        self._go_to(entry)
        self._desk.press("Return")

    def _go_to(self, entry):
        """Goes to an entry of the menu bar, with its drop-down open if it has one.

        Where the keyboard is can only be seen while a drop-down is open. That of the languages is
        never shut, and so the way goes by it.
        """
        self._front()
        # The captions are all grey for as long as another window has the keyboard.
        wait_for("entry Connect", lambda: self.enabled()[:1] == [True])
        enabled = self.enabled()
        wait_for("drop-down of the languages", self._open_languages)
        step = 1 if entry > LANGUAGES else -1
        for at in range(LANGUAGES + step, entry + step, step):
            if enabled[at]:  # the others are passed over
                self._desk.press("Right" if step > 0 else "Left")
                wait_for(f"mark on entry {at}", lambda: self._marked() == at)

    def _open_languages(self):
        """Whether keys open the drop-down: while the frame gets the keyboard, Alt can be lost."""
        self._desk.press("alt", *["Right"] * sum(self.enabled()[:LANGUAGES]), "Down")
        try:
            return wait_for("drop-down", lambda: self._menus() and self._marked() == LANGUAGES,
                            KEYS)
        except TimeoutError:
            self._desk.press("Escape", "Escape")
            return False

    def _marked(self):
        return next((at for at, entry in enumerate(self.menu_bar()) if entry.marked), None)

    def unfold(self, entry):
        """Opens a drop-down of the menu bar and returns its entries."""
        self._go_to(entry)
        if not any(below.marked for below in wait_for("drop-down", lambda: self._drop_down(entry))):
            self._desk.press("Down")
        return wait_for("mark in the drop-down", lambda: self._marked_drop_down(entry))

    def _marked_drop_down(self, entry):
        entries = self._drop_down(entry)
        return entries if any(below.marked for below in entries) else None

    def fold(self):
        """Closes a drop-down and leaves the menu bar."""
        self._desk.press("Escape", "Escape")
        wait_for("end of the drop-down", lambda: not self._menus())

    def choose_below(self, entry, caption):
        """Chooses an entry of a drop-down by its caption."""
        found = self.unfold(entry)
        place = next((at for at, below in enumerate(found) if below.caption == caption), None)
        if place is None:
            raise LookupError(f"no {caption} among {found}")
        for at in range(place + 1):
            wait_for(f"mark on entry {at}", lambda: self._is_marked(entry, at))
            self._desk.press("Down" if at < place else "Return")
        wait_for("end of the drop-down", lambda: not self._menus())

    def _is_marked(self, entry, place):
        return any(below.marked for below in self._drop_down(entry)[place:place + 1])

    def checked(self, entry):
        """The captions with a check mark in a drop-down."""
        found = [below.caption for below in self.unfold(entry) if below.checked]
        self.fold()
        return found

    # The boxes.

    def boxes(self):
        """The windows beside the frame; the menus are none."""
        frame = self.frame()
        return [window for window in self.windows()
                if window.managed and not (frame and window.number == frame.number)]

    def box(self):
        """Waits for a message box in front and returns what it says."""
        window, picture = wait_for("message box", self._drawn_box)
        return lines.message_box(window.title, picture)

    def _drawn_box(self):
        """The box in front and its picture, as soon as that is drawn and changes no more."""
        for window in self.boxes():
            if window.number == self._windows.active():
                picture = self._settled(window)
                if picture and lines.message_box(window.title, picture):
                    return window, picture
        return None

    def answer(self, *keys):
        """Presses keys that end the box in front."""
        number = wait_for("message box", self._drawn_box)[0].number
        self._desk.press(*keys)
        wait_for("end of the message box", lambda: not self.is_running() or
                 number not in [window.number for window in self.windows()])

    # The page in front.

    def fields(self):
        """The open fields of the pages, column by column."""
        frame = self.frame()
        return lines.fields(self.picture(frame)) if frame else []

    def wait_fields(self, count):
        wait_for(f"{count} open fields", lambda: len(self.fields()) == count)

    def wait_text(self, field, text):
        wait_for(f"{text} in field {field}", lambda: any(
            found.text == text for found in self.fields()[field:field + 1]))

    def table(self):
        """The rows of the table on the page."""
        frame = self.frame()
        return lines.table(self.picture(frame)) if frame else []

    def close_page(self):
        """Closes the page in front, whose fields vanish with it."""
        self._front()
        self._desk.press("ctrl+F4")
        self.wait_fields(0)

    def type_into(self, field, tabs, text):
        """Goes to a field by so many tabs, types a text over it and confirms it."""
        self._front()
        self._desk.press(*["Tab"] * tabs)
        wait_for(f"focus on field {field}", lambda: any(
            found.focused for found in self.fields()[field:field + 1]))
        self._desk.type(text)
        self._desk.press("Return")

    def lamp(self, name):
        """Whether a lamp of the status bar is lit."""
        frame = self.frame()
        if frame is None:
            return False
        right, bottom = frame.width, frame.height
        corner = self.picture(frame).crop((right - 120, bottom - 36, right, bottom))
        return list(corner.getdata()).count(LAMPS[name]) >= LAMP_SIZE

    # The end.

    def is_running(self):
        return self._process.poll() is None

    def close_frame(self):
        self._front()
        self._desk.press("alt+F4")

    def wait_end(self):
        """Waits for the end of the program and returns its exit code; TimeoutError if it takes
        longer than it should."""
        try:
            return self._process.wait(END)
        except subprocess.TimeoutExpired:
            raise TimeoutError(f"the program doesn't end within {END:g} s") from None

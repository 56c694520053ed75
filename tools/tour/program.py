"""Sorvane as the person in front of it has it: menus, boxes and pages, worked by keys."""

import dataclasses
import subprocess

import offspring
from screen import below, focused, names, of_role, with_state
from wait import wait_for

BOX = "alert message"
MANUAL = "dialog"
END_WITHIN = 2.0  # seconds from the closing of the frame, on processors of its own
MOST_STEPS = 60  # with Tab or an arrow; more than any page has controls and any menu entries


@dataclasses.dataclass(frozen=True)
class Box:
    """What a message box says."""

    title: str
    text: str
    buttons: tuple


class Program(offspring.Running):
    """Sorvane, started from its folder on a desk: the file of this name, and with these variables
    beside those of the desk."""

    def __init__(self, desk, folder, file="Sorvane", variables=()):
        self._desk = desk
        self.complaints = folder.parent / f"{folder.name}.stderr"
        with open(self.complaints, "ab") as complaints:
            super().__init__(offspring.start(
                [str(folder / file)], env=desk.environment | dict(variables), cwd="/",
                stdin=subprocess.DEVNULL, stdout=complaints, stderr=complaints))

    # The windows.

    def _windows(self, role):
        application = self._desk.screen.application(self._process.pid)
        return of_role(application.children, role) if application else []

    def _part(self, role):
        """A part of the main frame, or None while that isn't shown."""
        frame = self.frame()
        return frame and frame.part(role)

    def frame(self):
        """The main frame, or None while it isn't shown."""
        return next(iter(with_state(self._windows("frame"), "showing")), None)

    def wait_ready(self):
        """Waits until a connection can be asked for."""
        wait_for("entry Connect", lambda: self.enabled("Connect"))

    def _front(self):
        return wait_for("frame in front",
                        lambda: next(iter(with_state(self._windows("frame"), "active")), None))

    def manual(self):
        """The window of the manual, or None while it isn't shown."""
        return next(iter(with_state(self._windows(MANUAL), "showing")), None)

    def leave_manual(self):
        """Closes the manual by its key and gives the keyboard back to the frame."""
        self._desk.press("Escape")
        wait_for("end of the manual", lambda: self.manual() is None)
        self._front()

    def lamp(self, name):
        """Whether a lamp of the status bar, "Transmit", "Receive" or "Error", is lit."""
        bar = self._part("status bar")
        return bar is not None and bar.find("label", f"{name}: on") is not None

    def wait_painted(self):
        """Waits until the screen shows what can be read: the program paints between two answers."""
        for _ in range(2):
            self.frame()

    # The menu bar.

    def _menu(self):
        """Every menu entry by the captions that lead to it."""
        bar = self._part("menu bar")
        tops = bar.children if bar else []
        drop_downs = below(tops)
        inner = iter(below([drop_down for its in drop_downs for drop_down in its]))
        tree = [(top, [entry for _ in its for entry in of_role(next(inner), "menu item")])
                for top, its in zip(tops, drop_downs)]
        entries = [entry for top, its in tree for entry in (top, *its)]
        captions = dict(zip(entries, names(entries)))
        paths = {}
        for top, its in tree:
            paths.setdefault((captions[top],), top)
            for entry in its:
                paths.setdefault((captions[top], captions[entry]), entry)
        return paths

    def _below(self, path):
        """The entries of the menu bar, if path is empty, or of a drop-down, by their captions."""
        return {its[-1]: entry for its, entry in self._menu().items() if its[:-1] == path}

    def entry(self, *path):
        """A menu entry by the captions that lead to it, such as "COM", "COM2"; None if absent."""
        return self._menu().get(path)

    def captions(self, *path):
        """The captions of the menu bar, left to right, or of a drop-down."""
        if path:
            return names(self.entry(*path).all("menu item"))
        bar = self._part("menu bar")
        return names(bar.children) if bar else []

    def enabled(self, *path):
        return self.enabled_among([path]) == [path]

    def enabled_among(self, paths):
        """Those of several menu entries that can be chosen, each by its captions."""
        menu = self._menu()
        there = {menu[path]: path for path in paths if path in menu}
        return [there[entry] for entry in with_state(list(there), "enabled")]

    def checked(self, *path):
        """The captions of the entries with a check mark in a drop-down."""
        return names(with_state(self.entry(*path).all("menu item"), "checked"))

    @staticmethod
    def _marked(entries):
        captions = {entry: caption for caption, entry in entries.items()}
        return [captions[entry] for entry in with_state(list(captions), "focused")]

    def choose(self, *path):
        """Chooses a menu entry by its captions, with the keyboard."""
        self.point_at(*path)
        self._desk.press("Return")

    def point_at(self, *path):
        """Goes to a menu entry by its captions and leaves the menu open there."""
        self._front()
        for depth, caption in enumerate(path):
            self._desk.press("Down" if depth else "alt")
            entries = wait_for(f"menu with {caption}", lambda: self._in_use(path[:depth], caption))
            self._walk(entries, caption, "Down" if depth else "Right")

    def leave_menu(self):
        """Gives the keyboard back from an open drop-down.

        A key that comes before the drop-down has closed may be lost with it.
        """
        bar = self._part("menu bar")
        drop_downs = bar.all("popup menu")
        self._desk.press("Escape")
        wait_for("end of the drop-down", lambda: not with_state(drop_downs, "showing"))
        self._desk.press("Escape")
        wait_for("end of the menu", lambda: not with_state(bar.children, "focused"))

    def _in_use(self, path, caption):
        """The entries at a place of the menu, once one of them is marked and a caption is there."""
        entries = self._below(path)
        return entries if caption in entries and self._marked(entries) else None

    def _walk(self, entries, caption, key):
        marked = self._marked(entries)
        for _ in range(MOST_STEPS):
            if marked == [caption]:
                return
            before = marked
            self._desk.press(key)
            marked = wait_for(f"move from {before}",
                              lambda: (now := self._marked(entries)) != before and now)
        raise LookupError(f"the keyboard doesn't reach {caption}")

    # The boxes.

    def front_box(self):
        """The message box in front, or None."""
        return next(iter(with_state(self._windows(BOX), "active")), None)

    def box(self):
        """Waits for a message box and returns what it says."""
        box = wait_for("message box", self.front_box)
        title = box.name
        wait_for(f"window {title} in front", lambda: self._desk.active_title() == title)
        return Box(title, "\n".join(names(box.all("label"))), tuple(names(box.all("push button"))))

    def has_box(self):
        return bool(self._windows(BOX))

    def answer(self, button):
        """Presses a button of the box in front, by keys."""
        box = wait_for("message box", self.front_box)
        self._tab_to(box, wait_for(f"button {button}", lambda: box.find("push button", button)))
        self._desk.press("Return")
        wait_for("end of the message box", lambda: not box.has("showing"))

    # The pages.

    def pages(self):
        """The open pages."""
        area = self._part("layered pane")
        return of_role(area.children, "frame") if area else []

    def page(self, title):
        """Waits for a page of a title and returns it."""
        return wait_for(f"page {title}", lambda: next(
            (page for page in self.pages() if page.name == title), None))

    def _pages_in_front(self):
        """What holds the pages, once the keyboard is there."""
        return self._front().part("layered pane")

    def _tab_to(self, window, control):
        controls = window.controls()
        here = focused(controls)
        for _ in range(MOST_STEPS):
            if here == control:
                return
            before = here
            self._desk.press("Tab")
            here = wait_for("move by Tab", lambda: (now := focused(controls)) != before and now)
        raise LookupError(f"Tab doesn't reach {control.name}")

    def type_into(self, field, text):
        """Goes to a field of the page in front by Tab, types a text over it and confirms it.

        A field that has the keyboard already keeps what stands in it before the text.
        """
        self._tab_to(self._pages_in_front(), field)
        self._desk.type(text)
        self._desk.press("Return")

    def press_in(self, control, *keys):
        """Goes to a control of the page in front and presses keys there."""
        self._tab_to(self._pages_in_front(), control)
        self._desk.press(*keys)

    def tabs_to_the_right(self, strip):
        """Brings the open tabs of a row to the front, one by one, and gives each one's caption."""
        def front():
            return with_state(strip.all("page tab"), "focused")

        while True:
            before = front()
            self.press_in(strip, "Right")
            # A closed tab can't be told from outside, but what has left the row has passed the key.
            self._desk.press("Tab")
            wait_for("keyboard behind the tabs", lambda: not strip.has("focused"))
            self._desk.press("shift+Tab")
            wait_for("keyboard on the tabs", lambda: strip.has("focused"))
            if front() == before:
                return  # it was the last
            yield front()[0].name

    def close_page(self, page):
        """Closes the page in front."""
        self._front()
        self._desk.press("ctrl+w")
        wait_for(f"end of page {page.name}", lambda: not page.has("showing"))

    # The end.

    def close_frame(self):
        """Closes the main frame: by keys if it is in front, by its close button if it isn't."""
        frame = wait_for("frame", self.frame)
        if frame.has("active"):
            self._desk.press("alt+F4")
            return
        left, top, width, _ = frame.place
        self._desk.click(left + width - 10, top - 10)

    def put_away(self):
        """Ends the program if it still runs: by closing its frame, by force if that doesn't help."""
        try:
            if self.is_running():
                self.close_frame()
            self.wait_end()
        except (TimeoutError, RuntimeError):
            self._process.kill()
            self._process.wait()

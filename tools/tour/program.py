"""Sorvane as the person in front of it has it: menus, boxes and pages, worked by keys."""

import dataclasses
import subprocess

import offspring
import screen
from wait import wait_for

MOST_STEPS = 60  # with Tab or an arrow; more than any page has controls and any menu entries


@dataclasses.dataclass(frozen=True)
class Box:
    """What a message box says."""

    title: str
    text: str
    buttons: tuple


class Program(offspring.Running):
    """Sorvane, started from its folder on a desk."""

    def __init__(self, desk, folder):
        self._desk = desk
        self.complaints = folder.parent / f"{folder.name}.stderr"
        with open(self.complaints, "ab") as complaints:
            super().__init__(offspring.start(
                [str(folder / "Sorvane")], env=desk.environment, cwd="/",
                stdin=subprocess.DEVNULL, stdout=complaints, stderr=complaints))

    # The windows.

    def _windows(self, role):
        application = screen.application(self._process.pid)
        children = application.children if application else ()
        return [child for child in children if child.role == role]

    def frame(self):
        """The main frame, or None while it isn't shown."""
        return next((frame for frame in self._windows("frame") if frame.has("showing")), None)

    def wait_ready(self):
        """Waits until a connection can be asked for."""
        wait_for("entry Connect", lambda: self.enabled("Connect"))

    def _front(self):
        return wait_for("frame in front", lambda: (frame := self.frame()) and
                        frame.has("active") and frame)

    def lamp(self, name):
        """Whether a lamp of the status bar, "Transmit", "Receive" or "Error", is lit."""
        frame = self.frame()
        return frame is not None and frame.find("label", f"{name}: on") is not None

    # The menu bar.

    def _bar(self):
        frame = self.frame()
        return next(iter(frame.all("menu bar")), None) if frame else None

    def entry(self, *path):
        """A menu entry by the captions that lead to it, such as "COM", "COM2"; None if absent."""
        found = self._bar()
        for caption in path:
            found = found and found.find("menu item", caption)
        return found

    def captions(self):
        """The captions of the menu bar, left to right."""
        bar = self._bar()
        return [entry.name for entry in bar.children] if bar else []

    def enabled(self, *path):
        entry = self.entry(*path)
        return entry is not None and entry.has("enabled")

    def checked(self, *path):
        """The captions of the entries with a check mark in a drop-down."""
        menu = self.entry(*path)
        return [entry.name for entry in menu.all("menu item") if entry.has("checked")]

    def choose(self, *path):
        """Chooses a menu entry by its captions, with the keyboard."""
        self.point_at(*path)
        self._desk.press("Return")

    def point_at(self, *path):
        """Goes to a menu entry by its captions and leaves the menu open there."""
        self._front()
        self._desk.press("alt")
        wait_for("menu bar in use", lambda: self._marked(self._bar().children))
        for depth, caption in enumerate(path, start=1):
            menu = self._bar() if depth == 1 else self.entry(*path[:depth - 1])
            if depth > 1:
                self._desk.press("Down")
                wait_for("drop-down", lambda: self._marked(menu.all("menu item")))
            entry = wait_for(f"entry {caption}", lambda: menu.find("menu item", caption))
            self._walk(menu, entry, "Right" if depth == 1 else "Down")

    @staticmethod
    def _marked(entries):
        return next((entry.name for entry in entries if entry.has("focused")), None)

    def _walk(self, menu, entry, key):
        def marked():
            below = menu.children if menu.role == "menu bar" else menu.all("menu item")
            return self._marked(below)

        for _ in range(MOST_STEPS):
            before = marked()
            if entry.has("focused"):
                return
            self._desk.press(key)
            wait_for(f"move from {before}", lambda: marked() not in (None, before))
        raise LookupError(f"the keyboard doesn't reach {entry.name}")

    # The boxes.

    def front_box(self):
        """The message box in front, or None."""
        return next((box for box in self._windows("alert") if box.has("active")), None)

    def box(self):
        """Waits for a message box and returns what it says."""
        box = wait_for("message box", self.front_box)
        return Box(wait_for("title of the message box", self._desk.active_title),
                   "\n".join(label.name for label in box.all("label")),
                   tuple(button.name for button in box.all("push button")))

    def has_box(self):
        return bool(self._windows("alert"))

    def answer(self, button):
        """Presses a button of the box in front, by keys."""
        box = wait_for("message box", self.front_box)
        self._tab_to(box, wait_for(f"button {button}", lambda: box.find("push button", button)))
        self._desk.press("Return")
        wait_for("end of the message box",
                 lambda: not self.is_running() or not box.has("showing"))

    # The pages.

    def pages(self):
        """The open pages."""
        frame = self.frame()
        area = frame.all("layered pane") if frame else ()
        return [page for page in area[0].children if page.role == "frame"] if area else []

    def page(self, title):
        """Waits for a page of a title and returns it."""
        return wait_for(f"page {title}", lambda: next(
            (page for page in self.pages() if page.name == title), None))

    def _tab_to(self, window, control):
        for _ in range(MOST_STEPS):
            if control.has("focused"):
                return
            before = window.focus()
            self._desk.press("Tab")
            wait_for(f"move from {before}", lambda: window.focus() not in (None, before))
        raise LookupError(f"Tab doesn't reach {control.name}")

    def type_into(self, field, text):
        """Goes to a field of the page in front by Tab, types a text over it and confirms it.

        A field that has the keyboard already keeps what stands in it before the text.
        """
        self._tab_to(self._front(), field)
        self._desk.type(text)
        self._desk.press("Return")

    def press_in(self, control, *keys):
        """Goes to a control of the page in front and presses keys there."""
        self._tab_to(self._front(), control)
        self._desk.press(*keys)

    def tabs_to_the_right(self, strip):
        """Brings the open tabs of a row to the front, one by one, and gives each one's caption."""
        def front():
            return next((tab.name for tab in strip.all("page tab") if tab.has("focused")), None)

        while True:
            before = front()
            self.press_in(strip, "Right")
            try:
                wait_for("another tab", lambda: front() not in (None, before), 1)
            except TimeoutError:
                return  # it was the last
            yield front()

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

    def wait_end(self, limit):
        """Waits for the end of the program and returns its exit code; TimeoutError after limit
        seconds."""
        try:
            return self._process.wait(limit)
        except subprocess.TimeoutExpired:
            raise TimeoutError(f"the program doesn't end within {limit:g} s") from None

    def put_away(self, limit):
        """Ends the program if it still runs: by closing its frame, by force after limit seconds.

        A program that is killed leaves the lock of its port behind.
        """
        try:
            if self.is_running():
                self.close_frame()
            self.wait_end(limit)
        except (TimeoutError, subprocess.CalledProcessError):
            self._process.kill()
            self._process.wait()

"""The windows of a virtual display, as the display itself has them."""

import dataclasses

from PIL import ImageGrab
from Xlib import X
from Xlib.display import Display
from Xlib.error import XError


@dataclasses.dataclass(frozen=True)
class Window:
    """A window that can be seen. Its place, in pixels of the screen, is that of its content."""

    number: int
    title: str
    process: int
    managed: bool  # has a frame of the window manager; menus haven't
    left: int
    top: int
    width: int
    height: int

    @property
    def area(self):
        return self.left, self.top, self.left + self.width, self.top + self.height


class XWindows:
    """The windows on a display, such as ":1"."""

    def __init__(self, name):
        self._name = name
        self._display = Display(name)
        self._root = self._display.screen().root

    def _property(self, window, name):
        found = window.get_full_property(self._display.intern_atom(name), X.AnyPropertyType)
        return found.value if found else ()

    def all(self):
        """The windows that can be seen and belong to a process."""
        managed = list(self._property(self._root, "_NET_CLIENT_LIST"))
        others = [window.id for window in self._root.query_tree().children]
        found = []
        for number in {*managed, *others}:
            try:
                window = self._look(number, number in managed)
            except XError:  # it has vanished meanwhile
                continue
            if window:
                found.append(window)
        return found

    def _look(self, number, managed):
        window = self._display.create_resource_object("window", number)
        process = self._property(window, "_NET_WM_PID")
        if window.get_attributes().map_state != X.IsViewable or not len(process):
            return None
        size = window.get_geometry()
        place = self._root.translate_coords(window, 0, 0)
        title = bytes(self._property(window, "_NET_WM_NAME")).decode()
        return Window(number, title, process[0], managed, place.x, place.y, size.width,
                      size.height)

    def active(self):
        """The number of the window that has the keyboard."""
        return next(iter(self._property(self._root, "_NET_ACTIVE_WINDOW")), None)

    def picture(self):
        """What the screen shows."""
        return ImageGrab.grab(xdisplay=self._name)

    def close(self):
        self._display.close()

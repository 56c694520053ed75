"""Reading what a program shows, by way of the desktop's accessibility service.

It reads from the desk that stands when something is read first. An element that has vanished reads
as empty: it has no name, no states and no children.
"""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version is asked for before)


def _or(default):
    """Reads that fail, as the element has vanished meanwhile, give default."""

    def wrap(read):
        def safe(*arguments):
            try:
                return read(*arguments)
            except GLib.Error:
                return default

        return safe

    return wrap


class Element:
    """One element of a program's windows: a window, a menu entry, a control."""

    def __init__(self, accessible):
        self._accessible = accessible

    @property
    @_or("")
    def role(self):
        return self._accessible.get_role_name()

    @property
    @_or("")
    def name(self):
        return self._accessible.get_name()

    @property
    @_or("")
    def text(self):
        """What stands in a field."""
        return Atspi.Text.get_text(self._accessible, 0, -1)

    @property
    @_or(None)
    def value(self):
        """The whole number that a bar or slider stands at."""
        return int(Atspi.Value.get_current_value(self._accessible))

    @_or(False)
    def has(self, state):
        """Whether a state holds, such as "enabled", "checked" or "focused"."""
        states = self._accessible.get_state_set().get_states()
        return any(state == held.value_nick for held in states)

    @property
    @_or((0, 0, 0, 0))
    def place(self):
        """Left, top, width and height on the screen, in pixels."""
        area = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return area.x, area.y, area.width, area.height

    @property
    @_or(())
    def children(self):
        count = self._accessible.get_child_count()
        found = [self._accessible.get_child_at_index(index) for index in range(count)]
        return [Element(child) for child in found if child is not None]

    def all(self, role):
        """Every element of a role below this one, in their order."""
        found = []
        for child in self.children:
            if child.role == role:
                found.append(child)
            found += child.all(role)
        return found

    def focus(self):
        """What has the keyboard below this element, as something to compare; None if nothing.

        The tab in front says that it is focused wherever the keyboard is; its row tells the truth.
        """
        for child in self.children:
            if child.role == "page tab":
                continue
            inner = child.focus()
            if inner or child.has("focused"):
                return inner or (child.role, child.name, child.place)
        return None

    def find(self, role, name):
        """The first element of a role and a name below this one, or None."""
        return next((found for found in self.all(role) if found.name == name), None)


@_or(None)
def application(process):
    """The application of a process, or None while it shows nothing."""
    Atspi.init()
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        found = desktop.get_child_at_index(index)
        if found is not None and found.get_process_id() == process:
            return Element(found)
    return None

"""Reading what a program shows, by way of the desktop's accessibility service.

The service is asked over its bus. What is asked of several elements goes out in one go, since each
question that is waited for costs a turn through the bus and the program. An element that has
vanished reads as empty: it has no name, no states and no children.
"""

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  (the version is asked for before)

ROOT = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
ACCESSIBLE = "org.a11y.atspi.Accessible"
PROPERTIES = "org.freedesktop.DBus.Properties"
ON_SCREEN = 0  # places count from the screen's corner

# The bits of the states, of 64 that come as two words.
STATES = {"active": 1, "checked": 4, "enabled": 8, "focused": 12, "showing": 25}

# What has nothing below it.
LEAVES = {"check box", "column header", "label", "progress bar", "push button", "separator",
          "slider", "text", "tree item"}


def _connect(address):
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)


class Screen:
    """What the programs show that take part in the session of a message bus."""

    def __init__(self, session):
        address = _connect(session).call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
            Gio.DBusCallFlags.NONE, -1, None).unpack()[0]
        self._bus = _connect(address)
        self._applications = {}  # by process
        self._roles = {}  # by place on the bus, where no other element comes to stand

    def application(self, process):
        """The application of a process, or None if it hasn't shown anything yet."""
        if process not in self._applications:
            self._applications |= {self._process(program.on_bus[0]): program
                                   for program in Element(self, ROOT).children}
        return self._applications.get(process)

    def _process(self, name):
        return self.ask([("org.freedesktop.DBus", "/org/freedesktop/DBus")], None,
                        "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                        GLib.Variant("(s)", (name,)))[0]

    def ask(self, places, default, interface, method, arguments=None):
        """What each of several places on the bus answers to a question, or default."""
        answers = [default] * len(places)
        missing = len(places)

        def take(bus, result, index):
            nonlocal missing
            missing -= 1
            try:
                answers[index] = bus.call_finish(result).unpack()[0]
            except GLib.Error:  # the element has vanished meanwhile
                pass

        for index, place in enumerate(places):
            self._bus.call(*place, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1,
                           None, take, index)
        while missing:
            GLib.MainContext.default().iteration(True)
        return answers

    def roles(self, places):
        new = [place for place in places if place not in self._roles]
        found = self.ask(new, "", ACCESSIBLE, "GetRoleName")
        self._roles |= {place: role for place, role in zip(new, found) if role}
        return [self._roles.get(place, "") for place in places]


def _ask(elements, default, interface, method, arguments=None):
    """What each of several elements of one screen answers to a question, or default."""
    return elements[0].screen.ask([element.on_bus for element in elements], default, interface,
                                  method, arguments) if elements else []


def _properties(elements, default, interface, name):
    return _ask(elements, default, PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)))


def names(elements):
    return _properties(elements, "", ACCESSIBLE, "Name")


def texts(elements):
    """What stands in each of several fields."""
    return _ask(elements, "", "org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))


def values(elements):
    """The whole number that each of several bars or sliders stands at, or None."""
    found = _properties(elements, None, "org.a11y.atspi.Value", "CurrentValue")
    return [None if value is None else int(value) for value in found]


def places(elements):
    """Left, top, width and height of each of several elements on the screen, in pixels."""
    return _ask(elements, (0, 0, 0, 0), "org.a11y.atspi.Component", "GetExtents",
                GLib.Variant("(u)", (ON_SCREEN,)))


def with_state(elements, state):
    """Those of several elements that have a state, such as "enabled", "checked" or "focused"."""
    word, bit = divmod(STATES[state], 32)
    found = _ask(elements, (0, 0), ACCESSIBLE, "GetState")
    return [element for element, words in zip(elements, found) if words[word] >> bit & 1]


def focused(controls):
    """Which of an element's controls has the keyboard, or None."""
    return next(reversed(with_state(controls, "focused")), None)


def _roles(elements):
    return elements[0].screen.roles([element.on_bus for element in elements]) if elements else []


def of_role(elements, role):
    """Those of several elements that have a role."""
    return [element for element, its in zip(elements, _roles(elements)) if its == role]


def below(elements):
    """The children of each of several elements."""
    found = _ask(elements, (), ACCESSIBLE, "GetChildren")
    return [[Element(element.screen, place) for place in places]
            for element, places in zip(elements, found)]


class Element:
    """One element of a program's windows: a window, a menu entry, a control."""

    def __init__(self, screen, on_bus):
        self.screen = screen
        self.on_bus = on_bus

    def __eq__(self, other):
        return isinstance(other, Element) and self.on_bus == other.on_bus

    def __hash__(self):
        return hash(self.on_bus)

    @property
    def role(self):
        return _roles([self])[0]

    @property
    def name(self):
        return names([self])[0]

    @property
    def text(self):
        """What stands in a field."""
        return texts([self])[0]

    @property
    def value(self):
        """The whole number that a bar or slider stands at."""
        return values([self])[0]

    def has(self, state):
        return bool(with_state([self], state))

    @property
    def place(self):
        """Left, top, width and height on the screen, in pixels."""
        return places([self])[0]

    @property
    def children(self):
        return below([self])[0]

    def _walk(self):
        """Everything below this element, each with its role, in their order."""
        tree = {}
        floor = [self]
        while floor:
            found = below(floor)
            its = iter(_roles([child for children in found for child in children]))
            for element, children in zip(floor, found):
                tree[element] = [(child, next(its)) for child in children]
            floor = [child for element in floor for child, role in tree[element]
                     if role not in LEAVES]

        def unfold(element):
            for child, role in tree.get(element, ()):
                yield child, role
                yield from unfold(child)

        return unfold(self)

    def all(self, role):
        """Every element of a role below this one, in their order."""
        return [element for element, its in self._walk() if its == role]

    def find(self, role, name):
        """The first element of a role and a name below this one, or None."""
        found = self.all(role)
        return next((element for element, its in zip(found, names(found)) if its == name), None)

    def part(self, role):
        """The first child of a role, or None."""
        return next(iter(of_role(self.children, role)), None)

    def focus(self):
        """What has the keyboard below this element; None if nothing."""
        return focused(self.controls())

    def controls(self):
        """Everything below this element that can have the keyboard.

        The tab in front says that it is focused wherever the keyboard is; its row tells the truth.
        """
        return [element for element, role in self._walk() if role != "page tab"]

"""A desk of its own: a virtual display with a window manager and a message bus.

A program that stands on it is worked with keys and mouse, like one on a real display, and what it
shows is read by way of the desktop's accessibility service.
"""

import functools
import os
import pathlib
import shutil
import subprocess
import tempfile

import offspring
from keyboard import Keyboard
from screen import Screen

SCREEN = "1280x900x24"
# Of a picture for a document.
SMALL = ("-strip", "+dither", "-colors", "256", "-define", "png:compression-level=9")

TOOLS = ("Xvfb", "openbox", "dbus-daemon", "xprop", "import", "convert")

# What the caller may set for the programs on the desk: how sanitized builds report, the time, the
# time zone, and what Qt makes of the processor. His language is none of theirs.
PASSED_ON = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LD_PRELOAD", "FAKETIME", "FAKETIME_SHARED",
             "FAKETIME_DONT_FAKE_MONOTONIC", "TZ", "QT_NO_CPU_FEATURE")


class Desk:
    """Stands from its making to close(). Raises RuntimeError if a tool is missing or a part doesn't
    start."""

    def __init__(self, screen=SCREEN):
        missing = [tool for tool in TOOLS if shutil.which(tool) is None]
        if missing:
            raise RuntimeError(f"tools are missing: {', '.join(missing)}")
        offspring.adopt_orphans()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="sorvane-"))
        self._log = open(self.folder / "desk.log", "wb")
        home = self.folder / "home"
        home.mkdir()
        self.environment = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        self.environment |= {
            "HOME": str(home),
            "XDG_RUNTIME_DIR": str(self.folder),
            "LC_ALL": "C.UTF-8",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        try:
            self._start_display(screen)
            self._start_bus()
            self._start_window_manager()
            self._keyboard = Keyboard(self.environment["DISPLAY"])
        except BaseException:
            self.close()
            raise

    def _start(self, command, **options):
        return offspring.start(command, env=self.environment, stdin=subprocess.DEVNULL,
                               stderr=self._log, **options)

    def _start_display(self, screen):
        reader, writer = os.pipe()
        # A display that starts anew when its last client leaves turns others away meanwhile. One
        # that repeats keys does so when a busy machine delays their release.
        self._start(["Xvfb", "-displayfd", str(writer), "-screen", "0", screen,
                     "-nolisten", "tcp", "-noreset", "-r"], pass_fds=[writer], stdout=self._log)
        os.close(writer)
        with open(reader, encoding="ascii") as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError(f"no virtual display: {self.log()}")
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--nopidfile",
                           f"--address=unix:path={self.folder}/bus", "--print-address=1"],
                          stdout=subprocess.PIPE, text=True)
        address = bus.stdout.readline().strip()
        if not address:
            raise RuntimeError(f"no message bus: {self.log()}")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address

    def _start_window_manager(self):
        # Windows that come before it says so might never get the keyboard.
        manager = self._start(["openbox", "--startup", "echo ready"], stdout=subprocess.PIPE)
        if not manager.stdout.readline():
            raise RuntimeError(f"no window manager: {self.log()}")

    def _ask(self, *command):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=self._log, text=True,
                              check=False).stdout

    def log(self):
        """What the parts of the desk complained about."""
        self._log.flush()
        return (self.folder / "desk.log").read_text(errors="replace").strip()

    def press(self, *keys):
        """Presses keys, such as "Return" or "alt+F4", one after the other."""
        for key in keys:
            self._keyboard.press(key)

    def type(self, text):
        self._keyboard.type(text)

    def click(self, x, y):
        """Clicks at a place of the screen, in pixels."""
        self._keyboard.click(x, y)

    def active_title(self):
        """The title of the window in front; empty if there is none."""
        return self._keyboard.front_title()

    def _front_window(self):
        return str(self._keyboard.front_window())

    def front_edges(self):
        """What the window manager has drawn around the window in front, in pixels: left, right,
        top, bottom."""
        edges = self._ask("xprop", "-id", self._front_window(), "_NET_FRAME_EXTENTS")
        return tuple(int(edge) for edge in edges.rsplit("=", 1)[1].split(","))

    def take_front_window(self, path):
        """Saves the window in front without its border as a PNG file in at most 256 colours."""
        self._import("-window", self._front_window(), *SMALL, f"png8:{path}")

    def take_picture(self, path, area=None):
        """Saves what the screen shows as a PNG file: all of it, or an area of left, top, width and
        height in pixels, in at most 256 colours."""
        if area:
            left, top, width, height = area
            self._import("-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage",
                         *SMALL, f"png8:{path}")
        else:
            self._import("-window", "root", str(path))

    def _import(self, *arguments):
        subprocess.run(["import", *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                       stderr=self._log, check=True)

    @functools.cached_property
    def screen(self):
        """What the programs on the desk show."""
        return Screen(self.environment["DBUS_SESSION_BUS_ADDRESS"])

    def close(self):
        """Ends everything that was started by this process."""
        offspring.end_all()
        self._log.close()
        shutil.rmtree(self.folder, ignore_errors=True)

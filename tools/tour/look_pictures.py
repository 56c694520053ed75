"""The pictures of docs/look.md: the payment page on desktops of several sizes and colours, and a
settings dialog of another program on the same desktops, side by side with it."""

import shutil
import subprocess

import offspring
from visit import PAYMENT, Visit
from wait import wait_for

SCREEN = "2560x1800x24"  # room for the frame at 200 %
LANGUAGE = "English"

# What a desktop that calls itself KDE tells its programs of colours and font.
COLOURS = """[Colors:Window]
BackgroundNormal={ground}
ForegroundNormal={text}
[Colors:Button]
BackgroundNormal={ground}
ForegroundNormal={text}
[Colors:View]
BackgroundNormal={field}
BackgroundAlternate={ground}
ForegroundNormal={text}
[Colors:Selection]
BackgroundNormal={accent}
ForegroundNormal=255,255,255
[General]
font=DejaVu Sans,{points},-1,5,50,0,0,0,0,0
"""
LIGHT = {"ground": "239,239,239", "text": "0,0,0", "field": "255,255,255", "accent": "48,140,198"}
DARK = {"ground": "49,54,59", "text": "239,240,241", "field": "27,30,32", "accent": "61,174,233"}
KDE = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
POINTS = 9
LARGE_POINTS = 16

# The desktops, by the name of their pictures: scale, colours and size of the letters.
DESKTOPS = {"100": (1, LIGHT, POINTS), "125": (1.25, LIGHT, POINTS), "150": (1.5, LIGHT, POINTS),
            "200": (2, LIGHT, POINTS), "large-font": (1, LIGHT, LARGE_POINTS),
            "dark": (1, DARK, POINTS)}

# The other program: Debian's qBittorrent, a Qt Widgets program of many settings.
OTHER = "qbittorrent"
OTHER_SETTINGS = "[LegalNotice]\nAccepted=true\n[Preferences]\nGeneral\\Locale=en\n"
OTHER_DESKTOPS = ("100", "large-font", "dark")


class LookVisit(Visit):
    def __init__(self, desk, built, name):
        super().__init__(desk, built, f"look-{name}", LANGUAGE)

    def run(self, picture):
        self._start_program()
        self._program.wait_ready()
        self._connect()
        self._open(PAYMENT)
        self._program.wait_painted()
        self._desk.take_front_window(picture)
        self._program.close_frame()
        self._program.wait_end()


def take_other(desk, picture):
    """The options of the other program, as they come up."""
    other = offspring.start([OTHER], env=desk.environment, cwd="/", stdin=subprocess.DEVNULL,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for("the other program", lambda: desk.active_title().startswith("qBittorrent"))
    desk.press("alt+o")
    wait_for("its options", lambda: desk.active_title() == "Preferences")
    desk.take_front_window(picture)
    other.kill()
    other.wait()


def take_look_pictures(desk, built, pictures):
    settings = desk.folder / "home" / ".config"
    (settings / "qBittorrent").mkdir(parents=True)
    (settings / "qBittorrent" / "qBittorrent.conf").write_text(OTHER_SETTINGS, encoding="ascii")
    desk.environment |= KDE
    for name, (scale, colours, points) in DESKTOPS.items():
        (settings / "kdeglobals").write_text(COLOURS.format(points=points, **colours),
                                             encoding="ascii")
        desk.environment["QT_SCALE_FACTOR"] = str(scale)
        LookVisit(desk, built, name).run(pictures / f"payment-{name}.png")
        if name in OTHER_DESKTOPS and shutil.which(OTHER):
            take_other(desk, pictures / f"other-{name}.png")
        print(f"look: {name}", flush=True)

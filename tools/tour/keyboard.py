"""Keys, clicks and windows of a display, by the library of xdotool: no process for each of them."""

import ctypes

CURRENT_WINDOW = 0
LEFT_BUTTON = 1
PAUSE = 0  # microseconds between keys

_x11 = ctypes.CDLL("libX11.so.6")
_xdo = ctypes.CDLL("libxdo.so.3")
_xdo.xdo_new.restype = ctypes.c_void_p

# A window may go while it is asked for something. Left alone, the library would end this process.
_ignore = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
_x11.XSetErrorHandler(_ignore)


class Keyboard:
    """Keyboard and mouse of a display. What is pressed goes to the window that has the keyboard.

    Raises RuntimeError if the display can't be had.
    """

    def __init__(self, display):
        self._xdo = ctypes.c_void_p(_xdo.xdo_new(display.encode("ascii")))
        if not self._xdo:
            raise RuntimeError(f"no keyboard on display {display}")

    def press(self, keys):
        """Presses keys together, such as "alt+F4"."""
        self._check(_xdo.xdo_send_keysequence_window(
            self._xdo, CURRENT_WINDOW, keys.encode("ascii"), PAUSE), keys)

    def type(self, text):
        self._check(_xdo.xdo_enter_text_window(
            self._xdo, CURRENT_WINDOW, text.encode("utf-8"), PAUSE), text)

    def click(self, x, y):
        self._check(_xdo.xdo_move_mouse(self._xdo, x, y, 0), f"{x},{y}")
        self._check(_xdo.xdo_click_window(self._xdo, CURRENT_WINDOW, LEFT_BUTTON), f"{x},{y}")

    @staticmethod
    def _check(code, what):
        if code != 0:
            raise RuntimeError(f"{what} can't be pressed")

    def front_window(self):
        """The number of the window in front; 0 if there is none."""
        window = ctypes.c_ulong(0)
        _xdo.xdo_get_active_window(self._xdo, ctypes.byref(window))
        return window.value

    def front_title(self):
        """What stands in the title of the window in front; empty if there is none."""
        window = self.front_window()
        name = ctypes.c_char_p()
        length, kind = ctypes.c_int(0), ctypes.c_int(0)
        _xdo.xdo_get_window_name(self._xdo, ctypes.c_ulong(window), ctypes.byref(name),
                                 ctypes.byref(length), ctypes.byref(kind))
        title = name.value or b""
        _x11.XFree(name)
        return title.decode("utf-8")

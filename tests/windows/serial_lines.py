#!/usr/bin/python3
"""Runs a test program under Wine, with serial lines: serial_lines.py PREFIX PROGRAM [ARGUMENT]...

The program's ports COM1 and COM2 are the two ends of one line. By COM3 it asks for what happens to
the device of COM1: a word, answered by words, each with a line feed behind it.

    settings    answers speed and stop bits of the device, with the handshakes that are switched on
    arrived     answers how many bytes lie at the device, not read yet
    open        answers "yes" if a program has the device open, and "no" otherwise
    hold        nobody can open the device again
    vanish      the device is gone
    replace     a new device stands at COM1
    remove      no device stands at COM1
    file        a file stands at COM1

A stranger at a line is a failure, and so is a line on which nothing happens for too long.
"""

import ctypes
import fcntl
import os
import pathlib
import select
import struct
import sys
import tempfile
import termios
import time
import tty

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tools" / "tour")]

from offspring import adopt_orphans  # noqa: E402
from own_terminals import take_own_terminals  # noqa: E402
from prefix import Prefix  # noqa: E402
from strangers import StrangerError, holders, refuse_strangers  # noqa: E402

PR_CAPBSET_DROP = 24
CAP_SYS_ADMIN = 21

WORDS = (b"settings", b"arrived", b"open", b"hold", b"vanish", b"replace", b"remove", b"file")

LOOK = 1.0  # seconds of silence after which it is looked who is at the lines
SILENCE = 120.0  # seconds; a prefix of Wine wakes up slowly on a busy machine


class Terminal:
    """A pseudo-terminal that passes bytes raw. It is held open, so that it stays without a user."""

    def __init__(self):
        self.board, self._held = os.openpty()
        tty.setraw(self._held)
        os.set_blocking(self.board, False)
        self.device = os.ttyname(self._held)
        self.waiting = b""  # bytes for the program, which it has no room for yet

    def read(self):
        return os.read(self.board, 65536)

    def write(self, more=b""):
        if self.board is None:
            return
        self.waiting += more
        try:
            self.waiting = self.waiting[os.write(self.board, self.waiting):]
        except BlockingIOError:
            pass

    def settings(self):
        iflag, _, cflag, _, _, speed, _ = termios.tcgetattr(self._held)
        words = "19200 baud" if speed == termios.B19200 else "another speed"
        words += ", 2 stop bits" if cflag & termios.CSTOPB else ", 1 stop bit"
        words += ", handshake by lines" if cflag & termios.CRTSCTS else ""
        words += ", handshake by characters" if iflag & (termios.IXON | termios.IXOFF) else ""
        return words

    def holders(self):
        return holders(self._held)

    def refuse_strangers(self):
        refuse_strangers(self._held)

    def count_arrived(self):
        return struct.unpack("i", fcntl.ioctl(self._held, termios.TIOCINQ, bytes(4)))[0]

    def hold(self):
        fcntl.ioctl(self._held, termios.TIOCEXCL)

    def vanish(self):
        """The device is gone. As long as it is held, no other terminal of the machine gets its
        name."""
        if self.board is not None:
            os.close(self.board)
        self.board = None
        self.waiting = b""

    def close(self):
        os.close(self._held)


class Lines:
    """The three terminals. COM1 leads to its device by a link, which can be led elsewhere."""

    def __init__(self, folder):
        self._folder = pathlib.Path(folder)
        self.com1 = Terminal()
        self.com2 = Terminal()
        self.com3 = Terminal()
        self._word = b""
        self._lead_to(self.com1.device)

    @property
    def link(self):
        return self._folder / "COM1"

    def _lead_to(self, target):
        self.link.unlink(missing_ok=True)
        self.link.symlink_to(target)

    def replace(self):
        before, self.com1 = self.com1, Terminal()
        self._lead_to(self.com1.device)
        self.com2.waiting = b""
        before.vanish()
        before.close()

    def vanish(self):
        self.com1.vanish()

    def remove(self):
        self._lead_to(self._folder / "missing")

    def file(self):
        (self._folder / "file").touch()
        self._lead_to(self._folder / "file")

    def settings(self):
        return self.com1.settings()

    def arrived(self):
        return self.com1.count_arrived()

    def hold(self):
        self.com1.hold()

    def open(self):
        """Whether a process besides this one has the device open."""
        return "yes" if self.com1.holders() else "no"

    def refuse_strangers(self):
        for terminal in (self.com1, self.com2, self.com3):
            terminal.refuse_strangers()

    def run_until_end_of(self, process):
        """Passes bytes on and answers until a process has ended. Raises StrangerError if there are
        signs of a stranger, and TimeoutError if nothing happens any more."""
        end = os.pidfd_open(process.pid)
        last = time.monotonic()
        while True:
            ends = [terminal for terminal in (self.com1, self.com2) if terminal.board is not None]
            # A line takes no more bytes than its other end has room for.
            readable = [end, self.com3.board] + [
                terminal.board for terminal in ends if not self._other(terminal).waiting]
            writable = [terminal.board for terminal in ends if terminal.waiting]
            readable, writable, _ = select.select(readable, writable, [], LOOK)
            if end in readable:
                self.refuse_strangers()
                return
            if readable or writable:
                last = time.monotonic()
            else:
                self.refuse_strangers()
                if time.monotonic() - last > SILENCE:
                    raise TimeoutError(f"nothing on the lines for {SILENCE:g} s: the program hangs, "
                                       "or somebody who can't be seen takes its bytes")
            for terminal in ends:
                if terminal.board in writable:
                    terminal.write()
                if terminal.board in readable:
                    self._other(terminal).write(terminal.read())
            if self.com3.board in readable:
                self._answer(self.com3.read())

    def _other(self, terminal):
        return self.com1 if terminal is self.com2 else self.com2

    def _answer(self, more):
        *words, self._word = (self._word + more).split(b"\n")
        for word in words:
            if word not in WORDS:
                self.refuse_strangers()
                raise StrangerError(f"foreign bytes at COM3: {word!r}")
            answer = getattr(self, word.decode())()
            self.com3.write(f"{answer}\n".encode())


def main():
    take_own_terminals()
    adopt_orphans()  # also what Wine leaves running is known as part of the tests
    # Without this right an administrator can't open a terminal that is held, like anybody else.
    ctypes.CDLL(None).prctl(PR_CAPBSET_DROP, CAP_SYS_ADMIN, 0, 0, 0)

    prefix = Prefix(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        lines = Lines(folder)
        try:
            prefix.map_port(1, lines.link)
            prefix.map_port(2, lines.com2.device)
            prefix.map_port(3, lines.com3.device)
            process = prefix.start(*sys.argv[2:])
            lines.run_until_end_of(process)
            return process.wait()
        except (StrangerError, TimeoutError) as error:
            return f"{pathlib.Path(sys.argv[0]).name}: {error}"
        finally:
            prefix.close()


if __name__ == "__main__":
    sys.exit(main())

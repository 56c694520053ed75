"""The simulated board at the other end of the line."""

import queue
import subprocess
import threading

import offspring
from wait import PATIENCE

# How the board begins the lines that tell what happens on the wire.
EXCHANGE = ("read ", "write ", "no parameter", "bad checksum", "half a request", "line ")


class Board(offspring.Running):
    """SorvaneBoard of a program folder, worked by its lines.

    The line COM1 stands in the folder when it has been made. Raises RuntimeError if the board
    doesn't start.
    """

    def __init__(self, folder, environment, *arguments):
        super().__init__(offspring.start(
            [str(folder / "SorvaneBoard"), *arguments], env=environment, text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT))
        self._lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()
        first = self._next_line()
        if not first.startswith("line "):
            raise RuntimeError(f"the board doesn't start: {first}")

    def _read(self):
        for line in self._process.stdout:
            self._lines.put(line.rstrip("\n"))
        self._lines.put(None)

    def _next_line(self):
        try:
            line = self._lines.get(timeout=PATIENCE)
        except queue.Empty:
            raise TimeoutError("the board says nothing") from None
        if line is None:
            raise RuntimeError("the board has ended")
        return line

    def tell(self, command):
        """Gives the board a command and returns its answer."""
        self._process.stdin.write(command + "\n")
        self._process.stdin.flush()
        while (line := self._next_line()).startswith(EXCHANGE):
            pass
        if line.startswith("error"):
            raise RuntimeError(f"{command}: {line}")
        return line

    def holds(self, parameter):
        """The number that stands in the board's memory."""
        return int(self.tell(f"get {parameter}").rsplit("= ", 1)[1])

    def close(self):
        self._process.kill()
        self._process.wait()

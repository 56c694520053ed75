"""The simulated board at the other end of the line."""

import collections
import queue
import subprocess
import threading

import offspring
from wait import PATIENCE, wait_for

# How the board begins the lines that tell what happens on the wire, beside "read ".
EXCHANGE = ("write ", "no parameter", "bad checksum", "half a request", "line ")
MOST_READINGS = 1000  # that are remembered


def came_round(readings):
    """Whether a parameter has been read twice."""
    return len(set(readings)) < len(readings)


class Board(offspring.Running):
    """SorvaneBoard of a program folder, worked by its lines.

    The line COM1 stands in the folder when it has been made. Raises RuntimeError if the board
    doesn't start.
    """

    def __init__(self, folder, environment, *arguments):
        super().__init__(offspring.start(
            [str(folder / "SorvaneBoard"), *arguments], env=environment, text=True,
            encoding="utf-8", errors="surrogateescape", stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT))
        self._answers = queue.Queue()
        self._readings = collections.deque(maxlen=MOST_READINGS)
        first = self._process.stdout.readline().rstrip("\n")
        if not first.startswith("line "):
            raise RuntimeError(f"the board doesn't start: {first}")
        self._hear(first)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self._process.stdout:
            self._hear(line.rstrip("\n"))
        self._answers.put(None)

    def _hear(self, line):
        """Takes a line that the board has printed; called at the start for the first one, and then
        by the thread that reads them."""
        if line.startswith("read "):
            self._readings.append(line.split("=")[0])
        elif not line.startswith(EXCHANGE):
            self._answers.put(line)

    def tell(self, command):
        """Gives the board a command and returns its answer."""
        self._process.stdin.write(command + "\n")
        self._process.stdin.flush()
        try:
            line = self._answers.get(timeout=PATIENCE)
        except queue.Empty:
            raise TimeoutError("the board says nothing") from None
        if line is None:
            raise RuntimeError("the board has ended")
        if line.startswith("error"):
            raise RuntimeError(f"{command}: {line}")
        return line

    def holds(self, parameter):
        """The number that stands in the board's memory."""
        return int(self.tell(f"get {parameter}").rsplit("= ", 1)[1])

    def take_readings(self):
        """What has been read of the board since this was asked last, one by one."""
        return [self._readings.popleft() for _ in range(len(self._readings))]

    def wait_round(self):
        """Waits until all that the open pages watch has been read from now on.

        The program goes round what is watched. So one number that is read over and over must be
        watched, and when it is read again, the others have had their turn.
        """
        self._readings.clear()
        wait_for("round of readings", lambda: came_round(list(self._readings)))

    def close(self):
        self._process.kill()
        self._process.wait()

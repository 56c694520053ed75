"""A program that opens a terminal without being part of the tests."""

import os
import select
import subprocess
import sys

# Its starter ends at once, and so it is below no process of the tests.
PROGRAM = """
import os, sys
if os.fork() != 0:
    os._exit(0)
terminal = os.open(sys.argv[1], os.O_RDWR | os.O_NOCTTY)
print(os.getpid(), flush=True)
sys.stdin.read()
"""


class Stranger:
    """Has a terminal open from its making to close()."""

    def __init__(self, device):
        self._starter = subprocess.Popen([sys.executable, "-c", PROGRAM, device], text=True,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.process = int(self._starter.stdout.readline())
        self._starter.wait()

    def close(self):
        end = os.pidfd_open(self.process)
        self._starter.stdin.close()
        select.select([end], [], [])
        os.close(end)
        self._starter.stdout.close()

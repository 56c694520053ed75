"""Starting programs so that none of them, nor what they start, outlives this one."""

import ctypes
import os
import pathlib
import select
import signal
import subprocess
import time

from wait import PATIENCE

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36

_libc = ctypes.CDLL(None, use_errno=True)


def adopt_orphans():
    """From now on, what a child leaves behind becomes a child of this process."""
    if _libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "orphans can't be adopted")


def _die_with_parent():
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


def start(command, **options):
    """subprocess.Popen of a program that is killed if this process dies."""
    return subprocess.Popen(command, preexec_fn=_die_with_parent, **options)


class Running:
    """What there is to ask of a started program."""

    def __init__(self, process):
        self._process = process

    @property
    def process_id(self):
        return self._process.pid

    def is_running(self):
        return self._process.poll() is None

    @property
    def exit_code(self):
        """None while it runs; the negative number of a signal that ended it."""
        return self._process.poll()

    def wait_end(self):
        """Waits for its end and returns the exit code; TimeoutError if it doesn't end."""
        if self.is_running():
            self._wait_ended()
        return self._process.wait()

    def _wait_ended(self):
        """The ended process stays known to the kernel until it is waited for."""
        handle = os.pidfd_open(self._process.pid)
        try:
            if not select.select([handle], [], [], PATIENCE)[0]:
                raise TimeoutError(f"process {self._process.pid} doesn't end")
        finally:
            os.close(handle)

    def end_by(self, action):
        """Does what is to end it; returns the exit code and how many seconds that took.

        What any process of this family stood in line for a processor in the meantime is taken off,
        so that a busy machine makes no program slow.
        """
        begin, before = time.monotonic(), self._stood_in_line()
        action()
        self._wait_ended()
        after = self._stood_in_line()
        lost = sum(since - before.get(process, 0) for process, since in after.items())
        seconds = time.monotonic() - begin - lost / 1e9
        return self._process.wait(), seconds

    def _stood_in_line(self):
        """For how long each process of this family has been without a processor, in nanoseconds."""
        found = {}
        for process in {os.getpid(), self._process.pid, *descendants()}:
            try:
                times = pathlib.Path(f"/proc/{process}/schedstat").read_text(encoding="ascii")
            except OSError:  # it has ended meanwhile, or the kernel doesn't count
                continue
            found[process] = int(times.split()[1])
        return found


def descendants():
    """The running processes below this one, as {process id: command line}."""
    parents = {}
    lines = {}
    for entry in pathlib.Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        try:
            state, parent = (entry / "stat").read_text().rsplit(")", 1)[1].split()[:2]
            line = os.fsdecode((entry / "cmdline").read_bytes().replace(b"\0", b" "))
        except OSError:  # it has ended meanwhile
            continue
        if state != "Z":
            parents[int(entry.name)] = int(parent)
            lines[int(entry.name)] = line.strip()
    below = {os.getpid()}
    grown = True
    while grown:
        found = {process for process, parent in parents.items() if parent in below} - below
        below |= found
        grown = bool(found)
    return {process: lines[process] for process in below - {os.getpid()}}


def end_all():
    """Ends every descendant, in peace where it goes, and takes leave of them."""
    for sign, patience in ((signal.SIGTERM, 2.0), (signal.SIGKILL, 60.0)):
        end = time.monotonic() + patience
        for process in descendants():
            _send(process, sign)
        while descendants() and time.monotonic() < end:
            time.sleep(0.02)
        _bury()


def _send(process, sign):
    try:
        os.kill(process, sign)
    except ProcessLookupError:
        pass


def _bury():
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
    except ChildProcessError:
        pass

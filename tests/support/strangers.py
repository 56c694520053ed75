"""Programs that have a terminal of the tests open without being part of them."""

import os
import pathlib


class StrangerError(Exception):
    """Somebody besides the tests is at a line; the words say who or what."""


def refuse_strangers(terminal):
    """Raises StrangerError if another process has a terminal open, given as path or descriptor,
    that is neither this one nor below it."""
    found = [holder for holder in holders(terminal) if not _is_ours(holder[0])]
    if found:
        raise StrangerError("a stranger holds the line: " + ", ".join(
            f"process {_name(process)} ({process}) has {device} open"
            for process, device in found))


def holders(terminal):
    """The processes besides this one that have a terminal open, and what it is called there.

    Each file system for terminals has a /dev/pts/0; so names don't tell whether it is the same.
    """
    device = _identity(terminal)
    found = {}
    for process in _processes():
        for entry in _opened(process):
            try:
                if _identity(entry) == device:
                    found[process] = os.readlink(entry)
            except OSError:  # closed meanwhile, or nothing that can be looked at
                continue
    return sorted(found.items())


def _processes():
    """All processes besides this one."""
    numbers = [int(name) for name in os.listdir("/proc") if name.isdigit()]
    return [number for number in numbers if number != os.getpid()]


def _opened(process):
    """What stands for each file that a process has open; nothing for one that has ended."""
    folder = f"/proc/{process}/fd"
    try:
        return [os.path.join(folder, number) for number in os.listdir(folder)]
    except OSError:
        return []


def _identity(terminal):
    status = os.stat(terminal)
    return status.st_dev, status.st_ino


def _is_ours(process):
    """Whether a process is below this one. What has ended holds nothing, and is no stranger."""
    at = process
    try:
        while at not in (0, os.getpid()):
            at = int(_stat(at).rsplit(")", 1)[1].split()[1])
    except OSError:  # one on the way has ended, and what it has started has another parent now
        return not os.path.exists(f"/proc/{process}") or _is_ours(process)
    return at != 0


def _name(process):
    try:
        return _stat(process).split("(", 1)[1].rsplit(")", 1)[0]
    except OSError:
        return "(ended)"


def _stat(process):
    return pathlib.Path(f"/proc/{process}/stat").read_text(encoding="utf-8", errors="replace")

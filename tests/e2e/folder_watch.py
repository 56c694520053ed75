"""Counting how often files of a folder are written."""

import ctypes
import os
import struct

IN_CLOSE_WRITE = 0x8
IN_MOVED_TO = 0x80
IN_NONBLOCK = 0o4000

_libc = ctypes.CDLL(None, use_errno=True)


class FolderWatch:
    """Notes each time that a file of the folder has been written, from its making on."""

    def __init__(self, folder):
        self._reader = _libc.inotify_init1(IN_NONBLOCK)
        events = IN_CLOSE_WRITE | IN_MOVED_TO
        if _libc.inotify_add_watch(self._reader, os.fsencode(folder), events) < 0:
            raise OSError(ctypes.get_errno(), "a folder can't be watched", str(folder))
        self._written = []

    def written(self, name):
        """How often the file has been written so far."""
        try:
            while events := os.read(self._reader, 65536):
                self._note(events)
        except BlockingIOError:
            pass
        return self._written.count(name)

    def _note(self, events):
        at = 0
        while at < len(events):
            length = struct.unpack_from("iIII", events, at)[3]
            at += 16
            self._written.append(os.fsdecode(events[at:at + length].rstrip(b"\0")))
            at += length

    def close(self):
        os.close(self._reader)

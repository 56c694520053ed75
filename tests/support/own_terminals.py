#!/usr/bin/python3
"""Runs a program with pseudo-terminals of its own: own_terminals.py PROGRAM [ARGUMENT]...

The numbers of terminals are given out anew as soon as they are free. So another program of the
machine that remembers one from before can open a terminal of the tests. In a file system of their
own for terminals nobody else comes to theirs. Where the system refuses it, the tests share the
machine's terminals, and a line on standard error says so.
"""

import ctypes
import os
import sys

# From linux/sched.h and linux/mount.h.
CLONE_NEWNS = 0x20000
CLONE_NEWUSER = 0x10000000
MS_BIND = 0x1000
MS_PRIVATE_BELOW = 0x40000 | 0x4000

_libc = ctypes.CDLL(None, use_errno=True)


def take_own_terminals():
    """Gives this process and what it starts terminals of their own, if the system allows it. Must
    be called before the process has threads."""
    # A refusal halfway would leave this process neither here nor there: a child goes ahead.
    child = os.fork()
    if child == 0:
        os._exit(_try_to_enter())
    if os.waitpid(child, 0)[1] == 0:
        _enter()


def _try_to_enter():
    """The exit code of the child: 0 if it came through, with a terminal of its own."""
    try:
        _enter()
        for end in os.openpty():
            os.close(end)
    except OSError as error:
        print(f"no terminals of their own for the tests, which share those of the machine: {error}",
              file=sys.stderr, flush=True)
        return 1
    return 0


def _enter():
    user, group = os.geteuid(), os.getegid()
    if user == 0:
        _call("unshare", CLONE_NEWNS)
    else:
        # Only in a user namespace of their own other users may mount; they remain who they are.
        _call("unshare", CLONE_NEWUSER | CLONE_NEWNS)
        for name, text in (("setgroups", "deny"), ("uid_map", f"{user} {user} 1"),
                           ("gid_map", f"{group} {group} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    # The machine doesn't see what is mounted here.
    _call("mount", b"none", b"/", None, MS_PRIVATE_BELOW, None)
    _call("mount", b"devpts", b"/dev/pts", b"devpts", 0, b"newinstance,ptmxmode=0666,mode=0600")
    _call("mount", b"/dev/pts/ptmx", b"/dev/ptmx", None, MS_BIND, None)


def _call(name, *arguments):
    if getattr(_libc, name)(*arguments) != 0:
        error = ctypes.get_errno()
        raise OSError(error, f"{name}: {os.strerror(error)}")


if __name__ == "__main__":
    take_own_terminals()
    os.execvp(sys.argv[1], sys.argv[1:])

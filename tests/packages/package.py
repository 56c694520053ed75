"""The Debian package under test, and the desk on which what it holds is started."""

import subprocess

file = None
desk = None


def ask(*command):
    """What a command says; raises CalledProcessError if it fails."""
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def unpack(folder):
    ask("dpkg-deb", "-x", str(file), str(folder))

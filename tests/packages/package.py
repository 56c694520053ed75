"""The Debian package under test, and the desk on which what it holds is started."""

import subprocess

file = None
desk = None


def ask(*command):
    """What a command says; raises CalledProcessError if it fails."""
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def complaints(*command):
    """What a tool that fails for any complaint says; empty if it is content."""
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                         check=False)
    return run.stdout if run.returncode else ""


def unpack(folder):
    ask("dpkg-deb", "-x", str(file), str(folder))


def programs(root):
    """The programs below a folder into which the package is unpacked."""
    found = [path for path in sorted(root.rglob("*"))
             if path.is_file() and not path.is_symlink() and path.read_bytes()[:4] == b"\x7fELF"]
    if not found:
        raise RuntimeError("the package holds no program")
    return found

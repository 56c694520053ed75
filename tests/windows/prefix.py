"""A Wine prefix of its own: a registry, a drive C and serial ports for Windows programs."""

import os
import pathlib
import re
import subprocess
import tempfile

WINE = pathlib.Path(__file__).resolve().parents[2] / "scripts/wine"
LIMIT = 120.0  # seconds for a program that is waited for, on a busy machine

PORTS = r"HKLM\Software\Wine\Ports"

# Wine shows the list of devices of the oldest Windows, and leaves it empty, as no Windows does.
NO_OLD_DEVICES = b"REGEDIT4\n\n[-HKEY_DYN_DATA\\Config Manager\\Enum]\n"


class Prefix:
    """A prefix in a folder, which is made if there is none. Up to close() its server runs on."""

    def __init__(self, folder, environment=None):
        self._folder = pathlib.Path(folder).absolute()
        self._environment = {**(os.environ if environment is None else environment),
                             "WINEPREFIX": str(self._folder)}
        self._stop()  # what a run that was broken off has left
        if not (self._folder / "system.reg").exists():
            self._folder.mkdir(parents=True, exist_ok=True)
            self.run("wineboot", "--init")

    @property
    def drive_c(self):
        return self._folder / "drive_c"

    @staticmethod
    def windows_path(path):
        """A path of this machine as Windows programs see it."""
        return "Z:" + str(path).replace("/", "\\")

    def map_port(self, number, device):
        """Puts a terminal, or a link to one, behind a serial port. No program may run meanwhile."""
        self.set_value(PORTS, f"COM{number}", str(device))
        self._ports_are_new = True

    # Keys begin with HKLM or HKCU, and values are texts.

    def set_value(self, key, name, text):
        self._reg("add", key, "/v", name, "/d", text, "/f")

    def value(self, key, name):
        told = self._reg("query", key, "/v", name).decode(errors="replace")
        return re.search(r"REG_SZ {4}(.*?)\r?\n", told)[1]

    def delete_key(self, key):
        self._reg("delete", key, "/f")

    def _reg(self, *arguments):
        self._wake()
        done = self._run("reg", *arguments)
        if done.returncode != 0:
            raise RuntimeError(f"reg {' '.join(arguments)}: {done.stderr.decode()}")
        return done.stdout

    def run(self, program, *arguments, cwd=None, limit=LIMIT):
        """Runs a program to its end, which must come within limit seconds. What it writes is in the
        result."""
        self._wake_with_ports()
        return self._run(program, *arguments, cwd=cwd, limit=limit)

    def start(self, program, *arguments, cwd=None):
        """Starts a program; returns its process."""
        self._wake_with_ports()
        return subprocess.Popen([WINE, program, *arguments], env=self._environment, cwd=cwd,
                                stdin=subprocess.DEVNULL)

    def close(self):
        """Ends all programs of the prefix, and its server."""
        self._stop()

    def _run(self, *command, cwd=None, limit=LIMIT):
        # Not by pipes: services of Wine that start meanwhile keep them open.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            done = subprocess.run([WINE, *command], env=self._environment, cwd=cwd, timeout=limit,
                                  stdin=subprocess.DEVNULL, stdout=out, stderr=err, check=False)
            out.seek(0)
            err.seek(0)
            return subprocess.CompletedProcess(command, done.returncode, out.read(), err.read())

    def _wake(self):
        if self._awake:
            return
        self._awake = True
        self._server("-p")
        file = self._folder / "no_old_devices.reg"
        file.write_bytes(NO_OLD_DEVICES)
        self._run("regedit", "/S", self.windows_path(file))

    def _wake_with_ports(self):
        if self._ports_are_new:
            self._stop()  # the server reads them when it starts
        self._wake()

    def _stop(self):
        self._server("-k")
        self._server("-w")
        self._awake = self._ports_are_new = False

    def _server(self, option):
        subprocess.run(["wineserver", option], env=self._environment, timeout=LIMIT, check=False,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

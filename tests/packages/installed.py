"""What the package installs, below a folder of each test's own, for a user with a home there."""

import itertools
import shutil
import subprocess
import unittest

import package
from wait import PATIENCE


class Installed(unittest.TestCase):
    _numbers = itertools.count(1)

    def setUp(self):
        self.desk = package.desk
        # A blank in every path, as homes and mounted disks may have.
        self.place = self.desk.folder / f"place {next(self._numbers)}"
        self.home = self.place / "a home"
        self.home.mkdir(parents=True)
        self.addCleanup(shutil.rmtree, self.place)
        self.root = self.place / "root of it"
        package.unpack(self.root)
        self.installed = self.root / "usr/lib/sorvane"
        self.commands = self.root / "usr/bin"
        self.environment = self.desk.environment | {"HOME": str(self.home)}
        self.own = self.home / ".local/share/sorvane/Sorvane"
        self.complaints = self.place / "stderr"

    def run_cli(self, *arguments):
        return subprocess.run([str(self.commands / "sorvane-cli"), *arguments], check=False,
                              env=self.environment, cwd="/", stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                              timeout=PATIENCE)

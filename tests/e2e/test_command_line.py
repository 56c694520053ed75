"""sorvane-cli beside the program at the same port."""

import subprocess

from scene import Scene
from wait import PATIENCE


class AConnectedProgram(Scene):
    def ask(self):
        """Who the board is, by sorvane-cli."""
        return subprocess.run([str(self.folder / "sorvane-cli"), "info"], check=False, cwd="/",
                              env=self.desk.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                              timeout=PATIENCE)

    def test_keeps_the_port_and_is_named_until_it_is_closed(self):
        self.connect()
        refused = self.ask()
        self.assertEqual((refused.returncode, refused.stdout), (3, ""))
        self.assertRegex(refused.stderr,
                         rf"held by .*Sorvane \(process {self.program.process_id}\)")
        self.open_discounts()
        self.wait_shown(3, "0.10")
        self.assert_closes()
        told = self.ask()
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        self.assertIn("machine   100234\n", told.stdout)

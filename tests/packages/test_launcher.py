"""The installed commands, which keep a program folder for each user."""

import os
import subprocess

import offspring
from installed import Installed
from program import Program
from wait import PATIENCE, wait_for

SETTINGS = b"Com=2\r\nLingua=Deutsch\r\n"
END_WITHIN = 5.0  # seconds from the closing of the frame


class InstalledProgram(Program):
    """The program, started by the installed command."""

    def __init__(self, desk, command, environment, complaints):
        self._desk = desk
        self.complaints = complaints
        with open(complaints, "ab") as sink:
            self._process = offspring.start([str(command)], env=environment, cwd="/",
                                            stdin=subprocess.DEVNULL, stdout=sink, stderr=sink)


class Launcher(Installed):
    def start(self):
        program = InstalledProgram(self.desk, self.commands / "sorvane", self.environment,
                                   self.complaints)
        self.addCleanup(program.put_away)
        program.wait_ready()
        return program

    def close(self, program):
        code, seconds = program.end_by(program.close_frame)
        self.assertEqual(code, 0)
        self.assertLessEqual(seconds, END_WITHIN)
        self.assertEqual(self.complaints.read_text(errors="replace"), "")

    def update(self):
        """Brings up to date, by the board's command, which then only says what it can do."""
        return subprocess.run([str(self.commands / "sorvane-board"), "--help"], check=False,
                              env=self.environment, cwd="/", stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              timeout=PATIENCE)

    def update_well(self):
        run = self.update()
        self.assertEqual(run.returncode, 0, run.stdout)

    def assert_same(self, *names):
        for name in names:
            own, installed = self.own / name, self.installed / name
            self.assertEqual(own.read_bytes(), installed.read_bytes(), name)
            self.assertEqual(own.stat().st_mode, installed.stat().st_mode, name)

    def install_others(self, *names):
        """Puts other files into the installed folder, under the same names."""
        for name in names:
            with open(self.installed / name, "ab") as file:
                file.write(b"\n")

    def test_the_first_start_makes_a_program_folder_and_shows_the_frame(self):
        program = self.start()
        self.assertEqual(program.frame().name, "Sorvane")
        self.assert_same(*os.listdir(self.installed))
        self.close(program)
        self.assertEqual((self.own / "Sorvane.ini").read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")
        self.assertEqual({path.name for path in self.own.iterdir()},
                         set(os.listdir(self.installed)) | {".installed"})

    def test_what_the_program_saves_outlives_the_next_start(self):
        self.update_well()
        (self.own / "Sorvane.ini").write_bytes(SETTINGS)
        program = self.start()
        self.close(program)
        self.assertEqual((self.own / "Sorvane.ini").read_bytes(), SETTINGS)

    def test_another_version_is_taken_over_while_the_program_runs(self):
        self.update_well()
        (self.own / "Sorvane.ini").write_bytes(SETTINGS)
        (self.own / "COM1").symlink_to("/dev/null")
        first = self.start()
        self.install_others("Sorvane", "SorvaneBoard", "Sorvane.ini", "W0309.inx", "Dansk.lng")
        second = self.start()
        self.assert_same("Sorvane", "SorvaneBoard", "W0309.inx", "Dansk.lng")
        self.assertEqual(os.readlink(self.own / "COM1"), "/dev/null")
        self.close(second)
        self.assertTrue(first.is_running())
        self.close(first)
        self.assertEqual((self.own / "Sorvane.ini").read_bytes(), SETTINGS)

    def test_what_the_user_changed_stays_until_another_version_brings_it(self):
        self.update_well()
        mine = b"my own words"
        (self.own / "English.lng").write_bytes(mine)
        (self.own / "Suomi.lng").write_bytes(mine)
        self.install_others("Dansk.lng")
        self.update_well()
        self.assert_same("Dansk.lng")
        self.assertEqual((self.own / "English.lng").read_bytes(), mine)
        self.install_others("English.lng")
        self.update_well()
        self.assert_same("English.lng")
        self.assertEqual((self.own / "Suomi.lng").read_bytes(), mine)

    def test_what_another_version_has_no_more_goes(self):
        self.update_well()
        (self.installed / "Norsk.lng").unlink()
        self.update_well()
        self.assertFalse((self.own / "Norsk.lng").exists())
        self.assertTrue((self.own / "Svenska.lng").exists())

    def test_the_settings_stay_even_if_another_version_has_none(self):
        self.update_well()
        (self.installed / "Sorvane.ini").unlink()
        self.update_well()
        self.assertTrue((self.own / "Sorvane.ini").exists())

    def test_what_got_lost_comes_back(self):
        self.update_well()
        for name in ("Sorvane", "Sorvane.ini", "English.lng"):
            (self.own / name).unlink()
        self.update_well()
        self.assert_same("Sorvane", "Sorvane.ini", "English.lng")

    def test_the_folder_for_data_can_be_elsewhere(self):
        elsewhere = self.place / "my data"
        self.environment["XDG_DATA_HOME"] = str(elsewhere)
        self.update_well()
        self.assertTrue((elsewhere / "sorvane/Sorvane/Sorvane").exists())
        self.assertFalse(self.own.exists())

    def test_a_folder_that_cant_be_made_is_told(self):
        (self.home / ".local").write_bytes(b"in the way")
        run = self.update()
        self.assertEqual(run.returncode, 1)
        self.assertIn(".local", run.stdout)

    def test_a_folder_that_cant_be_made_is_no_difference_to_the_command_line(self):
        (self.home / ".local").write_bytes(b"in the way")
        run = self.run_cli("names")
        self.assertEqual((run.returncode, run.stdout), (2, ""))
        self.assertIn(".local", run.stderr)

    def test_nothing_is_written_where_nothing_has_changed(self):
        self.update_well()
        before = {path.name: path.stat().st_ctime_ns for path in self.own.iterdir()}
        self.update_well()
        after = {path.name: path.stat().st_ctime_ns for path in self.own.iterdir()}
        self.assertEqual(after, before)

    def start_board(self, *arguments):
        board = offspring.start([str(self.commands / "sorvane-board"), "--quiet", *arguments], cwd="/",
                                env=self.environment, stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(board.communicate)
        self.addCleanup(board.terminate)  # it takes its link away itself
        wait_for("link of the board", (self.own / "COM1").is_symlink)

    def test_program_and_board_meet_in_the_users_folder(self):
        self.start_board()
        program = self.start()
        program.choose("Connect")
        wait_for("connection", lambda: program.enabled("Prezzi"))
        self.close(program)

    def test_the_command_line_and_the_board_meet_in_the_users_folder(self):
        self.start_board()
        told = self.run_cli("info")
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        self.assertIn("machine   100234\n", told.stdout)
        self.assertIn(f"port      {self.own}/COM1\n", told.stdout)

    def test_the_command_line_finds_index_files_that_the_user_has_added(self):
        self.update_well()
        (self.own / "W0309AA00.inx").rename(self.own / "W0309AA03.inx")
        self.start_board("--revision", "3", "--index", str(self.installed))
        told = self.run_cli("info")
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        self.assertIn("revision 3\nindex     W0309AA03.inx\n", told.stdout)

"""The setup and the zip: what they put where, what they leave alone, and what stays behind."""

import os
import pathlib
import shutil
import subprocess
import unittest
import zipfile

import places
import sight
from app import START, App
from bench import bench
from prefix import Prefix
from wait import wait_for

KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Sorvane"
NEEDED = {
    "Sorvane.exe", "sorvane-cli.exe", "SorvaneIndex.exe", "SorvaneLanguages.exe", "Sorvane.ini",
    "README.txt", "LICENSE.txt", "W0309.inx", "W0309AA00.inx", "W0309AA07.inx", "Dansk.lng", "Deutsch.lng",
    "English.lng", "Espanol.lng", "Francais.lng", "Italiano.lng", "Nederlands.lng", "Norsk.lng",
    "Portugues.lng", "Svenska.lng", "manual/en.html", "manual/it.html", "manual/style.css",
    "tables/W0309.txt", "tables/W0309AA00.txt", "tables/W0309AA07.txt", "tables/same-words.txt",
    "tables/files.md", "tables/languages.md", "licenses/qt6-base-dev.txt",
    "licenses/libcli11-dev.txt", "licenses/mingw-w64-common.txt",
    "licenses/gcc-mingw-w64-base.txt"}
REMOVER = "UninstallSorvane.exe"
SAMPLE = b"Com=1\r\nLingua=Italiano\r\n"
CHANGED = b"Com=2\r\nLingua=Deutsch\r\n"
RUNNING = 1  # what a silent setup answers if the program runs
SETUP = "Sorvane Setup"
REMOVING = "Sorvane Uninstall"
ITALIAN_SETUP = "Installazione di Sorvane"
ITALIAN_REMOVING = "Disinstallazione di Sorvane"
ENTRY_TEXTS = {"English": "Read and change what the control board of a vending machine holds",
               "Italian": "Legge e modifica ciò che è memorizzato nella scheda di un distributore "
                          "automatico"}
HEAD = (0, 0, 400, 55)  # pixels: where each screen of the setup has its heading
NAME = "Perù con gli spazi"


def installed(folder):
    """The files of a folder by their names in it."""
    return {str(file.relative_to(folder)): file.read_bytes()
            for file in folder.rglob("*") if file.is_file()}


def shipped():
    """The files of the zip by their names in its one folder."""
    with zipfile.ZipFile(places.package("-windows.zip")) as archive:
        return {name.removeprefix("Sorvane/"): archive.read(name)
                for name in archive.namelist() if not name.endswith("/")}


def has_key():
    return bench.prefix.run("reg", "query", KEY).returncode == 0


def start(test, folder):
    """Starts the program of a folder and waits for its frame."""
    process = bench.prefix.start(folder / "Sorvane.exe", cwd="/")
    test.addCleanup(process.wait)
    test.addCleanup(process.kill)
    app = App(bench.desk, bench.windows, process)
    wait_for("frame", app.frame, START)
    return app


def close(test, app):
    app.close_frame()
    test.assertEqual(app.wait_end(), 0)


def take_picture(name):
    places.PICTURES.mkdir(parents=True, exist_ok=True)
    bench.desk.take_picture(places.PICTURES / f"installer-{name}.png")


def find_window(title):
    """The window of a title, without what stands around that; None if there is none."""
    return next((window for window in bench.windows.all()
                 if window.managed and window.title.strip() == title), None)


class Zip(unittest.TestCase):
    def test_it_holds_the_program_folder_and_its_papers_and_nothing_else(self):
        found = shipped()
        pictures = {name for name in found if name.startswith("manual/pictures/")}
        self.assertTrue(pictures)
        self.assertEqual(found.keys() - pictures, NEEDED)

    def test_texts_have_the_line_ends_of_windows_and_are_whole(self):
        found = shipped()
        licence = (places.ROOT / "LICENSE").read_bytes()
        self.assertEqual(found["LICENSE.txt"], licence.replace(b"\n", b"\r\n"))
        self.assertTrue(found["README.txt"].startswith(b"Sorvane "))
        for name in ("README.txt", *(name for name in found if name.startswith("licenses/"))):
            self.assertEqual(found[name].count(b"\n"), found[name].count(b"\r\n"), name)

    def test_it_runs_from_a_folder_of_any_name(self):
        place = bench.desk.folder / NAME
        place.mkdir()
        with zipfile.ZipFile(places.package("-windows.zip")) as archive:
            archive.extractall(place)
        self.assertEqual([*place.iterdir()], [place / "Sorvane"])
        app = start(self, place / "Sorvane")
        app.wait_ready()
        take_picture("unpacked")
        close(self, app)
        self.assertEqual((place / "Sorvane" / "Sorvane.ini").read_bytes(), SAMPLE)


def copy_of_remover_runs():
    """Whether a remover is at work in the copy that it makes of itself in a folder ~nsu....tmp."""
    for name in os.listdir("/proc"):
        try:
            if name.isdigit() and b"\\~nsu" in pathlib.Path("/proc", name, "cmdline").read_bytes():
                return True
        except OSError:  # it has ended meanwhile
            continue
    return False


class Installer(unittest.TestCase):
    def setUp(self):
        self.setup = places.package("-setup.exe")
        user = next(bench.prefix.drive_c.glob("users/*/AppData"))
        self.folder = user / "Local/Programs/Sorvane"
        self.entry = user / "Roaming/Microsoft/Windows/Start Menu/Programs/Sorvane.lnk"
        self.settings = self.folder / "Sorvane.ini"
        self.assertFalse(self.folder.exists())
        self.addCleanup(self.clean)

    def clean(self):
        if (self.folder / REMOVER).exists():
            self.remove()
        self.settings.unlink(missing_ok=True)
        if self.folder.exists():
            self.folder.rmdir()

    def install(self):
        self.assertEqual(bench.prefix.run(self.setup, "/S").returncode, 0)

    def remove(self):
        """Removes without a word; the remover goes on in a copy of itself."""
        self.assertEqual(bench.prefix.run(self.folder / REMOVER, "/S").returncode, 0)
        # Until it has ended, its copy may still take away the folder that the next setup makes.
        wait_for("end of the removing",
                 lambda: not (self.folder / REMOVER).exists() and not copy_of_remover_runs())

    def wait_screen(self, title, heading):
        """Waits until a window is in front and shows the screen with that heading."""
        wait_for(f"{heading} of {title}", lambda: (window := find_window(title)) and
                 window.number == bench.windows.active() and self.shows(window, heading), START)

    @staticmethod
    def shows(window, heading):
        head = bench.windows.picture().crop(window.area).crop(HEAD)
        ink = sight.ink_by_rows(head, head.width - 1)
        return any(heading in sight.readings(ink.crop((0, top, ink.width, bottom)))
                   for top, bottom in sight.rows(ink, gap=3))

    def test_a_silent_setup_puts_the_same_files_as_the_zip(self):
        self.install()
        found = installed(self.folder)
        expected = shipped()
        self.assertEqual(found.keys(), {*expected, REMOVER})
        for name, content in expected.items():
            if name.endswith(".exe"):  # each stripped at its own time, which it notes
                self.assertEqual(len(found[name]), len(content), name)
            else:
                self.assertEqual(found[name], content, name)
        self.assertEqual(self.settings.read_bytes(), SAMPLE)

    def test_it_has_an_entry_in_the_start_menu(self):
        self.install()
        target = r"\AppData\Local\Programs\Sorvane\Sorvane.exe".encode("ascii")
        self.assertIn(target, self.entry.read_bytes())
        self.assertIn(ENTRY_TEXTS["English"].encode("utf-16-le"), self.entry.read_bytes())

    def test_windows_can_list_and_remove_it(self):
        self.install()
        place = bench.prefix.value(KEY, "InstallLocation")
        self.assertTrue(place.endswith(r"\AppData\Local\Programs\Sorvane"), place)
        self.assertEqual(bench.prefix.value(KEY, "DisplayName"), "Sorvane")
        self.assertEqual(bench.prefix.value(KEY, "DisplayVersion"), self.setup.name.split("-")[1])
        self.assertEqual(bench.prefix.value(KEY, "Publisher"), "The Sorvane developers")
        self.assertEqual(bench.prefix.value(KEY, "DisplayIcon"), rf"{place}\Sorvane.exe")
        self.assertEqual(bench.prefix.value(KEY, "UninstallString"), rf'"{place}\{REMOVER}"')
        self.assertEqual(bench.prefix.value(KEY, "QuietUninstallString"),
                         rf'"{place}\{REMOVER}" /S')

    def test_it_can_be_installed_and_removed_by_keys(self):
        setup = bench.prefix.start(self.setup)
        self.addCleanup(setup.wait)
        self.addCleanup(setup.kill)
        self.wait_screen(SETUP, "Choose Install Location")
        take_picture("folder")
        bench.desk.press("Return")
        self.wait_screen(SETUP, "Installation Complete")
        take_picture("installed")
        bench.desk.press("Return")
        self.assertEqual(setup.wait(START), 0)
        self.assertEqual(installed(self.folder).keys(), {*shipped(), REMOVER})

        self.assertEqual(bench.prefix.run(self.folder / REMOVER).returncode, 0)
        self.wait_screen(REMOVING, "Uninstall Sorvane")
        take_picture("removing")
        bench.desk.press("Return")
        self.wait_screen(REMOVING, "Uninstallation Complete")
        take_picture("removed")
        bench.desk.press("Return")
        wait_for("end of the remover", lambda: not find_window(REMOVING))
        self.assertEqual(installed(self.folder), {"Sorvane.ini": SAMPLE})

    def test_the_installed_program_shows_its_frame_and_saves_its_settings(self):
        self.install()
        self.settings.write_bytes(CHANGED)
        app = start(self, self.folder)
        app.wait_ready()
        take_picture("program")
        self.settings.unlink()
        close(self, app)
        self.assertEqual(self.settings.read_bytes(), CHANGED)

    def test_installing_over_an_earlier_version_keeps_what_the_user_has(self):
        self.install()
        self.settings.write_bytes(CHANGED)
        own = self.folder / "Suomi.lng"
        own.write_bytes(b"oma")
        self.addCleanup(own.unlink, missing_ok=True)
        (self.folder / "English.lng").unlink()
        self.install()
        self.assertEqual(self.settings.read_bytes(), CHANGED)
        self.assertEqual(own.read_bytes(), b"oma")
        self.assertEqual((self.folder / "English.lng").read_bytes(), shipped()["English.lng"])
        own.unlink()

    def test_installing_over_an_earlier_version_lets_that_remove_itself_first(self):
        self.install()
        shutil.copy(places.SIBLING_STAND_IN, self.folder / REMOVER)
        self.install()
        note = self.folder / "sibling.log"
        self.assertTrue(note.exists())
        note.unlink()
        self.assertNotEqual((self.folder / REMOVER).read_bytes(),
                            places.SIBLING_STAND_IN.read_bytes())

    def test_a_program_that_runs_is_neither_replaced_nor_removed(self):
        self.install()
        start(self, self.folder)
        (self.folder / "English.lng").unlink()
        self.assertEqual(bench.prefix.run(self.setup, "/S").returncode, RUNNING)
        self.assertFalse((self.folder / "English.lng").exists())
        place = bench.prefix.value(KEY, "InstallLocation")
        remover = [self.folder / REMOVER, "/S", f"_?={place}"]  # not in a copy of itself
        self.assertEqual(bench.prefix.run(*remover).returncode, RUNNING)
        self.assertTrue((self.folder / "Dansk.lng").exists())
        self.assertTrue(has_key())

    def test_removing_leaves_the_settings_alone(self):
        self.install()
        self.settings.write_bytes(CHANGED)
        self.remove()
        self.assertEqual([*self.folder.iterdir()], [self.settings])
        self.assertEqual(self.settings.read_bytes(), CHANGED)
        self.assertFalse(self.entry.exists())
        self.assertFalse(has_key())

    def test_removing_leaves_nothing_if_there_are_no_settings(self):
        self.install()
        self.settings.unlink()
        self.remove()
        wait_for("end of the folder", lambda: not self.folder.exists())
        self.assertFalse(self.entry.exists())
        self.assertFalse(has_key())

    def test_it_can_be_installed_into_a_folder_of_any_name(self):
        self.folder = bench.prefix.drive_c / NAME
        # The option goes to the end of the line and has no quotes, which only cmd can do.
        line = rf"{bench.prefix.windows_path(self.setup)} /S /D=C:\{NAME}"
        self.assertEqual(bench.prefix.run("cmd", "/c", line).returncode, 0)
        self.settings = self.folder / "Sorvane.ini"
        self.assertEqual(installed(self.folder).keys(), {*shipped(), REMOVER})
        self.remove()
        self.assertEqual([*self.folder.iterdir()], [self.settings])


class ItalianInstaller(unittest.TestCase):
    """The same where Windows speaks Italian, which Wine does by the locale of the machine."""

    def setUp(self):
        folder = bench.desk.folder / "italian"
        folder.mkdir()
        self.addCleanup(shutil.rmtree, folder)
        subprocess.run(["localedef", "--inputfile=it_IT", "--charmap=UTF-8",
                        str(folder / "it_IT.UTF-8")], check=True)
        self.prefix = Prefix(folder / "prefix", {
            **bench.desk.environment, "LOCPATH": str(folder), "LC_ALL": "it_IT.UTF-8"})
        self.addCleanup(self.prefix.close)

    def wait_shown(self, title, program):
        """Waits until a program shows a window of the title, of which it takes a picture."""
        process = self.prefix.start(program)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        wait_for(title, lambda: find_window(title), START)
        take_picture(title.partition(" ")[0].lower())

    def test_setup_entry_and_remover_speak_italian(self):
        setup = places.package("-setup.exe")
        self.assertEqual(self.prefix.run(setup, "/S").returncode, 0)
        user = next(self.prefix.drive_c.glob("users/*/AppData"))
        entry = user / "Roaming/Microsoft/Windows/Start Menu/Programs/Sorvane.lnk"
        self.assertIn(ENTRY_TEXTS["Italian"].encode("utf-16-le"), entry.read_bytes())
        self.wait_shown(ITALIAN_SETUP, setup)
        self.wait_shown(ITALIAN_REMOVING, user / "Local/Programs/Sorvane" / REMOVER)

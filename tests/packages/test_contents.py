"""What is in the package, and what Debian's tools say about it."""

import gzip
import pathlib
import re
import subprocess
import tempfile
import unittest

import package

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
LANGUAGES = ("Dansk Deutsch English Espanol Francais Italiano Nederlands Norsk Portugues "
             "Svenska").split()
PROGRAM_FOLDER = {"Sorvane", "SorvaneBoard", "sorvane-cli", "Sorvane.ini", "W0309.inx", "W0309AA00.inx",
                  "W0309AA07.inx"} | {f"{name}.lng" for name in LANGUAGES}
LAUNCHED = {"sorvane-cli", "sorvaneboard"}  # by the launcher, under these names
COMMANDS = {"sorvane", "SorvaneIndex", "SorvaneLanguages"} | LAUNCHED
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)

# One line of the list: rights, owner, size, date, time, name, and where a link leads.
LISTED = re.compile(r"(\S+) (\S+) +(\d+) \S+ \S+ \./(.*?)(?: -> (.*))?")

# The package isn't uploaded to Debian, where its first version would answer a request.
NOT_FOR_DEBIAN = "initial-upload-closes-no-bugs"


class Contents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        lines = package.ask("dpkg-deb", "-c", str(package.file)).splitlines()
        cls.listed = {found[4]: found for found in map(LISTED.fullmatch, lines)}
        folder = tempfile.TemporaryDirectory(prefix="sorvane-")
        cls.addClassCleanup(folder.cleanup)
        cls.root = pathlib.Path(folder.name)
        package.unpack(cls.root)

    def names(self, folder):
        return {path.name for path in (self.root / folder).iterdir()}

    def field(self, name):
        return package.ask("dpkg-deb", "-f", str(package.file), name).strip()

    def complaints(self, *command):
        """What a tool that fails for any complaint says; empty if it is content."""
        run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             check=False)
        return run.stdout if run.returncode else ""

    def test_the_program_folder_holds_all_that_the_program_needs(self):
        self.assertEqual(self.names("usr/lib/sorvane"), PROGRAM_FOLDER)

    def test_the_commands_are_there(self):
        self.assertEqual(self.names("usr/bin"), COMMANDS)
        for name in LAUNCHED:
            self.assertEqual(self.listed[f"usr/bin/{name}"][5], "sorvane")

    def test_everything_belongs_to_root(self):
        self.assertEqual({entry[2] for entry in self.listed.values()}, {"root/root"})

    def test_programs_alone_can_be_executed(self):
        programs = {f"usr/bin/{name}" for name in COMMANDS - LAUNCHED}
        programs |= {f"usr/lib/sorvane/{name}"
                     for name in ("Sorvane", "SorvaneBoard", "sorvane-cli")}
        for name, entry in self.listed.items():
            expected = ("drwxr-xr-x" if not name or name.endswith("/") else
                        "lrwxrwxrwx" if entry[5] else
                        "-rwxr-xr-x" if name in programs else "-rw-r--r--")
            self.assertEqual(entry[1], expected, name)

    def test_programs_are_stripped(self):
        for name in ("lib/sorvane/Sorvane", "lib/sorvane/SorvaneBoard", "lib/sorvane/sorvane-cli",
                     "bin/SorvaneIndex", "bin/SorvaneLanguages"):
            sections = package.ask("readelf", "--section-headers", "--wide",
                                   str(self.root / "usr" / name))
            self.assertIn(".text", sections)
            self.assertNotIn(".symtab", sections, name)

    def test_the_index_files_are_those_of_the_tables(self):
        for table in sorted((self.root / "usr/share/doc/sorvane/examples").glob("W*.txt")):
            made = self.root / "made.inx"
            package.ask(str(self.root / "usr/bin/SorvaneIndex"), "compile", str(table), str(made))
            shipped = self.root / "usr/lib/sorvane" / f"{table.stem}.inx"
            self.assertEqual(shipped.read_bytes(), made.read_bytes(), table.name)

    def test_the_sample_settings_are_shipped(self):
        self.assertEqual((self.root / "usr/lib/sorvane/Sorvane.ini").read_bytes(),
                         (ROOT / "data/Sorvane.ini").read_bytes())

    def test_the_icon_is_there_in_every_size(self):
        for size in ICON_SIZES:
            icon = self.root / f"usr/share/icons/hicolor/{size}x{size}/apps/sorvane.png"
            self.assertEqual(icon.read_bytes(),
                             (ROOT / f"data/icon/sorvane-{size}.png").read_bytes(), size)

    def test_every_command_has_a_manual_page(self):
        self.assertEqual(self.names("usr/share/man/man1"),
                         {f"{command}.1.gz" for command in COMMANDS})
        self.assertEqual(self.names("usr/share/man/man5"), {"sorvane-snapshot.5.gz"})

    def test_manual_pages_are_set_without_complaint(self):
        for page in (self.root / "usr/share/man").glob("man*/*"):
            run = subprocess.run(["man", "--warnings", "--local-file", str(page)], check=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            self.assertEqual(run.stderr, "", page.name)

    def test_bash_completes_the_command_line_program(self):
        script = self.root / "usr/share/bash-completion/completions/sorvane-cli"
        self.assertEqual(script.read_bytes(),
                         (ROOT / "packaging/linux/sorvane-cli.bash").read_bytes())
        self.assertEqual(self.complaints("shellcheck", str(script)), "")

    def test_the_manual_is_there_in_both_languages(self):
        manual = "usr/share/doc/sorvane/manual"
        self.assertLessEqual({"en.html", "it.html", "style.css"}, self.names(manual))
        for page in ("en.html", "it.html"):
            text = (self.root / manual / page).read_text(encoding="utf-8")
            pictures = set(re.findall(r'<img[^>]* src="([^"]+)"', text))
            self.assertTrue(pictures)
            for picture in pictures:
                self.assertTrue((self.root / manual / picture).exists(), picture)

    def test_version_and_dependencies(self):
        project = re.search(r"project\(Sorvane VERSION ([\d.]+)",
                            (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
        self.assertEqual(self.field("Package"), "sorvane")
        self.assertEqual(self.field("Version"), f"{project}-1")
        changes = gzip.decompress(
            (self.root / "usr/share/doc/sorvane/changelog.Debian.gz").read_bytes()).decode()
        self.assertTrue(changes.startswith(f"sorvane ({project}-1) "), changes)
        needed = {entry.split()[0] for entry in self.field("Depends").split(", ")}
        self.assertLessEqual({"libc6", "libqt6core6", "libqt6gui6", "libqt6widgets6",
                              "libstdc++6"}, needed)

    def test_modem_managers_are_kept_from_the_adapter(self):
        rules = (self.root / "usr/lib/udev/rules.d/60-sorvane.rules").read_text(encoding="ascii")
        self.assertIn('ATTRS{idVendor}=="0403", ENV{ID_MM_DEVICE_IGNORE}="1"', rules)

    def test_the_advice_names_the_group_and_the_rule(self):
        advice = (self.root / "usr/share/doc/sorvane/README.Debian").read_text(encoding="ascii")
        self.assertIn("adduser $USER dialout", advice)
        self.assertIn("/usr/lib/udev/rules.d/60-sorvane.rules", advice)

    def test_the_menu_entry_is_valid(self):
        entry = self.root / "usr/share/applications/sorvane.desktop"
        self.assertEqual(self.complaints("desktop-file-validate", str(entry)), "")
        self.assertIn("\nExec=sorvane\n", entry.read_text(encoding="ascii"))

    def test_the_description_for_software_centres_is_valid(self):
        self.assertEqual(self.complaints("appstreamcli", "validate-tree", "--no-net", "--no-color",
                                         str(self.root)), "")

    def test_the_launcher_is_plain_shell(self):
        self.assertEqual(self.complaints("shellcheck", str(self.root / "usr/bin/sorvane")), "")

    def test_lintian_is_content(self):
        self.assertEqual(self.complaints(
            "lintian", "--allow-root", "--fail-on", "error,warning",
            "--suppress-tags", NOT_FOR_DEBIAN, str(package.file)), "")

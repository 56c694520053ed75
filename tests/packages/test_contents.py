"""What is in the package, and what Debian's tools say about it."""

import gzip
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

import package

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
LANGUAGES = ("Dansk Deutsch English Espanol Francais Italiano Nederlands Norsk Portugues "
             "Svenska").split()
PROGRAM_FOLDER = {"Sorvane", "SorvaneBoard", "sorvane-cli", "Sorvane.ini", "W0309.inx", "W0309AA00.inx",
                  "W0309AA07.inx"} | {f"{name}.lng" for name in LANGUAGES}
LAUNCHED = {"sorvane-cli", "sorvane-board"}  # by the launcher, under these names
TOOLS = {"sorvane-index": "SorvaneIndex", "sorvane-languages": "SorvaneLanguages"}
COMMANDS = {"sorvane"} | LAUNCHED | TOOLS.keys()
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)

# One line of the list: rights, owner, size, date, time, name, and where a link leads.
LISTED = re.compile(r"(\S+) (\S+) +(\d+) \S+ \S+ \./(.*?)(?: -> (.*))?")

# What a document says of a file that the package installs below here.
NAMED = re.compile(r"/usr/(?:share/doc/sorvane|lib/udev)/[\w./*-]*\w")

# A tag of lintian: an error, a warning, an information, pedantry or an experiment; or one of these that
# the package overrides.
LINTIAN = re.compile("([EWIPXO]): sorvane: (.*)")


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
        programs.add("usr/libexec/sorvane/show-manual")
        for name, entry in self.listed.items():
            expected = ("drwxr-xr-x" if not name or name.endswith("/") else
                        "lrwxrwxrwx" if entry[5] else
                        "-rwxr-xr-x" if name in programs else "-rw-r--r--")
            self.assertEqual(entry[1], expected, name)

    def test_programs_are_stripped(self):
        for file in package.programs(self.root):
            sections = package.ask("readelf", "--section-headers", "--wide", str(file))
            self.assertIn(".text", sections)
            self.assertNotIn(".symtab", sections, file.name)

    def test_the_tools_are_those_of_the_build_and_say_so(self):
        for command, name in TOOLS.items():
            told = package.ask(str(self.root / "usr/bin" / command), "--version")
            self.assertEqual(told, f"{name} {self.field('Version').removesuffix('-1')}\n")

    def test_the_index_files_are_those_of_the_tables(self):
        for table in sorted((self.root / "usr/share/doc/sorvane/examples").glob("W*.txt")):
            made = self.root / "made.inx"
            package.ask(str(self.root / "usr/bin/sorvane-index"), "compile", str(table), str(made))
            shipped = self.root / "usr/lib/sorvane" / f"{table.stem}.inx"
            self.assertEqual(shipped.read_bytes(), made.read_bytes(), table.name)

    def test_the_language_check_works_with_what_is_shipped(self):
        folder = self.root / "languages"
        folder.mkdir()
        for file in (self.root / "usr/lib/sorvane").glob("*.lng"):
            shutil.copy(file, folder)
        shutil.copy(self.root / "usr/share/doc/sorvane/examples/same-words.txt", folder)
        check = [str(self.root / "usr/bin/sorvane-languages"), str(folder)]
        self.assertEqual(package.ask(*check), "")
        words = (folder / "Dansk.lng").read_bytes()
        text = folder / "Romansh.txt"
        text.write_text(words.decode("cp1252"), encoding="utf-8", newline="")
        self.assertEqual(package.ask(*check, "--from-utf8", str(text)), "")
        self.assertEqual((folder / "Romansh.lng").read_bytes(), words)

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
        self.assertEqual(package.complaints("shellcheck", str(script)), "")

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

    def rules(self):
        """The rules for devices, each as its tests and what it does."""
        [file] = (self.root / "usr/lib/udev/rules.d").iterdir()
        lines = [line for line in file.read_text(encoding="ascii").splitlines()
                 if line and not line.startswith("#")]
        parts = [line.split(", ") for line in lines]
        return file.name, [({part for part in rule if "==" in part or "!=" in part},
                            {part for part in rule if "==" not in part and "!=" not in part})
                           for rule in parts]

    def test_modem_managers_are_kept_from_the_adapter(self):
        adapter = {'ACTION!="remove"', 'SUBSYSTEMS=="usb"', 'ATTRS{idVendor}=="0403"'}
        self.assertIn((adapter | {'SUBSYSTEM=="tty|usb"'}, {'ENV{ID_MM_DEVICE_IGNORE}="1"'}),
                      self.rules()[1])

    def test_who_sits_at_the_computer_may_open_the_adapter(self):
        name, rules = self.rules()
        adapter = {'ACTION!="remove"', 'SUBSYSTEMS=="usb"', 'ATTRS{idVendor}=="0403"'}
        self.assertIn((adapter | {'SUBSYSTEM=="tty"'}, {'TAG+="uaccess"'}), rules)
        self.assertLess(name, "73-seat-late.rules")  # which gives the right

    def test_the_advice_names_the_group_and_the_rule(self):
        advice = (self.root / "usr/share/doc/sorvane/README.Debian").read_text(encoding="ascii")
        self.assertIn("adduser $USER dialout", advice)
        self.assertIn("/usr/lib/udev/rules.d/60-sorvane.rules", advice)

    def test_a_file_that_a_document_names_is_there(self):
        documents = self.root / "usr/share/doc"
        texts = [documents / "sorvane/README.Debian", *(self.root / "usr/share/doc-base").iterdir()]
        told = [text.read_text(encoding="utf-8") for text in texts]
        told += [gzip.decompress(page.read_bytes()).decode("utf-8").replace("\\-", "-")
                 for page in (self.root / "usr/share/man").glob("man*/*")]
        named = {name for text in told for name in NAMED.findall(text)}
        self.assertGreater(len(named), 6)
        for name in named:
            pattern = name.lstrip("/").replace("...", "*")
            self.assertTrue([*self.root.glob(pattern)], name)

    def test_the_howtos_are_there(self):
        howtos = "usr/share/doc/sorvane/howto"
        self.assertLessEqual({"index.html", "style.css", "training.html", "files.html"},
                             self.names(howtos))
        self.assertTrue(all(name.endswith((".html", ".css")) for name in self.names(howtos)))

    def test_manual_and_howtos_are_registered_as_documents(self):
        registered = set()
        for file in sorted((self.root / "usr/share/doc-base").iterdir()):
            fields = file.read_text(encoding="utf-8")
            registered.add(re.search("^Index: (.*)$", fields, re.MULTILINE)[1])
            # It looks for the files on the machine, whose they aren't yet.
            moved = self.root / file.name
            moved.write_text(fields.replace(": /usr/", f": {self.root}/usr/"), encoding="utf-8")
            run = subprocess.run(["install-docs", "--verbose", "--check", str(moved)], check=False,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            self.assertEqual((run.returncode, run.stdout), (0, f"{moved}: No problems found.\n"))
        folder = "/usr/share/doc/sorvane/"
        self.assertEqual(registered, {f"{folder}manual/en.html", f"{folder}manual/it.html",
                                      f"{folder}howto/index.html"})

    def test_the_scripts_are_plain_shell(self):
        for name in ("bin/sorvane", "libexec/sorvane/show-manual"):
            self.assertEqual(package.complaints("shellcheck", str(self.root / "usr" / name)), "")

    def test_lintian_is_content(self):
        told = package.ask("lintian", "--allow-root", "--pedantic", "--display-info",
                           "--display-experimental", "--show-overrides", "--tag-display-limit", "0",
                           "--fail-on", "none", str(package.file))
        tags = [LINTIAN.fullmatch(line) for line in told.splitlines() if not line.startswith("N:")]
        self.assertTrue(all(tags), told)
        self.assertEqual([tag[0] for tag in tags if tag[1] != "O"], [])
        overrides = (self.root / "usr/share/lintian/overrides/sorvane").read_text(encoding="ascii")
        argued = re.findall(r"(?:^#.*\n)+sorvane: (\S+)", overrides, re.MULTILINE)
        self.assertEqual(len(argued), overrides.count("sorvane: "))
        self.assertEqual({tag[2].split()[0] for tag in tags}, set(argued))

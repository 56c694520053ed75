"""The menu entry, what it starts, and the description for software centres."""

import configparser
import os
import pathlib
import re
import shlex
import shutil
import subprocess
from xml.etree import ElementTree

import offspring
import package
from installed import Installed
from wait import PATIENCE, wait_for

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"
SHOWN = ("Name", "GenericName", "Comment", "Keywords")
PNG_SIZE = slice(16, 24)  # width and height, four bytes each

# A browser that only notes what it is to show.
BROWSER = """#!/bin/sh
printf '%s\\n' "$1" >"{note}.part"
mv "{note}.part" "{note}"
"""
BROWSER_ENTRY = """[Desktop Entry]
Type=Application
Name=Browser
Exec={browser} %f
MimeType=text/html;
"""


class MenuEntry(Installed):
    def setUp(self):
        super().setUp()
        self.file = self.root / "usr/share/applications/sorvane.desktop"
        self.entry = configparser.ConfigParser(interpolation=None, delimiters="=")
        self.entry.optionxform = str
        self.entry.read(self.file, encoding="utf-8")
        self.environment["PATH"] = f"{self.commands}:{self.environment['PATH']}"

    def act(self, action, **environment):
        """Does what an action of the entry says, with what is installed below the test's folder."""
        words = shlex.split(self.entry[f"Desktop Action {action}"]["Exec"])
        if words[0].startswith("/"):
            words[0] = f"{self.root}{words[0]}"
        process = offspring.start(words, env=self.environment | environment, cwd="/",
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT)
        self.addCleanup(process.communicate)
        self.addCleanup(process.terminate)
        return process

    def test_it_is_valid_and_starts_the_program(self):
        self.assertEqual(package.complaints("desktop-file-validate", str(self.file)), "")
        self.assertEqual(self.entry["Desktop Entry"]["Exec"], "sorvane")

    def test_all_that_it_shows_is_there_in_italian(self):
        for group in self.entry.sections():
            shown = [key for key in self.entry[group] if key in SHOWN]
            self.assertTrue(shown)
            for key in shown:
                self.assertTrue(self.entry[group].get(f"{key}[it]"), f"{group}: {key}")
                ends = [self.entry[group][name].endswith(";") for name in (key, f"{key}[it]")]
                self.assertEqual(*ends)

    def test_its_actions_are_the_manual_and_the_simulated_board(self):
        actions = self.entry["Desktop Entry"]["Actions"].split(";")
        self.assertEqual(actions, ["manual", "board", ""])
        self.assertEqual(self.entry.sections(),
                         ["Desktop Entry", "Desktop Action manual", "Desktop Action board"])

    def test_the_manual_opens_in_the_users_browser_and_language(self):
        # Debian's xdg-open finds no program in a home with a blank in its name.
        home = package.desk.folder / "browsing"
        self.environment["HOME"] = str(home)
        self.addCleanup(shutil.rmtree, home)
        applications = home / ".local/share/applications"
        applications.mkdir(parents=True)
        browser, note = home / "browser", home / "shown"
        browser.write_text(BROWSER.format(note=note), encoding="utf-8")
        browser.chmod(0o755)
        (applications / "browser.desktop").write_text(BROWSER_ENTRY.format(browser=browser),
                                                      encoding="utf-8")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\ntext/html=browser.desktop\n", encoding="ascii")
        for variables, language in (({"LANG": "it_IT.UTF-8"}, "it"), ({"LANG": "C.UTF-8"}, "en"),
                                    ({"LC_ALL": "de_DE.UTF-8", "LANG": "it_IT.UTF-8"}, "en"),
                                    ({"LC_MESSAGES": "it", "LANG": "en_GB.UTF-8"}, "it"),
                                    ({"LANG": "iterate"}, "en")):
            with self.subTest(variables=variables):
                for name in ("LC_ALL", "LC_MESSAGES", "LANG"):
                    self.environment.pop(name, None)
                self.act("manual", **variables)
                wait_for("page in the browser", note.exists)
                page = self.root / f"usr/share/doc/sorvane/manual/{language}.html"
                self.assertEqual(note.read_text(encoding="utf-8"), f"{page.resolve()}\n")
                note.unlink()

    def test_the_simulated_board_runs_in_a_terminal_until_that_is_closed(self):
        terminal = self.act("board")
        link = self.own / "COM1"
        wait_for("link of the board", link.is_symlink)
        told = self.run_cli("info")
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        self.assertIn("machine   100234\n", told.stdout)
        terminal.terminate()
        terminal.wait(PATIENCE)
        wait_for("end of the board", lambda: not os.path.lexists(link))

    def test_the_package_recommends_what_the_actions_take(self):
        recommended = package.ask("dpkg-deb", "-f", str(package.file), "Recommends").strip()
        self.assertEqual(recommended, "xdg-utils, xterm | x-terminal-emulator")


class Description(Installed):
    def setUp(self):
        super().setUp()
        [self.file] = (self.root / "usr/share/metainfo").iterdir()
        self.component = ElementTree.parse(self.file).getroot()

    def test_it_is_valid(self):
        validate = ["appstreamcli", "validate", "--no-net", "--no-color", "--pedantic", "--strict"]
        self.assertEqual(package.complaints(*validate, str(self.file)), "")
        told = package.ask(*validate, str(self.file))
        self.assertNotRegex(told, "(?m)^[EWIP]: ")
        self.assertEqual(package.complaints("appstreamcli", "validate-tree", "--no-net",
                                            "--no-color", str(self.root)), "")

    def test_all_that_it_says_is_there_in_italian(self):
        count = 0
        for parent in self.component.iter():
            for tag in ("name", "summary", "developer_name", "p", "li", "caption", "image"):
                texts = parent.findall(tag)
                english = [text for text in texts if LANGUAGE not in text.attrib]
                italian = [text for text in texts if text.get(LANGUAGE) == "it"]
                self.assertEqual(len(english), len(italian), f"{parent.tag}: {tag}")
                self.assertTrue(all(text.text.strip() for text in texts))
                count += len(english)
        self.assertGreater(count, 10)

    def test_its_pictures_are_those_of_the_manual(self):
        images = [*self.component.iter("image")]
        self.assertTrue(images)
        site = self.component.find("url[@type='homepage']").text
        for image in images:
            self.assertTrue(image.text.startswith(site), image.text)
            file = self.root / "usr/share/doc/sorvane" / image.text.removeprefix(site)
            size = file.read_bytes()[PNG_SIZE]
            self.assertEqual((int.from_bytes(size[:4], "big"), int.from_bytes(size[4:], "big")),
                             (int(image.get("width")), int(image.get("height"))), image.text)

    def test_its_releases_are_those_of_the_list_of_changes(self):
        changes = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
        listed = re.findall(r"^## ([\d.]+)(?:, (.*))?$", changes, re.MULTILINE)
        releases = [*self.component.iter("release")]
        self.assertEqual([release.get("version") for release in releases],
                         [version for version, _ in listed])
        for release, (version, when) in zip(releases, listed):
            self.assertEqual(release.get("type") == "development", when == "not released", version)
            self.assertIsNotNone(release.find("description"), version)

    def test_its_commands_are_those_of_the_package(self):
        told = [binary.text for binary in self.component.iter("binary")]
        self.assertEqual(told, sorted(path.name for path in self.commands.iterdir()))

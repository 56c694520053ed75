"""What bash completes on a line that calls sorvane-cli."""

import json
import pathlib
import subprocess

from workplace import Workplace

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "linux" / "sorvane-cli.bash"

# Splits a line as readline does, and asks the function that the script has registered.
ASK = r"""
set -u
. "$1"
line=$2
read -ra words <<<"${line//=/ = }"
[ "${line% }" = "$line" ] || words+=("")
COMP_WORDS=("${words[@]}")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
[[ $(complete -p sorvane-cli) =~ -F\ ([a-z_]+) ]]
${BASH_REMATCH[1]} "${COMP_WORDS[0]}" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\n' "${COMPREPLY[@]}"
"""


class Completion(Workplace):
    def complete(self, line):
        """What is offered for the last word of a line."""
        run = subprocess.run(["bash", "--norc", "-c", ASK, "bash", str(SCRIPT),
                              f"{self.folder}/sorvane-cli {line}"],
                             check=True, cwd=self.place, env=self.environment,
                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, text=True)
        self.assertEqual(run.stderr, "")
        return set(run.stdout.splitlines())

    def known(self, *words):
        rows = json.loads(self.run_well("--json", "names", *words))["names"]
        return {row["name"]: row for row in rows}

    def test_begins_with_the_commands(self):
        self.assertLessEqual({"ports", "info", "backup", "set", "restore", "undo", "clock"},
                             self.complete(""))
        self.assertEqual(self.complete("re"), {"restore"})
        self.assertEqual(self.complete("--yes -q ba"), {"backup"})
        self.assertEqual(self.complete("clock "), {"set"})

    def test_offers_the_options_of_the_program_and_of_the_command(self):
        self.assertEqual(self.complete("--p"), {"--port", "--password", "--partial"})
        self.assertEqual(self.complete("restore --dry"), {"--dry-run"})
        self.assertEqual(self.complete("watch --ev"), {"--every"})
        self.assertEqual(self.complete("--ev"), set())
        self.assertLessEqual({"-p", "-y", "--json", "--except", "-h", "--help"},
                             self.complete("-"))

    def test_offers_groups_one_after_the_other(self):
        groups = {row["group"] for row in self.known().values()}
        self.assertEqual(self.complete("names "), groups)
        self.assertEqual(self.complete("--only "), groups)
        self.assertEqual(self.complete("--only co"), {"coins"})
        self.assertEqual(self.complete("--except prices,ba"),
                         {"prices,bands", "prices,banknotes"})
        self.assertEqual(self.complete("--only=tu"), {"tubes"})

    def test_offers_the_names_that_a_command_takes(self):
        self.assertEqual(self.complete("get "), set(self.known()))
        self.assertEqual(self.complete("watch vends.t"), {"vends.total"})
        self.assertEqual(self.complete("get price.3 option.f"), {"option.free-vend"})
        writable = {name for name, row in self.known().items()
                    if row["values"] not in ("read only", "text")}
        self.assertNotIn("vends.total", writable)
        self.assertNotIn("language.name.2", writable)
        self.assertEqual(self.complete("set "), {f"{name}=" for name in writable})
        self.assertEqual(self.complete("set price.3="), set())
        self.assertEqual(self.complete("set price.3=p"), set())

    def test_offers_files_and_folders_where_they_belong(self):
        (self.place / "held.json").touch()
        (self.place / "index").mkdir()
        for line in ("check ", "diff - ", "restore ", "backup ", "-o ", "--trace ", "--output=", "audit ",
                     "audit --since "):
            self.assertLessEqual({"held.json", "index"}, self.complete(line), line)
        self.assertEqual(self.complete("--index "), {"Sorvane", "index"})

    def test_offers_the_formats_and_languages_that_audit_takes(self):
        formats, languages = self.complete("audit --format "), self.complete("audit --language ")
        self.assertEqual((len(formats), len(languages)), (5, 2))
        for option, words in (("--format", formats), ("--language", languages)):
            for word in words:
                self.run_well("audit", option, word, "--help")
        self.assertIn("ports", self.complete("--since info "))

    def test_offers_the_ports_of_the_computer(self):
        stand_in = self.folder / "sorvane-cli"
        stand_in.write_text("#!/bin/sh\n[ \"$*\" != ports ] || "
                            "printf '/dev/ttyS0\\n/dev/ttyUSB0  an adapter\\n'\n",
                            encoding="ascii")
        self.assertLessEqual({"/dev/ttyS0", "/dev/ttyUSB0"}, self.complete("--port "))
        self.assertIn("/dev/ttyUSB0", self.complete("-p /dev/ttyU"))

    def test_takes_no_value_of_an_option_for_a_command(self):
        self.assertEqual(self.complete("--port info ba"), {"backup"})
        self.assertEqual(self.complete("watch --every "), set())

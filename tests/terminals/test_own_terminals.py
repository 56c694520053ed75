"""Terminals of their own for the tests, or words that there are none."""

import os
import pathlib
import subprocess
import sys
import unittest

SUPPORT = pathlib.Path(__file__).resolve().parent.parent / "support"
WRAPPER = SUPPORT / "own_terminals.py"

# Tells on which file systems a new terminal and the machine's names for terminals lie, who runs it,
# and where it stands.
TELL = """
import os
end = os.openpty()[1]
print(os.fstat(end).st_dev, os.stat(os.ttyname(end)).st_dev, os.getuid(),
      os.stat("/proc/self/ns/mnt").st_ino, os.stat("/proc/self/ns/user").st_ino)
"""

# The wrapper on a system that refuses one of its calls.
REFUSED = f"""
import os, sys
sys.path.insert(0, {str(SUPPORT)!r})
import own_terminals
call, refused = own_terminals._call, sys.argv[1]
def refuse(name, *arguments):
    if name == refused:
        raise PermissionError(1, name + ": not here")
    call(name, *arguments)
own_terminals._call = refuse
own_terminals.take_own_terminals()
exec({TELL!r})
"""

NONE = "no terminals of their own for the tests, which share those of the machine: "


def run(*command, **options):
    return subprocess.run([sys.executable, "-B", *command], text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, check=False, **options)


def shared():
    """What a process tells that shares the terminals of this one."""
    return run("-c", TELL).stdout.split()


class OwnTerminals(unittest.TestCase):
    def check(self, **options):
        """The terminals are others than the machine's, or there is a line that tells why not."""
        # As a text, from a folder that all may see: another user may not see this checkout.
        done = run("-c", WRAPPER.read_text(encoding="utf-8"), sys.executable, "-c", TELL, cwd="/",
                   **options)
        file_system, named, user, *_ = done.stdout.split()
        self.assertEqual(file_system, named)
        self.assertEqual(int(user), options.get("user", os.getuid()))
        if done.stderr:
            self.assertRegex(done.stderr, rf"^{NONE}.*\n$")
            self.assertEqual(file_system, shared()[0])
        else:
            self.assertNotEqual(file_system, shared()[0])
        self.assertEqual(os.stat("/dev/pts").st_dev, int(shared()[0]))

    def test_terminals_are_others_than_those_of_the_machine_or_words_tell_why_not(self):
        self.check()

    def test_an_ordinary_user_has_them_too_and_remains_who_it_is(self):
        ordinary = {} if os.getuid() else {"user": 65534, "group": 65534, "extra_groups": []}
        self.check(**ordinary)

    def test_the_machine_does_not_see_them_where_it_shares_its_mounts(self):
        done = subprocess.run(
            ["unshare", "--user", "--map-root-user", "--mount", "--propagation", "shared", "sh", "-c",
             '"$1" -B "$2" true && stat -c %d /dev/pts', "sh", sys.executable, WRAPPER],
            text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if done.stderr.startswith("unshare: "):
            self.assertEqual(done.stdout, "")  # nor can the wrapper mount anything here
        else:
            self.assertEqual(done.stdout, f"{os.stat('/dev/pts').st_dev}\n", done.stderr)

    def test_the_program_gets_its_arguments_and_gives_its_exit_code(self):
        done = run(WRAPPER, "sh", "-c", 'echo "$@"; exit 7', "sh", "a b", "c")
        self.assertEqual((done.stdout, done.returncode), ("a b c\n", 7))


class ARefusal(unittest.TestCase):
    def test_is_told_in_one_line_and_leaves_the_process_where_it_stands(self):
        for call in ("unshare", "mount"):
            with self.subTest(call=call):
                done = run("-c", REFUSED, call)
                self.assertRegex(done.stderr, rf"^{NONE}.*\n$")
                self.assertEqual(done.stdout.split(), shared())


if __name__ == "__main__":
    unittest.main()

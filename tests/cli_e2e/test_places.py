"""Folders and files that aren't plain, disks that are full, and other languages and time zones."""

import datetime
import json
import os

from workplace import PRICES, Workplace

NO_TEXT = os.fsdecode(b"caf\xe9 N\xba 1")  # as systems wrote names before they wrote UTF-8
ODD = "Prüfstand Nº 1 – café 日本"


def full_after(blocks):
    """Before a command: so many times 1024 bytes are all that a file may have."""
    return "bash", "-c", f"trap '' XFSZ; ulimit -f {blocks}; exec \"$@\"", "full"


FULL = full_after(4)  # less than any snapshot takes
# Also the administrator may not write then where rights forbid it.
LEAST_RIGHTS = (("setpriv", "--bounding-set=-dac_override,-dac_read_search")
                if os.geteuid() == 0 else ())


class Disks(Workplace):
    def setUp(self):
        super().setUp()
        self.start_board()

    def assert_nothing_written(self, done, words):
        self.assertEqual(done.code, 2)
        self.assertIn(words, done.err)
        self.assertEqual(self.board.holds(PRICES[1]), 100)
        self.assertEqual(done.lines("confirmed"), [])

    def test_a_full_disk_leaves_an_old_snapshot_whole_and_nothing_beside_it(self):
        self.keep()
        before = self.snapshot.read_bytes()
        files = sorted(os.listdir(self.place))
        done = self.run_cli("backup", self.snapshot, before=FULL)
        self.assertEqual((done.code, done.err),
                         (2, f"sorvane-cli: {self.snapshot}: can't be written\n"))
        self.assertEqual(self.snapshot.read_bytes(), before)
        self.assertEqual(sorted(os.listdir(self.place)), files)

    def test_without_room_for_a_copy_nothing_is_written(self):
        done = self.run_cli("--yes", "set", "price.1=1.75", before=FULL)
        self.assert_nothing_written(done, "000001.json: can't be written")
        self.assertEqual(self.copies(), [])

    def test_a_data_folder_that_is_closed_to_writes_is_told_and_nothing_is_written(self):
        self.data.mkdir(mode=0o555)
        done = self.run_cli("--yes", "set", "price.1=1.75", before=LEAST_RIGHTS)
        self.assert_nothing_written(done, f"{self.data}/sorvane/copies/100234: ")

    def test_a_result_that_finds_no_room_is_no_success(self):
        for command in (("info",), ("backup",), ("get", "price.1"), ("names",)):
            with open("/dev/full", "wb") as full:
                done = self.run_cli(*command, stdout=full)
            self.assertEqual((done.code, done.err),
                             (2, "sorvane-cli: the standard output can't be written\n"), command)

    def test_a_plan_that_finds_no_room_is_not_carried_out(self):
        with open("/dev/full", "wb") as full:
            done = self.run_cli("--yes", "set", "price.1=1.75", stdout=full)
        self.assert_nothing_written(done, "the standard output can't be written")

    def test_frames_that_find_no_room_in_the_trace_end_the_command_before_it_writes(self):
        done = self.run_cli("--trace", "/dev/full", "--yes", "set", "price.1=1.75")
        self.assert_nothing_written(done, "/dev/full: can't be written")

    def test_frames_of_writes_that_find_no_room_in_the_trace_are_told_once_all_is_written(self):
        trace = self.place / "trace.txt"

        def set_prices(amount, **options):
            values = [f"price.{row}={amount}" for row in PRICES]
            return self.run_cli("--trace", trace, "--yes", "set", *values, **options)

        self.assertEqual(set_prices("1.11").code, 0)
        frames_of_reads = trace.read_text().partition("  write ")[0]
        blocks = len(frames_of_reads) // 1024 + 2
        self.assertLess(blocks * 1024, trace.stat().st_size)
        done = set_prices("1.22", before=full_after(blocks))
        self.assertEqual(done.code, 2)
        self.assertEqual(len(done.lines("confirmed")), len(PRICES))
        self.assertIn(f"{trace}: can't be written", done.err)


class Names(Workplace):
    def assert_works_in(self, folder):
        """Programs, data and snapshot all lie below a folder."""
        folder.mkdir()
        self.settle(folder / "Sorvane")
        self.data = folder / "data"
        self.environment |= {"XDG_DATA_HOME": str(self.data)}
        self.snapshot = folder / f"{folder.name}.json"
        self.start_board()
        self.keep()
        self.run_well("check", self.snapshot)
        self.run_well("--yes", "--trace", folder / "trace", "set", "price.1=1.75")
        self.assertEqual(self.copies(), ["000001.json"])
        self.assertIn("write price.1", (folder / "trace").read_text(encoding="utf-8"))
        self.run_well("--yes", "undo")
        self.assertEqual(self.run_well("diff", self.snapshot, "-"), "")
        missing = self.run_cli("check", folder / "missing")
        self.assertEqual(missing.err, f"sorvane-cli: {folder / 'missing'}: no such file\n")
        self.assertEqual({path.name for path in self.place.iterdir()}, {"Sorvane", folder.name})

    def test_may_hold_letters_of_all_languages(self):
        self.assert_works_in(self.place / ODD)

    def test_need_not_be_text(self):
        self.assert_works_in(self.place / NO_TEXT)

    def test_need_not_be_text_where_the_home_is_all_that_is_told(self):
        home = self.place / NO_TEXT
        home.mkdir()
        del self.environment["XDG_DATA_HOME"]
        self.environment["HOME"] = str(home)
        self.start_board()
        self.run_well("--yes", "set", "price.1=1.75")
        self.assertTrue((home / ".local/share/sorvane/copies/100234/000001.json").exists())

    def test_a_data_folder_that_is_told_by_half_is_not_taken(self):
        self.environment["XDG_DATA_HOME"] = "data"
        self.start_board()
        self.run_well("--yes", "set", "price.1=1.75")
        self.assertTrue((self.place / ".local/share/sorvane/copies/100234/000001.json").exists())
        self.assertFalse(self.data.exists())


class Languages(Workplace):
    def test_change_nothing_of_what_is_written(self):
        self.start_board()
        told = [self.spoken(language) for language in ("C.UTF-8", "C", "it_IT.UTF-8", "it_IT")]
        for other in told[1:]:
            self.assertEqual(other, told[0])
        self.assertIn("language.name.2 = Français", told[0][0])
        self.assertIn("price.3 = 1.50", told[0][0])

    def spoken(self, language):
        """What is said and kept in a language of the system."""
        shown = self.run_well("get", "language.name.2", "price.3", "motor.timeout",
                              LC_ALL=language)
        kept = json.loads(self.run_well("backup", LC_ALL=language))
        del kept["time"]
        kept["values"] = [value for value in kept["values"]
                          if not value["name"].startswith("clock.")]
        changed = self.run_well("--yes", "set", "price.3=1,75", LC_ALL=language)
        back = self.run_well("--yes", "undo", LC_ALL=language)
        return shown, kept, changed, back


class TimeZones(Workplace):
    def test_a_snapshot_tells_the_time_of_no_zone(self):
        self.start_board()
        begin = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
        for zone in ("UTC0", "<+14>-14", "<-11>11"):
            time = json.loads(self.run_well("backup", TZ=zone))["time"]
            taken = datetime.datetime.strptime(time, "%Y-%m-%dT%H:%M:%SZ").replace(
                tzinfo=datetime.timezone.utc)
            self.assertLessEqual(begin, taken)
            self.assertLessEqual(taken, datetime.datetime.now(datetime.timezone.utc))

    def test_the_clock_is_set_to_the_time_of_the_computers_zone(self):
        self.start_board()
        zone = datetime.timezone(datetime.timedelta(hours=14))
        before = datetime.datetime.now(zone)
        self.run_well("--yes", "clock", "set", TZ="<+14>-14")
        shown = self.board.tell("clock")
        expected = {time.strftime("clock %Y-%m-%d %H:%M")
                    for time in (before, datetime.datetime.now(zone))}
        self.assertTrue(any(shown.startswith(words) for words in expected), shown)

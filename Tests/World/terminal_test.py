"""The output and the ends of the program's terminal commands, in the district."""

import contextlib
import csv
import io
import json
import os
import pty
import signal
import stat
import subprocess
import time
import unittest

from accessible_program import AccessibleProgram
from incomplete_program import copy_without_modules
from patience import PATIENCE_SECONDS, wait_for
from virtual_desktop import VirtualDesktop
from world import World

PROGRAM = os.environ["QUORVEL_PROGRAM"]
AT_ONCE = 8
DONE, FAILURE, USAGE, LOCATION_DENIED, NO_CAFE, ALREADY_CHECKED_IN = range(6)
REFUSAL = "Already checked in today at this café."
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")
NEAREST = "Cà phê Gió Sông"
NETWORK = "Cà phê Gió Sông 5G"
PASSWORD = "ca phe sua da 35k"
KEYCHAIN_SERVICE = "com.zantho.quorvel.wifi"


def without_override():
    """A command prefix that makes file modes apply to a test that runs as root, too."""
    return ["setpriv", "--bounding-set", "-dac_override"] if os.geteuid() == 0 else []


class TerminalCase(unittest.TestCase):
    def setUp(self):
        self.world = self.enterContext(World())
        self.folder = self.world.folder

    def run_command(self, *arguments, status=DONE, prefix=(), **options):
        """Runs a command, and returns what it printed. Its standard error is in `noted`."""
        options.setdefault("stdout", subprocess.PIPE)
        ended = subprocess.run(
            [*prefix, PROGRAM, *arguments], env=self.world.environment, check=False,
            stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, timeout=PATIENCE_SECONDS, **options,
        )
        self.noted = ended.stderr.decode()
        self.assertEqual(ended.returncode, status, self.noted)
        return (ended.stdout or b"").decode()

    def run_json(self, *arguments, **options):
        return json.loads(self.run_command(*arguments, "--json", **options))

    def start_command(self, *arguments, **options):
        process = subprocess.Popen(
            [PROGRAM, *arguments], env=self.world.environment, stdin=subprocess.DEVNULL, **options
        )
        self.addCleanup(end, process)
        return process

    def visits(self):
        return self.run_json("history")["visits"]


def end(process):
    with contextlib.suppress(ProcessLookupError):
        process.kill()
    process.communicate()


class LocateTest(TerminalCase):
    def test_it_prints_what_the_panel_would_show(self):
        lines = self.run_command("locate").split("\n")
        self.assertEqual(lines[:6], [
            f"{NEAREST} · 14 m away",
            "18 Đường Mưa Rào, Phường Bến Nghé, Thành phố Hồ Chí Minh",
            "31° · Feels 36° · Overcast",
            f"Wi-Fi: {NETWORK} · Strong (-42 dBm)",
            "Also near:",
            "   39m  Unnamed",
        ])
        self.assertEqual(self.noted, "")

    def test_json_holds_the_same(self):
        found = self.run_json("locate")
        self.assertEqual(found["status"], "located")
        self.assertEqual(found["selectedCafe"], found["nearbyCandidates"][0])
        self.assertEqual(found["selectedCafe"]["name"], NEAREST)
        self.assertEqual(len(found["nearbyCandidates"]), len(self.world.district.cafes_within(100)))
        self.assertEqual(found["weather"]["temperatureC"], 31.4)
        self.assertEqual(found["wifi"]["ssid"], NETWORK)
        self.assertEqual(found["wifi"]["hasRememberedPassword"], False)

    def test_a_stored_password_is_mentioned_but_not_printed(self):
        self.keep_password()
        self.assertTrue(self.run_json("locate")["wifi"]["hasRememberedPassword"])
        printed = self.run_command("locate")
        self.assertIn("password kept", printed)
        self.assertNotIn(PASSWORD, printed + self.noted)

    def test_control_characters_in_names_do_not_reach_the_terminal(self):
        place = next(place for place in self.world.district.places if place.name == NEAREST)
        place.tags["name"] = "\x1b]0;owned\x07\x9b2J\u202eCafé\r\x08"
        printed = self.run_command("locate")
        self.assertTrue(printed.startswith("�]0;owned��2J�Café � · 14 m away\n"), printed)
        raw = self.run_command("locate", "--json")
        self.assertEqual([order for order in "\x1b\x07\x9b\u202e\r\x08" if order in raw], [])
        self.assertEqual(json.loads(raw)["selectedCafe"]["name"], place.tags["name"])

    def test_a_locale_without_utf_8_changes_nothing(self):
        for variable in ("LC_ALL", "LANG"):
            self.world.environment[variable] = "C"
            self.assertTrue(self.run_command("locate").startswith(NEAREST))
            self.assertEqual(self.noted, "")

    def keep_password(self):
        command = ["secret-tool", "store", "--label=test", "service", KEYCHAIN_SERVICE,
                   "account", NETWORK, "xdg:schema", KEYCHAIN_SERVICE]
        subprocess.run(command, env=self.world.environment, input=PASSWORD, text=True,
                       check=True, timeout=PATIENCE_SECONDS)


class LocateFailureTest(TerminalCase):
    def test_a_refused_location_has_its_own_status(self):
        for how in ("denied", "disallowed"):
            with self.subTest(how=how):
                self.world.location.fail(how)
                self.assertEqual(self.run_command("locate", status=LOCATION_DENIED), "")
                self.assertEqual(
                    self.noted,
                    "quorvel: Location access denied. Open System Settings to enable.\n",
                )
                found = self.run_json("locate", status=LOCATION_DENIED)
                self.assertEqual(found["status"], "locationDenied")
                self.world.location.recover()

    def test_the_network_is_shown_without_a_position_or_a_map(self):
        troubles = [(self.world.location.vanish, ()), (self.world.location.fail, (404,))]
        troubles += [(self.world.places.fail, (how,)) for how in (429, 500, "html", "remark")]
        troubles += [(self.world.places.vanish, ())]
        for trouble, arguments in troubles:
            with self.subTest(trouble=trouble.__qualname__, arguments=arguments):
                trouble(*arguments)
                found = self.run_json("locate", status=NO_CAFE)
                self.assertEqual((found["status"], found["selectedCafe"]), ("noCafe", None))
                self.assertEqual(found["wifi"]["ssid"], NETWORK)
                self.world.recover()
        self.assertEqual(self.run_json("locate")["status"], "located")

    def test_it_works_without_weather(self):
        self.world.weather.fail(503)
        self.assertIn("\nWeather unavailable\n", self.run_command("locate"))
        self.assertIsNone(self.run_json("locate")["weather"])

    def test_it_works_without_a_network(self):
        for trouble in (lambda: self.world.wifi.fail("no radio"), self.world.wifi.vanish,
                        lambda: self.world.wifi.fail("silence")):
            trouble()
            self.assertIn("\nNo Wi-Fi\n", self.run_command("locate"))
            self.world.wifi.recover()

    def test_it_works_without_a_keyring(self):
        for trouble in (self.world.keyring.vanish, lambda: self.world.keyring.fail("locked"),
                        lambda: self.world.keyring.fail("silence")):
            trouble()
            self.assertFalse(self.run_json("locate")["wifi"]["hasRememberedPassword"])
            self.world.keyring.recover()

    def test_an_unencrypted_address_is_refused(self):
        self.world.environment["QUORVEL_PLACES_ENDPOINT"] = "http://maps.example/"
        self.run_command("locate", status=FAILURE)
        self.assertIn("QUORVEL_PLACES_ENDPOINT", self.noted)

    def test_a_program_without_its_module_says_so(self):
        alone = copy_without_modules(PROGRAM, self.folder / "alone")
        ended = subprocess.run([alone, "locate"], env=self.world.environment, check=False,
                               capture_output=True, text=True, timeout=PATIENCE_SECONDS)
        self.assertEqual((ended.returncode, ended.stdout), (FAILURE, ""))
        self.assertIn("quorvel: Quorvel is not installed completely", ended.stderr)


class WaitingTest(TerminalCase):
    def setUp(self):
        super().setUp()
        self.world.location.slow(PATIENCE_SECONDS)

    def watched(self, *arguments, **environment):
        """Starts a command on a terminal. Returns it with the other end of that terminal."""
        screen, theirs = pty.openpty()
        self.addCleanup(os.close, screen)
        self.world.environment.update(environment)
        process = self.start_command(*arguments, stderr=theirs, stdout=subprocess.PIPE)
        os.close(theirs)
        return process, screen

    def test_a_terminal_shows_the_progress_and_an_interrupt_ends_it(self):
        for arguments in (("locate",), ("check-in",)):
            with self.subTest(arguments=arguments):
                process, screen = self.watched(*arguments, TERM="xterm")
                line = "\r\x1b[KFinding your café…"
                self.assert_reads(screen, f"{line}{line} 1 s")
                self.assert_ends_by(process, signal.SIGINT)
        self.world.recover()
        self.assertEqual(self.visits(), [])

    def test_a_dumb_terminal_shows_no_progress(self):
        process, screen = self.watched("locate", TERM="dumb")
        self.wait_until_asked()
        self.assert_ends_by(process, signal.SIGTERM)
        # The command's end is closed, and nothing was written to it.
        with self.assertRaises(OSError):
            os.read(screen, 1)

    def test_a_shell_reads_130_after_an_interrupt(self):
        shell = subprocess.Popen(
            ["sh", "-c", "\"$0\" locate; echo $?", PROGRAM], env=self.world.environment, text=True,
            stdout=subprocess.PIPE, start_new_session=True,
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL),
        )
        self.addCleanup(end, shell)
        command = wait_for(lambda: children(shell.pid), "the command")[0]
        self.wait_until_asked()
        os.kill(command, signal.SIGINT)
        self.assertEqual(shell.stdout.read(), "130\n")

    def assert_reads(self, screen, text):
        """Checks the next text on the screen, which comes in pieces."""
        wanted, read = text.encode(), b""
        while len(read) < len(wanted):
            read += os.read(screen, len(wanted) - len(read))
        self.assertEqual(read.decode(), text)

    def assert_ends_by(self, process, told):
        """The signal ends the process while it still waits."""
        process.send_signal(told)
        self.assertEqual(process.wait(PATIENCE_SECONDS), -told)

    def wait_until_asked(self):
        """Waits until the command has asked for its position."""
        wait_for(lambda: self.world.location.requests, "the daemon's request")


def children(pid):
    with open(f"/proc/{pid}/task/{pid}/children", encoding="ascii") as listed:
        return [int(child) for child in listed.read().split()]


class CheckInTest(TerminalCase):
    def test_a_visit_is_stored_once_a_day_and_cafe(self):
        said = self.run_command("check-in", "--outlets", "5", "--noise=1", "--note", "Yên tĩnh")
        self.assertEqual(said, f"Checked in at {NEAREST}.\n")
        self.assertEqual(self.run_command("check-in", status=ALREADY_CHECKED_IN), "")
        self.assertEqual(self.noted, f"quorvel: {REFUSAL}\n")
        again = self.run_json("check-in", status=ALREADY_CHECKED_IN)
        self.assertEqual(again["status"], "alreadyCheckedIn")
        other = self.run_json("check-in", "--cafe", "node/4200000004")
        self.assertEqual((other["status"], other["cafe"]["name"]), ("checkedIn", "Unnamed"))
        newest, first = self.visits()
        self.assertEqual(newest["cafe"]["mapItemIdentifier"], "node/4200000004")
        self.assertEqual(first["cafe"]["name"], NEAREST)
        self.assertEqual(first["cafe"]["lastKnownSSID"], NETWORK)
        self.assertEqual(first["note"], "Yên tĩnh")
        self.assertEqual(first["ratings"],
                         {"wifiSpeed": 3, "outlets": 5, "noise": 1, "quietForCalls": 3})
        self.assertEqual(first["weather"]["temperatureC"], 31.4)

    def test_only_one_of_many_simultaneous_commands_stores_the_visit(self):
        commands = [self.start_command("check-in", stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL) for _ in range(AT_ONCE)]
        statuses = sorted(command.wait(PATIENCE_SECONDS) for command in commands)
        self.assertEqual(statuses, [DONE] + [ALREADY_CHECKED_IN] * (AT_ONCE - 1))
        self.assertEqual(len(self.visits()), 1)

    def test_failures_store_nothing(self):
        self.world.location.fail("denied")
        self.run_command("check-in", status=LOCATION_DENIED)
        self.world.location.recover()
        self.world.places.fail(500)
        self.run_command("check-in", status=NO_CAFE)
        self.world.places.recover()
        self.run_command("check-in", "--cafe", "nowhere", status=NO_CAFE)
        self.assertIn("no café “nowhere” is near, but “Cà phê Gió Sông”, ", self.noted)
        self.run_command("check-in", "--noise", "6", status=USAGE)
        self.assertEqual(self.visits(), [])

    def test_a_store_that_cannot_be_made_is_reported_before_any_request(self):
        self.folder.joinpath("data").chmod(0o500)
        self.run_command("check-in", status=FAILURE, prefix=without_override())
        self.assertIn("Permission denied", self.noted)
        self.assertEqual(self.world.places.requests, [])

    def test_a_visit_is_stored_even_if_its_output_is_lost(self):
        with open("/dev/full", "wb") as full:
            self.run_command("check-in", status=FAILURE, stdout=full)
        self.run_command("check-in", status=ALREADY_CHECKED_IN)


class HistoryTest(TerminalCase):
    def test_without_visits_it_says_so(self):
        self.assertEqual(self.run_command("history"), "No check-ins yet\n")
        self.assertEqual(self.visits(), [])

    def test_visits_are_listed_from_a_day_on(self):
        self.run_command("check-in", "--note", "\x1b[2Jsly\u202e")
        printed = self.run_command("history")
        self.assertRegex(printed, f"^1 visits · 1 cafés this week\n\nTODAY\n  .* · 31°  {NEAREST}\n"
                                  "    Wifi 3 · Power 3 · Quiet 3 · Calls 3\n    �.2Jsly�\n$")
        today = time.strftime("%Y-%m-%d")
        self.assertEqual(self.run_command("history", "--since", today), printed)
        self.assertIn("No check-ins since", self.run_command("history", "--since", "2100-01-01"))

    def test_an_invalid_day_is_refused(self):
        self.run_command("history", "--since", "yesterday", status=USAGE)
        self.assertEqual(self.noted, "quorvel: “yesterday” is no day as in “2026-03-01”\n"
                                     "Try “quorvel history --help”.\n")

    def test_a_file_that_is_no_store_is_left_alone(self):
        store = self.folder / "data/Quorvel/Quorvel.store"
        store.parent.mkdir(mode=0o700)
        store.write_bytes(b"no store" * 100)
        self.assertEqual(self.run_command("history", status=FAILURE), "")
        self.assertIn("Quorvel.store", self.noted)
        self.assertEqual(store.read_bytes(), b"no store" * 100)


class ExportTest(TerminalCase):
    def setUp(self):
        super().setUp()
        self.run_command("check-in", "--note", "=1+1, \"quoted\"\nline")
        self.run_command("check-in", "--cafe", "node/4200000004")

    def test_each_format_can_be_parsed(self):
        exported = json.loads(self.run_command("export", "--format", "json"))
        self.assertEqual(exported, self.run_json("history"))
        second, first = csv.DictReader(
            io.StringIO(self.run_command("export", "--format", "csv"), newline="")
        )
        self.assertEqual(first["note"], "'=1+1, \"quoted\"\nline")
        self.assertEqual(float(first["longitude"]), 106.701006)
        self.assertEqual(second["cafeName"], "Unnamed")
        features = json.loads(self.run_command("export", "--format", "geojson"))["features"]
        self.assertEqual(features[1]["geometry"],
                         {"type": "Point", "coordinates": [106.701006, 10.776972]})
        self.assertEqual(features[1]["properties"]["note"], "=1+1, \"quoted\"\nline")

    def test_a_file_is_complete_and_private_to_its_user(self):
        printed = self.run_command("export", "--format", "csv")
        target = self.folder / "visits.csv"
        target.write_text("older")
        target.chmod(0o644)
        said = self.run_command("export", "--format", "csv", "--output", "visits.csv",
                                cwd=self.folder)
        self.assertEqual(said, "")
        self.assertEqual(target.read_bytes(), printed.encode())
        self.assertEqual(stat.S_IMODE(target.stat().st_mode), 0o600)

    def test_a_file_that_cannot_be_written_leaves_the_old_file(self):
        place = self.folder / "closed"
        place.mkdir()
        target = place / "visits.csv"
        target.write_text("older")
        place.chmod(0o500)
        self.run_command("export", "--format", "csv", "--output", str(target), status=FAILURE,
                         prefix=without_override())
        self.assertIn(str(target), self.noted)
        self.assertEqual(target.read_text(), "older")
        self.assertEqual([entry.name for entry in place.iterdir()], ["visits.csv"])
        self.run_command("export", "--format", "csv", "--output", "/nowhere/visits.csv",
                         status=FAILURE)
        self.run_command("export", "--format", "csv", "--output", "/dev/null", status=USAGE)

    def test_a_failed_write_is_reported(self):
        with open("/dev/full", "wb") as full:
            self.run_command("export", "--format", "json", status=FAILURE, stdout=full)
        self.assertEqual(self.noted,
                         "quorvel: The output could not be written: No space left on device.\n")
        shell = ["sh", "-c", "exec \"$0\" \"$@\" >&-"]
        self.run_command("export", "--format", "json", status=FAILURE, prefix=shell)
        self.assertEqual(self.noted,
                         "quorvel: The output could not be written: Bad file descriptor.\n")

    def test_a_closed_pipe_is_not_reported(self):
        reading, writing = os.pipe()
        os.close(reading)
        with os.fdopen(writing, "wb") as gone:
            self.run_command("export", "--format", "json", status=FAILURE, stdout=gone)
        self.assertEqual(self.noted, "")

    def test_a_format_is_required(self):
        for arguments in ((), ("--format", "xml"), ("--format",), ("--fromat", "csv"), ("csv",)):
            self.assertEqual(self.run_command("export", *arguments, status=USAGE), "")
            self.assertIn("Try “quorvel export --help”.", self.noted)


class BesideTest(unittest.TestCase):
    """A running program goes on undisturbed, and no second icon appears."""

    def test_the_commands_work_beside_a_running_program(self):
        with VirtualDesktop() as desktop, World(desktop):
            host = desktop.start_fake_host()
            program = desktop.start_program(PROGRAM)
            desktop.wait_until(host.items, "the item registers")
            for arguments in (("locate",), ("check-in",), ("history",),
                              ("export", "--format", "csv")):
                command = desktop.start("command", [PROGRAM, *arguments])
                self.assertEqual(command.status(), 0, command.output())
            self.assertEqual(len(host.items()), 1)
            self.assertEqual(desktop.windows("Quorvel"), [])
            self.assertTrue(program.is_running())
            program.terminate()
            self.assertEqual(program.status(), 0, program.output())

    def test_an_open_panel_refuses_the_visit_that_a_command_has_stored_meanwhile(self):
        with VirtualDesktop(services=SERVICES) as desktop, World(desktop):
            window = self.open_panel(desktop)
            self.check_in(desktop)
            self.assertIsNone(window.find(REFUSAL))
            window.find("Check In").press()
            self.wait_for(desktop, window, REFUSAL)

    def test_an_open_history_lists_the_visit_that_a_command_stores(self):
        with VirtualDesktop(services=SERVICES) as desktop, World(desktop):
            window = self.open_panel(desktop)
            window.find("Check-ins").press()
            self.wait_for(desktop, window, "No check-ins yet")
            self.check_in(desktop)
            self.wait_for(desktop, window, "1 visits · 1 cafés this week")
            # The panel opens again, and also knows of the visit.
            desktop.run_program(PROGRAM)
            self.wait_for(desktop, window, REFUSAL)

    def open_panel(self, desktop):
        """Starts the program. It opens the panel by itself, because there is no tray."""
        program = desktop.start_program(PROGRAM, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        desktop.wait_for_window("Quorvel")
        window = AccessibleProgram(desktop.bus_address, program.pid)
        self.addCleanup(window.close)
        self.wait_for(desktop, window, NEAREST)
        return window

    def check_in(self, desktop):
        command = desktop.start("command", [PROGRAM, "check-in"])
        self.assertEqual(command.status(), DONE, command.output())

    @staticmethod
    def wait_for(desktop, window, name):
        return desktop.wait_until(lambda: window.find(name), f"“{name}” is seen")


if __name__ == "__main__":
    unittest.main()

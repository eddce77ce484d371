"""The bus starts the program for whoever calls it, and opens what was asked for."""

import os
import pathlib
import time
import unittest

import dbus
import dbus.bus

from desktop_case import DIAGNOSTICS, HISTORY, PANEL, PROGRAM, DesktopCase
from processes import running_pids
from virtual_desktop import process_id

NAME = "com.zantho.quorvel"
PATH = "/com/zantho/quorvel"
INTERFACE = "org.freedesktop.Application"
SERVICE = pathlib.Path(os.environ["QUORVEL_SERVICE"])
CALL_SECONDS = 20
# What the toolkit adds to a title, it does not add to the name that the screen lists.
LISTED = {PANEL: PANEL, HISTORY: HISTORY, DIAGNOSTICS: "Probe8"}
# What a start without a status area waits for one.
PATIENCE_SECONDS = 5
NOTHING = dbus.Dictionary(signature="sv")
NO_PARAMETER = dbus.Array(signature="v")


def executable(pid):
    try:
        return os.readlink(f"/proc/{pid}/exe")
    except OSError:
        return None


class ActivationCase(DesktopCase):
    def setUp(self):
        super().setUp()
        self.desktop.add_service(
            NAME, SERVICE.read_text().replace("@QUORVEL_PROGRAM@", PROGRAM)
        )
        self.bus = dbus.bus.BusConnection(self.desktop.bus_address)
        self.addCleanup(self.bus.close)

    def activate(self):
        self._call("Activate", "a{sv}", NOTHING)

    def activate_action(self, name):
        self._call("ActivateAction", "sava{sv}", name, NO_PARAMETER, NOTHING)

    def owner(self):
        return process_id(self.bus, NAME)

    def programs(self):
        """The processes of this program on this desktop: each has its bus address."""
        mark = os.fsencode(f"DBUS_SESSION_BUS_ADDRESS={self.desktop.bus_address}")
        return [pid for pid in running_pids() if executable(pid) == os.path.realpath(PROGRAM)
                and mark in pathlib.Path(f"/proc/{pid}/environ").read_bytes().split(b"\0")]

    def open_windows(self):
        return [title for title, name in LISTED.items() if self.desktop.windows(name)]

    def assert_only_window(self, title):
        self.desktop.wait_for_window(LISTED[title])
        self.desktop.wait_for_focused_window(title)
        self.assertEqual(self.open_windows(), [title])

    def assert_no_window_comes(self, but=()):
        time.sleep(PATIENCE_SECONDS + 1)
        self.assertEqual(self.open_windows(), list(but))

    def _call(self, member, signature, *arguments):
        self.bus.call_blocking(
            NAME, PATH, INTERFACE, member, signature, arguments, timeout=CALL_SECONDS
        )


class FirstStartTest(ActivationCase):
    """Nothing of the program runs when the call is made."""

    def test_activating_it_opens_the_panel_beside_its_icon(self):
        self.desktop.start_tray("trayer")
        self.activate()
        self.assert_only_window(PANEL)
        self.desktop.wait_for_icon()

    def test_the_action_check_in_opens_the_panel(self):
        self.activate_action("check-in")
        self.assert_only_window(PANEL)

    def test_the_action_history_opens_the_visits_and_nothing_else(self):
        self.activate_action("history")
        self.assert_only_window(HISTORY)
        self.assert_no_window_comes(but=[HISTORY])

    def test_the_action_diagnostics_opens_them(self):
        self.activate_action("diagnostics")
        self.assert_only_window(DIAGNOSTICS)

    def test_calls_at_once_all_reach_one_process(self):
        for name in ("history", "diagnostics"):
            self.bus.call_async(
                NAME, PATH, INTERFACE, "ActivateAction", "sava{sv}",
                (name, NO_PARAMETER, NOTHING), None, None,
            )
        self.bus.flush()
        for title in (HISTORY, DIAGNOSTICS):
            self.desktop.wait_for_window(LISTED[title])
        self.assertEqual(self.programs(), [self.owner()])

    def test_an_unknown_action_is_refused_in_words_and_the_program_lives_on(self):
        with self.assertRaises(dbus.DBusException) as refused:
            self.activate_action("dance")
        self.assertEqual(
            refused.exception.get_dbus_name(), "org.freedesktop.DBus.Error.InvalidArgs"
        )
        self.assertEqual(
            refused.exception.get_dbus_message(), "Quorvel has no action “dance”."
        )
        owner = self.owner()
        self.assertEqual(self.open_windows(), [])
        self.activate_action("history")
        self.assert_only_window(HISTORY)
        self.assertEqual(self.owner(), owner)


class RunningTest(ActivationCase):
    """One runs already, and stays the only one."""

    def setUp(self):
        super().setUp()
        self.program = self.start_shown_program()

    def assert_only_program(self):
        self.assertEqual(self.programs(), [self.program.pid])
        self.assertEqual(self.owner(), self.program.pid)

    def test_activating_it_opens_its_panel(self):
        self.activate()
        self.assert_only_window(PANEL)
        self.assert_only_program()

    def test_each_action_opens_its_window(self):
        for name, title in (("history", HISTORY), ("diagnostics", DIAGNOSTICS),
                            ("check-in", PANEL)):
            self.activate_action(name)
            self.desktop.wait_for_focused_window(title)
        self.assert_only_program()

    def test_an_unknown_action_opens_nothing(self):
        with self.assertRaises(dbus.DBusException):
            self.activate_action("dance")
        self.assertEqual(self.open_windows(), [])
        self.assert_only_program()


class OptionTest(ActivationCase):
    """The same for a desktop that runs the command lines of the entry instead."""

    def test_a_first_start_opens_what_its_option_names(self):
        for option, title in (("--panel", PANEL), ("--history", HISTORY)):
            with self.subTest(option):
                program = self.start_program(option)
                self.assert_only_window(title)
                self.assert_ends_well(program)

    def test_a_second_start_has_the_first_open_it(self):
        first = self.start_shown_program()
        for option, title in (("--history", HISTORY), ("--panel", PANEL)):
            self.assertEqual(self.start_program_again(option), 0)
            self.desktop.wait_for_focused_window(title)
        self.assertEqual(self.programs(), [first.pid])


class LoginTest(ActivationCase):
    """A start at a login opens nothing, whatever else there is."""

    def test_without_a_tray_no_panel_opens_until_it_is_asked_for(self):
        program = self.start_program("--background")
        self.desktop.wait_until_reachable(program)
        self.assert_no_window_comes()
        self.activate()
        self.assert_only_window(PANEL)
        self.assertEqual(self.owner(), program.pid)

    def test_beside_one_that_runs_it_ends_and_opens_nothing(self):
        first = self.start_shown_program()
        self.assertEqual(self.start_program_again("--background"), 0)
        self.activate_action("history")
        self.assert_only_window(HISTORY)
        self.assertEqual(self.programs(), [first.pid])


if __name__ == "__main__":
    unittest.main()

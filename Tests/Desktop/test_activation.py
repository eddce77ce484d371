"""A call on the bus starts the program, and opens the window that it asks for."""

import unittest

import dbus

from activation_case import INTERFACE, LISTED, NAME, NOTHING, NO_PARAMETER, PATH, ActivationCase
from desktop_case import DIAGNOSTICS, HISTORY, PANEL


class FirstStartTest(ActivationCase):
    """The program does not run yet when the call is made."""

    def test_activating_it_opens_the_panel_beside_its_icon(self):
        self.desktop.start_tray("trayer")
        self.desktop.wait_for_trayer()
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

    def test_the_action_diagnostics_opens_the_diagnostics(self):
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

    def test_an_unknown_action_is_refused_with_a_message_and_the_program_goes_on(self):
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
    """The program runs already, and no second one stays."""

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


if __name__ == "__main__":
    unittest.main()

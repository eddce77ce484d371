"""Options choose the window that a start opens, whether the program runs already or not."""

import unittest

from activation_case import ActivationCase
from desktop_case import HISTORY, PANEL


class OptionTest(ActivationCase):
    """Starts with an option, from a desktop that does not call over the bus."""

    def test_a_first_start_opens_the_window_of_its_option(self):
        for option, title in (("--panel", PANEL), ("--history", HISTORY)):
            with self.subTest(option):
                program = self.start_program(option)
                self.assert_only_window(title)
                self.assert_ends_well(program)

    def test_without_a_tray_no_panel_follows_the_window(self):
        self.start_program("--history")
        self.assert_only_window(HISTORY)
        self.assert_no_window_comes(but=[HISTORY])

    def test_a_second_start_makes_the_first_open_the_window(self):
        first = self.start_shown_program()
        for option, title in (("--history", HISTORY), ("--panel", PANEL)):
            self.assertEqual(self.start_program_again(option), 0)
            self.desktop.wait_for_focused_window(title)
        self.assertEqual(self.programs(), [first.pid])


class LoginTest(ActivationCase):
    """A start at login opens nothing, with or without a tray."""

    def test_without_a_tray_no_panel_opens_until_a_call_asks_for_it(self):
        program = self.start_program("--background")
        self.desktop.wait_until_reachable(program)
        self.assert_no_window_comes()
        self.activate()
        self.assert_only_window(PANEL)
        self.assertEqual(self.owner(), program.pid)

    def test_a_second_start_ends_and_opens_nothing(self):
        first = self.start_shown_program()
        self.assertEqual(self.start_program_again("--background"), 0)
        # The first has heard the second start's request before it hears this one.
        self.activate_action("history")
        self.assert_only_window(HISTORY)
        self.assertEqual(self.programs(), [first.pid])


if __name__ == "__main__":
    unittest.main()

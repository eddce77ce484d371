"""What a start opens by its options, where one runs already and where none does."""

import unittest

from activation_case import ActivationCase
from desktop_case import HISTORY, PANEL


class OptionTest(ActivationCase):
    """As a desktop runs them that does not call over the bus."""

    def test_a_first_start_opens_what_its_option_names(self):
        for option, title in (("--panel", PANEL), ("--history", HISTORY)):
            with self.subTest(option):
                program = self.start_program(option)
                self.assert_only_window(title)
                self.assert_ends_well(program)

    def test_without_a_tray_no_panel_follows_the_window(self):
        self.start_program("--history")
        self.assert_only_window(HISTORY)
        self.assert_no_window_comes(but=[HISTORY])

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
        # What the second start asked of the first, the first has heard before this.
        self.activate_action("history")
        self.assert_only_window(HISTORY)
        self.assertEqual(self.programs(), [first.pid])


if __name__ == "__main__":
    unittest.main()

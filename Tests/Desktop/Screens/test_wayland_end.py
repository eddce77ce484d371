"""The program ends well under a Wayland compositor. This test is apart because it needs whole
stacks, which are slow."""

import unittest

from desktop_case import PANEL
from wayland_case import WaylandCase


class EndTest(WaylandCase):
    def test_it_ends_well_after_escape_closed_the_panel(self):
        program = self.start_shown_program("swaybar")
        self.open_panel()
        self.desktop.press_key("Escape")
        self.desktop.wait_for_no_window(PANEL)
        self.assert_ends_well(program)


if __name__ == "__main__":
    unittest.main()

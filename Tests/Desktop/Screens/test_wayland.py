"""The program under a Wayland compositor, which shows the icon in its bar and places the
windows."""

import unittest

from desktop_case import DIAGNOSTICS, HISTORY, PANEL
from wayland_case import WaylandCase

BAR_Y = 5


class IconTest(WaylandCase):
    def test_its_dot_grows_and_shrinks_in_turn(self):
        self.start_shown_program("swaybar")
        self.assert_dot_pulses()


class PanelTest(WaylandCase):
    def setUp(self):
        super().setUp()
        self.start_shown_program("swaybar")

    def test_a_click_on_the_icon_opens_the_whole_panel_and_the_next_closes_it(self):
        panel = self.open_panel()
        (screen,) = self.desktop.outputs()
        self.assertLess(panel.left + panel.width, screen.width)
        self.assertLess(panel.top + panel.height, screen.height)
        self.assert_wholly_shown(PANEL)
        self.desktop.let_double_click_time_pass()
        self.desktop.click_icon()
        self.desktop.wait_for_no_window(PANEL)

    def test_a_second_start_opens_the_panel(self):
        self.assertEqual(self.start_program_again(), 0)
        self.desktop.wait_for_window(PANEL)


class FocusTest(WaylandCase):
    """The focus follows the pointer, and another window lies between the icon and the panel."""

    def setUp(self):
        super().setUp()
        self.start_shown_program("swaybar")
        self.assertEqual(self.start_program_again("--probe"), 0)
        self.desktop.wait_for_focused_window(DIAGNOSTICS)
        self.panel = self.open_panel()
        self.assert_wholly_shown(PANEL)

    def point_beside_the_panel(self):
        self.desktop.point(self.panel.left - 100, self.panel.top)

    def leave_the_panel(self):
        """Repeats the move until it works: the compositor may handle the panel's own request for
        the focus after a move."""
        def leaves():
            self.desktop.point(self.panel.left - 100, BAR_Y)
            self.point_beside_the_panel()
            return self.desktop.has_focus(DIAGNOSTICS)

        self.desktop.wait_until(leaves, "the focus follows the pointer")

    def reach_the_panel(self):
        self.leave_the_panel()
        self.desktop.point(self.panel.left + 100, self.panel.top + 5)
        self.desktop.wait_for_focused_window(PANEL)

    def test_the_panel_can_be_reached(self):
        self.reach_the_panel()

    def test_a_panel_that_was_reached_closes_when_it_loses_the_focus(self):
        self.reach_the_panel()
        self.point_beside_the_panel()
        self.desktop.wait_for_no_window(PANEL)

    def test_a_panel_closes_if_the_pointer_does_not_reach_it(self):
        self.leave_the_panel()
        self.desktop.wait_for_no_window(PANEL)


class WindowTest(WaylandCase):
    def test_the_history_opens_under_its_title(self):
        self.start_shown_program("swaybar")
        self.open_panel()
        self.desktop.press_key("Tab", "space")
        self.desktop.wait_for_focused_window(HISTORY)

    def test_the_diagnostics_open_under_their_title(self):
        self.start_shown_program("swaybar")
        self.assertEqual(self.start_program_again("--probe"), 0)
        self.desktop.wait_for_focused_window(DIAGNOSTICS)


class TraylessTest(WaylandCase):
    def test_each_start_opens_the_panel_and_a_bar_that_comes_late_shows_the_icon(self):
        self.start_program()
        self.desktop.wait_for_focused_window(PANEL)
        self.assert_wholly_shown(PANEL)
        self.desktop.press_key("Escape")
        self.desktop.wait_for_no_window(PANEL)
        self.assertEqual(self.start_program_again(), 0)
        self.desktop.wait_for_window(PANEL)
        self.desktop.start_tray("swaybar")
        self.desktop.wait_for_icon()


if __name__ == "__main__":
    unittest.main()

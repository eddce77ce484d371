"""A user opens and closes the panel window."""

import unittest

from desktop_case import DIAGNOSTICS, PANEL, DesktopCase
from virtual_desktop import VirtualDesktop

RIGHT_OF_SCREEN = 700


class PanelTest(DesktopCase):
    def test_a_click_on_the_icon_opens_it_and_the_next_closes_it(self):
        self.start_shown_program()
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.desktop.let_double_click_time_pass()
        self.desktop.click_icon()
        self.desktop.wait_for_no_window(PANEL)

    def test_a_click_on_a_panel_item_opens_it(self):
        self.start_shown_program("xfce4-panel")
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)

    def test_activating_the_item_over_the_bus_opens_it(self):
        host = self.desktop.start_fake_host()
        self.start_program()
        item = self.desktop.wait_until(host.items, "the item registers")[0]
        host.activate(item)
        self.desktop.wait_for_window(PANEL)

    def test_escape_closes_it(self):
        self.start_shown_program()
        self.desktop.click_icon()
        self.desktop.wait_for_focused_window(PANEL)
        self.desktop.press_key("Escape")
        self.desktop.wait_for_no_window(PANEL)

    def test_it_does_not_show_before_the_first_click(self):
        self.start_shown_program()
        self.assertEqual(self.desktop.windows(PANEL), [])


class FollowedPointerTest(DesktopCase):
    """The focus follows the pointer, and a window lies below the icon."""

    def make_desktop(self):
        return VirtualDesktop(focus_follows_pointer=True)

    def test_the_panel_can_be_reached_across_the_gap_below_the_icon(self):
        self.desktop.start_tray("trayer")
        self.start_program("--probe")
        self.desktop.wait_for_focused_window(DIAGNOSTICS)
        self.desktop.move_focused_window(RIGHT_OF_SCREEN, 0)
        self.desktop.wait_until(self.reaches_the_panel, "the pointer reaches the panel")

    def reaches_the_panel(self):
        """Crosses the gap once. On a busy machine the crossing may take longer than the panel waits
        for the pointer: then the panel closes, and the next try opens it again."""
        self.desktop.click_icon()
        self.desktop.wait_for_focused_window(PANEL)
        panel = self.desktop.windows(PANEL)[0]
        middle = panel.left + panel.width // 2
        self.desktop.point(middle, panel.top - 1)
        self.desktop.wait_for_focused_window(DIAGNOSTICS)
        self.desktop.point(middle, panel.top + 1)
        self.desktop.wait_until(
            lambda: self.desktop.has_focus(PANEL) or not self.desktop.windows(PANEL),
            "the panel has the focus, or has closed")
        return self.desktop.has_focus(PANEL)


if __name__ == "__main__":
    unittest.main()

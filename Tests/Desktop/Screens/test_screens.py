"""Several screens: the panel opens on the screen whose icon was clicked, and survives the loss of a
screen."""

import unittest

from desktop_case import PANEL, DesktopCase
from virtual_desktop import TRAY_HEIGHT, VirtualDesktop
from wayland_desktop import WaylandDesktop

WIDTH = 1000


class X11ScreensTest(DesktopCase):
    def make_desktop(self):
        return VirtualDesktop(width=2 * WIDTH)

    def open_on(self, monitor):
        self.desktop.divide_screen("left", "right")
        self.desktop.start_tray("trayer", monitor=monitor)
        self.start_program()
        self.desktop.click_icon()
        self.desktop.wait_for_focused_window(PANEL)
        return self.desktop.windows(PANEL)[0]

    def test_an_icon_on_the_left_screen_opens_the_panel_at_the_edge_of_that_screen(self):
        panel = self.open_on(0)
        self.assertEqual(panel.left + panel.width, WIDTH)
        self.assertLess(self.desktop.icon().top, panel.top)

    def test_an_icon_on_the_right_screen_opens_the_panel_at_the_edge_of_that_screen(self):
        panel = self.open_on(1)
        self.assertEqual(panel.left + panel.width, 2 * WIDTH)

    def test_an_open_panel_moves_off_a_removed_screen(self):
        self.open_on(1)
        self.desktop.remove_monitor("right")
        self.desktop.wait_until(self._is_on_the_left, "the panel is on the screen that is left")

    def _is_on_the_left(self):
        return any(box.left + box.width <= WIDTH for box in self.desktop.windows(PANEL))


class WaylandScreensTest(DesktopCase):
    """The right screen has scale two, so that it has half as many points as pixels across."""

    def make_desktop(self):
        return WaylandDesktop(width=WIDTH, scales=(1, 2))

    def test_the_whole_panel_opens_on_the_screen_whose_icon_was_clicked(self):
        self.start_shown_program("swaybar")
        self.desktop.click(2 * WIDTH - TRAY_HEIGHT, TRAY_HEIGHT)
        self.desktop.wait_for_focused_window(PANEL)
        self.assert_wholly_shown(PANEL)
        left, top, width, height = self.desktop.outputs()[1]
        panel = self.desktop.windows(PANEL)[0]
        self.assertGreaterEqual(panel.left, left)
        self.assertLessEqual(panel.left + panel.width, left + width)
        self.assertGreaterEqual(panel.top, top)
        self.assertLessEqual(panel.top + panel.height, top + height)


if __name__ == "__main__":
    unittest.main()

"""Screens with a scale above one: the icon is sharp, and the whole panel is on the screen."""

import unittest

from desktop_case import PANEL, DesktopCase
from virtual_desktop import TRAY_HEIGHT, VirtualDesktop
from wayland_desktop import WaylandDesktop

# The height of the larger dot if its picture is drawn for the scale. If a picture for scale one is
# enlarged instead, the dot is blurred: its edge has other colours, or merges with its surroundings.
SHARP_DOT_HEIGHTS = {1.5: 8, 2: 10}
STEP_BETWEEN_HOSTS = 1
WIDTH, HEIGHT = 1280, 1500


class ScaleCase(DesktopCase):
    def assert_sharp(self, scale):
        least = SHARP_DOT_HEIGHTS[scale]
        self.assertIn(self.dot_heights()[-1], range(least, least + STEP_BETWEEN_HOSTS + 1))

    def assert_panel_is_whole(self):
        self.desktop.click_icon()
        self.desktop.wait_for_focused_window(PANEL)
        self.assert_wholly_shown(PANEL)

    def panel_size(self):
        return self.desktop.windows(PANEL)[0][2:]


class X11ScaleTest(ScaleCase):
    def make_desktop(self):
        return VirtualDesktop(WIDTH, HEIGHT)

    def start_at(self, scale, tray, **of_tray):
        self.desktop.start_tray(tray, height=round(TRAY_HEIGHT * scale), **of_tray)
        self.start_program(QT_SCALE_FACTOR=str(scale))

    def test_icon_and_panel_are_right_in_an_xembed_tray_at_one_and_a_half(self):
        self.start_at(1.5, "trayer")
        self.assert_sharp(1.5)
        self.assert_panel_is_whole()
        self.assertEqual(self.panel_size(), (510, 999))

    def test_icon_and_panel_are_right_in_an_xembed_tray_at_two(self):
        self.start_at(2, "trayer")
        self.assert_sharp(2)
        self.assert_panel_is_whole()
        self.assertEqual(self.panel_size(), (680, 1332))

    def test_icon_and_panel_are_right_in_a_status_notifier_host_at_two(self):
        self.start_at(2, "xfce4-panel", toolkit_scale=2)
        self.assert_sharp(2)
        self.assert_panel_is_whole()


class LowX11Test(ScaleCase):
    def test_the_panel_is_no_higher_than_the_scaled_screen(self):
        self.desktop.start_tray("trayer", height=TRAY_HEIGHT * 2)
        self.start_program(QT_SCALE_FACTOR="2")
        self.assert_panel_is_whole()


class WaylandScaleTest(ScaleCase):
    scale = 1.5

    def make_desktop(self):
        return WaylandDesktop(WIDTH, HEIGHT, scales=(self.scale,))

    def test_icon_and_panel_are_right_in_the_bar(self):
        self.start_shown_program("swaybar")
        self.assert_sharp(self.scale)
        self.assert_panel_is_whole()
        self.assertEqual(self.panel_size(), (340, 666))


class WaylandDoubleScaleTest(WaylandScaleTest):
    scale = 2


if __name__ == "__main__":
    unittest.main()

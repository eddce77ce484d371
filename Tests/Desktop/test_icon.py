"""The status icon shows, and it pulses."""

import unittest

from desktop_case import DesktopCase


class IconTest(DesktopCase):
    def test_it_appears_in_an_xembed_tray(self):
        self.desktop.start_tray("trayer")
        self.start_program()
        self.desktop.wait_for_icon()

    def test_it_appears_on_a_status_notifier_host(self):
        self.desktop.start_tray("xfce4-panel")
        self.start_program()
        self.desktop.wait_for_icon()

    def test_its_dot_grows_and_shrinks_in_turn(self):
        self.start_shown_program()
        self.assert_dot_pulses()

    def test_the_item_offers_pictures_for_scales_one_to_two(self):
        host = self.desktop.start_fake_host()
        self.start_program()
        item = self.desktop.wait_until(host.items, "the item registers")[0]
        widths = {width for width, _, _ in host.pictures(item)}
        self.assertLessEqual({28, 42, 56}, widths)


if __name__ == "__main__":
    unittest.main()

"""The status icon as the user sees it: there, pulsing, and sharp."""

import unittest

from desktop_case import DesktopCase

PULSE_SECONDS = 2
# At scale two the larger dot is eleven pixels high; nine from a picture drawn for scale one.
SHARP_DOT_HEIGHT = 10


def dot_heights(desktop):
    """The heights that the dot has in turn, the smaller first."""
    heights = {desktop.wait_for_icon().height}

    def sees_both():
        dot = desktop.icon()
        if dot:
            heights.add(dot.height)
        return len(heights) > 1

    desktop.wait_until(sees_both, "the dot changes its size", PULSE_SECONDS)
    return sorted(heights)


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
        small, large = dot_heights(self.desktop)
        for height in (small, large, small):
            self.desktop.wait_until(
                lambda: self.desktop.icon().height == height, f"the dot is {height} high",
                PULSE_SECONDS,
            )

    def test_a_host_is_offered_pictures_for_scales_one_to_two(self):
        host = self.desktop.start_fake_host()
        self.start_program()
        item = self.desktop.wait_until(host.items, "the item registers")[0]
        widths = {width for width, _, _ in host.pictures(item)}
        self.assertLessEqual({28, 42, 56}, widths)

    def test_it_is_sharp_at_scale_two(self):
        self.desktop.start_tray("trayer", height=44)
        self.start_program(QT_SCALE_FACTOR="2")
        self.assertGreaterEqual(dot_heights(self.desktop)[-1], SHARP_DOT_HEIGHT)


if __name__ == "__main__":
    unittest.main()

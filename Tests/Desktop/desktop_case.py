"""The base of the tests that drive the built program on a desktop of their own."""

import os
import unittest

from virtual_desktop import VirtualDesktop

PROGRAM = os.environ["QUORVEL_PROGRAM"]
PANEL = "Quorvel"
HISTORY = "Check-ins — Quorvel"
# The toolkit adds the name of the program to a title that lacks it.
DIAGNOSTICS = "Probe8 — Quorvel"


class DesktopCase(unittest.TestCase):
    """Every case gets a fresh desktop without a tray, and starts the programs that it needs."""

    def setUp(self):
        self.desktop = self.enterContext(self.make_desktop())

    def make_desktop(self):
        return VirtualDesktop()

    def start_program(self, *arguments, **options):
        return self.desktop.start_program(PROGRAM, *arguments, **options)

    def start_program_again(self, *arguments):
        return self.desktop.run_program(PROGRAM, *arguments)

    def start_shown_program(self, tray="trayer"):
        """Starts a tray of that kind and the program, and waits for the icon."""
        self.desktop.start_tray(tray)
        program = self.start_program()
        self.desktop.wait_for_icon()
        return program

    def dot_heights(self):
        """The two heights between which the icon's dot changes, the smaller first."""
        first = self.desktop.wait_for_icon().height
        other = self.desktop.wait_for_dot(
            lambda dot: dot.height != first, "the dot changes its size"
        ).height
        return sorted((first, other))

    def assert_dot_pulses(self):
        """The dot grows and shrinks in turn."""
        small, large = self.dot_heights()
        for height in (small, large, small):
            self.desktop.wait_for_dot(
                lambda dot: dot.height == height, f"the dot is {height} high"
            )

    def assert_wholly_shown(self, title):
        """The line around the window shows completely: nothing cuts it off or covers it."""
        box = self.desktop.on_screen(self.desktop.wait_for_window(title))
        self.desktop.wait_until(
            lambda: self.desktop.picture().crop(box).line_around(), f"all of {title} shows"
        )

    def assert_ends_well(self, program):
        program.terminate()
        self.assertEqual(program.status(), 0, program.output())

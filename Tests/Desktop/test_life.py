"""Starting the program again, starting it where it cannot write, and ending it."""

import os
import unittest

from desktop_case import DIAGNOSTICS, PANEL, PROGRAM, DesktopCase
from incomplete_program import copy_without_modules


def without_override():
    """A command prefix that makes file modes apply to a test that runs as root, too."""
    return ["setpriv", "--bounding-set", "-dac_override"] if os.geteuid() == 0 else []


class SecondStartTest(DesktopCase):
    def test_it_opens_the_panel_of_the_first_and_adds_no_icon(self):
        host = self.desktop.start_fake_host()
        first = self.start_program()
        self.desktop.wait_until(host.items, "the item registers")
        self.assertEqual(self.start_program_again(), 0)
        self.desktop.wait_for_window(PANEL)
        self.assertEqual(len(host.items()), 1)
        self.assertTrue(first.is_running())

    def test_it_opens_the_panel_where_no_tray_shows_the_icon(self):
        first = self.start_program()
        self.desktop.wait_until_reachable(first)
        self.assertEqual(self.start_program_again(), 0)
        self.desktop.wait_for_window(PANEL)


class DiagnosticsTest(DesktopCase):
    def test_a_start_opens_the_diagnostics_and_shows_the_icon(self):
        self.desktop.start_tray("trayer")
        program = self.start_program("--probe")
        self.desktop.wait_for_focused_window(DIAGNOSTICS)
        self.desktop.wait_for_icon()
        self.assert_ends_well(program)

    def test_a_second_start_opens_the_diagnostics_of_the_first(self):
        first = self.start_shown_program()
        self.assertEqual(self.start_program_again("--probe"), 0)
        self.desktop.wait_for_focused_window(DIAGNOSTICS)
        self.assertEqual(self.desktop.windows(PANEL), [])
        self.assertTrue(first.is_running())


class StoreTest(DesktopCase):
    def test_the_icon_appears_even_if_no_store_can_be_made(self):
        self.desktop.data_home.chmod(0o500)
        self.desktop.start_tray("trayer")
        self.start_program(prefix=without_override())
        self.desktop.wait_for_icon()
        self.assertEqual(list(self.desktop.data_home.iterdir()), [])


class RefusalTest(DesktopCase):
    """If the program cannot work, it says so in a sentence, at its start if possible."""

    def refusal(self, **environment):
        process = self.desktop.start("refused", [PROGRAM], environment)
        self.assertEqual(process.status(), 1, process.output())
        return process.output()

    def test_a_missing_display_is_reported(self):
        nothing = {"DISPLAY": "", "WAYLAND_DISPLAY": "", "QT_QPA_PLATFORM": ""}
        self.assertEqual(
            self.refusal(**nothing), "quorvel: there is no display to show it on.\n"
        )

    def test_an_unencrypted_address_is_refused(self):
        said = self.refusal(QUORVEL_WEATHER_ENDPOINT="http://weather.example.org")
        self.assertIn("QUORVEL_WEATHER_ENDPOINT", said)
        self.assertIn("http://weather.example.org", said)

    def test_a_program_without_its_scenes_says_so_and_keeps_its_icon(self):
        alone = copy_without_modules(PROGRAM, self.desktop.folder / "alone")
        self.desktop.start_tray("trayer")
        program = self.desktop.start_program(alone)
        self.desktop.click_icon()
        self.desktop.wait_until(
            lambda: "quorvel: Quorvel is not installed completely" in program.output(),
            "the program says what is missing",
        )
        self.assertTrue(program.is_running())
        self.desktop.wait_for_icon()
        self.assert_ends_well(program)


class EndTest(DesktopCase):
    def test_it_ends_well_when_the_session_asks(self):
        self.assert_ends_well(self.start_shown_program())

    def test_it_ends_well_with_its_panel_open(self):
        program = self.start_shown_program()
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.assert_ends_well(program)

    def test_it_ends_well_without_a_tray(self):
        program = self.start_program()
        self.desktop.wait_until_reachable(program)
        self.assert_ends_well(program)


if __name__ == "__main__":
    unittest.main()

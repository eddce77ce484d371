"""A session ends or loses a part. The program ends well, or goes on."""

import os
import pathlib
import signal
import time
import unittest

from desktop_case import PANEL, DesktopCase

MANAGER = pathlib.Path(__file__).parent.parent / "Support/Desktop/fake_session_manager.py"
# The protocol's number for a program that the next login does not start again.
NEVER = 3
# How long the test itself computes, and how large a share of that an idle program may use.
BUSY_PROCESSOR_SECONDS = 1
IDLE_SHARE = 0.1


class SignalTest(DesktopCase):
    def test_every_request_to_end_is_obeyed(self):
        for request in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(request.name):
                program = self.start_program()
                self.desktop.wait_until_reachable(program)
                os.kill(program.pid, request)
                self.assertEqual(program.status(), 0, program.output())


class LogOutTest(DesktopCase):
    """A session manager asks every program to save itself, and then to end."""

    def setUp(self):
        super().setUp()
        address = self.desktop.start_announcing(
            "session-manager", lambda end: self.desktop.python(MANAGER, str(end))
        )
        self.manager = self.desktop.process("session-manager")
        self.desktop.start_tray("trayer")
        self.program = self.start_program(SESSION_MANAGER=address)
        self.wait_until_said("registers")
        self.desktop.wait_for_icon()

    def test_it_does_not_hold_up_a_log_out(self):
        self.log_out()

    def test_its_open_panel_does_not_hold_up_a_log_out(self):
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.log_out()

    def test_the_session_manager_does_not_start_it_at_the_next_login(self):
        self.log_out()
        said = self.manager.output().splitlines()
        styles = [line for line in said if line.startswith("RestartStyleHint")]
        self.assertEqual(set(styles), {f"RestartStyleHint {NEVER}"})

    def log_out(self):
        os.kill(self.manager.pid, signal.SIGUSR1)
        self.assertEqual(self.program.status(), 0, self.program.output())
        said = self.manager.output()
        self.assertNotIn("asks", said)
        self.assertNotIn("failed", said)

    def wait_until_said(self, word):
        self.desktop.wait_until(lambda: word in self.manager.output(), f"the client {word}")


class LossTest(DesktopCase):
    def test_it_goes_on_in_the_tray_without_its_session_bus(self):
        program = self.start_shown_program()
        self.desktop.process("session-bus").end()
        self.assertLess(self.processor_share(program), IDLE_SHARE)
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.assert_ends_well(program)

    def test_it_ends_well_without_the_bus_of_its_icon(self):
        host = self.desktop.start_fake_host()
        program = self.start_program()
        self.desktop.wait_until(host.items, "the item registers")
        self.desktop.process("session-bus").end()
        self.assertLess(self.processor_share(program), IDLE_SHARE)
        self.assert_ends_well(program)

    def test_it_ends_with_its_screen(self):
        program = self.start_shown_program()
        self.desktop.process("screen").end()
        self.assertIsNotNone(program.status(), "it runs without a screen")
        self.assertGreaterEqual(program.status(), 0, program.output())

    def processor_share(self, program):
        """The program's processor time as a share of the test's, while the test computes without a
        pause. The system is fair: a program in an endless loop would get as much as the test."""
        before = self.processor_seconds(program)
        begun = time.process_time()
        while (taken := time.process_time() - begun) < BUSY_PROCESSOR_SECONDS:
            pass
        return (self.processor_seconds(program) - before) / taken

    @staticmethod
    def processor_seconds(program):
        words = pathlib.Path(f"/proc/{program.pid}/stat").read_text().rsplit(")")[1].split()
        return (int(words[11]) + int(words[12])) / os.sysconf("SC_CLK_TCK")


if __name__ == "__main__":
    unittest.main()

"""What ends a session, or takes a part of it away: the program ends well, or lives on."""

import os
import pathlib
import signal
import time
import unittest

from desktop_case import PANEL, DesktopCase

MANAGER = pathlib.Path(__file__).parent.parent / "Support/Desktop/fake_session_manager.py"
# As the protocol counts: started again at the next login, or never.
NEVER = 3
# What a busy test takes meanwhile, and how much of that a program that rests may take.
BUSY_PROCESSOR_SECONDS = 1
IDLE_SHARE = 0.1


class SignalTest(DesktopCase):
    def test_every_request_to_end_is_followed(self):
        for request in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(request.name):
                program = self.start_program()
                self.desktop.wait_until_reachable(program)
                os.kill(program.pid, request)
                self.assertEqual(program.status(), 0, program.output())


class LogOutTest(DesktopCase):
    """Under a session manager, which asks everybody to save and then has them end."""

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

    def test_a_log_out_is_not_held_up(self):
        self.log_out()

    def test_a_log_out_is_not_held_up_by_an_open_panel(self):
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.log_out()

    def test_the_next_login_does_not_start_it_by_this_way(self):
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
    def test_without_its_session_bus_it_lives_on_in_the_tray(self):
        program = self.start_shown_program()
        self.desktop.process("session-bus").end()
        self.assertLess(self.processor_share(program), IDLE_SHARE)
        self.desktop.click_icon()
        self.desktop.wait_for_window(PANEL)
        self.assert_ends_well(program)

    def test_without_the_bus_that_its_icon_is_on_it_still_ends_well(self):
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
        """What the program takes of the processor while this test takes all that it can get, in
        parts of that. The system is fair: a program that turns in circles takes as much."""
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

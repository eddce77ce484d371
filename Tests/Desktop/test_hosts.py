"""Status areas may start late, end, restart or hang. The icon follows, and the program never
waits."""

import unittest

from desktop_case import PANEL, DesktopCase
from fake_status_watcher import NAME, PATH

# How long the toolkit waits for an answer on the bus.
TOOLKIT_MILLISECONDS = 25_000


class HostCase(DesktopCase):
    def close_what_opened_by_itself(self):
        """Waits until the program gives up on a host and opens its panel, and closes the panel."""
        self.desktop.wait_for_focused_window(PANEL)
        self.desktop.press_key("Escape")
        self.desktop.wait_for_no_window(PANEL)


class LateHostTest(HostCase):
    def setUp(self):
        super().setUp()
        self.program = self.start_program()

    def test_an_xembed_tray_that_comes_late_shows_the_icon(self):
        self.close_what_opened_by_itself()
        self.desktop.start_tray("trayer")
        self.desktop.wait_for_icon()

    def test_a_panel_that_comes_late_shows_the_icon(self):
        self.close_what_opened_by_itself()
        self.desktop.start_tray("xfce4-panel")
        self.desktop.wait_for_icon()

    def test_a_watcher_that_comes_late_gets_the_item(self):
        self.close_what_opened_by_itself()
        host = self.desktop.start_fake_host()
        self.desktop.wait_until(host.items, "the item registers")

    def test_a_watcher_gets_the_item_once_its_host_registers(self):
        host = self.desktop.start_fake_host(has_host=False)
        self.close_what_opened_by_itself()
        host.register_host()
        self.desktop.wait_until(host.items, "the item registers")


class RestartedHostTest(DesktopCase):
    def test_an_xembed_tray_that_restarts_shows_the_icon_again(self):
        self.assert_icon_survives_restart("trayer")

    def test_a_panel_that_restarts_shows_the_icon_again(self):
        self.assert_icon_survives_restart("xfce4-panel")

    def test_a_watcher_that_restarts_gets_the_item_again(self):
        host = self.desktop.start_fake_host()
        self.start_program()
        self.desktop.wait_until(host.items, "the item registers")
        host.end()
        host = self.desktop.start_fake_host()
        self.desktop.wait_until(host.items, "the item registers again")

    def assert_icon_survives_restart(self, tray):
        self.start_shown_program(tray)
        self.desktop.stop_tray()
        self.desktop.wait_for_no_icon()
        self.desktop.start_tray(tray)
        self.desktop.wait_for_icon()


class HungHostTest(HostCase):
    def setUp(self):
        super().setUp()
        self.host = self.desktop.start_fake_host()
        self.host.freeze()
        self.waiter = self.start_waiter()
        self.program = self.start_program()
        self.desktop.wait_until_reachable(self.program)

    def start_waiter(self):
        """Asks the host, and waits for an answer as long as the toolkit would. It starts before the
        program: while it still waits, the program has had no answer either."""
        return self.desktop.start("waiter", [
            "dbus-send", f"--bus={self.desktop.bus_address}", "--print-reply",
            f"--reply-timeout={TOOLKIT_MILLISECONDS}", f"--dest={NAME}", PATH,
            "org.freedesktop.DBus.Peer.GetMachineId",
        ])

    def test_the_panel_still_opens(self):
        self.assertEqual(self.start_program_again(), 0)
        self.desktop.wait_for_window(PANEL)
        self.assertTrue(self.waiter.is_running(), "the program has waited for the host")

    def test_the_program_still_ends(self):
        self.assert_ends_well(self.program)
        self.assertTrue(self.waiter.is_running(), "the program has waited for the host")

    def test_the_item_registers_once_the_host_answers(self):
        self.close_what_opened_by_itself()
        self.host.thaw()
        self.desktop.wait_until(self.host.items, "the item registers")


if __name__ == "__main__":
    unittest.main()

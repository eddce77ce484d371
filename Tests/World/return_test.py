"""A network, a service or the machine comes back while the panel lacks something. The panel looks
again by itself, and once."""

import os
import sys
import unittest

import dbus
import dbus.bus

from accessible_program import AccessibleProgram
from virtual_desktop import VirtualDesktop
from world import World

PROGRAM = os.environ["QUORVEL_PROGRAM"]
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")
NEAREST = "Cà phê Gió Sông"
NO_CAFE = "Couldn't detect café"
NO_WEATHER = "Weather unavailable"
LOGIN = "org.freedesktop.login1"
LOGIN_MANAGER = [sys.executable, "-B", "-m", "dbusmock", "--system", "--template", "logind"]


class Seat:
    """A desktop in a district of its own, on which the panel opens."""

    def __init__(self, case):
        self._case = case
        self.desktop = case.enterContext(VirtualDesktop(services=SERVICES))
        self.world = case.enterContext(World(self.desktop))

    def open_panel(self, seen):
        """Starts the program. It opens the panel by itself, because there is no tray."""
        program = self.desktop.start_program(PROGRAM, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.desktop.wait_for_focused_window("Quorvel")
        self._window = AccessibleProgram(self.desktop.bus_address, program.pid)
        self._case.addCleanup(self._window.close)
        self.wait_for(seen)

    def wait_for(self, name):
        self.desktop.wait_until(lambda: self._window.find(name), f"“{name}” is seen")


class ReturnTest(unittest.TestCase):
    def setUp(self):
        self.seat = Seat(self)
        self.desktop = self.seat.desktop
        self.world = self.seat.world

    def test_a_network_that_comes_back_brings_the_cafe_with_one_request(self):
        self.world.wifi.fail("no network")
        self.world.places.vanish()
        self.seat.open_panel(NO_CAFE)
        self.world.places.come_back()
        self.world.wifi.recover()
        self.seat.wait_for(NEAREST)
        self.let_a_return_settle()
        self.assertEqual(len(self.world.places.requests), 1)
        self.assertEqual(len(self.world.weather.requests), 1)

    def test_a_network_that_comes_back_brings_the_weather(self):
        self.world.wifi.fail("no network")
        self.world.weather.vanish()
        self.seat.open_panel(NO_WEATHER)
        self.world.weather.come_back()
        self.world.wifi.recover()
        self.seat.wait_for("31°")
        self.assertEqual(len(self.world.places.requests), 2)

    def test_a_machine_that_wakes_up_brings_the_cafe(self):
        self.start_login_manager()
        self.world.wifi.vanish()
        self.world.places.vanish()
        self.seat.open_panel(NO_CAFE)
        self.say_sleep(True)
        self.world.places.come_back()
        self.let_a_return_settle()
        self.assertEqual(self.world.places.requests, [])
        self.say_sleep(False)
        self.seat.wait_for(NEAREST)
        self.assertEqual(len(self.world.places.requests), 1)

    def test_the_panel_does_not_look_again_after_a_second_failure(self):
        self.world.wifi.fail("no network")
        self.world.places.fail(500)
        self.seat.open_panel(NO_CAFE)
        asked = len(self.world.places.requests)
        self.world.wifi.recover()
        self.desktop.wait_until(
            lambda: len(self.world.places.requests) > asked, "the panel looks again"
        )
        self.seat.wait_for(NO_CAFE)
        once = len(self.world.places.requests)
        self.let_a_return_settle()
        self.assertEqual(len(self.world.places.requests), once)

    def test_a_closed_panel_asks_for_nothing(self):
        self.world.wifi.fail("no network")
        self.world.places.fail(500)
        self.seat.open_panel(NO_CAFE)
        self.desktop.press_key("Escape")
        self.desktop.wait_for_no_window("Quorvel")
        asked = len(self.world.places.requests)
        self.world.places.recover()
        self.world.wifi.recover()
        self.let_a_return_settle()
        self.assertEqual(len(self.world.places.requests), asked)

    def test_a_complete_result_is_not_loaded_again(self):
        self.seat.open_panel(NEAREST)
        self.seat.wait_for("31°")
        self.world.wifi.fail("no network")
        self.world.wifi.recover()
        self.let_a_return_settle()
        self.assertEqual(len(self.world.places.requests), 1)

    def start_login_manager(self):
        self.world.start("login-manager", LOGIN_MANAGER)
        self.bus = dbus.bus.BusConnection(self.world.environment["DBUS_SYSTEM_BUS_ADDRESS"])
        self.addCleanup(self.bus.close)
        self.desktop.wait_until(lambda: self.bus.name_has_owner(LOGIN), "the login manager is up")

    def say_sleep(self, begins):
        self.bus.call_blocking(
            LOGIN, "/org/freedesktop/login1", "org.freedesktop.DBus.Mock", "EmitSignal", "sssav",
            (f"{LOGIN}.Manager", "PrepareForSleep", "b", [dbus.Boolean(begins)]),
        )

    def let_a_return_settle(self):
        """Plays a return and the look after it in another district. They begin only now, so that
        everything that follows an earlier return has happened at their end."""
        elsewhere = Seat(self)
        elsewhere.world.wifi.fail("no network")
        elsewhere.world.places.vanish()
        elsewhere.open_panel(NO_CAFE)
        elsewhere.world.places.come_back()
        elsewhere.world.wifi.recover()
        elsewhere.wait_for(NEAREST)


if __name__ == "__main__":
    unittest.main()

"""The pulse rests while the session is locked. After a lock or a sleep it goes on, without making
up for missed beats."""

import unittest

import dbus
import dbus.bus
import dbus.lowlevel

from desktop_case import PROGRAM, DesktopCase
from virtual_desktop import VirtualDesktop

SLEPT_PULSES = 8
# An icon rests if it does not pulse while another icon pulses this often.
RESTING_PULSES = 3
SAVERS = ("org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver")


class Pulse:
    """A program on a desktop, and the changes of its icon that it signals to the host."""

    def __init__(self, desktop):
        self._desktop = desktop
        self.host = desktop.start_fake_host()
        self._spy = desktop.start("spy", [
            "dbus-monitor", "--profile", "--address", desktop.bus_address,
            "type='signal',interface='org.kde.StatusNotifierItem',member='NewIcon'",
        ])
        self.program = desktop.start_program(PROGRAM)
        self.item = desktop.wait_until(self.host.items, "the item registers")[0]
        self.wait_for_more(1)

    def count(self):
        """The number of changes so far."""
        return sum(line.startswith("sig") and "NewIcon" in line
                   for line in self._spy.output().splitlines())

    def wait_for_more(self, changes):
        before = self.count()
        self._desktop.wait_until(lambda: self.count() >= before + changes, "the icon changes")


class RestCase(DesktopCase):
    """An undisturbed icon on another desktop shows how time passes."""

    def setUp(self):
        super().setUp()
        self.pulse = Pulse(self.desktop)
        self.undisturbed = Pulse(self.enterContext(VirtualDesktop()))

    def wait_until_it_rests(self):
        def is_outdone():
            before = self.pulse.count()
            self.undisturbed.wait_for_more(RESTING_PULSES)
            return self.pulse.count() == before

        self.desktop.wait_until(is_outdone, "the icon rests")


class SleepTest(RestCase):
    def test_missed_beats_are_not_made_up_for(self):
        self.pulse.program.freeze()
        self.undisturbed.wait_for_more(SLEPT_PULSES)
        before = self.pulse.count()
        self.pulse.program.thaw()
        self.pulse.wait_for_more(1)
        # After two answers, its event loop has done everything that was due.
        for _ in range(2):
            self.pulse.host.pictures(self.pulse.item)
        self.assertLess(self.pulse.count() - before, SLEPT_PULSES)


class LockTest(RestCase):
    def setUp(self):
        super().setUp()
        self._saver = dbus.bus.BusConnection(self.desktop.bus_address)
        self.addCleanup(self._saver.close)

    def test_it_rests_while_the_session_is_locked(self):
        for interface in SAVERS:
            with self.subTest(interface):
                self.announce(interface, True)
                self.wait_until_it_rests()
                self.announce(interface, False)
                self.pulse.wait_for_more(1)

    def test_it_goes_on_when_the_locker_crashes(self):
        self.announce(SAVERS[0], True)
        self.wait_until_it_rests()
        self._saver.close()
        self.pulse.wait_for_more(1)

    def announce(self, interface, is_active):
        signal = dbus.lowlevel.SignalMessage("/ScreenSaver", interface, "ActiveChanged")
        signal.append(is_active, signature="b")
        self._saver.send_message(signal)
        self._saver.flush()


if __name__ == "__main__":
    unittest.main()

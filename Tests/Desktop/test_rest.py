"""The pulse under a sleep and a lock: it rests, goes on, and makes up for nothing."""

import time
import unittest

import dbus
import dbus.bus
import dbus.lowlevel

from desktop_case import DesktopCase

PULSE_SECONDS = 0.65
SLEEP_PULSES = 6
# What one process at the end of a bus may be late by on a busy machine.
SLACK_SECONDS = 0.3
SAVERS = ("org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver")


class RestCase(DesktopCase):
    def setUp(self):
        super().setUp()
        host = self.desktop.start_fake_host()
        self._spy = self.desktop.start("spy", [
            "dbus-monitor", "--profile", "--address", self.desktop.bus_address,
            "type='signal',interface='org.kde.StatusNotifierItem',member='NewIcon'",
        ])
        self.program = self.start_program()
        self.desktop.wait_until(host.items, "the item registers")
        self.wait_for_pulse()

    def pulses(self):
        """The times of all changes of the icon so far, as the host is told of them."""
        lines = [line.split() for line in self._spy.output().splitlines()]
        return [float(words[1]) for words in lines if words[0] == "sig" and "NewIcon" in words]

    def wait_for_pulse(self):
        """The next change of the icon; more would come with it if they came in a burst."""
        before = len(self.pulses())
        self.desktop.wait_until(lambda: len(self.pulses()) > before, "the icon changes", 5)

    def pulses_within(self, seconds):
        before = len(self.pulses())
        time.sleep(seconds)
        return len(self.pulses()) - before


class SleepTest(RestCase):
    def test_beats_that_were_slept_through_are_not_made_up_for(self):
        self.program.freeze()
        self.assertEqual(self.pulses_within(SLEEP_PULSES * PULSE_SECONDS), 0)
        self.program.thaw()
        woken = time.time()
        self.desktop.wait_until(lambda: len(self.since(woken)) >= 4, "the icon changes again", 5)
        first, second, third, fourth = self.since(woken)[:4]
        # One may be due at once; from then on they keep their distance.
        self.assertLess(first - woken, PULSE_SECONDS + SLACK_SECONDS)
        self.assertAlmostEqual(third - second, PULSE_SECONDS, delta=SLACK_SECONDS)
        self.assertAlmostEqual(fourth - third, PULSE_SECONDS, delta=SLACK_SECONDS)

    def since(self, then):
        return [pulse for pulse in self.pulses() if pulse >= then]


class LockTest(RestCase):
    def setUp(self):
        super().setUp()
        self._saver = dbus.bus.BusConnection(self.desktop.bus_address)
        self.addCleanup(self._saver.close)

    def test_it_rests_while_the_session_is_locked(self):
        for interface in SAVERS:
            with self.subTest(interface):
                self.announce(interface, True)
                self.assertEqual(self.pulses_within(3 * PULSE_SECONDS), 0)
                self.announce(interface, False)
                self.wait_for_pulse()

    def test_it_goes_on_when_the_locker_crashes(self):
        self.announce(SAVERS[0], True)
        self.assertEqual(self.pulses_within(2 * PULSE_SECONDS), 0)
        self._saver.close()
        self.wait_for_pulse()

    def announce(self, interface, is_active):
        signal = dbus.lowlevel.SignalMessage("/ScreenSaver", interface, "ActiveChanged")
        signal.append(is_active, signature="b")
        self._saver.send_message(signal)
        self._saver.flush()
        # A beat that was already on its way.
        time.sleep(SLACK_SECONDS)


if __name__ == "__main__":
    unittest.main()

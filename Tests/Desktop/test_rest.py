"""The pulse under a sleep and a lock: it rests, goes on, and makes up for nothing."""

import time
import unittest

import dbus
import dbus.bus
import dbus.lowlevel

from desktop_case import DesktopCase

PULSE_SECONDS = 0.65
SLEEP_PULSES = 8
AWAKE_PULSES = 3
# After so many without a change, it rests.
RESTING_PULSES = 3
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
        """The next change of the icon."""
        before = len(self.pulses())
        self.desktop.wait_until(lambda: len(self.pulses()) > before, "the icon changes", 5)

    def wait_until_it_rests(self):
        resting = RESTING_PULSES * PULSE_SECONDS
        self.desktop.wait_until(
            lambda: time.time() - self.pulses()[-1] > resting, "the icon rests", 5 * resting
        )


class SleepTest(RestCase):
    def test_beats_that_were_slept_through_are_not_made_up_for(self):
        self.program.freeze()
        time.sleep(SLEEP_PULSES * PULSE_SECONDS)
        before = len(self.pulses())
        self.program.thaw()
        time.sleep(AWAKE_PULSES * PULSE_SECONDS)
        pulses = len(self.pulses()) - before
        self.assertGreater(pulses, 0)
        # One is due at once, and the others keep their distance.
        self.assertLessEqual(pulses, AWAKE_PULSES + 1)


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
                self.wait_for_pulse()

    def test_it_goes_on_when_the_locker_crashes(self):
        self.announce(SAVERS[0], True)
        self.wait_until_it_rests()
        self._saver.close()
        self.wait_for_pulse()

    def announce(self, interface, is_active):
        signal = dbus.lowlevel.SignalMessage("/ScreenSaver", interface, "ActiveChanged")
        signal.append(is_active, signature="b")
        self._saver.send_message(signal)
        self._saver.flush()


if __name__ == "__main__":
    unittest.main()

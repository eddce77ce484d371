"""The base of the tests in which the bus starts the program, or takes a call to it."""

import os
import pathlib

import dbus
import dbus.bus

from desktop_case import DIAGNOSTICS, HISTORY, PANEL, PROGRAM, DesktopCase
from patience import PATIENCE_SECONDS
from processes import environment_of, running_pids
from virtual_desktop import VirtualDesktop, process_id

NAME = "com.zantho.quorvel"
PATH = "/com/zantho/quorvel"
INTERFACE = "org.freedesktop.Application"
SERVICE = pathlib.Path(os.environ["QUORVEL_PACKAGING"], f"{NAME}.service.in")
# The names of the windows in the screen's list. The toolkit adds the program's name only to titles.
LISTED = {PANEL: PANEL, HISTORY: HISTORY, DIAGNOSTICS: "Probe8"}
NOTHING = dbus.Dictionary(signature="sv")
NO_PARAMETER = dbus.Array(signature="v")


def executable(pid):
    try:
        return os.readlink(f"/proc/{pid}/exe")
    except OSError:
        return None


class ActivationCase(DesktopCase):
    """A desktop whose bus can start the program, and a caller on that bus."""

    def setUp(self):
        super().setUp()
        self.desktop.add_service(
            NAME, SERVICE.read_text().replace("@QUORVEL_PROGRAM@", PROGRAM)
        )
        self.bus = dbus.bus.BusConnection(self.desktop.bus_address)
        self.addCleanup(self.bus.close)

    def activate(self):
        self._call("Activate", "a{sv}", NOTHING)

    def activate_action(self, name):
        self._call("ActivateAction", "sava{sv}", name, NO_PARAMETER, NOTHING)

    def owner(self):
        return process_id(self.bus, NAME)

    def programs(self):
        """The processes of the program on this desktop. Their environment names the desktop's
        bus."""
        mark = os.fsencode(f"DBUS_SESSION_BUS_ADDRESS={self.desktop.bus_address}")
        return [pid for pid in running_pids() if executable(pid) == os.path.realpath(PROGRAM)
                and mark in environment_of(pid)]

    def open_windows(self):
        return [title for title, name in LISTED.items() if self.desktop.windows(name)]

    def assert_only_window(self, title):
        self.desktop.wait_for_window(LISTED[title])
        self.desktop.wait_for_focused_window(title)
        self.assertEqual(self.open_windows(), [title])

    def assert_no_window_comes(self, but=()):
        """Checks that no other window opens. On another desktop without a status area, a new start
        waits for such an area and then opens its panel. Whatever this desktop's program would open
        is there by then."""
        with VirtualDesktop() as elsewhere:
            elsewhere.start_program(PROGRAM)
            elsewhere.wait_for_window(PANEL)
        self.assertEqual(self.open_windows(), list(but))

    def _call(self, member, signature, *arguments):
        self.bus.call_blocking(
            NAME, PATH, INTERFACE, member, signature, arguments, timeout=PATIENCE_SECONDS
        )

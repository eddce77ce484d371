"""The program as an assistive tool sees it: a tree of named controls that can be found and used."""

import dbus
import dbus.bus

from patience import PATIENCE_SECONDS

REGISTRY = "org.a11y.atspi.Registry"
ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
ACTION = "org.a11y.atspi.Action"
TEXT = "org.a11y.atspi.Text"
SCREEN_COORDINATES = dbus.UInt32(0)

# Bits of the state set, by their numbers in the protocol.
STATES = {"checked": 4, "enabled": 8, "focused": 12, "sensitive": 24, "visible": 30}


class Control:
    """One object of the tree. It asks the program each time, so that no answer is out of date."""

    def __init__(self, bus, name, path):
        self._bus = bus
        self._name = name
        self._path = path

    @property
    def name(self):
        return str(self._get("Name"))

    @property
    def description(self):
        return str(self._get("Description"))

    @property
    def role(self):
        return str(self._call(ACCESSIBLE, "GetRoleName"))

    @property
    def states(self):
        low, high = self._call(ACCESSIBLE, "GetState")
        bits = int(low) | int(high) << 32
        return {state for state, bit in STATES.items() if bits >> bit & 1}

    def text(self):
        """The text in a field."""
        return str(self._call(TEXT, "GetText", "ii", dbus.Int32(0), dbus.Int32(-1)))

    def children(self):
        found = self._call(ACCESSIBLE, "GetChildren")
        return [Control(self._bus, str(name), str(path)) for name, path in found]

    def box(self):
        """Left, top, width and height on the screen."""
        extents = self._call(COMPONENT, "GetExtents", "u", SCREEN_COORDINATES)
        return tuple(int(value) for value in extents)

    def press(self):
        """Performs the control's first action, as a screen reader does instead of a click."""
        if not self._call(ACTION, "DoAction", "i", dbus.Int32(0)):
            raise AssertionError(f"{self.name} has no action")

    def act(self, action):
        """Performs the action of that name, such as "Increase"."""
        names = [str(row[0]) for row in self._call(ACTION, "GetActions")]
        self._call(ACTION, "DoAction", "i", dbus.Int32(names.index(action)))

    def all(self):
        """The control and everything visible in it, even if it has to be scrolled into view."""
        yield self
        for child in self.children():
            if child.has_size():
                yield from child.all()

    def has_size(self):
        """Whether the control has a size. A hidden one has none. Its states do not tell whether it
        is hidden or only scrolled out of view."""
        _, _, width, height = self.box()
        return width > 0 and height > 0

    def _get(self, value):
        return self._bus.call_blocking(
            self._name, self._path, dbus.PROPERTIES_IFACE, "Get", "ss", (ACCESSIBLE, value),
            timeout=PATIENCE_SECONDS,
        )

    def _call(self, interface, method, signature="", *arguments):
        return self._bus.call_blocking(
            self._name, self._path, interface, method, signature, arguments,
            timeout=PATIENCE_SECONDS,
        )


class AccessibleProgram:
    """The controls of the program with that process identifier, on a desktop's session bus."""

    def __init__(self, session_address, pid):
        session = dbus.bus.BusConnection(session_address)
        address = session.call_blocking(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", "", (),
            timeout=PATIENCE_SECONDS,
        )
        session.close()
        self._bus = dbus.bus.BusConnection(str(address))
        self._pid = pid

    def close(self):
        self._bus.close()

    def find(self, name, role=None):
        """The first visible control with that name and role, or None."""
        for control, found in self._named_controls():
            if found == name and (role is None or control.role == role):
                return control
        return None

    def texts(self):
        """The visible texts, from the top."""
        return [name for _, name in self._named_controls() if name]

    def _named_controls(self):
        """Every visible control with its name. If the tree changes while it is read, the rest is
        left out: a caller that waits for something asks again."""
        try:
            for application in Control(self._bus, REGISTRY, ROOT).children():
                if self._belongs(application):
                    for window in application.children():
                        if "visible" in window.states:
                            yield from ((control, control.name) for control in window.all())
        except dbus.DBusException:
            return

    def _belongs(self, application):
        return self._pid == self._bus.call_blocking(
            "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
            "s", (application._name,), timeout=PATIENCE_SECONDS,
        )

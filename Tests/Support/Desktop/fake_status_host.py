"""Controls a fake StatusNotifierItem host: lists the items that registered, and clicks on them."""

import pathlib

import dbus
import dbus.bus

from fake_status_watcher import NAME, PATH, PROPERTIES
from patience import PATIENCE_SECONDS

ITEM = "org.kde.StatusNotifierItem"


class FakeStatusHost:
    """Owns the watcher's process. Asks items over a connection of its own, as a host would."""

    def __init__(self, desktop, has_host):
        script = pathlib.Path(__file__).with_name("fake_status_watcher.py")
        arguments = ["--host"] if has_host else []
        self._process = desktop.start("fake-status-host", desktop.python(script, *arguments))
        self._bus = dbus.bus.BusConnection(desktop.bus_address)
        desktop.wait_until(lambda: self._bus.name_has_owner(NAME), "the fake host owns its name")

    def freeze(self):
        self._process.freeze()

    def thaw(self):
        self._process.thaw()

    def end(self):
        self._process.end()

    def register_host(self):
        self._watcher(NAME).RegisterStatusNotifierHost("late", timeout=PATIENCE_SECONDS)

    def items(self):
        """The items that are registered now, each as bus name and object path in one text."""
        names = self._watcher(PROPERTIES).Get(
            NAME, "RegisteredStatusNotifierItems", timeout=PATIENCE_SECONDS
        )
        return [str(name) for name in names]

    def activate(self, item, x=0, y=0):
        """Clicks on the item, at that point of the screen."""
        self._item(item, ITEM).Activate(x, y, timeout=PATIENCE_SECONDS)

    def pictures(self, item):
        """The pictures that the item offers: width, height and big-endian ARGB bytes of each."""
        offered = self._item(item, PROPERTIES).Get(ITEM, "IconPixmap", timeout=PATIENCE_SECONDS)
        return [(int(width), int(height), bytes(pixels)) for width, height, pixels in offered]

    def _watcher(self, interface):
        return dbus.Interface(self._bus.get_object(NAME, PATH, introspect=False), interface)

    def _item(self, item, interface):
        name, slash, path = item.partition("/")
        return dbus.Interface(
            self._bus.get_object(name, slash + path, introspect=False), interface
        )

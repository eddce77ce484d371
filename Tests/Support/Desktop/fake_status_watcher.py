"""A StatusNotifierItem watcher that a test controls. It is a process, so that it can hang.

With --host it claims to have a host from the start. Otherwise it has none until somebody calls
RegisterStatusNotifierHost, like a host that starts late.
"""

import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.kde.StatusNotifierWatcher"
PATH = "/StatusNotifierWatcher"
PROPERTIES = "org.freedesktop.DBus.Properties"
INTROSPECTION = f"""<node>
  <interface name="{NAME}">
    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
    <property name="ProtocolVersion" type="i" access="read"/>
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
    <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
    <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
    <signal name="StatusNotifierHostRegistered"/>
  </interface>
</node>"""


class FakeStatusWatcher(dbus.service.Object):
    """Lists the items that register, as "bus name" + "object path", and forgets those that end."""

    def __init__(self, bus, has_host):
        self._bus = bus
        self._has_host = has_host
        self._items = []
        super().__init__(bus, PATH)

    @dbus.service.method(NAME, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        item = sender + service if service.startswith("/") else service + "/StatusNotifierItem"
        if item in self._items:
            return
        self._items.append(item)
        self._bus.watch_name_owner(
            item.partition("/")[0], lambda owner: None if owner else self._forget(item)
        )
        self.StatusNotifierItemRegistered(item)

    @dbus.service.method(NAME, in_signature="s")
    def RegisterStatusNotifierHost(self, _service):
        self._has_host = True
        self.StatusNotifierHostRegistered()

    @dbus.service.signal(NAME, signature="s")
    def StatusNotifierItemRegistered(self, item):
        pass

    @dbus.service.signal(NAME, signature="s")
    def StatusNotifierItemUnregistered(self, item):
        pass

    @dbus.service.signal(NAME, signature="")
    def StatusNotifierHostRegistered(self):
        pass

    @dbus.service.method(PROPERTIES, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return self.GetAll(interface)[name]

    @dbus.service.method(PROPERTIES, in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        return {
            "RegisteredStatusNotifierItems": dbus.Array(self._items, signature="s"),
            "IsStatusNotifierHostRegistered": dbus.Boolean(self._has_host),
            "ProtocolVersion": dbus.Int32(0),
        }

    # A client that reads properties through a generated proxy looks them up here first.
    @dbus.service.method("org.freedesktop.DBus.Introspectable", out_signature="s")
    def Introspect(self):
        return INTROSPECTION

    def _forget(self, item):
        if item in self._items:
            self._items.remove(item)
            self.StatusNotifierItemUnregistered(item)


def main():
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    watcher = FakeStatusWatcher(bus, has_host="--host" in sys.argv)
    name = dbus.service.BusName(NAME, bus)
    GLib.MainLoop().run()
    del watcher, name


if __name__ == "__main__":
    main()

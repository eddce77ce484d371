"""The agent of the user's session: it tells the daemon how exact a location may be.

usage: geoclue_agent.py LEVEL
"""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

DAEMON = "org.freedesktop.GeoClue2"
MANAGER_PATH = "/org/freedesktop/GeoClue2/Manager"
AGENT_PATH = "/org/freedesktop/GeoClue2/Agent"
AGENT = "org.freedesktop.GeoClue2.Agent"
AGENT_ID = "quorvel-world-agent"
CONTROL = "com.zantho.quorvel.World.Agent"
PROPERTIES = "org.freedesktop.DBus.Properties"


class Agent(dbus.service.Object):
    def __init__(self, bus, level):
        super().__init__(bus, AGENT_PATH, dbus.service.BusName(CONTROL, bus))
        self._bus = bus
        self._level = level
        self.is_registered = False
        bus.watch_name_owner(DAEMON, self._register)

    def _register(self, owner):
        """Registers with each new daemon. It never starts one."""
        self.is_registered = False
        if owner:
            manager = self._bus.get_object(owner, MANAGER_PATH, introspect=False)
            manager.AddAgent(AGENT_ID, dbus_interface="org.freedesktop.GeoClue2.Manager",
                             reply_handler=self._registered, error_handler=print)

    def _registered(self):
        self.is_registered = True

    @dbus.service.method(AGENT, in_signature="su", out_signature="bu")
    def AuthorizeApp(self, desktop_id, level):
        return True, level

    @dbus.service.method(PROPERTIES, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return dbus.UInt32(self._level)

    @dbus.service.method(PROPERTIES, in_signature="s", out_signature="a{sv}")
    def GetAll(self, interface):
        return {"MaxAccuracyLevel": dbus.UInt32(self._level)}

    @dbus.service.signal(PROPERTIES, signature="sa{sv}as")
    def PropertiesChanged(self, interface, changed, invalidated):
        pass

    @dbus.service.method(CONTROL, in_signature="u")
    def SetLevel(self, level):
        self._level = level
        self.PropertiesChanged(AGENT, self.GetAll(AGENT), [])

    @dbus.service.method(CONTROL, out_signature="b")
    def IsRegistered(self):
        return self.is_registered


def main(level):
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    agent = Agent(dbus.SystemBus(), int(level))
    GLib.MainLoop().run()
    del agent


if __name__ == "__main__":
    main(*sys.argv[1:])

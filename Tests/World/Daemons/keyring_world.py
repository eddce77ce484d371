"""The real keyring daemon on a bus of its own, with a keyring in a temporary folder.

Run as a program, it prints the address of its bus, and then reads one command a line, from
COMMANDS. It answers each with a line "done" or "failed: ...". At first, no daemon runs.
"""

import os
import shutil
import signal
import sys

import dbus
import dbus.bus

from patience import PATIENCE_SECONDS, wait_for
from private_session import PrivateSession

NAME = "org.freedesktop.secrets"
PATH = "/org/freedesktop/secrets"
SERVICE = "org.freedesktop.Secret.Service"
UNPROMPTED = "org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface"
COLLECTION = "org.freedesktop.Secret.Collection"
NO_COLLECTION = ("", "/")
# The password that a person types at login. It makes the keyring and unlocks it.
PASSWORD = b"correct horse\n"


class KeyringWorld:
    """Starts the daemon, and brings it into the states that a client may meet. Ends with the
    processes it is given.

    `environment` names the bus and the folders, and `processes` is a ProcessGroup.
    """

    COMMANDS = (
        "start", "start_without_keyring", "lock", "unlock", "stop", "resume", "kill", "absent",
        "forget",
    )

    def __init__(self, environment, processes):
        self._environment = environment
        self._processes = processes
        self._daemon = None

    # Orders

    def start(self):
        """Starts a daemon with an unlocked keyring, as after a login."""
        self._launch(["--unlock"], PASSWORD)
        self._wait_until(self.default_collection, "has a keyring")

    def start_without_keyring(self):
        """Starts a daemon that has never seen a login. It has no keyring for new items."""
        self._launch([], b"")

    def lock(self):
        self._call("Lock", "ao", dbus.Array([self._collection_there()], signature="o"))

    def unlock(self):
        """Unlocks the keyring with the right password, without a prompt."""
        bus = self._bus()
        nothing = dbus.String("", variant_level=1)
        _, session = bus.call_blocking(NAME, PATH, SERVICE, "OpenSession", "sv", ("plain", nothing))
        secret = (session, dbus.ByteArray(b""), dbus.ByteArray(PASSWORD), "text/plain")
        bus.call_blocking(
            NAME, PATH, UNPROMPTED, "UnlockWithMasterPassword", "o(oayays)",
            (self._collection_there(), secret),
        )
        bus.close()

    def stop(self):
        """Freezes the daemon. It keeps its name and answers nobody."""
        self._daemon.freeze()

    def resume(self):
        self._daemon.thaw()

    def kill(self):
        """Kills the daemon in the middle of its work."""
        os.kill(self._daemon.pid, signal.SIGKILL)
        self.absent()

    def absent(self):
        """Ends the daemon, as on a machine without one. The keyring's file stays."""
        if self._daemon:
            self._daemon.end()
            self._daemon = None
            self._wait_until(lambda: not self.is_present(), "is off the bus")

    def forget(self):
        """Ends the daemon, and deletes everything that it kept."""
        self.absent()
        shutil.rmtree(self.folder, ignore_errors=True)

    # State

    @property
    def folder(self):
        return os.path.join(self._environment["XDG_DATA_HOME"], "keyrings")

    def is_present(self):
        bus = self._bus()
        try:
            return bus.name_has_owner(NAME)
        finally:
            bus.close()

    def default_collection(self):
        """The collection for new items, or None if the user has none."""
        path = str(self._call("ReadAlias", "s", "default"))
        return path if path not in NO_COLLECTION else None

    def is_locked(self):
        return bool(self._properties(self._collection_there(), COLLECTION)["Locked"])

    def collections(self):
        return [str(path) for path in self._properties(PATH, SERVICE)["Collections"]]

    # Parts

    def _collection_there(self):
        """Waits for the default collection. Right after an item was stored, the daemon may name
        none for a moment."""
        return self._wait_until(self.default_collection, "has a keyring")

    def _launch(self, options, typed):
        self.absent()
        reading, writing = os.pipe()
        os.write(writing, typed)
        os.close(writing)
        command = ["gnome-keyring-daemon", "--foreground", "--components=secrets", *options]
        self._daemon = self._processes.start("keyring", command, self._environment, stdin=reading)
        os.close(reading)
        self._wait_until(self.is_present, "is on the bus")

    def _bus(self):
        return dbus.bus.BusConnection(self._environment["DBUS_SESSION_BUS_ADDRESS"])

    def _call(self, method, signature, *arguments, path=PATH, interface=SERVICE):
        bus = self._bus()
        try:
            return bus.call_blocking(
                NAME, path, interface, method, signature, arguments, timeout=PATIENCE_SECONDS
            )
        finally:
            bus.close()

    def _properties(self, path, interface):
        return self._call("GetAll", "s", interface, path=path, interface=dbus.PROPERTIES_IFACE)

    def _wait_until(self, condition, what):
        return wait_for(condition, f"the keyring {what}", self._processes.logs)


def carry_out(keyring, command):
    if command not in KeyringWorld.COMMANDS:
        return "failed: there is no such command"
    try:
        getattr(keyring, command)()
    except (AssertionError, OSError, dbus.DBusException) as error:
        return f"failed: {error}".replace("\n", " ")
    return "done"


def main():
    with PrivateSession() as session:
        keyring = KeyringWorld(session.environment, session.processes)
        print(session.environment["DBUS_SESSION_BUS_ADDRESS"], flush=True)
        for line in sys.stdin:
            print(carry_out(keyring, line.strip()), flush=True)


if __name__ == "__main__":
    main()

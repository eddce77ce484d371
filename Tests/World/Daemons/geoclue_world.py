"""The real GeoClue daemon and everything that it needs. A test can break each part.

Run as a program, it reads one command a line: a name from COMMANDS with its arguments. It answers
each with a line "done" or "failed: ...".
"""

import os
import pathlib
import sys
import tempfile

import dbus

from geolocation_endpoint import HOME, GeolocationEndpoint
from patience import wait_for
from private_bus import start_bus
from processes import ProcessGroup

HERE = pathlib.Path(__file__).parent
DAEMON = "/usr/libexec/geoclue"
DAEMON_NAME = "org.freedesktop.GeoClue2"
MANAGER = "org.freedesktop.GeoClue2.Manager"
MANAGER_PATH = "/org/freedesktop/GeoClue2/Manager"
AGENT_NAME = "com.zantho.quorvel.World.Agent"
AGENT_PATH = "/org/freedesktop/GeoClue2/Agent"
CONFIGURATION_FILE = "/etc/geoclue/geoclue.conf"
CONFIGURATION = """[agent]
whitelist=quorvel-world-agent

[network-nmea]
enable=false

[3g]
enable=false

[cdma]
enable=false

[modem-gps]
enable=false

[compass]
enable=false

[wifi]
enable=true
url={url}
submit-data=false

[com.zantho.quorvel]
allowed={allowed}
system=false
users=
"""
EXACT_LEVEL = 8


class GeoClueWorld:
    """The daemon on a bus, its agent, and the endpoint that knows the position.

    `with GeoClueWorld() as world:` starts a bus of its own. If an address is given, the world uses
    that bus.
    """

    COMMANDS = ("start_daemon", "stop_daemon", "kill_daemon", "freeze_daemon", "thaw_daemon",
                "start_agent", "stop_agent", "set_agent_level", "stand_at", "fail", "hang",
                "allow", "disallow", "mend", "await_request", "expect_no_clients")

    def __init__(self, address=None):
        self._folder = tempfile.TemporaryDirectory(prefix="quorvel-geoclue-")
        self.folder = pathlib.Path(self._folder.name)
        self._processes = ProcessGroup(self.folder)
        self.endpoint = GeolocationEndpoint()
        self.address = address
        self._is_allowed = True
        self._requests_before = 0
        self._daemon = None
        self._agent = None

    def __enter__(self):
        try:
            if self.address is None:
                self.address = start_bus(self._processes, "bus", self.folder, os.environ)
            self._bus = dbus.bus.BusConnection(self.address)
            self.start_agent(EXACT_LEVEL)
            self.start_daemon()
        except BaseException:
            print(self.logs(), file=sys.stderr)
            self.close()
            raise
        return self

    def __exit__(self, *error):
        self.close()

    def close(self):
        self._processes.end_all()
        self.endpoint.close()
        self._folder.cleanup()

    def logs(self):
        return self._processes.logs()

    def start_daemon(self):
        self._requests_before = self.endpoint.requests
        shown = self.folder / "geoclue.conf"
        allowed = str(self._is_allowed).lower()
        shown.write_text(CONFIGURATION.format(url=self.endpoint.url, allowed=allowed))
        command = [sys.executable, "-B", HERE / "with_file_over.py", shown, CONFIGURATION_FILE,
                   DAEMON, "--timeout", "0"]
        self._daemon = self._processes.start("geoclue", command, self._environment())
        wait_for(lambda: self._bus.name_has_owner(DAEMON_NAME), "the daemon")
        if self._agent:
            wait_for(self._agent_is_registered, "the agent to register")

    def stop_daemon(self):
        self._daemon.end()
        wait_for(lambda: not self._bus.name_has_owner(DAEMON_NAME), "the daemon to end")

    def kill_daemon(self):
        """Kills the daemon, which cannot clean up any more, and does not wait for its end."""
        os.kill(self._daemon.pid, 9)

    def freeze_daemon(self):
        self._daemon.freeze()

    def thaw_daemon(self):
        self._daemon.thaw()

    def start_agent(self, level=EXACT_LEVEL):
        command = [sys.executable, "-B", HERE / "geoclue_agent.py", str(level)]
        self._agent = self._processes.start("geoclue_agent", command, self._environment())
        wait_for(lambda: self._bus.name_has_owner(AGENT_NAME), "the agent")
        if self._daemon and self._daemon.is_running():
            wait_for(self._agent_is_registered, "the agent to register")

    def stop_agent(self):
        self._agent.end()
        self._agent = None
        wait_for(lambda: not self._bus.name_has_owner(AGENT_NAME), "the agent to end")

    def set_agent_level(self, level):
        self._agent_call("SetLevel", dbus.UInt32(int(level)))

    def stand_at(self, latitude, longitude, accuracy):
        self.endpoint.stand_at(float(latitude), float(longitude), float(accuracy))

    def fail(self, status):
        self.endpoint.fail(int(status))

    def hang(self):
        self.endpoint.hang()

    def allow(self):
        self._configure(True)

    def disallow(self):
        self._configure(False)

    def mend(self):
        """Restores everything that a test has broken to its state at the start."""
        self.endpoint.stand_at(*HOME)
        self._is_allowed = True
        self.thaw_daemon()
        self._daemon.end()
        if self._agent:
            self.stop_agent()
        self.start_agent()
        self.start_daemon()

    def await_request(self):
        """Returns once the daemon has asked for its position after its start."""
        wait_for(lambda: self.endpoint.requests > self._requests_before, "the daemon's request")

    def expect_no_clients(self):
        """Returns once no program has a client in the daemon."""
        wait_for(lambda: not self._is_in_use(), "the daemon's clients to be deleted")

    def _configure(self, is_allowed):
        self._is_allowed = is_allowed
        self.stop_daemon()
        self.start_daemon()

    def _agent_is_registered(self):
        return bool(self._agent_call("IsRegistered"))

    def _agent_call(self, method, *arguments):
        agent = self._bus.get_object(AGENT_NAME, AGENT_PATH, introspect=False)
        return agent.get_dbus_method(method, AGENT_NAME)(*arguments)

    def _is_in_use(self):
        manager = self._bus.get_object(DAEMON_NAME, MANAGER_PATH, introspect=False)
        return bool(manager.Get(MANAGER, "InUse", dbus_interface=dbus.PROPERTIES_IFACE))

    def _environment(self):
        return {**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": self.address}


def obey(world, line):
    name, *arguments = line.split()
    if name not in GeoClueWorld.COMMANDS:
        return f"failed: there is no command {name}"
    try:
        getattr(world, name)(*arguments)
    except Exception as error:  # The other side has to hear of every error.
        return f"failed: {error!r}"
    return "done"


def main():
    with GeoClueWorld() as world:
        print(world.address, flush=True)
        for line in sys.stdin:
            print(obey(world, line), flush=True)


if __name__ == "__main__":
    main()

"""What a session consists of without a screen: folders and a bus that nobody else has."""

import os
import pathlib
import tempfile

from processes import ProcessGroup

# No service can be started by a call: what answers is what was started on purpose.
BUS_CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class PrivateSession:
    """A context manager: nothing of the session outlives it, and nothing outside is touched."""

    def __enter__(self):
        self._temporary = tempfile.TemporaryDirectory(prefix="quorvel-session-")
        self.folder = pathlib.Path(self._temporary.name)
        self.processes = ProcessGroup(self.folder)
        try:
            self._make_home()
            self._start_bus()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.processes.end_all()
        self._temporary.cleanup()

    def start(self, name, command, environment=None, **options):
        """The environment is added to the session's, and overrules it."""
        return self.processes.start(
            name, command, {**self.environment, **(environment or {})}, **options
        )

    def end_bus(self):
        self._bus.end()

    def _make_home(self):
        for name in ("home", "config", "data", "cache", "run"):
            (self.folder / name).mkdir(mode=0o700)
        kept = {
            name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")
        }
        self.environment = {
            **kept,
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LANG": "C.UTF-8",
            "HOME": str(self.folder / "home"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_CACHE_HOME": str(self.folder / "cache"),
            "XDG_RUNTIME_DIR": str(self.folder / "run"),
            "QT_QPA_PLATFORM": "offscreen",
        }

    def _start_bus(self):
        socket = self.folder / "run" / "bus"
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(socket=socket))
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket}"
        reading, writing = os.pipe()
        with os.fdopen(reading) as lines:
            self._bus = self.start(
                "bus", ["dbus-daemon", "--nofork", f"--config-file={configuration}",
                        f"--print-address={writing}"], pass_fds=[writing],
            )
            os.close(writing)
            if not lines.readline():
                raise AssertionError(f"the bus did not start\n{self.processes.logs()}")

"""A session without a screen: folders and a bus for one test."""

import pathlib
import tempfile

from private_bus import start_bus
from private_home import private_home
from processes import ProcessGroup


class PrivateSession:
    """A context manager. Nothing of the session outlives it, and it touches nothing outside.

    A call on its bus cannot start a service. Only services that the test has started can answer.
    """

    def __enter__(self):
        self._temporary = tempfile.TemporaryDirectory(prefix="quorvel-session-")
        self.folder = pathlib.Path(self._temporary.name)
        self.processes = ProcessGroup(self.folder)
        try:
            self.environment = {**private_home(self.folder), "QT_QPA_PLATFORM": "offscreen"}
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = start_bus(
                self.processes, "bus", self.folder, self.environment
            )
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.processes.end_all()
        self._temporary.cleanup()

    def start(self, name, command, environment=None, **options):
        """The given environment is added to the session's, and overrides it."""
        return self.processes.start(
            name, command, {**self.environment, **(environment or {})}, **options
        )

    def end_bus(self):
        self.processes.end("bus")

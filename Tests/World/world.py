"""A self-contained district of cafés: buses, system services and web services of its own.

usage: world.py [PART.VERB[=VALUE] ...] -- COMMAND [ARGUMENT ...]
Runs the command inside the district. For example, `world.py places.fail=429 weather.slow=5 --
build/dev/bin/quorvel`. Ends with the command's status.
"""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile

# If this is run by hand, the path to the modules that the tests share is not set yet.
TESTS = pathlib.Path(__file__).resolve().parent.parent
for folder in ("Support/Session", "World/Daemons", "World/Web"):
    sys.path.append(str(TESTS / folder))

from district import District  # noqa: E402
from district_server import DistrictServer  # noqa: E402
from keyring_part import KeyringPart  # noqa: E402
from location_part import LocationPart  # noqa: E402
from open_meteo import OpenMeteo  # noqa: E402
from overpass import Overpass  # noqa: E402
from private_bus import start_bus  # noqa: E402
from private_home import private_home  # noqa: E402
from processes import ProcessGroup  # noqa: E402
from wifi_part import WifiPart  # noqa: E402

USAGE_ERROR = 2


class World:
    """A context manager. Nothing of the district outlives it, and it touches nothing outside.

    Each part (`places`, `weather`, `location`, `keyring`, `wifi`) can be told to be slow, to fail,
    to vanish, to come back and to recover. `environment` leads a program to the district's
    services. If a virtual desktop is given, the district joins its session, and programs of the
    desktop use the district.
    """

    PARTS = ("places", "weather", "location", "keyring", "wifi")

    def __init__(self, desktop=None):
        self._desktop = desktop
        self.district = District()

    def __enter__(self):
        self._temporary = tempfile.TemporaryDirectory(prefix="quorvel-world-")
        self.folder = pathlib.Path(self._temporary.name)
        self._processes = ProcessGroup(self.folder)
        self._started = []
        try:
            self._start_session()
            self._start_system()
            self._start_web()
            self._start_services()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for part in reversed(self._started):
            part.stop()
        self._processes.end_all()
        self._temporary.cleanup()

    # Orders

    def start(self, name, command, stdin=subprocess.DEVNULL, **environment):
        """Starts a program in the district, with these additions to its environment."""
        own = {**self.environment, **environment}
        return self._processes.start(name, command, own, stdin=stdin)

    def run(self, command, environment):
        """Runs a command to its end, and returns its status. Processes that it leaves behind end
        with the district."""
        own = self._processes.marked({**environment, **self.environment})
        return subprocess.run(command, env=own, check=False).returncode

    def logs(self):
        """The output of every process, each under its name."""
        return f"{self._processes.logs()}\n{self.location.logs()}"

    def recover(self):
        """Brings every part back, and ends all its failures."""
        for part in self._started:
            part.come_back()
            part.recover()

    def tell(self, order):
        """Tells a part what to do, in words: `places.fail=429`, `wifi.vanish`."""
        name, _, rest = order.partition(".")
        verb, _, value = rest.partition("=")
        if name not in self.PARTS or verb not in ("slow", "fail", "vanish"):
            raise ValueError(f"not understood: {order}")
        arguments = [number_or_word(value)] if value else []
        getattr(getattr(self, name), verb)(*arguments)

    # Parts

    def _start_session(self):
        if self._desktop:
            self.environment = self._desktop.environment
            return
        self.environment = private_home(self.folder)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = start_bus(
            self._processes, "session-bus", self.folder, self.environment
        )

    def _start_system(self):
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = start_bus(
            self._processes, "system-bus", self.folder, self.environment
        )

    def _start_web(self):
        self.places = self._start(DistrictServer(Overpass(self.district)))
        self.weather = self._start(DistrictServer(OpenMeteo(self.district)))
        self.environment["QUORVEL_PLACES_ENDPOINT"] = self.places.endpoint
        self.environment["QUORVEL_WEATHER_ENDPOINT"] = self.weather.endpoint

    def _start_services(self):
        environment, processes = self.environment, self._processes
        self.location = self._start(
            LocationPart(environment["DBUS_SYSTEM_BUS_ADDRESS"], self.district)
        )
        self.keyring = self._start(KeyringPart(environment, processes))
        self.wifi = self._start(WifiPart(environment, processes, self.district))

    def _start(self, part):
        self._started.append(part)
        part.start()
        return part


def number_or_word(text):
    try:
        return int(text)
    except ValueError:
        return text


def display_of(environment):
    """The variables that lead a command to the screen of the person who runs it, in spite of its
    new home."""
    kept = {name: environment[name] for name in ("DISPLAY", "TERM") if name in environment}
    if "DISPLAY" in environment:
        own = pathlib.Path(environment.get("HOME", "/"), ".Xauthority")
        kept["XAUTHORITY"] = environment.get("XAUTHORITY", str(own))
    if "WAYLAND_DISPLAY" in environment:
        runtime = pathlib.Path(environment.get("XDG_RUNTIME_DIR", "/"))
        kept["WAYLAND_DISPLAY"] = str(runtime / environment["WAYLAND_DISPLAY"])
    return kept


def run(orders, command):
    with World() as world:
        for order in orders:
            world.tell(order)
        return world.run(command, display_of(os.environ))


def main(arguments):
    if "--" not in arguments or arguments[-1] == "--":
        print(__doc__, file=sys.stderr)
        return USAGE_ERROR
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    divide = arguments.index("--")
    try:
        status = run(arguments[:divide], arguments[divide + 1:])
    except KeyboardInterrupt:
        return 128 + signal.SIGINT
    except (ValueError, OSError) as problem:
        print(f"world.py: {problem}", file=sys.stderr)
        return USAGE_ERROR
    return 128 - status if status < 0 else status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

"""Every part of the district works, can be told to misbehave, and recovers."""

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import unittest
import urllib.error
import urllib.request

import dbus
import dbus.bus

from patience import PATIENCE_SECONDS, wait_for
from processes import environment_of, running_pids
from virtual_desktop import VirtualDesktop
from world import World

HERE = pathlib.Path(__file__).parent
WORLD = [sys.executable, "-B", str(HERE / "world.py")]
# How long to wait for an answer that never comes.
SILENCE_SECONDS = 2
LOOKS = 20

LOCATION = "org.freedesktop.GeoClue2"
CLIENT = f"{LOCATION}.Client"
EXACT = 8
NOT_YET = "/"
SECRETS = "org.freedesktop.secrets"
NETWORK = "org.freedesktop.NetworkManager"
WIRELESS = f"{NETWORK}.Device.Wireless"


def inhabitants(folder):
    """The processes that were started for the district with that folder."""
    mark = str(folder).encode()
    return [pid for pid in running_pids() if any(mark in entry for entry in environment_of(pid))]


class WorldCase(unittest.TestCase):
    def setUp(self):
        self.call_seconds = PATIENCE_SECONDS
        self.world = self.enterContext(World())
        environment = self.world.environment
        self.system = dbus.bus.BusConnection(environment["DBUS_SYSTEM_BUS_ADDRESS"])
        self.session = dbus.bus.BusConnection(environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.system.close)
        self.addCleanup(self.session.close)

    @contextlib.contextmanager
    def assert_silence(self):
        """Checks that a call inside gets no answer."""
        self.call_seconds = SILENCE_SECONDS
        with self.assertRaises(dbus.DBusException) as refused:
            yield
        self.assertEqual(refused.exception.get_dbus_name(), "org.freedesktop.DBus.Error.NoReply")
        self.call_seconds = PATIENCE_SECONDS

    def call(self, bus, name, path, interface, method, signature="", *arguments):
        return bus.call_blocking(
            name, path, interface, method, signature, arguments, timeout=self.call_seconds
        )

    def get(self, bus, name, path, interface, value):
        return self.call(bus, name, path, dbus.PROPERTIES_IFACE, "Get", "ss", interface, value)


class LocationTest(WorldCase):
    def ask(self, path, interface, method, *arguments):
        return self.call(self.system, LOCATION, path, interface, method, *arguments)

    def start_client(self):
        client = self.ask(f"/{LOCATION.replace('.', '/')}/Manager", f"{LOCATION}.Manager",
                          "CreateClient")
        for name, value in (("DesktopId", "com.zantho.quorvel"),
                            ("RequestedAccuracyLevel", dbus.UInt32(EXACT))):
            self.ask(client, dbus.PROPERTIES_IFACE, "Set", "ssv", CLIENT, name, value)
        self.ask(client, CLIENT, "Start")
        return client

    def fix(self, client=None):
        """Latitude, longitude and accuracy, as the given client or a new one gets them."""
        client = client or self.start_client()
        path = wait_for(lambda: self.found(client), "a fix")
        found = self.ask(path, dbus.PROPERTIES_IFACE, "GetAll", "s", f"{LOCATION}.Location")
        return found["Latitude"], found["Longitude"], found["Accuracy"]

    def found(self, client):
        path = self.get(self.system, LOCATION, client, CLIENT, "Location")
        return path if path != NOT_YET else None

    def here(self):
        return (*self.world.district.position, self.world.district.accuracy)

    def refusal(self):
        with self.assertRaises(dbus.DBusException) as refused:
            self.fix()
        return refused.exception.get_dbus_name()

    def test_it_knows_where_the_district_is(self):
        self.assertEqual(self.fix(), self.here())

    def test_a_slow_fix_comes_in_the_end(self):
        self.world.location.slow(1)
        self.assertEqual(self.fix(), self.here())

    def test_a_slow_fix_comes_once_it_recovers(self):
        self.world.location.slow(PATIENCE_SECONDS)
        asked = self.world.location.requests
        client = self.start_client()
        wait_for(lambda: self.world.location.requests > asked, "the daemon's request")
        self.assert_never_found(client)
        self.world.location.recover()
        self.assertEqual(self.fix(client), self.here())

    def assert_never_found(self, client):
        for _ in range(LOOKS):
            self.assertIsNone(self.found(client))

    def test_it_fails_and_recovers(self):
        for how in ("denied", "disallowed"):
            with self.subTest(how=how):
                self.world.location.fail(how)
                self.assertEqual(self.refusal(), "org.freedesktop.DBus.Error.AccessDenied")
                self.world.location.recover()
                self.assertEqual(self.fix(), self.here())

    def test_it_answers_nobody_and_recovers(self):
        for how in ("no agent", "silence"):
            with self.subTest(how=how):
                self.world.location.fail(how)
                with self.assert_silence():
                    self.fix()
                self.world.location.recover()
                self.assertEqual(self.fix(), self.here())

    def test_a_fix_that_fails_never_comes(self):
        self.world.location.fail(404)
        answered = self.world.location.answers
        client = self.start_client()
        wait_for(lambda: self.world.location.answers > answered, "the answer to the daemon")
        self.assert_never_found(client)

    def test_it_can_be_too_vague_to_use(self):
        self.world.location.fail("blurred")
        self.assertGreater(self.fix()[2], 1000)

    def test_it_vanishes_and_comes_back(self):
        self.world.location.vanish()
        self.assertEqual(self.refusal(), "org.freedesktop.DBus.Error.ServiceUnknown")
        self.world.location.come_back()
        self.assertEqual(self.fix(), self.here())


class KeyringTest(WorldCase):
    PATH = "/org/freedesktop/secrets"

    def collection(self):
        return self.call(self.session, SECRETS, self.PATH, "org.freedesktop.Secret.Service",
                         "ReadAlias", "s", "default")

    def is_locked(self):
        return bool(self.get(self.session, SECRETS, self.collection(),
                             "org.freedesktop.Secret.Collection", "Locked"))

    def secret_tool(self, *arguments, secret=None):
        finished = subprocess.run(
            ["secret-tool", *arguments], env=self.world.environment, input=secret,
            capture_output=True, text=True, timeout=PATIENCE_SECONDS, check=False,
        )
        return finished.stdout

    def test_it_keeps_a_secret_through_an_absence(self):
        self.secret_tool("store", "--label=test", "place", "here", secret="cà phê sữa đá")
        self.world.keyring.vanish()
        self.assertFalse(self.session.name_has_owner(SECRETS))
        self.world.keyring.come_back()
        self.assertEqual(self.secret_tool("lookup", "place", "here"), "cà phê sữa đá")

    def test_it_is_locked_and_unlocked(self):
        self.assertFalse(self.is_locked())
        self.world.keyring.fail("locked")
        self.assertTrue(self.is_locked())
        self.world.keyring.recover()
        self.assertFalse(self.is_locked())

    def test_it_can_lack_a_keyring_and_recover(self):
        self.world.keyring.fail("no keyring")
        self.assertEqual(self.collection(), "/")
        self.world.keyring.recover()
        self.assertNotEqual(self.collection(), "/")

    def test_it_answers_nobody_until_it_recovers(self):
        self.world.keyring.fail("silence")
        with self.assert_silence():
            self.collection()
        self.world.keyring.recover()
        self.assertFalse(self.is_locked())

    def test_a_slow_keyring_answers_in_the_end(self):
        self.world.keyring.slow(1)
        self.assertFalse(self.is_locked())

    def test_a_slow_keyring_answers_nobody_until_it_recovers(self):
        self.world.keyring.slow(PATIENCE_SECONDS)
        with self.assert_silence():
            self.collection()
        self.world.keyring.recover()
        self.assertFalse(self.is_locked())


class WifiTest(WorldCase):
    def radio(self):
        devices = self.call(self.system, NETWORK, "/org/freedesktop/NetworkManager", NETWORK,
                            "GetDevices")
        return devices[0] if devices else None

    def read(self, path, interface, name):
        return self.get(self.system, NETWORK, path, interface, name)

    def heard(self):
        points = self.read(self.radio(), WIRELESS, "AccessPoints")
        ssids = [self.read(point, f"{NETWORK}.AccessPoint", "Ssid") for point in points]
        return sorted(bytes(ssid).decode() for ssid in ssids)

    def last_scan(self):
        return self.read(self.radio(), WIRELESS, "LastScan")

    def begin_scan(self):
        self.call(self.system, NETWORK, self.radio(), WIRELESS, "RequestScan", "a{sv}",
                  dbus.Dictionary({}, signature="sv"))

    def scan(self):
        """Scans, and waits for the end of the scan."""
        before = self.last_scan()
        self.begin_scan()
        wait_for(lambda: self.last_scan() != before, "the end of the scan")

    def names(self):
        return sorted(point["name"] for point in self.world.district.networks["access_points"])

    def test_it_hears_what_the_district_broadcasts(self):
        self.assertEqual(self.heard(), self.names())

    def test_it_is_joined_to_the_network_of_the_district(self):
        point = self.read(self.radio(), WIRELESS, "ActiveAccessPoint")
        ssid = self.read(point, f"{NETWORK}.AccessPoint", "Ssid")
        self.assertEqual(bytes(ssid).decode(), self.world.district.networks["joined"])

    def test_a_slow_scan_ends(self):
        self.world.wifi.slow(1)
        self.scan()

    def test_a_scan_ends_late_or_never_when_told_so(self):
        for trouble in (lambda: self.world.wifi.slow(PATIENCE_SECONDS),
                        lambda: self.world.wifi.fail("endless scan")):
            trouble()
            before = self.last_scan()
            self.begin_scan()
            for _ in range(LOOKS):
                self.assertEqual(self.last_scan(), before)
            self.world.wifi.recover()
            self.scan()

    def test_a_scan_can_be_denied(self):
        self.world.wifi.fail("scan denied")
        with self.assertRaisesRegex(dbus.DBusException, "PermissionDenied"):
            self.scan()

    def test_the_radio_can_be_removed(self):
        self.world.wifi.fail("no radio")
        self.assertIsNone(self.radio())
        self.world.wifi.recover()
        self.assertEqual(self.heard(), self.names())

    def test_it_answers_nobody_until_it_recovers(self):
        self.world.wifi.fail("silence")
        with self.assert_silence():
            self.radio()
        self.world.wifi.recover()
        self.assertEqual(self.heard(), self.names())

    def test_it_vanishes_and_comes_back(self):
        self.world.wifi.vanish()
        with self.assertRaisesRegex(dbus.DBusException, "ServiceUnknown"):
            self.radio()
        self.world.wifi.come_back()
        self.assertEqual(self.heard(), self.names())


class WebTest(WorldCase):
    VARIABLES = {"places": "QUORVEL_PLACES_ENDPOINT", "weather": "QUORVEL_WEATHER_ENDPOINT"}

    def status(self, part):
        """The status of an empty request, or None if nobody listens."""
        try:
            endpoint = self.world.environment[self.VARIABLES[part]]
            urllib.request.urlopen(endpoint, timeout=PATIENCE_SECONDS).close()
        except urllib.error.HTTPError as error:
            return error.status
        except urllib.error.URLError:
            return None
        return 200

    def test_the_environment_leads_to_both_servers(self):
        # The map server refuses a client without a name. The weather server has nothing at its
        # root.
        self.assertEqual((self.status("places"), self.status("weather")), (406, 404))

    def test_each_fails_and_vanishes_without_the_other(self):
        self.world.places.fail(429)
        self.assertEqual((self.status("places"), self.status("weather")), (429, 404))
        self.world.weather.vanish()
        self.assertEqual((self.status("places"), self.status("weather")), (429, None))
        self.world.recover()
        self.assertEqual((self.status("places"), self.status("weather")), (406, 404))


class DesktopTest(unittest.TestCase):
    def test_a_program_on_a_desktop_lives_in_the_district_around_it(self):
        with VirtualDesktop() as desktop, World(desktop):
            shown = desktop.start("shown", ["env"])
            self.assertEqual(shown.status(), 0)
            self.assertIn("QUORVEL_PLACES_ENDPOINT=http://127.0.0.1:", shown.output())
            self.assertIn("DBUS_SYSTEM_BUS_ADDRESS=unix:", shown.output())
            session = dbus.bus.BusConnection(desktop.bus_address)
            self.assertTrue(session.name_has_owner(SECRETS))
            session.close()


class EndTest(unittest.TestCase):
    def test_nothing_is_left_when_it_ends(self):
        with World() as world:
            folder = world.folder
            self.assertGreaterEqual(len(inhabitants(folder)), 6)
        self.assertEqual(inhabitants(folder), [])
        self.assertFalse(folder.exists())

    def test_nothing_is_left_when_it_ends_in_the_middle_of_trouble(self):
        with self.assertRaises(KeyError), World() as world:
            folder = world.folder
            for part in ("location", "keyring", "wifi"):
                getattr(world, part).fail("silence")
            raise KeyError
        self.assertEqual(inhabitants(folder), [])
        self.assertFalse(folder.exists())


class CommandTest(unittest.TestCase):
    def run_world(self, *arguments):
        return subprocess.run(
            [*WORLD, *arguments], capture_output=True, text=True, timeout=PATIENCE_SECONDS,
            check=False,
        )

    def test_it_runs_a_command_and_ends_with_its_status(self):
        finished = self.run_world("--", "sh", "-c", "echo $HOME $QUORVEL_PLACES_ENDPOINT; exit 3")
        self.assertEqual(finished.returncode, 3)
        self.assertRegex(finished.stdout, "quorvel-world-.* http://127.0.0.1:")

    def test_orders_come_before_the_command(self):
        ask = "import os, urllib.request; "
        ask += "urllib.request.urlopen(os.environ['QUORVEL_WEATHER_ENDPOINT'])"
        finished = self.run_world("weather.fail=503", "--", sys.executable, "-c", ask)
        self.assertIn("HTTP Error 503", finished.stderr)

    def test_arguments_that_it_does_not_understand_are_refused(self):
        for arguments in ((), ("true",), ("--",), ("moon.vanish", "--", "true"),
                          ("wifi.burn", "--", "true"), ("wifi.fail=dragons", "--", "true"),
                          ("--", "/nonexistent")):
            with self.subTest(arguments=arguments):
                finished = self.run_world(*arguments)
                self.assertEqual(finished.returncode, 2)
                self.assertNotIn("Traceback", finished.stderr)
                self.assertNotEqual(finished.stderr, "")

    def test_nothing_is_left_when_it_is_told_to_end(self):
        self.assert_leaves_nothing(signal.SIGTERM, lambda world: world.terminate())

    def test_nothing_is_left_when_it_is_interrupted_in_a_terminal(self):
        # The terminal signals every process in the foreground.
        interrupt = signal.SIGINT
        self.assert_leaves_nothing(interrupt, lambda world: os.killpg(world.pid, interrupt))

    def assert_leaves_nothing(self, told, tell):
        world = subprocess.Popen(
            [*WORLD, "--", "sh", "-c", "echo $HOME; tail -f /dev/null"], text=True,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True,
        )
        folder = pathlib.Path(world.stdout.readline().strip()).parent
        tell(world)
        self.assertEqual(world.wait(PATIENCE_SECONDS), 128 + told)
        with world.stdout, world.stderr as errors:
            self.assertNotIn("Traceback", errors.read())
        wait_for(lambda: not inhabitants(folder), "the end of all in the district")
        self.assertFalse(folder.exists())


if __name__ == "__main__":
    unittest.main()

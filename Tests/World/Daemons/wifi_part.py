"""The district's Wi-Fi networks: a mock of the network service, with one radio."""

import pathlib
import sys
import time

import dbus
import dbus.bus

from patience import PATIENCE_SECONDS, NotSeen, wait_for

TEMPLATE = pathlib.Path(__file__).with_name("networkmanager_mock.py")
SERVICE = "org.freedesktop.NetworkManager"
ROOT = "/org/freedesktop"
MANAGER = "/org/freedesktop/NetworkManager"
MOCK = "org.freedesktop.DBus.Mock"
# The service's numbers for its state and for its connectivity.
DISCONNECTED, CONNECTED = 20, 70
NO_CONNECTIVITY, FULL_CONNECTIVITY = 1, 4
USUAL_SCAN_MS = 60
DELAYS = {"scan-ms": USUAL_SCAN_MS, "join-answer-ms": 0, "secrets-ms": 0}
# The flags of an access point: its own, those of WPA and those of RSN.
SECURITY = {"open": (0, 0, 0), "wpa2": (1, 0, 0x188), "wpa3": (1, 0, 0x488)}
# For each failure: the key to script, its value, and its usual value.
FAILURES = {
    "scan denied": ("scan", "denied", "ok"),
    "scan unavailable": ("scan", "unavailable", "ok"),
    "endless scan": ("scan-ms", -1, USUAL_SCAN_MS),
    "wrong password": ("join", "wrong-password", "ok"),
    "no address": ("join", "no-address", "ok"),
    "out of reach": ("join", "gone", "ok"),
    "endless join": ("join", "hang", "ok"),
    "join denied": ("join", "denied", "ok"),
    "join refused with the password": ("join", "quoting", "ok"),
    "secrets denied": ("secrets", "denied", "ok"),
    "secrets garbled": ("secrets", "bytes", "ok"),
    "endless prompt": ("secrets-ms", -1, 0),
}


class WifiPart:
    def __init__(self, environment, processes, district):
        self._environment = environment
        self._processes = processes
        self._networks = district.networks
        self._service = None
        self._undo = []

    def start(self):
        self._bus = dbus.bus.BusConnection(self._environment["DBUS_SYSTEM_BUS_ADDRESS"])
        self._launch()

    def stop(self):
        self._bus.close()

    def slow(self, seconds):
        """Delays every scan, join and look-up of a secret by so many seconds, until `recover` is
        called."""
        self._undo.append(lambda: self._call("Hurry", ""))
        for delay, usual in DELAYS.items():
            self._with_undo(delay, int(1000 * seconds), usual)

    def fail(self, how):
        """One of FAILURES, or there is "no radio" or "no network", or nobody gets an answer
        ("silence")."""
        if how in FAILURES:
            self._with_undo(*FAILURES[how])
        elif how == "no radio":
            self._call("RemoveRadio", "s", self._radio)
            self._undo.append(self._furnish)
        elif how == "no network":
            self._reach(DISCONNECTED, NO_CONNECTIVITY)
            self._undo.append(lambda: self._reach(CONNECTED, FULL_CONNECTIVITY))
        elif how == "silence":
            self._service.freeze()
            self._undo.append(self._service.thaw)
        else:
            raise ValueError(f"no such failure: {how}")

    def vanish(self):
        self._service.end()
        self._undo = [self._launch]

    def recover(self):
        """Undoes every failure. A service that had vanished comes back as it was at the start."""
        while self._undo:
            self._undo.pop()()

    come_back = recover

    def count_waiting(self):
        """The number of scans, joins and look-ups that have not ended yet."""
        return int(self._call("CountWaiting", ""))

    def profiles(self):
        """The profiles that the service has saved, with their secrets."""
        return self._call("Profiles", "")

    def _launch(self):
        command = [sys.executable, "-B", "-m", "dbusmock", "--system", "--template", str(TEMPLATE)]
        self._service = self._processes.start("wifi", command, self._environment)
        wait_for(self._is_up, "the network service", self._service.output)
        self._furnish()

    def _is_up(self):
        if not self._service.is_running():
            raise NotSeen(f"the network service did not start\n{self._service.output()}")
        return self._bus.name_has_owner(SERVICE)

    def _furnish(self):
        """Sets up one radio, the networks in its reach, the saved profiles and the joined
        network."""
        self._call("Clear", "")
        self._radio = self._call("AddRadio", "s", "wlan0")
        for name in self._networks["remembered"]:
            self._call("AddProfile", "a{sa{sv}}", self._profile(name))
        heard = [self._add(point) for point in self._networks["access_points"]]
        names = [point["name"] for point in self._networks["access_points"]]
        joined = heard[names.index(self._networks["joined"])]
        self._call("JoinNetwork", "ss", self._radio, joined)

    def _add(self, point):
        flags = [dbus.UInt32(flag) for flag in SECURITY[point["security"]]]
        name = dbus.ByteArray(point["name"].encode())
        return self._call(
            "AddNetwork", "sayyuuu", self._radio, name, dbus.Byte(point["percent"]), *flags
        )

    def _profile(self, name):
        return {
            "connection": {
                "id": name, "type": "802-11-wireless", "timestamp": dbus.UInt64(time.time())
            },
            "802-11-wireless": {"ssid": dbus.ByteArray(name.encode())},
            "802-11-wireless-security": {
                "key-mgmt": "wpa-psk", "psk": self._networks["passwords"][name]
            },
        }

    def _reach(self, state, connectivity):
        """Changes the state and the connectivity, with one signal for each."""
        for name, value in (("State", state), ("Connectivity", connectivity)):
            self._call("Change", "ssa{sv}", MANAGER, SERVICE, {name: dbus.UInt32(value)})

    def _with_undo(self, key, value, usual):
        self._script(key, value)
        self._undo.append(lambda: self._script(key, usual))

    def _script(self, key, value):
        self._call("Script", "sv", key, value)

    def _call(self, method, signature, *arguments):
        return self._bus.call_blocking(
            SERVICE, ROOT, MOCK, method, signature, arguments, timeout=PATIENCE_SECONDS
        )

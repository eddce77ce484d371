"""A NetworkManager whose radios change, as a template for python-dbusmock.

The objects of the stock template never change. This one adds the behaviour that a Wi-Fi client
meets: scans take time, connections pass through the states of a device and succeed or fail,
profiles are temporary until they are saved, and secrets are given or refused.

    python3 -m dbusmock --template Tests/World/Daemons/networkmanager_mock.py

A test controls it through the methods of org.freedesktop.DBus.Mock at /org/freedesktop: AddRadio,
AddNetwork, AddProfile, JoinNetwork and Script, which decides what happens next; see DEFAULTS.
"""

import itertools
import time
import uuid

import dbus
import dbus.service
import dbusmock
from dbusmock import MOCK_IFACE
from dbusmock.templates import networkmanager as stock
from gi.repository import GLib

BUS_NAME = stock.BUS_NAME
MAIN_OBJ = stock.MAIN_OBJ
SYSTEM_BUS = stock.SYSTEM_BUS
IS_OBJECT_MANAGER = stock.IS_OBJECT_MANAGER

# dbusmock finds the methods of a template among its global names.
globals().update({name: value for name, value in vars(stock).items()
                  if hasattr(value, "_dbus_interface")})

ROOT = "/org/freedesktop/NetworkManager"
NOWHERE = dbus.ObjectPath("/")
SECURITY = "802-11-wireless-security"
SECRETS = ("psk", "wep-key0")
PERMISSION = "org.freedesktop.NetworkManager.settings.modify."

# The values that Script can change. A negative time in milliseconds means never.
DEFAULTS = {
    "objects-ms": 0,  # until the list of all objects is sent, which is not renewed meanwhile
    "join": "ok",  # or a key of WALKS or of JOIN_REFUSALS
    "join-answer-ms": 0,  # until a join may begin, for example while an administrator is asked
    "step-ms": 20,  # between two states of a device
    "last-word": "device",  # which of them reports a failure first: the device or the connection
    "scan": "ok",  # or a key of SCAN_REFUSALS
    "scan-answer-ms": 0,
    "scan-ms": 60,  # until the radio has scanned
    "secrets": "ok",  # or a key of SECRET_REFUSALS, or "bytes" for bytes that are no text
    "secrets-ms": 0,
    "update": "ok",  # or "denied"
    "save": "ok",  # or "denied"
    "modify-own": "yes",  # or "auth" or "no"
    "modify-system": "yes",
}

# The states of the device through which one connection passes, with their reasons.
WALKS = {
    "ok": [(40, 0), (50, 0), (70, 0), (80, 0), (90, 0), (100, 0)],
    "wrong-password": [(40, 0), (50, 0), (120, 7)],
    "agent-prompt": [(40, 0), (50, 0), (60, 8)],
    "no-address": [(40, 0), (50, 0), (70, 0), (120, 5)],
    "gone": [(40, 0), (50, 0), (120, 53)],
    "association-timeout": [(40, 0), (50, 0), (120, 11)],
    "taken-down": [(40, 0), (50, 0), (110, 39)],
    "odd": [(40, 0), (120, 36)],
    "hang": [(40, 0), (50, 0)],
}

# The reason that a failed connection reports, by the reason of the device.
ACTIVE_REASONS = {5: 5, 7: 9, 11: 6}

NM = "org.freedesktop.NetworkManager"
JOIN_REFUSALS = {
    "denied": (f"{NM}.Settings.PermissionDenied", "Insufficient privileges"),
    "bad-password": (f"{NM}.Settings.Connection.InvalidProperty",
                     f"{SECURITY}.psk: property is invalid"),
    "quoting": (f"{NM}.ConnectionActivationFailed", "cannot use '{psk}'"),
}
SCAN_REFUSALS = {
    "unavailable": (f"{NM}.Device.NotAllowed", "Scanning not allowed while unavailable"),
    "denied": (f"{NM}.Device.PermissionDenied", "Not authorized to control networking"),
    "odd": (f"{NM}.Failed", "The radio is on fire"),
}
SECRET_REFUSALS = {
    "denied": (f"{NM}.Settings.PermissionDenied", "Insufficient privileges"),
    "cancelled": (f"{NM}.AgentManager.UserCanceled", "User canceled the secrets request"),
    "none": (f"{NM}.AgentManager.NoSecrets", "No agents were available for this request."),
}

script = dict(DEFAULTS)
# The delayed actions, by their source in the main loop.
waiting = {}
numbers = itertools.count(1)


def load(mock, parameters):
    stock.load(mock, parameters)
    script.update(DEFAULTS)
    manager = dbusmock.get_object(stock.MANAGER_OBJ)
    manager.AddProperties(stock.MANAGER_IFACE,
                          {"PrimaryConnection": NOWHERE, "ActivatingConnection": NOWHERE})
    serve(manager, AddAndActivateConnection2)
    serve(mock, GetManagedObjects)
    manager.AddMethod(stock.MANAGER_IFACE, "DeactivateConnection", "o", "", deactivate)
    manager.AddMethod(stock.MANAGER_IFACE, "GetPermissions", "", "a{ss}", permissions)


def serve(target, method):
    """Gives one object a method that may answer later. AddMethod cannot add such a method."""
    target.methods.setdefault(method._dbus_interface, {})[method.__name__] = (
        method._dbus_in_signature, method._dbus_out_signature, "", method)


def refusal(reason, **values):
    name, text = reason
    return dbus.exceptions.DBusException(text.format(**values), name=name)


def after(milliseconds, action):
    """Runs the action once after that time: at once if it is zero, and never if it is negative."""
    def act():
        del waiting[source]
        action()
        return False

    if milliseconds == 0:
        action()
    elif milliseconds > 0:
        source = GLib.timeout_add(milliseconds, act)
        waiting[source] = action


def new_path(folder):
    """A path that no object ever had: the service does not use one twice."""
    return f"{ROOT}/{folder}/{next(numbers)}"


def change(path, interface, values):
    """Changes properties as the service does, with one signal for all of them."""
    target = dbusmock.get_object(path)
    target.props[interface].update(values)
    target.EmitSignal(dbus.PROPERTIES_IFACE, "PropertiesChanged", "sa{sv}as",
                      [interface, dbus.Dictionary(values, signature="sv"),
                       dbus.Array([], signature="s")])


def value(path, interface, name):
    return dbusmock.get_object(path).props[interface][name]


def exists(path):
    return path in dbusmock.get_objects()


def remove(path):
    target = dbusmock.get_object(path)
    dbusmock.get_object(MAIN_OBJ).EmitSignal(
        dbusmock.mockobject.OBJECT_MANAGER_IFACE, "InterfacesRemoved", "oas",
        [dbus.ObjectPath(path), dbus.Array(target.props.keys(), signature="s")])
    dbusmock.get_object(MAIN_OBJ).RemoveObject(path)


# --- radios and what they hear


@dbus.service.method(MOCK_IFACE, in_signature="s", out_signature="s")
def AddRadio(self, name):
    """Adds a radio that is ready and not connected. Returns its path."""
    path = self.AddWiFiDevice(name, name, stock.DeviceState.DISCONNECTED)
    radio = dbusmock.get_object(path)
    serve(radio, RequestScan)
    radio.AddProperties(stock.WIRELESS_DEVICE_IFACE,
                        {"ActiveAccessPoint": NOWHERE, "LastScan": dbus.Int64(-1)})
    self.object_manager_emit_added(path)
    return path


@dbus.service.method(MOCK_IFACE, in_signature="s")
def RemoveRadio(_self, radio):
    remove(radio)


@dbus.service.method(MOCK_IFACE, in_signature="sayyuuu", out_signature="s")
def AddNetwork(self, radio, ssid, percent, flags, wpa_flags, rsn_flags):
    """Adds an access point in the reach of the radio. Returns its path."""
    path = new_path("AccessPoint")
    self.AddObject(path, stock.ACCESS_POINT_IFACE,
                   {"Ssid": dbus.ByteArray(bytes(ssid)), "Strength": dbus.Byte(percent),
                    "Flags": dbus.UInt32(flags), "WpaFlags": dbus.UInt32(wpa_flags),
                    "RsnFlags": dbus.UInt32(rsn_flags), "Frequency": dbus.UInt32(5180),
                    "HwAddress": "00:11:22:33:44:55", "MaxBitrate": dbus.UInt32(540000),
                    "Mode": dbus.UInt32(2), "LastSeen": dbus.Int32(1)}, [])
    self.object_manager_emit_added(path)
    heard = [*value(radio, stock.WIRELESS_DEVICE_IFACE, "AccessPoints"), dbus.ObjectPath(path)]
    change(radio, stock.WIRELESS_DEVICE_IFACE, {"AccessPoints": dbus.Array(heard, signature="o")})
    return path


@dbus.service.method(MOCK_IFACE, in_signature="ss")
def RemoveNetwork(_self, radio, network):
    heard = [path for path in value(radio, stock.WIRELESS_DEVICE_IFACE, "AccessPoints")
             if path != network]
    change(radio, stock.WIRELESS_DEVICE_IFACE, {"AccessPoints": dbus.Array(heard, signature="o")})
    remove(network)


@dbus.service.method(MOCK_IFACE, in_signature="ssa{sv}")
def Change(_self, path, interface, values):
    """Changes properties of any object, with their signal."""
    change(path, interface, values)


@dbus.service.method(MOCK_IFACE, in_signature="ss")
def JoinNetwork(_self, radio, network):
    """Connects the radio to the network at once, without the states in between, by a new
    profile."""
    profile = add_profile({"connection": {"id": "joined", "type": "802-11-wireless"},
                           "802-11-wireless": {
                               "ssid": value(network, stock.ACCESS_POINT_IFACE, "Ssid")}})
    active = add_active(profile, radio, network)
    arrive(active, radio, network)


@dbus.service.method(MOCK_IFACE, in_signature="sv")
def Script(_self, key, what):
    """Decides how the service behaves from now on."""
    if key not in DEFAULTS:
        raise dbus.exceptions.DBusException(f"nothing is scripted by {key}")
    script[str(key)] = type(DEFAULTS[key])(what)


@dbus.service.method(MOCK_IFACE, out_signature="u")
def CountWaiting(_self):
    """The number of delayed actions."""
    return len(waiting)


@dbus.service.method(MOCK_IFACE)
def Hurry(_self):
    """Runs all delayed actions now."""
    while waiting:
        source, action = waiting.popitem()
        GLib.source_remove(source)
        action()


@dbus.service.method(MOCK_IFACE)
def Clear(_self):
    """Removes everything that was added, and resets the script."""
    script.update(DEFAULTS)
    while waiting:
        GLib.source_remove(waiting.popitem()[0])
    dbusmock.get_object(stock.MANAGER_OBJ).ClearCalls()
    for folder in ("ActiveConnection", "Settings", "Devices", "AccessPoint"):
        for path in [path for path in dbusmock.get_objects() if f"{ROOT}/{folder}/" in path]:
            remove(path)
    settings = dbusmock.get_object(stock.SETTINGS_OBJ)
    settings.props[stock.SETTINGS_IFACE]["Connections"] = dbus.Array([], signature="o")
    change(stock.MANAGER_OBJ, stock.MANAGER_IFACE,
           {"PrimaryConnection": NOWHERE, "WirelessEnabled": True,
            "WirelessHardwareEnabled": True,
            "ActiveConnections": dbus.Array([], signature="o")})


@dbus.service.method(dbusmock.OBJECT_MANAGER_IFACE, out_signature="a{oa{sa{sv}}}",
                     async_callbacks=("reply", "fail"))
def GetManagedObjects(self, reply, fail):
    described = {
        dbus.ObjectPath(path): {
            interface: dict(values)
            for interface, values in dbusmock.get_object(path).props.items()
        }
        for path in dbusmock.get_objects() if path.startswith(f"{self.path}/")
    }
    after(script["objects-ms"], lambda: reply(described))


@dbus.service.method(stock.WIRELESS_DEVICE_IFACE, in_signature="a{sv}",
                     async_callbacks=("reply", "fail"))
def RequestScan(self, _options, reply, fail):
    def listened():
        if exists(self.path):
            now = dbus.Int64(time.clock_gettime(time.CLOCK_BOOTTIME) * 1000)
            change(self.path, stock.WIRELESS_DEVICE_IFACE, {"LastScan": now})

    def answer():
        if script["scan"] in SCAN_REFUSALS:
            fail(refusal(SCAN_REFUSALS[script["scan"]]))
        else:
            reply()
            after(script["scan-ms"], listened)

    after(script["scan-answer-ms"], answer)


# --- connections


def set_device_state(radio, state, reason):
    before = value(radio, stock.DEVICE_IFACE, "State")
    pair = dbus.Struct((dbus.UInt32(state), dbus.UInt32(reason)), signature="uu")
    change(radio, stock.DEVICE_IFACE, {"State": dbus.UInt32(state), "StateReason": pair})
    dbusmock.get_object(radio).EmitSignal(
        stock.DEVICE_IFACE, "StateChanged", "uuu",
        [dbus.UInt32(state), before, dbus.UInt32(reason)])


def set_active_state(active, state, reason):
    change(active, stock.ACTIVE_CONNECTION_IFACE, {"State": dbus.UInt32(state)})
    dbusmock.get_object(active).EmitSignal(
        stock.ACTIVE_CONNECTION_IFACE, "StateChanged", "uu",
        [dbus.UInt32(state), dbus.UInt32(reason)])


def add_active(profile, radio, network):
    """Gives the radio a new connection, and ends the one that it had."""
    current = value(radio, stock.DEVICE_IFACE, "ActiveConnection")
    if current != NOWHERE:
        end_active(current, 60, 2)
    path = new_path("ActiveConnection")
    connection = dbusmock.get_object(profile).settings["connection"]
    manager = dbusmock.get_object(stock.MANAGER_OBJ)
    manager.AddObject(path, stock.ACTIVE_CONNECTION_IFACE,
                      {"Devices": dbus.Array([dbus.ObjectPath(radio)], signature="o"),
                       "Connection": dbus.ObjectPath(profile), "Id": connection["id"],
                       "SpecificObject": dbus.ObjectPath(network), "Uuid": connection["uuid"],
                       "Type": "802-11-wireless", "State": dbus.UInt32(1)}, [])
    manager.object_manager_emit_added(path)
    change(radio, stock.DEVICE_IFACE, {"ActiveConnection": dbus.ObjectPath(path)})
    return path


def arrive(active, radio, network):
    set_device_state(radio, stock.DeviceState.ACTIVATED, 0)
    change(radio, stock.WIRELESS_DEVICE_IFACE, {"ActiveAccessPoint": dbus.ObjectPath(network)})
    change(stock.MANAGER_OBJ, stock.MANAGER_IFACE, {"PrimaryConnection": dbus.ObjectPath(active)})
    set_active_state(active, 2, 0)


def fail_active(active, radio, reason):
    """Makes the radio and its connection fail."""
    own_reason = ACTIVE_REASONS.get(reason, 0)
    if script["last-word"] == "device":
        set_device_state(radio, stock.DeviceState.FAILED, reason)
        set_device_state(radio, stock.DeviceState.DISCONNECTED, 0)
        end_active(active, 0, own_reason)
    else:
        end_active(active, 0, own_reason)
        set_device_state(radio, stock.DeviceState.FAILED, reason)
        set_device_state(radio, stock.DeviceState.DISCONNECTED, 0)


def end_active(active, device_reason, active_reason):
    """Ends the connection of a radio, and removes its profile if that is temporary."""
    radio = value(active, stock.ACTIVE_CONNECTION_IFACE, "Devices")[0]
    profile = value(active, stock.ACTIVE_CONNECTION_IFACE, "Connection")
    if device_reason:
        set_device_state(radio, stock.DeviceState.DEACTIVATING, device_reason)
        set_device_state(radio, stock.DeviceState.DISCONNECTED, device_reason)
    change(radio, stock.DEVICE_IFACE, {"ActiveConnection": NOWHERE})
    change(radio, stock.WIRELESS_DEVICE_IFACE, {"ActiveAccessPoint": NOWHERE})
    set_active_state(active, 4, active_reason)
    remove(active)
    if exists(profile) and dbusmock.get_object(profile).is_temporary:
        drop_profile(profile)


def walk(active, radio, network, states):
    """Takes the radio through the states, one a step, as long as its connection exists."""
    def step():
        if not states or not exists(active):
            return False
        state, reason = states.pop(0)
        if state == stock.DeviceState.ACTIVATED:
            arrive(active, radio, network)
        elif state == stock.DeviceState.FAILED:
            fail_active(active, radio, reason)
        elif state == stock.DeviceState.DEACTIVATING:
            end_active(active, reason, 2)
        else:
            set_device_state(radio, state, reason)
        return True

    GLib.timeout_add(script["step-ms"], step)


@dbus.service.method(stock.MANAGER_IFACE, in_signature="a{sa{sv}}ooa{sv}",
                     out_signature="ooa{sv}", async_callbacks=("reply", "fail"))
def AddAndActivateConnection2(_self, settings, radio, network, options, reply, fail):
    def answer():
        outcome = script["join"]
        if outcome in JOIN_REFUSALS:
            psk = settings.get(SECURITY, {}).get("psk", "")
            fail(refusal(JOIN_REFUSALS[outcome], psk=psk))
            return
        profile = add_profile(settings, is_temporary=options.get("persist") == "volatile")
        active = add_active(profile, radio, network)
        if outcome == "at-once":
            arrive(active, radio, network)
        elif outcome == "over-at-once":
            fail_active(active, radio, 53)
        else:
            walk(active, radio, network, list(WALKS[outcome]))
        reply(dbus.ObjectPath(profile), dbus.ObjectPath(active),
              dbus.Dictionary({}, signature="sv"))

    after(script["join-answer-ms"], answer)


def deactivate(_self, active):
    if exists(active):
        end_active(active, 39, 2)


def permissions(_self):
    return {PERMISSION + "own": script["modify-own"],
            PERMISSION + "system": script["modify-system"]}


# --- profiles


def add_profile(settings, is_temporary=False):
    path = new_path("Settings")
    connection = settings["connection"]
    connection.setdefault("uuid", str(uuid.uuid4()))
    connection.setdefault("id", f"Wi-Fi {path.rpartition('/')[2]}")
    manager = dbusmock.get_object(stock.MANAGER_OBJ)
    manager.AddObject(path, stock.CSETTINGS_IFACE, {"Unsaved": is_temporary}, [])
    profile = dbusmock.get_object(path)
    profile.settings = settings
    profile.is_temporary = is_temporary
    for name, inputs, outputs, method in (
            ("GetSettings", "", "a{sa{sv}}", settings_without_secrets),
            ("Update2", "a{sa{sv}}ua{sv}", "a{sv}", update),
            ("Save", "", "", save),
            ("Delete", "", "", lambda self: drop_profile(self.path))):
        profile.AddMethod(stock.CSETTINGS_IFACE, name, inputs, outputs, method)
    serve(profile, GetSecrets)
    set_profiles([*profiles(), dbus.ObjectPath(path)])
    manager.object_manager_emit_added(path)
    return path


def drop_profile(path):
    set_profiles([other for other in profiles() if other != path])
    remove(path)


def profiles():
    return value(stock.SETTINGS_OBJ, stock.SETTINGS_IFACE, "Connections")


def set_profiles(paths):
    change(stock.SETTINGS_OBJ, stock.SETTINGS_IFACE,
           {"Connections": dbus.Array(paths, signature="o")})


def without_secrets(settings):
    return {group: dbus.Dictionary({key: what for key, what in values.items()
                                    if key not in SECRETS}, signature="sv")
            for group, values in settings.items()}


def settings_without_secrets(profile):
    return dbus.Dictionary(without_secrets(profile.settings), signature="sa{sv}")


def update(profile, settings, _flags, _options):
    if script["update"] == "denied":
        raise refusal(JOIN_REFUSALS["denied"])
    profile.settings = settings
    return dbus.Dictionary({}, signature="sv")


def save(profile):
    if script["save"] == "denied":
        raise refusal(JOIN_REFUSALS["denied"])
    profile.is_temporary = False
    change(profile.path, stock.CSETTINGS_IFACE, {"Unsaved": False})


@dbus.service.method(MOCK_IFACE, in_signature="a{sa{sv}}", out_signature="s")
def AddProfile(_self, settings):
    """Adds a profile of the user. Returns its path."""
    return add_profile(settings)


@dbus.service.method(MOCK_IFACE, out_signature="aa{sa{sv}}")
def Profiles(_self):
    """The saved profiles, with their secrets."""
    kept = [dbusmock.get_object(path) for path in profiles()]
    return dbus.Array([profile.settings for profile in kept if not profile.is_temporary],
                      signature="a{sa{sv}}")


@dbus.service.method(MOCK_IFACE, out_signature="u")
def CountProfiles(_self):
    """The number of profiles, with the temporary ones."""
    return len(profiles())


@dbus.service.method(stock.CSETTINGS_IFACE, in_signature="s", out_signature="a{sa{sv}}",
                     async_callbacks=("reply", "fail"))
def GetSecrets(self, group, reply, fail):
    def answer():
        outcome = script["secrets"]
        if outcome in SECRET_REFUSALS:
            fail(refusal(SECRET_REFUSALS[outcome]))
        elif group not in self.settings:
            fail(dbus.exceptions.DBusException(
                f"no {group}", name=f"{stock.CSETTINGS_IFACE}.SettingNotFound"))
        else:
            secrets = {key: what for key, what in self.settings[group].items() if key in SECRETS}
            if outcome == "bytes":
                secrets = {"psk": dbus.ByteArray(b"\xff\xfe12345678")}
            reply({"connection": dbus.Dictionary({}, signature="sv"),
                   group: dbus.Dictionary(secrets, signature="sv")})

    after(script["secrets-ms"], answer)

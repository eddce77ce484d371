"""Runs a command with the real NetworkManager, which sees nothing of the machine.

    real_network_manager.py COMMAND [ARGUMENTS...]

The daemon has a network of its own: a cable with two ends, and no radio. Its files lie in temporary
folders. The command finds it on a private bus, by the usual variable. Needs root and namespaces.
Without them, it prints a reason and ends with status 77.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import uuid

from patience import NotSeen, wait_for
from private_bus import start_bus
from processes import ProcessGroup

SKIPPED = 77
INSIDE = "QUORVEL_INSIDE_OWN_NETWORK"
OWN_FOLDERS = ("/etc/NetworkManager", "/var/lib/NetworkManager", "/run",
               "/usr/lib/NetworkManager/conf.d")

# Without the daemon that grants permissions, root has them all.
SETTINGS = "[main]\nplugins=keyfile\nauth-polkit=root-only\nno-auto-default=*\n"
# When each profile of one network was last used. The daemon takes this only from its own files.
USED_OFTEN = (100, 300, 0, 200)
PROFILE = """[connection]
id=used {time}
uuid={uuid}
type=wifi
autoconnect=false
[wifi]
ssid=Used often
[wifi-security]
key-mgmt=wpa-psk
psk=password of {time}
"""


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


def enter():
    """Restarts this program with a network and a view of the files of its own."""
    if os.geteuid() != 0:
        skip("needs root, for a network of its own")
    for program in ("NetworkManager", "ip", "unshare", "dbus-daemon"):
        if not shutil.which(program, path=f"{os.environ['PATH']}:/usr/sbin:/sbin"):
            skip(f"there is no {program}")
    if subprocess.run(["unshare", "-n", "-m", "true"], stderr=subprocess.DEVNULL).returncode:
        skip("the kernel gives no network of its own")
    os.environ[INSIDE] = "yes"
    os.environ["PATH"] += ":/usr/sbin:/sbin"
    os.execvp("unshare", ["unshare", "-n", "-m", sys.executable, "-B", *sys.argv])


def furnish():
    """Sets up an empty machine: a cable, and folders that only this process sees."""
    for folder in OWN_FOLDERS:
        if pathlib.Path(folder).is_dir():
            subprocess.run(["mount", "-t", "tmpfs", "none", folder], check=True)
    subprocess.run(["mount", "-t", "sysfs", "-o", "ro", "none", "/sys"], check=True)
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    subprocess.run(["ip", "link", "add", "cable0", "type", "veth", "peer", "name", "cable1"],
                   check=True)
    subprocess.run(["ip", "link", "set", "cable1", "up"], check=True)
    pathlib.Path("/etc/NetworkManager/NetworkManager.conf").write_text(SETTINGS)
    furnish_profiles()


def furnish_profiles():
    folder = pathlib.Path("/etc/NetworkManager/system-connections")
    folder.mkdir()
    timestamps = ["[timestamps]"]
    for used in USED_OFTEN:
        name = str(uuid.uuid4())
        file = folder / f"{name}.nmconnection"
        file.touch(mode=0o600)
        file.write_text(PROFILE.format(uuid=name, time=used))
        if used:
            timestamps.append(f"{name}={used}")
    pathlib.Path("/var/lib/NetworkManager/timestamps").write_text("\n".join(timestamps) + "\n")


def is_serving(address):
    question = ["dbus-send", f"--bus={address}", "--print-reply", "--reply-timeout=1000",
                "--dest=org.freedesktop.NetworkManager", "/org/freedesktop/NetworkManager",
                "org.freedesktop.NetworkManager.GetDevices"]
    return subprocess.run(question, capture_output=True).returncode == 0


def run_beside(command, folder):
    processes = ProcessGroup(folder)
    try:
        address = start_bus(processes, "bus", folder, os.environ)
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = address
        daemon = processes.start("daemon", ["NetworkManager", "--no-daemon"], os.environ)
        wait_for(lambda: not daemon.is_running() or is_serving(address), "NetworkManager")
        if not daemon.is_running():
            raise NotSeen("NetworkManager has ended")
        return subprocess.run(command).returncode
    except NotSeen as problem:
        sys.exit(f"{problem}\n{processes.logs()}")
    finally:
        processes.end_all()


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    if INSIDE not in os.environ:
        enter()
    furnish()
    with tempfile.TemporaryDirectory() as folder:
        sys.exit(run_beside(sys.argv[1:], pathlib.Path(folder)))


if __name__ == "__main__":
    main()

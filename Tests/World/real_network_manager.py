"""Runs a command beside the real NetworkManager, which sees nothing of the machine.

    real_network_manager.py COMMAND [ARGUMENTS...]

The daemon has a network of its own, with a cable between two ends and no radio, and its files lie
in folders that are gone afterwards. The command finds it on a private bus, by the usual variable.
Needs root; ends with status 77 and a reason where that cannot be had.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import uuid

SKIPPED = 77
START_SECONDS = 20
INSIDE = "QUORVEL_INSIDE_OWN_NETWORK"
OWN_FOLDERS = ("/etc/NetworkManager", "/var/lib/NetworkManager", "/run",
               "/usr/lib/NetworkManager/conf.d")

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path={path}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
# Without the daemon that would be asked for permissions, root has them all.
SETTINGS = "[main]\nplugins=keyfile\nauth-polkit=root-only\nno-auto-default=*\n"
# Profiles of one network, and when each was last used; the daemon believes only its own files.
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
    """Starts this program anew in a network and a view of the files of its own."""
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
    """An empty machine: a cable, and folders that only this process sees."""
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
    socket = folder / "bus"
    address = f"unix:path={socket}"
    (folder / "bus.conf").write_text(BUS.format(path=socket))
    os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = address
    with open(folder / "log", "w") as log:
        bus = subprocess.Popen(["dbus-daemon", f"--config-file={folder}/bus.conf", "--nofork"],
                               stderr=log)
        while not socket.exists() and bus.poll() is None:
            time.sleep(0.02)
        daemon = subprocess.Popen(["NetworkManager", "--no-daemon"], stdout=log, stderr=log)
        try:
            deadline = time.monotonic() + START_SECONDS
            while not is_serving(address):
                if time.monotonic() > deadline or daemon.poll() is not None:
                    sys.exit("NetworkManager does not come up:\n" + (folder / "log").read_text())
                time.sleep(0.05)
            return subprocess.run(command).returncode
        finally:
            for process in (daemon, bus):
                process.kill()
                process.wait()


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

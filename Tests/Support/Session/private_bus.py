"""A message bus for one test, on which every client may do everything."""

import pathlib

CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
INSTALLED_SERVICES = pathlib.Path("/usr/share/dbus-1/services")


def services_folder(folder, name):
    """The folder of the service files for the bus of that name."""
    return folder / name / "services"


def start_bus(processes, name, folder, environment, services=()):
    """Starts a bus, and returns its address. Calls on it can start only the given services of the
    machine."""
    own = folder / name
    own_services = services_folder(folder, name)
    own_services.mkdir(parents=True, mode=0o700)
    for service in services:
        installed = INSTALLED_SERVICES / f"{service}.service"
        (own_services / installed.name).symlink_to(installed)
    configuration = own / "bus.conf"
    configuration.write_text(CONFIGURATION.format(folder=own))
    return processes.start_announcing(
        name, lambda end: ["dbus-daemon", "--nofork", f"--config-file={configuration}"]
        + [f"--print-address={end}"],
        environment,
    )

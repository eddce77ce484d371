"""A system bus of one's own, on which everybody may do everything."""

import os
import time

CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
  </policy>
</busconfig>
"""
START_SECONDS = 5
POLL_SECONDS = 0.01


def start_system_bus(processes, folder):
    """Starts the bus among the processes and returns its address."""
    socket = folder / "system_bus"
    configuration = folder / "system_bus.conf"
    configuration.write_text(CONFIGURATION.format(socket=socket))
    command = ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"]
    bus = processes.start("system_bus", command, dict(os.environ))
    deadline = time.monotonic() + START_SECONDS
    while not socket.exists():
        if time.monotonic() > deadline or not bus.is_running():
            raise RuntimeError(f"the bus did not start: {bus.output()}")
        time.sleep(POLL_SECONDS)
    return f"unix:path={socket}"

"""A program in the district that calls every service, and beats when told to."""

import os

from patience import wait_for

CALLS = ("position", "cafés", "weather", "scan", "password")
# Needs no password.
OPEN_NETWORK = "Chợ Sớm Free"


class Heartbeat:
    """A context manager. The program ends with it, or before it if it fails."""

    def __init__(self, world, program):
        self._world = world
        reading, self._orders = os.pipe()
        self._process = world.start("heartbeat", [str(program)], stdin=reading)
        os.close(reading)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._orders)
        status = self._process.status()
        assert status == 0, f"the heartbeat ended with {status}\n{self._process.output()}"

    def said(self):
        return self._process.output().splitlines()

    def ask_all(self):
        """Calls every service. Returns once each has been asked."""
        world = self._world
        self._tell("ask")
        self._wait_for(lambda: world.location.requests and world.places.requests
                       and world.weather.requests and world.wifi.count_waiting() == 2,
                       "every service is asked")

    def join(self):
        """Joins a network. Returns once the network service has been asked."""
        self._tell(f"join {OPEN_NETWORK}")
        self._wait_for(self._world.wifi.count_waiting, "the network service is asked")

    def beat(self):
        """Asks for a beat. Returns once the main loop has turned."""
        before = self.said().count("beat")
        self._tell("beat")
        self._wait_for(lambda: self.said().count("beat") > before, "the main loop turns")

    def wait_for_end(self, calls):
        self._wait_for(lambda: all(f"ended: {call}" in self.said() for call in calls),
                       "every call ends")

    def _tell(self, order):
        os.write(self._orders, f"{order}\n".encode())

    def _wait_for(self, fact, what):
        wait_for(fact, what, self._process.output)

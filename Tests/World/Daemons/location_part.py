"""The district's location service: the real daemon. It gets its position from a local endpoint."""

from geoclue_world import EXACT_LEVEL, GeoClueWorld

NOTHING_LEVEL = 0
CITY_LEVEL = 4


class LocationPart:
    def __init__(self, address, district):
        self._district = district
        self._world = GeoClueWorld(address)
        self._undo = []

    def start(self):
        self._world.__enter__()
        self._stand_still()

    def stop(self):
        self._world.close()

    def logs(self):
        return self._world.logs()

    @property
    def requests(self):
        """How often the daemon has asked for its position."""
        return self._world.endpoint.requests

    @property
    def answers(self):
        """How often the daemon has got an answer or an error."""
        return self._world.endpoint.answers

    def slow(self, seconds):
        """Delays every position by so many seconds."""
        self._world.endpoint.slow(seconds)

    def fail(self, how):
        """An HTTP status of at least 400 for the endpoint, or one of the words below."""
        world = self._world
        if isinstance(how, int) and how >= 400:
            world.fail(how)
        elif how == "denied":
            self._with_undo(world.set_agent_level, NOTHING_LEVEL, EXACT_LEVEL)
        elif how == "blurred":
            self._with_undo(world.set_agent_level, CITY_LEVEL, EXACT_LEVEL)
        elif how == "disallowed":
            world.disallow()
            self._undo.append(world.allow)
        elif how == "no agent":
            world.stop_agent()
            self._undo.append(world.start_agent)
        elif how == "silence":
            world.freeze_daemon()
            self._undo.append(world.thaw_daemon)
        else:
            raise ValueError(f"no such failure: {how}")

    def vanish(self):
        self._world.stop_daemon()
        self._undo.append(self._world.start_daemon)

    def recover(self):
        """Undoes every failure. A daemon that had vanished comes back."""
        while self._undo:
            self._undo.pop()()
        self._stand_still()

    come_back = recover

    def _with_undo(self, action, value, usual):
        action(value)
        self._undo.append(lambda: action(usual))

    def _stand_still(self):
        self._world.endpoint.slow(0)
        self._world.stand_at(*self._district.position, self._district.accuracy)

"""The main thread goes on while every service is five seconds late."""

import os
import unittest

from world import World

HEARTBEAT = os.environ["QUORVEL_HEARTBEAT"]
DELAY_SECONDS = 5
LIMIT_SECONDS = 120


class HeartbeatTest(unittest.TestCase):
    def test_no_service_stops_it(self):
        with World() as world:
            for part in (world.location, world.places, world.weather, world.wifi):
                part.slow(DELAY_SECONDS)
            process = world.start("heartbeat", [HEARTBEAT])
            self.assertEqual(process.status_within(LIMIT_SECONDS), 0, process.output())
            print(process.output())


if __name__ == "__main__":
    unittest.main()

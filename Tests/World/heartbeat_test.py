"""The main loop goes on while every service is slow."""

import os
import unittest

from heartbeat import CALLS, Heartbeat
from patience import PATIENCE_SECONDS
from world import World

HEARTBEAT = os.environ["QUORVEL_HEARTBEAT"]


class HeartbeatTest(unittest.TestCase):
    """The answers come only after the beat: with a blocking call, neither would come."""

    def setUp(self):
        self.world = self.enterContext(World())
        self.heart = self.enterContext(Heartbeat(self.world, HEARTBEAT))

    def test_it_turns_while_every_service_is_slow(self):
        for part in (self.world.location, self.world.places, self.world.weather, self.world.wifi):
            part.slow(PATIENCE_SECONDS)
        self.heart.ask_all()
        self.assert_beats_and_ends(CALLS)

    def test_it_turns_while_a_join_is_slow(self):
        self.world.wifi.slow(PATIENCE_SECONDS)
        self.heart.join()
        self.assert_beats_and_ends(["join"])

    def assert_beats_and_ends(self, calls):
        self.heart.beat()
        self.assertEqual(self.heart.said(), ["beat"])
        self.world.recover()
        self.heart.wait_for_end(calls)


if __name__ == "__main__":
    unittest.main()

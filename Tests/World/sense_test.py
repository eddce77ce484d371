"""The program senses the district, and reports every service that misbehaves."""

import os
import re
import unittest

from district import District
from patience import PATIENCE_SECONDS, wait_for
from world import World

SENSE = os.environ["QUORVEL_SENSE"]
RADIUS = 100
HEADS = ("authorization", "position", "cafés", "weather", "network", "signal", "password", "nearby")


class SenseCase(unittest.TestCase):
    def setUp(self):
        self.world = self.enterContext(World())

    def sense(self, *arguments, status=0, **options):
        """Runs the program. Returns each head that it printed, with the text behind it and the
        lines below."""
        return self.printed(self.world.start("sense", [SENSE, *arguments], **options), status)

    def printed(self, process, status=0):
        ended = process.status()
        self.text = process.output()
        # The next start writes to the same file.
        os.truncate(process.log, 0)
        self.assertIn(ended, status if isinstance(status, tuple) else (status,), self.text)
        return re.findall(r"^(\S+): (.*(?:\n  .*)*)", self.text, re.MULTILINE)

    def sense_one(self, head, **options):
        return self.one_of(self.sense(**options), head)

    def one_of(self, printed, head):
        """Returns the text of that head. Fails if another head reports a failure."""
        found = dict(printed)
        failed = [name for name, text in found.items() if text.startswith("failed")]
        self.assertIn(failed, ([], [head]), self.text)
        return found.get(head)


class DistrictTest(SenseCase):
    def test_it_senses_the_whole_district(self):
        found = self.sense()
        self.assertEqual(tuple(head for head, _ in found), HEADS)
        text = dict(found)
        self.assertEqual(text["authorization"], "3")
        self.assertEqual(text["position"], "10.7769, 106.7009, within 25 m")
        self.assertEqual(text["weather"], "31.4 °C, feels like 36.2 °C, code 3, by day")
        self.assertEqual(text["network"], "Cà phê Gió Sông 5G")
        self.assertEqual(text["signal"], "-42 dBm, Strong")
        self.assertEqual(text["password"], "not remembered")
        self.assertEqual(text["nearby"].split("\n"), [
            "3", "  -53 dBm  Cà phê Gió Sông 5G", "  -59 dBm  Sân Trong", "  -64 dBm  Chợ Sớm Free",
        ])

    def test_the_cafes_are_those_of_the_district(self):
        district = District()
        wanted = district.cafes_within(RADIUS)
        number, *lines = dict(self.sense())["cafés"].split("\n")
        self.assertEqual(int(number), len(wanted))
        for cafe, line in zip(wanted, lines):
            meters = f"{district.distance(cafe):.2f}"
            name = cafe.name or "Unnamed"
            beginning = f"  {meters} m  {name} [{cafe.identifier}] Cafe, "
            self.assertEqual(line[:len(beginning)], beginning)
        self.assertIn("18 Đường Mưa Rào", lines[0])
        self.assertTrue(lines[2].endswith("no address"), lines[2])
        self.assertIn("Sân trong 5/2 Đường Hàng Me, Quận 1", lines[4])

    def test_the_map_is_asked_once_and_by_name(self):
        self.sense()
        request, = self.world.places.requests
        self.assertIn("Quorvel", request.agent)
        self.assertEqual(len(self.world.weather.requests), 1)
        self.assertIn("Quorvel", self.world.weather.requests[0].agent)

    def test_an_unencrypted_endpoint_is_refused(self):
        self.sense(status=2, QUORVEL_PLACES_ENDPOINT="http://maps.example/")
        self.assertIn("QUORVEL_PLACES_ENDPOINT", self.text)
        self.assertEqual(self.world.weather.requests, [])


class SlowTest(SenseCase):
    def test_it_waits_for_each_slow_service(self):
        world = self.world
        asked = {"position": (world.location, lambda: world.location.requests),
                 "cafés": (world.places, lambda: len(world.places.requests)),
                 "weather": (world.weather, lambda: len(world.weather.requests)),
                 "nearby": (world.wifi, world.wifi.count_waiting)}
        for head, (part, count) in asked.items():
            with self.subTest(head=head):
                part.slow(PATIENCE_SECONDS)
                before = count()
                process = world.start("sense", [SENSE])
                wait_for(lambda: count() > before, "the question", process.output)
                self.assertNotIn(f"{head}: ", process.output())
                self.assertTrue(process.is_running())
                part.recover()
                self.assertFalse(self.one_of(self.printed(process), head).startswith("failed"))


class FailureTest(SenseCase):
    """`each` makes a part fail in each way, and then recover."""

    def each(self, part, head, cases):
        for how, sentence in cases.items():
            with self.subTest(part=part, how=how):
                getattr(self.world, part).fail(how)
                self.assertRegex(self.sense_one(head, status=1), f"^failed: .*{sentence}")
                getattr(self.world, part).recover()
        with self.subTest(part=part, how="is well again"):
            self.assertNotIn("failed", self.sense_one(head))

    def test_a_bad_answer_of_the_map_is_a_failure(self):
        self.each("places", "cafés", dict.fromkeys(
            (429, 504, 500, 400, "html", "empty", "truncated", "huge", "nested", "remark",
             "redirects"), ".",
        ))

    def test_a_bad_answer_of_the_weather_is_a_failure(self):
        self.each("weather", "weather", {
            429: "HTTP 429", 503: "HTTP 503", **dict.fromkeys(
                ("html", "empty", "truncated", "huge", "nested", "redirects", "wrong types",
                 "null", "nan", "infinite"), ".",
            ),
        })

    def test_nonsense_places_of_the_map_are_left_out_or_refused(self):
        for how in ("wrong types", "null", "nan", "infinite"):
            with self.subTest(how=how):
                self.world.places.fail(how)
                found = dict(self.sense(status=(0, 1)))
                self.assertRegex(found["cafés"], "^(0|failed: .*)$")
                self.world.places.recover()

    def test_a_refused_location_fails_only_what_needs_it(self):
        for how, status in (("denied", "2"), ("disallowed", "1")):
            with self.subTest(how=how):
                self.world.location.fail(how)
                found = dict(self.sense(status=1))
                self.assertEqual(found["authorization"], status)
                self.assertTrue(found["position"].startswith("failed"))
                self.assertNotIn("cafés", found)
                self.assertEqual(found["network"], "Cà phê Gió Sông 5G")
                self.world.location.recover()
        self.assertFalse(dict(self.sense())["position"].startswith("failed"))

    def test_a_refused_scan_is_a_failure(self):
        self.each("wifi", "nearby", {"scan denied": ".", "scan unavailable": "."})

    def test_a_locked_keyring_fails_the_look_up_of_its_password(self):
        self.join_and_remember("Sân Trong")
        self.each("keyring", "password", {"locked": "-25308"})
        self.assertEqual(self.sense_one("password"), "remembered")

    def join_and_remember(self, network):
        reading, writing = os.pipe()
        os.write(writing, f"{self.world.district.networks['passwords'][network]}\n".encode())
        os.close(writing)
        self.assertEqual(dict(self.sense("--join", network, stdin=reading))["join"], "done")
        os.close(reading)

    def test_a_machine_without_a_radio_has_no_networks(self):
        self.world.wifi.fail("no radio")
        found = dict(self.sense())
        heads = ("network", "signal", "nearby")
        self.assertEqual([found[head] for head in heads], ["none", "none", "0"])


class AbsenceTest(SenseCase):
    def test_each_service_can_be_missing_and_come_back(self):
        for part, head in (("places", "cafés"), ("weather", "weather"), ("keyring", "password"),
                           ("location", "position")):
            with self.subTest(part=part):
                getattr(self.world, part).vanish()
                self.assertTrue(self.sense_one(head, status=1).startswith("failed"), self.text)
                getattr(self.world, part).come_back()
                self.assertFalse(self.sense_one(head).startswith("failed"), self.text)

    def test_the_network_service_can_be_missing_and_come_back(self):
        self.world.wifi.vanish()
        self.assertEqual(self.sense_one("nearby"), "0")
        self.assertIn("network: none\nsignal: none\n", self.text)
        self.world.wifi.come_back()
        self.assertEqual(dict(self.sense())["network"], "Cà phê Gió Sông 5G")


class SilenceTest(SenseCase):
    def test_a_location_that_is_never_found_ends_in_a_failure(self):
        self.world.location.fail(404)
        self.assertTrue(self.sense_one("position", status=1).startswith("failed"))

    def test_a_daemon_that_never_answers_ends_in_a_failure(self):
        for part, head in (("location", "position"), ("wifi", "nearby")):
            with self.subTest(part=part):
                getattr(self.world, part).fail("silence")
                self.assertTrue(self.sense_one(head, status=1).startswith("failed"))
                getattr(self.world, part).recover()

    def test_servers_that_never_answer_or_never_end_are_given_up(self):
        self.world.places.fail("silence")
        self.world.weather.fail("drip")
        found = dict(self.sense(status=1))
        self.assertTrue(found["cafés"].startswith("failed"))
        self.assertTrue(found["weather"].startswith("failed"))


if __name__ == "__main__":
    unittest.main()

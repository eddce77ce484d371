"""The district's two web services answer like the real ones, and misbehave when told to."""

import http.client
import json
import threading
import unittest
import urllib.error
import urllib.parse
import urllib.request

from district import District
from district_server import HUGE_BYTES, NESTED_LEVELS, DistrictServer
from open_meteo import OpenMeteo
from overpass import Overpass
from patience import PATIENCE_SECONDS, wait_for

# The number of answers of another server during which a held answer has to stay open.
ANSWERS_MEANWHILE = 20
AGENT = "Quorvel-Test/1"
QUERY = "[out:json][timeout:15];nwr[amenity=cafe](around:101,10.7769,106.7009);out tags center;"
FORECAST = {"latitude": "10.7769", "longitude": "106.7009", "current": "temperature_2m,is_day"}


class ServerCase(unittest.TestCase):
    def setUp(self):
        self.district = District()
        self.server = DistrictServer(self.service(self.district))
        self.server.start()
        self.addCleanup(self.server.stop)

    def ask(self, agent=AGENT):
        """The status and the body of the answer to the usual request."""
        request = self.request()
        request.add_header("User-Agent", agent)
        try:
            with urllib.request.urlopen(request, timeout=PATIENCE_SECONDS) as answer:
                return answer.status, answer.read()
        except urllib.error.HTTPError as error:
            with error:
                return error.status, error.read()

    def json(self):
        return json.loads(self.ask()[1])


class MapTest(ServerCase):
    service = Overpass

    def request(self, query=QUERY):
        form = urllib.parse.urlencode({"data": self.query if hasattr(self, "query") else query})
        return urllib.request.Request(self.server.endpoint, data=form.encode())

    def names(self, query):
        self.query = query
        return [element.get("tags", {}).get("name") for element in self.json()["elements"]]

    def test_it_finds_nodes_ways_and_relations_within_the_circle(self):
        found = self.json()["elements"]
        wanted = [place.identifier for kind in ("node", "way", "relation")
                  for place in self.district.places
                  if place.type == kind and place.tags["amenity"] == "cafe"
                  and place.reaches(self.district.position, 101)]
        self.assertEqual([f"{one['type']}/{one['id']}" for one in found], wanted)
        self.assertEqual(len(found), 8)

    def test_a_node_has_its_point_and_the_others_their_centre(self):
        for element in self.json()["elements"]:
            self.assertEqual("center" in element, element["type"] != "node")
            self.assertEqual("lat" in element, element["type"] == "node")

    def test_the_circle_and_the_amenity_are_read(self):
        self.assertEqual(self.names(QUERY.replace("101", "20")), ["Cà phê Gió Sông"])
        self.assertEqual(self.names(QUERY.replace("cafe", "restaurant")), ["Quán Cơm Bà Năm"])
        self.assertEqual(self.names(QUERY.replace("nwr", "rel")), ["Sân Trong – Cà phê & Sách"])
        self.assertEqual(self.names(QUERY.replace("10.7769", "-33.8688")), [])

    def test_quotes_and_blanks_make_no_difference(self):
        query = QUERY.replace("amenity=cafe", '"amenity" = "cafe"').replace(";", " ;\n")
        self.assertEqual(self.names(query), self.names(QUERY))

    def test_only_the_requested_fields_are_printed(self):
        self.query = QUERY.replace(" center", "")
        for element in self.json()["elements"]:
            self.assertEqual(set(element), {"type", "id", "tags"})

    def test_a_malformed_query_is_refused(self):
        for query in ("", "nonsense", QUERY.replace("[out:json]", ""), QUERY.replace("nwr", "nwrx"),
                      QUERY.replace("around:101", "around:x"), QUERY + "out;",
                      QUERY.replace("tags", "meta")):
            with self.subTest(query=query):
                self.query = query
                status, body = self.ask()
                self.assertEqual(status, 400)
                self.assertIn(b"parse error", body)

    def test_a_program_that_does_not_name_itself_is_refused(self):
        for agent in ("Mozilla/5.0", "", "curl/7.88", "Python-urllib/3.11"):
            with self.subTest(agent=agent):
                self.assertEqual(self.ask(agent=agent)[0], 406)

    def test_a_remark_comes_with_status_200_and_nothing_found(self):
        self.server.fail("remark")
        answer = self.json()
        self.assertEqual(answer["elements"], [])
        self.assertTrue(answer["remark"].startswith("runtime error"))

    def test_a_busy_server_sends_a_page(self):
        for status in (429, 504):
            self.server.fail(status)
            self.assertEqual(self.ask()[0], status)
            self.assertIn(b"<title>OSM3S Response</title>", self.ask()[1])


class WeatherTest(ServerCase):
    service = OpenMeteo

    def request(self):
        query = urllib.parse.urlencode(getattr(self, "query", FORECAST))
        return urllib.request.Request(f"{self.server.endpoint}/v1/forecast?{query}")

    def test_it_returns_the_requested_values(self):
        current = self.json()["current"]
        self.assertEqual(set(current), {"time", "interval", "temperature_2m", "is_day"})
        self.assertEqual(current["temperature_2m"], self.district.weather["temperature_2m"])

    def test_an_invalid_parameter_is_refused(self):
        for change in ({"latitude": "91"}, {"longitude": "-180.1"}, {"latitude": "x"},
                       {"current": "rain"}, {"current": ""}, {"extra": "1"}):
            with self.subTest(change=change):
                self.query = {**FORECAST, **change}
                status, body = self.ask()
                self.assertEqual(status, 400)
                self.assertTrue(json.loads(body)["error"])

    def test_an_error_comes_in_its_own_format(self):
        self.server.fail(429)
        status, body = self.ask()
        self.assertEqual(status, 429)
        self.assertTrue(json.loads(body)["error"])

    def test_it_makes_no_remarks(self):
        with self.assertRaises(ValueError):
            self.server.fail("remark")


class MisbehaviourTest(ServerCase):
    service = Overpass
    request = MapTest.request

    def asked(self):
        """Starts a thread that asks. Returns it once the server has the request."""
        asking = threading.Thread(target=self.ends_in_any_way)
        before = len(self.server.requests)
        asking.start()
        wait_for(lambda: len(self.server.requests) > before, "the request")
        return asking

    def ends_in_any_way(self):
        self.status = None
        try:
            self.status, _ = self.ask()
        except (OSError, http.client.HTTPException):
            pass

    def assert_ends(self, asking):
        asking.join(PATIENCE_SECONDS)
        self.assertFalse(asking.is_alive())

    def assert_held(self, asking):
        other = DistrictServer(Overpass(self.district))
        other.start()
        self.addCleanup(other.stop)
        for _ in range(ANSWERS_MEANWHILE):
            urllib.request.urlopen(
                urllib.request.Request(other.endpoint, self.request().data, {"User-Agent": AGENT}),
                timeout=PATIENCE_SECONDS,
            ).close()
        self.assertTrue(asking.is_alive())

    def test_a_slow_answer_is_right(self):
        self.server.slow(0.5)
        self.assertEqual(self.ask()[0], 200)

    def test_a_slow_answer_comes_once_it_recovers(self):
        self.server.slow(PATIENCE_SECONDS)
        asking = self.asked()
        self.assert_held(asking)
        self.server.recover()
        self.assert_ends(asking)
        self.assertEqual(self.status, 200)

    def test_each_bad_body_is_as_bad_as_its_name_says(self):
        def body(how):
            self.server.fail(how)
            return self.ask()[1]

        self.assertEqual(body("empty"), b"")
        self.assertTrue(body("html").startswith(b"<html>"))
        self.assertGreater(len(body("huge")), HUGE_BYTES)
        self.assertEqual(body("nested").count(b"["), NESTED_LEVELS)
        self.assertIn(b"NaN", body("nan"))
        self.assertIn(b"1e999", body("infinite"))
        self.assertIsNone(json.loads(body("null"))["elements"][0]["lat"])
        self.assertIsInstance(json.loads(body("wrong types"))["elements"][0]["id"], list)

    def test_a_truncated_answer_breaks_off(self):
        self.server.fail("truncated")
        with self.assertRaises(http.client.IncompleteRead):
            self.ask()

    def test_redirects_have_no_end(self):
        self.server.fail("redirects")
        with self.assertRaisesRegex(urllib.error.HTTPError, "infinite loop"):
            urllib.request.urlopen(self.request(), timeout=PATIENCE_SECONDS)

    def test_silence_and_drip_last_until_it_recovers(self):
        for how in ("silence", "drip"):
            with self.subTest(how=how):
                self.server.fail(how)
                asking = self.asked()
                self.assert_held(asking)
                self.server.recover()
                self.assert_ends(asking)
                self.assertEqual(self.ask()[0], 200)

    def test_nobody_listens_while_it_is_away(self):
        self.server.vanish()
        with self.assertRaisesRegex(urllib.error.URLError, "refused"):
            self.ask()
        self.server.come_back()
        self.assertEqual(self.ask()[0], 200)

    def test_it_can_vanish_in_the_middle_of_an_answer(self):
        self.server.slow(PATIENCE_SECONDS)
        asking = self.asked()
        self.server.vanish()
        self.assert_ends(asking)
        self.assertIsNone(self.status)

    def test_it_keeps_the_requests(self):
        self.ask()
        self.assertEqual(self.server.requests[0].form["data"], QUERY)
        self.assertEqual(self.server.requests[0].agent, AGENT)

    def test_an_unknown_failure_is_refused(self):
        for how in ("dragons", 200, 600):
            with self.assertRaises(ValueError):
                self.server.fail(how)


if __name__ == "__main__":
    unittest.main()

"""The district's data has the properties that its notes describe."""

import unittest

from district import District
from geodesy import geodesic_meters, spherical_meters

RADIUS = 100
MICROMETRE = 1e-6


class GeodesyTest(unittest.TestCase):
    def test_distances_are_those_of_the_ellipsoid(self):
        here = (10.7769, 106.7009)
        # The distances come from the GeographicLib library.
        for there, meters in (((10.77835, 106.7009), 160.38901485),
                              ((10.7769, 106.7019), 109.36891763),
                              ((21.03, 105.85), 1138251.20853904), (here, 0)):
            self.assertAlmostEqual(geodesic_meters(here, there), meters, 6)

    def test_the_sphere_is_off_by_less_than_a_metre_in_a_hundred(self):
        here, north, east = (10.7769, 106.7009), (10.7778, 106.7009), (10.7769, 106.7018)
        for there in (north, east):
            error = spherical_meters(here, there) - geodesic_meters(here, there)
            self.assertNotAlmostEqual(error, 0, 2)
            self.assertAlmostEqual(error, 0, 0)


class DistrictTest(unittest.TestCase):
    def setUp(self):
        self.district = District()

    def place(self, name):
        return next(place for place in self.district.places if place.name == name)

    def test_the_nearest_cafes_come_in_the_order_of_their_distance(self):
        self.assertEqual(
            [cafe.name for cafe in self.district.cafes_within(RADIUS)],
            ["Cà phê Gió Sông", None, None, 'Tiệm "Góc" \\ <b>47</b> & Bạn',
             "Sân Trong – Cà phê & Sách", "Trăm Mét"],
        )

    def test_one_cafe_lies_at_exactly_a_hundred_metres(self):
        meters = self.district.distance(self.place("Trăm Mét"))
        self.assertLessEqual(meters, RADIUS)
        self.assertAlmostEqual(meters, RADIUS, delta=MICROMETRE)

    def test_one_cafe_lies_a_centimetre_beyond_a_hundred_metres(self):
        meters = self.district.distance(self.place("Hụt Một Gang"))
        self.assertAlmostEqual(meters, RADIUS + 0.01, delta=MICROMETRE)

    def test_one_cafe_reaches_into_the_circle_but_has_its_centre_outside(self):
        house = self.place("Nhà Dài")
        self.assertTrue(house.reaches(self.district.position, RADIUS))
        self.assertGreater(self.district.distance(house), RADIUS)

    def test_several_places_lie_outside_the_requested_circle(self):
        beyond = [place for place in self.district.places
                  if not place.reaches(self.district.position, RADIUS + 1)]
        self.assertGreaterEqual(len(beyond), 3)

    def test_each_place_has_an_identifier_of_its_own(self):
        identifiers = [place.identifier for place in self.district.places]
        self.assertEqual(len(set(identifiers)), len(identifiers))

    def test_each_kind_of_place_is_near(self):
        near = {cafe.type for cafe in self.district.cafes_within(RADIUS)}
        self.assertEqual(near, {"node", "way", "relation"})

    def test_the_networks_are_of_every_kind(self):
        points = self.district.networks["access_points"]
        names = [point["name"] for point in points]
        self.assertEqual({point["security"] for point in points}, {"open", "wpa2", "wpa3"})
        self.assertIn("", names)
        self.assertGreater(names.count(self.district.networks["joined"]), 1)


if __name__ == "__main__":
    unittest.main()

"""The contents of the district: an invented quarter of Saigon, stored in district.json.

Every entry of the map has an identifier, made of its type and number. The poorest entry has only a
category besides.
"""

import dataclasses
import json
import pathlib

from geodesy import geodesic_meters, spherical_meters

DATA = pathlib.Path(__file__).with_name("district.json")


@dataclasses.dataclass(frozen=True)
class Place:
    """A node, or a way or relation with its outline; points are (latitude, longitude)."""

    type: str
    id: int
    points: tuple
    tags: dict

    @property
    def identifier(self):
        return f"{self.type}/{self.id}"

    @property
    def name(self):
        return self.tags.get("name")

    @property
    def centre(self):
        """The middle of the box around the place, rounded to the seven decimals of the map."""
        latitudes, longitudes = zip(*self.points)
        return tuple(round((min(side) + max(side)) / 2, 7) for side in (latitudes, longitudes))

    def reaches(self, centre, radius):
        """Whether any of its points lies within the circle, on the sphere of the map service."""
        return any(spherical_meters(centre, point) <= radius for point in self.points)


class District:
    def __init__(self, data=DATA):
        content = json.loads(pathlib.Path(data).read_text(encoding="utf-8"))
        where = content["position"]
        self.position = (where["latitude"], where["longitude"])
        self.accuracy = where["accuracy"]
        self.map_time = content["map_time"]
        self.places = [self._place(entry) for entry in content["places"]]
        self.weather = content["weather"]
        self.networks = content["networks"]

    def distance(self, place):
        """From the district's position to the middle of the place, in metres."""
        return geodesic_meters(self.position, place.centre)

    def cafes_within(self, meters):
        """The cafés that the program has to find, nearest first."""
        cafes = [place for place in self.places if place.tags["amenity"] == "cafe"]
        return sorted((c for c in cafes if self.distance(c) <= meters), key=self.distance)

    @staticmethod
    def _place(entry):
        points = [entry["at"]] if "at" in entry else entry["outline"]
        return Place(entry["type"], entry["id"], tuple(map(tuple, points)), entry["tags"])

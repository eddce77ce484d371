"""The map service of the district. It reads and answers queries like an Overpass server."""

import html
import re

from replies import HTML, Reply, json_reply

PATH = "/api/interpreter"
NUMBER = r"(-?\d+(?:\.\d+)?)"
SETTINGS = re.compile(r"((?:\[\w+:\w+\])*);")
SEARCH = re.compile(
    r'(nwr|node|way|relation|rel)\["?amenity"?="?(\w+)"?\]'
    rf"\(around:{NUMBER},{NUMBER},{NUMBER}\);"
)
OUTPUT = re.compile(r"out((?:\w+)*);")
OUTPUT_WORDS = ("tags", "center")
TYPES = {"nwr": ("node", "way", "relation"), "rel": ("relation",)}
# Programs that do not name themselves are refused.
STOCK_AGENT = re.compile(r"$|mozilla|curl|wget|python|qt\b|java", re.IGNORECASE)
BUSY = {
    429: "runtime error: open64: 0 Success /osm3s_osm_base Dispatcher_Client::"
    "request_read_and_idx::rate_limited. Please check /api/status for the quota of your address.",
    504: "runtime error: open64: 0 Success /osm3s_osm_base Dispatcher_Client::"
    "request_read_and_idx::timeout. The server is probably too busy to handle your request.",
}
PAGE = """<?xml version="1.0" encoding="UTF-8"?>
<html xmlns="http://www.w3.org/1999/xhtml" xml:lang="en" lang="en">
<head><title>OSM3S Response</title></head>
<body>
<p><strong style="color:#FF0000">Error</strong>: {} </p>
</body>
</html>
"""


class QueryError(ValueError):
    """The query cannot be answered."""


class Overpass:
    path = PATH

    def __init__(self, district):
        self._district = district

    def answer(self, request):
        if STOCK_AGENT.match(request.agent):
            return Reply(406, HTML, b"Not Acceptable")
        if request.path != PATH:
            return Reply(404, HTML, b"Not Found")
        try:
            return self._found(*read_query(request.form.get("data", "")))
        except QueryError as problem:
            return error_page(400, f"line 1: parse error: {problem}")

    def error(self, status):
        return error_page(status, BUSY.get(status, "runtime error"))

    def remark(self):
        """The reply to a search that failed while it ran: well-formed, with status 200 and without
        a result."""
        sentence = 'runtime error: Query timed out in "query" at line 1 after 16 seconds.'
        return json_reply({**self._envelope([]), "remark": sentence})

    def strange(self, value):
        """The usual reply with one value in place of a coordinate, a name and a number."""
        entry = {"type": "node", "id": value, "lat": value, "lon": value}
        return json_reply(self._envelope([{**entry, "tags": {"amenity": "cafe", "name": value}}]))

    def _found(self, kinds, amenity, centre, radius, words):
        found = [
            element(place, words) for kind in kinds for place in self._district.places
            if place.type == kind and place.tags.get("amenity") == amenity
            and place.reaches(centre, radius)
        ]
        return json_reply(self._envelope(found))

    def _envelope(self, elements):
        return {
            "version": 0.6,
            "generator": "Overpass API 0.7.62.8",
            "osm3s": {
                "timestamp_osm_base": self._district.map_time,
                "copyright": "The data included in this document is from a district that "
                "does not exist.",
            },
            "elements": elements,
        }


def read_query(text):
    """The types, the amenity, the circle and the words of output that a query asks for."""
    rest = re.sub(r"\s+", "", text)
    settings, rest = take(SETTINGS, rest, "settings")
    if "[out:json]" not in settings[1]:
        raise QueryError("the district answers in JSON alone")
    search, rest = take(SEARCH, rest, "search")
    output, rest = take(OUTPUT, rest, "output")
    words = re.findall("|".join(OUTPUT_WORDS), output[1])
    if rest or "".join(words) != output[1]:
        raise QueryError(f"unexpected: {rest or output[1]}")
    kinds = TYPES.get(search[1], (search[1],))
    radius, *centre = map(float, search.groups()[2:])
    return kinds, search[2], tuple(centre), radius, words


def take(pattern, text, what):
    match = pattern.match(text)
    if not match:
        raise QueryError(f"{what} expected: {text[:40]}")
    return match, text[match.end():]


def element(place, words):
    """A place as the service prints it. Its position is printed only if the query asks for the
    centre."""
    printed = {"type": place.type, "id": place.id}
    if "center" in words:
        latitude, longitude = place.centre
        where = {"lat": latitude, "lon": longitude}
        printed.update(where if place.type == "node" else {"center": where})
    if "tags" in words:
        printed["tags"] = place.tags
    return printed


def error_page(status, sentence):
    return Reply(status, HTML, PAGE.format(html.escape(sentence)).encode())

"""The weather service of the district, with the interface of Open-Meteo and one weather
everywhere."""

import datetime

from replies import json_reply

PATH = "/v1/forecast"
INTERVAL_SECONDS = 900
GRID_DEGREES = 0.125
LIMITS = {"latitude": 90, "longitude": 180}
UNITS = {
    "temperature_2m": "°C", "apparent_temperature": "°C", "weather_code": "wmo code",
    "is_day": "", "wind_speed_10m": "km/h",
}
REASONS = {
    429: "Minutely API request limit exceeded. Please try again in one minute.",
    500: "Internal Server Error",
}


class QueryError(ValueError):
    """A parameter is missing, unknown or invalid."""


class OpenMeteo:
    # Programs get the address of the server, and add the path themselves.
    path = ""

    def __init__(self, district):
        self._district = district

    def answer(self, request):
        if request.path != PATH or request.method != "GET":
            return refusal(404, "Not Found")
        try:
            where = {name: read_degrees(request.query, name) for name in LIMITS}
            return json_reply(self._forecast(where, read_variables(request.query)))
        except QueryError as problem:
            return refusal(400, str(problem))

    def error(self, status):
        return refusal(status, REASONS.get(status, "Service unavailable"))

    def strange(self, value):
        """The usual reply with one value in place of every measurement."""
        return json_reply({"current": dict.fromkeys(UNITS, value)})

    def _forecast(self, where, variables):
        now = datetime.datetime.now(datetime.timezone.utc).timestamp()
        quarter = now - now % INTERVAL_SECONDS
        time = datetime.datetime.fromtimestamp(quarter, datetime.timezone.utc)
        weather = {name: self._district.weather[name] for name in variables}
        return {
            **{name: round(value / GRID_DEGREES) * GRID_DEGREES for name, value in where.items()},
            "generationtime_ms": 0.05,
            "utc_offset_seconds": 0,
            "timezone": "GMT",
            "timezone_abbreviation": "GMT",
            "elevation": 9.0,
            "current_units": {
                "time": "iso8601", "interval": "seconds", **{n: UNITS[n] for n in variables}
            },
            "current": {
                "time": time.strftime("%Y-%m-%dT%H:%M"), "interval": INTERVAL_SECONDS, **weather
            },
        }


def read_degrees(query, name):
    try:
        value = float(query[name])
    except (KeyError, ValueError):
        raise QueryError(f"Parameter '{name}' is missing or not a number.") from None
    limit = LIMITS[name]
    if not -limit <= value <= limit:
        raise QueryError(f"{name.title()} must be in range of -{limit} to {limit}°: {value}.")
    return value


def read_variables(query):
    extra = set(query) - {*LIMITS, "current"}
    if extra:
        raise QueryError(f"Unknown parameter {min(extra)}.")
    variables = query.get("current", "").split(",")
    for name in variables:
        if name not in UNITS:
            raise QueryError(f"Cannot initialize a variable from invalid value '{name}'.")
    return variables


def refusal(status, reason):
    return json_reply({"error": True, "reason": reason}, status)

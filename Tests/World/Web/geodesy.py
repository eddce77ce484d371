"""Distances between two points of the district, in metres; points are (latitude, longitude)."""

from math import atan, atan2, cos, radians, sin, sqrt, tan

EQUATOR_METERS = 6378137.0
FLATTENING = 1 / 298.257223563
POLE_METERS = EQUATOR_METERS * (1 - FLATTENING)
STEPS = 100
ENOUGH = 1e-14
# The map service measures on a sphere with a girth of 40,000 km.
SPHERE_METERS = 40_000_000 / (2 * 3.141592653589793)


def spherical_meters(one, other):
    """The distance as the map service measures it. It is up to half a per cent off."""
    latitude, beyond = radians(one[0]), radians(other[0])
    width = sin(radians(other[1] - one[1]) / 2)
    height = sin((beyond - latitude) / 2)
    half = sqrt(height**2 + cos(latitude) * cos(beyond) * width**2)
    return 2 * SPHERE_METERS * atan2(half, sqrt(1 - half**2))


def geodesic_meters(one, other):
    """The distance on the WGS-84 ellipsoid, by Vincenty's inverse solution, for points that are not
    opposite."""
    u1 = atan((1 - FLATTENING) * tan(radians(one[0])))
    u2 = atan((1 - FLATTENING) * tan(radians(other[0])))
    apart = angle = radians(other[1] - one[1])
    for _ in range(STEPS):
        across = cos(u2) * sin(angle)
        along = cos(u1) * sin(u2) - sin(u1) * cos(u2) * cos(angle)
        sin_arc = sqrt(across**2 + along**2)
        if sin_arc == 0:
            return 0.0
        cos_arc = sin(u1) * sin(u2) + cos(u1) * cos(u2) * cos(angle)
        arc = atan2(sin_arc, cos_arc)
        sin_azimuth = cos(u1) * cos(u2) * sin(angle) / sin_arc
        cos2_azimuth = 1 - sin_azimuth**2
        middle = cos_arc - 2 * sin(u1) * sin(u2) / cos2_azimuth if cos2_azimuth else 0.0
        c = FLATTENING / 16 * cos2_azimuth * (4 + FLATTENING * (4 - 3 * cos2_azimuth))
        previous, angle = angle, apart + (1 - c) * FLATTENING * sin_azimuth * (
            arc + c * sin_arc * (middle + c * cos_arc * (2 * middle**2 - 1))
        )
        if abs(angle - previous) < ENOUGH:
            break
    return arc_meters(arc, sin_arc, cos_arc, cos2_azimuth, middle)


def arc_meters(arc, sin_arc, cos_arc, cos2_azimuth, middle):
    """Converts an arc on the auxiliary sphere into its length on the ellipsoid."""
    u2 = cos2_azimuth * (EQUATOR_METERS**2 - POLE_METERS**2) / POLE_METERS**2
    a = 1 + u2 / 16384 * (4096 + u2 * (-768 + u2 * (320 - 175 * u2)))
    b = u2 / 1024 * (256 + u2 * (-128 + u2 * (74 - 47 * u2)))
    inner = cos_arc * (2 * middle**2 - 1)
    inner -= b / 6 * middle * (4 * sin_arc**2 - 3) * (4 * middle**2 - 3)
    return POLE_METERS * a * (arc - b * sin_arc * (middle + b / 4 * inner))

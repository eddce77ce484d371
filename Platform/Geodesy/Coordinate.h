#pragma once

namespace quorvel {

/// A point on the WGS-84 ellipsoid, in degrees.
struct Coordinate
{
    double latitude = 0;
    double longitude = 0;

    friend bool operator==(const Coordinate &, const Coordinate &) = default;
};

} // namespace quorvel

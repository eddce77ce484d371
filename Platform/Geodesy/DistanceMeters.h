#pragma once

#include "Platform/Geodesy/Coordinate.h"

namespace quorvel {

/// How far apart two points are on the surface of the WGS-84 ellipsoid, for whoever compares a
/// distance with a bound: a sphere would be half a metre off at a hundred metres. Not a number
/// where a coordinate is none, or a latitude is beyond a pole.
[[nodiscard]] double distanceMeters(Coordinate a, Coordinate b);

} // namespace quorvel

#pragma once

#include "Platform/Geodesy/Coordinate.h"

namespace quorvel {

/// The distance of two points on the surface of the WGS-84 ellipsoid, in metres. On a sphere it
/// would be wrong by half a metre at a hundred metres, which matters for a bound. Not a number if a
/// coordinate is not one, or if a latitude is beyond a pole.
[[nodiscard]] double distanceMeters(Coordinate a, Coordinate b);

} // namespace quorvel

#include "Platform/Geodesy/DistanceMeters.h"

#include <GeographicLib/Geodesic.hpp>

namespace quorvel {

double distanceMeters(Coordinate a, Coordinate b)
{
    double meters = 0;
    GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude, b.longitude,
                                             meters);
    return meters;
}

} // namespace quorvel

#pragma once

#include "Platform/Clock/Calendar.h"

namespace quorvel {

/// A position of the machine, from a location service.
struct Location
{
    /// In degrees on the WGS-84 ellipsoid.
    double latitude = 0;
    double longitude = 0;
    double accuracyMeters = 0;
    Instant timestamp;

    friend bool operator==(const Location &, const Location &) = default;
};

} // namespace quorvel

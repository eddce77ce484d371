#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/PointsOfInterest/PointOfInterest.h"

#include <vector>

namespace quorvel {

enum class PointOfInterestCategory { Cafe };

/// What to look for, and where.
struct PointsOfInterestRequest
{
    Coordinate center;
    double radiusMeters = 0;
    std::vector<PointOfInterestCategory> categories;

    friend bool operator==(const PointsOfInterestRequest &,
                           const PointsOfInterestRequest &) = default;
};

/// Finds the map's places by category, for the places service.
class PointsOfInterestSearch
{
public:
    virtual ~PointsOfInterestSearch() = default;

    /// Finds the places of these categories around a point, in no order. Some may lie slightly
    /// outside the radius. Fails with PointsOfInterestError.
    virtual void search(const PointsOfInterestRequest &request,
                        Completion<std::vector<PointOfInterest>> completion) = 0;
};

} // namespace quorvel

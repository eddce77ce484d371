#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Models/PlaceCandidate.h"

#include <vector>

namespace quorvel {

/// Finds the cafés around the user, for the main loop.
class PlacesService
{
public:
    virtual ~PlacesService() = default;

    /// Returns cafés in the order of the search. Some may lie slightly outside the radius. Throws
    /// AppError.
    [[nodiscard]] virtual Task<std::vector<PlaceCandidate>> nearbyCafes(Coordinate around,
                                                                        double radiusMeters) = 0;
};

} // namespace quorvel

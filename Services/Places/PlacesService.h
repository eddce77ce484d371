#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Models/PlaceCandidate.h"

#include <vector>

namespace quorvel {

/// The cafés around the user, for the main loop.
class PlacesService
{
public:
    virtual ~PlacesService() = default;

    /// In the order of the search; some may lie a little beyond the radius. Throws AppError.
    [[nodiscard]] virtual Task<std::vector<PlaceCandidate>> nearbyCafes(Coordinate around,
                                                                        double radiusMeters) = 0;
};

} // namespace quorvel

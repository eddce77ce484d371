#pragma once

#include "Models/PlaceCandidate.h"

#include <vector>

/// Orders the places that a search found, for the main loop.
namespace quorvel::PlacesRanking {

/// Returns the places within the radius (inclusive), nearest first. Equal distances keep the order
/// of the search. A distance that is not a number is outside every radius.
[[nodiscard]] std::vector<PlaceCandidate> sortedWithinRadius(std::vector<PlaceCandidate> candidates,
                                                             double radiusMeters);

} // namespace quorvel::PlacesRanking

#pragma once

#include "Models/PlaceCandidate.h"

#include <vector>

/// The order of the places that a search found, for the main loop.
namespace quorvel::PlacesRanking {

/// Those within the radius, which is inclusive, nearest first. Equal distances keep the order of
/// the search; a distance that is not a number is within no radius.
[[nodiscard]] std::vector<PlaceCandidate> sortedWithinRadius(std::vector<PlaceCandidate> candidates,
                                                             double radiusMeters);

} // namespace quorvel::PlacesRanking

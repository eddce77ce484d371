#include "Services/Places/PlacesRanking.h"

#include <algorithm>

namespace quorvel::PlacesRanking {

std::vector<PlaceCandidate> sortedWithinRadius(std::vector<PlaceCandidate> candidates,
                                               double radiusMeters)
{
    std::erase_if(candidates, [radiusMeters](const PlaceCandidate &candidate) {
        return !(candidate.distanceMeters <= radiusMeters);
    });
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const PlaceCandidate &left, const PlaceCandidate &right) {
                         return left.distanceMeters < right.distanceMeters;
                     });
    return candidates;
}

} // namespace quorvel::PlacesRanking

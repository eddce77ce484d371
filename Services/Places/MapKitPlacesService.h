#pragma once

#include "Platform/Geodesy/Coordinate.h"
#include "Platform/PointsOfInterest/PointsOfInterestSearch.h"
#include "Services/Places/PlacesService.h"

#include <array>
#include <vector>

namespace quorvel {

/// Searches the platform's map for the cafés around the user, as candidates for a check-in.
class MapKitPlacesService final : public PlacesService
{
public:
    /// Deliberate: cafés only, no restaurants or bakeries.
    static constexpr std::array defaultCategories{PointOfInterestCategory::Cafe};

    /// The map must outlive every call.
    explicit MapKitPlacesService(PointsOfInterestSearch &map)
        : m_map(&map)
    {}

    [[nodiscard]] Task<std::vector<PlaceCandidate>> nearbyCafes(Coordinate around,
                                                                double radiusMeters) override;

private:
    using MapItems = std::vector<PointOfInterest>;

    [[nodiscard]] static Task<std::vector<PlaceCandidate>>
    nearbyCafes(PointsOfInterestSearch *map, Coordinate around, double radiusMeters);
    [[nodiscard]] static Task<MapItems> search(PointsOfInterestSearch *map, Coordinate around,
                                               double radiusMeters);
    [[nodiscard]] static std::vector<PlaceCandidate> candidates(const MapItems &from,
                                                                Coordinate around);

    PointsOfInterestSearch *m_map;
};

} // namespace quorvel

#include "Services/Places/MapKitPlacesService.h"

#include "Core/Support/AppError.h"
#include "Core/Support/Texts/ShortestDecimal.h"
#include "Platform/Geodesy/DistanceMeters.h"
#include "Platform/PointsOfInterest/PointsOfInterestError.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

QString name(const PointOfInterest &item)
{
    return item.name.value_or(u"Unnamed"_s);
}

/// Identifies an item without an identifier by what a user sees of it.
QString id(const PointOfInterest &item)
{
    if (item.identifier)
        return *item.identifier;
    return name(item) + u'@' + shortestDecimal(item.coordinate.latitude) + u',' +
           shortestDecimal(item.coordinate.longitude);
}

QString category(const PointOfInterest &item)
{
    return item.category ? QString(*item.category).remove(u"MKPOICategory"_s) : u"?"_s;
}

PlaceCandidate candidate(const PointOfInterest &item, Coordinate around)
{
    return {.id = id(item),
            .name = name(item),
            .latitude = item.coordinate.latitude,
            .longitude = item.coordinate.longitude,
            .distanceMeters = distanceMeters(around, item.coordinate),
            .category = category(item),
            .address = item.address,
            .mapItemIdentifier = item.identifier};
}

} // namespace

Task<std::vector<PlaceCandidate>> MapKitPlacesService::nearbyCafes(Coordinate around,
                                                                   double radiusMeters)
{
    // Lifetime: an open call uses the map and may outlive the service.
    return nearbyCafes(m_map, around, radiusMeters);
}

Task<std::vector<PlaceCandidate>> MapKitPlacesService::nearbyCafes(PointsOfInterestSearch *map,
                                                                   Coordinate around,
                                                                   double radiusMeters)
{
    const auto items = co_await search(map, around, radiusMeters);
    auto found = candidates(items, around);
    co_return found;
}

Task<std::vector<PointOfInterest>>
MapKitPlacesService::search(PointsOfInterestSearch *map, Coordinate around, double radiusMeters)
{
    Pending<MapItems> pending;
    map->search({.center = around,
                 .radiusMeters = radiusMeters,
                 .categories = {defaultCategories.begin(), defaultCategories.end()}},
                pending.completion());
    try {
        auto items = co_await pending;
        co_return items;
    } catch (const PointsOfInterestError &error) {
        throw AppError::network(error.errorDescription());
    }
}

std::vector<PlaceCandidate> MapKitPlacesService::candidates(const MapItems &from, Coordinate around)
{
    std::vector<PlaceCandidate> result;
    result.reserve(from.size());
    std::transform(from.begin(), from.end(), std::back_inserter(result),
                   [around](const PointOfInterest &item) { return candidate(item, around); });
    return result;
}

} // namespace quorvel

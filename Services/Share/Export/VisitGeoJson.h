#pragma once

#include "Models/CheckIn.h"

#include <QJsonObject>

/// Visits for a map, as GeoJSON (RFC 7946).
namespace quorvel::VisitGeoJson {

/// A feature at the café's position. Its geometry is null without a café, and for an impossible
/// position.
[[nodiscard]] QJsonObject feature(const CheckIn &visit);

} // namespace quorvel::VisitGeoJson

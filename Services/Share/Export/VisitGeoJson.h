#pragma once

#include "Models/CheckIn.h"

#include <QJsonObject>

/// Visits for a map, by RFC 7946.
namespace quorvel::VisitGeoJson {

/// A feature at the café's place. Its geometry is null where there is no café, or none on earth.
[[nodiscard]] QJsonObject feature(const CheckIn &visit);

} // namespace quorvel::VisitGeoJson

#pragma once

#include "Platform/Geodesy/Coordinate.h"

#include <QString>

#include <optional>

namespace quorvel {

/// A place on the map, as the map's provider describes it.
struct PointOfInterest
{
    std::optional<QString> identifier = {}; ///< stable, the provider's own
    std::optional<QString> name = {};
    Coordinate coordinate = {};
    std::optional<QString> category = {}; ///< the platform's word, such as "MKPOICategoryCafe"
    std::optional<QString> address = {};  ///< in full, on one line

    friend bool operator==(const PointOfInterest &, const PointOfInterest &) = default;
};

} // namespace quorvel

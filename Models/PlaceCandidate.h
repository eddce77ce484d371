#pragma once

#include "Platform/Geodesy/Coordinate.h"

#include <QString>

#include <optional>

namespace quorvel {

/// A nearby place from a search. It is never stored.
struct PlaceCandidate
{
    QString id = {}; ///< its identity within one search result
    QString name = {};
    double latitude = 0;       ///< degrees
    double longitude = 0;      ///< degrees
    double distanceMeters = 0; ///< from the user's location at search time
    QString category = {};
    std::optional<QString> address = {};
    /// The map's stable identifier. It finds the place's `Cafe` again.
    std::optional<QString> mapItemIdentifier = {};

    [[nodiscard]] Coordinate coordinate() const { return {latitude, longitude}; }

    friend bool operator==(const PlaceCandidate &, const PlaceCandidate &) = default;
};

} // namespace quorvel

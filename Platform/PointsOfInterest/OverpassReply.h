#pragma once

#include "Platform/PointsOfInterest/PointOfInterest.h"

#include <QByteArray>

#include <vector>

/// Reads the answers of the Overpass interface, for the search.
namespace quorvel::OverpassReply {

/// Returns the places in the answer's order and skips elements without a position. Throws
/// PointsOfInterestError: Unreadable if the body is not an answer, Busy if the server gave up.
[[nodiscard]] std::vector<PointOfInterest> pointsOfInterest(const QByteArray &body);

} // namespace quorvel::OverpassReply

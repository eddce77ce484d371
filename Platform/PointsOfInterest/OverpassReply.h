#pragma once

#include "Platform/PointsOfInterest/PointOfInterest.h"

#include <QByteArray>

#include <vector>

/// The notation of the Overpass interface's answers, for the search that asks it.
namespace quorvel::OverpassReply {

/// The places of an answer in its order; elements without a position are passed over. Throws
/// PointsOfInterestError: Unreadable for what is no answer, Busy for one that the server gave up.
[[nodiscard]] std::vector<PointOfInterest> pointsOfInterest(const QByteArray &body);

} // namespace quorvel::OverpassReply

#pragma once

#include "Services/Wifi/WifiModels.h"

/// Picks the networks of a scan that the check-in screen lists.
namespace quorvel::WifiNetworkRanking {

/// Returns the strongest networks, strongest first, each name once with its best strength. Networks
/// of equal strength keep their order. A negative limit ends the program.
[[nodiscard]] QList<WifiNetwork> dedupeAndTop(const QList<WifiNetwork> &networks, qint64 limit);

} // namespace quorvel::WifiNetworkRanking

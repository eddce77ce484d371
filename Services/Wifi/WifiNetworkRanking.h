#pragma once

#include "Services/Wifi/WifiModels.h"

/// Makes the short list that the check-in screen shows of all that a scan heard.
namespace quorvel::WifiNetworkRanking {

/// The strongest networks, strongest first, each name once with its best strength. Equally strong
/// ones keep their order. A negative limit ends the program.
[[nodiscard]] QList<WifiNetwork> dedupeAndTop(const QList<WifiNetwork> &networks, qint64 limit);

} // namespace quorvel::WifiNetworkRanking

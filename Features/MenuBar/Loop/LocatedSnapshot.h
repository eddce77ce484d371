#pragma once

#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Services/Wifi/WifiModels.h"

#include <optional>
#include <vector>

namespace quorvel {

/// The result of one round of the daily loop, for the check-in screen.
struct LocatedSnapshot
{
    /// The café of the visit; absent if none was found.
    std::optional<PlaceCandidate> selectedCafe = {};
    std::vector<PlaceCandidate> nearbyCandidates = {}; ///< nearest first
    /// The weather at the nearest café; absent if unavailable.
    std::optional<WeatherSnapshot> weather = {};
    /// The network that the machine is on, with its strength.
    std::optional<QString> ssid = {};
    bool hasRememberedPassword = false; ///< whether our keychain has that network's password
    std::optional<WifiSignal> signal = {};

    friend bool operator==(const LocatedSnapshot &, const LocatedSnapshot &) = default;
};

} // namespace quorvel

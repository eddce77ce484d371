#pragma once

#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Services/Wifi/WifiModels.h"

#include <optional>
#include <vector>

namespace quorvel {

/// What one round of the daily loop found out, for the check-in screen.
struct LocatedSnapshot
{
    /// The café that the visit is about; absent when none could be found.
    std::optional<PlaceCandidate> selectedCafe = {};
    std::vector<PlaceCandidate> nearbyCandidates = {}; ///< nearest first
    /// At the café that was found nearest; absent when unavailable.
    std::optional<WeatherSnapshot> weather = {};
    /// The network that the machine is joined to, with its strength.
    std::optional<QString> ssid = {};
    bool hasRememberedPassword = false; ///< whether our keychain has that network's password
    std::optional<WifiSignal> signal = {};

    friend bool operator==(const LocatedSnapshot &, const LocatedSnapshot &) = default;
};

} // namespace quorvel

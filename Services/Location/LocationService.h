#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Location/LocationManager.h"

namespace quorvel {

/// Finds the user's position, for the main loop and the diagnostics. One request gets one answer.
/// Main thread only.
class LocationService
{
public:
    virtual ~LocationService() = default;

    /// Returns the status if it is already determined, else the user's decision. A refusal is a
    /// status, never an error.
    [[nodiscard]] virtual Task<AuthorizationStatus> requestAuthorization() = 0;

    /// Returns one position. Throws AppError: `locationDenied` at once unless the status is
    /// "authorized always", `locationFailed` with the platform's description.
    [[nodiscard]] virtual Task<Location> currentLocation() = 0;
};

} // namespace quorvel

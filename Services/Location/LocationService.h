#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Location/LocationManager.h"

namespace quorvel {

/// Where the user is, for the main loop and the diagnostics: asked once, answered once. Everything
/// happens on the main thread.
class LocationService
{
public:
    virtual ~LocationService() = default;

    /// The status when it is determined already, else what the user decides. A refusal is a status,
    /// never an error.
    [[nodiscard]] virtual Task<AuthorizationStatus> requestAuthorization() = 0;

    /// One position. Throws AppError: `locationDenied` at once while the status is anything but
    /// authorized always, `locationFailed` with the platform's words.
    [[nodiscard]] virtual Task<Location> currentLocation() = 0;
};

} // namespace quorvel

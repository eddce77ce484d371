#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include <functional>

namespace quorvel {

class CheckInRepository;
class Pasteboard;

/// Everything that the diagnostics ask. All that is pointed to outlives them.
struct ProbeRoles
{
    std::function<std::unique_ptr<LocationManager>()> makeLocationManager;
    /// Not that of the loop: a service has room for one waiter.
    LocationService &locationService;
    WifiService &wifiService;
    PlacesService &placesService;
    /// Null when the store could not be opened, and then why.
    CheckInRepository *repository;
    QString setupError;
    MenuBarViewModel::Services loop;
    Pasteboard &pasteboard;
    const Clock &clock;
};

} // namespace quorvel
